#pragma once

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::vouchers {

// Ledger vouchers, one to a page for every row of the hierarchy, as the layouts `Voucher1` and `Voucher2` show them;
// the first has a column for the lines' descriptions. `vouchers` has the rows of `ParentCmd` (docno, trandate, desc,
// WordsAmt, CStatus) with their lines in the chapter `ChildCmd` (AccCode, AccName, Desc, Debit, Credit). A type of
// document without vouchers throws std::logic_error.
printing::Report voucher1Print(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                               text::DateTime today);
printing::Report voucher2Print(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                               text::DateTime today);

// The one of the two in which vouchers of the type are printed.
printing::Report voucherPrint(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                              text::DateTime today);

}  // namespace velmo::vouchers
