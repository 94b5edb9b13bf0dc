#pragma once

#include <functional>

#include "printing/report.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::reports {

// The two layouts of ledger vouchers, which are built on a floor of their own; the catalogue of screens hands them
// over. Each takes the rows of `ParentCmd` with their lines in the chapter `ChildCmd`, and the type of document.
struct VoucherLayouts {
  using Layout =
      std::function<printing::Report(const session::LoginContext&, std::shared_ptr<const printing::ReportData> vouchers,
                                     int tranType, text::DateTime today)>;
  Layout voucher1;  // with the lines' descriptions
  Layout voucher2;
};

// Prints the ledger vouchers of one kind of document: all of the year, a period's, or a range of numbers.
QWidget* makePrintVouchers(session::Workplace& workplace, QWidget* parent, VoucherLayouts layouts);

}  // namespace velmo::reports
