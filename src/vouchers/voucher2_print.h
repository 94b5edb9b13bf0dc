#pragma once

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset.h"

namespace velmo::vouchers {

// The layout `Voucher2`: one ledger voucher to a page for every row of the hierarchy. `vouchers` has the rows of
// `ParentCmd` (docno, trandate, desc, WordsAmt, CStatus) with their lines in the chapter `ChildCmd` (AccCode, AccName,
// Debit, Credit). A type of document that posts no voucher of this layout throws std::logic_error.
printing::Report voucher2Print(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                               text::DateTime today);

}  // namespace velmo::vouchers
