#pragma once

#include "documents/print/invoice_sheet.h"

namespace velmo::documents {

inline constexpr const char* SlipAmount = "0.00; (0.00)";
inline constexpr const char* SlipDeduction = "(0.00); 0.00";  // of what is taken off

// How one layout of an invoice on an 80 mm roll differs from the other.
struct InvoiceSlip {
  std::vector<printing::Column> figures = {};  // stand below the name of the item
  TotalsStyle totals = {};
};

// An invoice on a roll as long as its lines, in black alone, since thermal heads know no shades. `lines` have the
// fields itemname and those of the columns.
printing::Report invoiceOnSlip(const InvoiceSlip& slip, const InvoiceSheet& sheet,
                               const std::shared_ptr<const printing::ReportData>& lines);

}  // namespace velmo::documents
