#pragma once

#include "printing/report.h"
#include "session/login_context.h"

namespace velmo::vouchers {

using Vouchers = std::shared_ptr<const printing::ReportData>;

// Ledger vouchers, one to a page for every row of `ParentCmd`, as the layouts `Voucher1` and `Voucher2` show them; the
// first has a column for the lines' descriptions. The rows of `ParentCmd` (docno, trandate, desc, WordsAmt, CStatus)
// have their lines in the chapter `ChildCmd` (AccCode, AccName, Desc, Debit, Credit). A type of document without
// vouchers throws std::logic_error.
printing::Report voucher1Print(const session::LoginContext& context, Vouchers vouchers, int tranType,
                               text::DateTime today);
printing::Report voucher2Print(const session::LoginContext& context, Vouchers vouchers, int tranType,
                               text::DateTime today);

// The one of the two in which vouchers of the type are printed.
printing::Report voucherPrint(const session::LoginContext& context, Vouchers vouchers, int tranType,
                              text::DateTime today);

}  // namespace velmo::vouchers
