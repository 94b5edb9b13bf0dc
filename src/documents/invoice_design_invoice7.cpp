#include "documents/invoice_design.h"
#include "documents/invoice_slip.h"

namespace velmo::documents {

using namespace printing;

// 80 mm roll, without a discount column.
Report designInvoice7(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoiceSlip slip{.totals = {.discountWord = "Discount  ",
                              .receivedWord = "Received  ",
                              .amountFormat = SlipAmount,
                              .discountFormat = SlipDeduction,
                              .lineDiscounts = LineDiscounts::AmongTotals}};
  slip.figures = {
      {.heading = "Quantity", .dataField = "stockout", .width = mm(16), .align = Align::Right, .format = SlipAmount},
      {.heading = "Rate", .dataField = "rate", .width = mm(18), .align = Align::Right, .format = SlipAmount},
      {.heading = "Amount",
       .dataField = "grossamt",
       .width = mm(22),
       .align = Align::Right,
       .format = SlipAmount,
       .totalName = "GrossSum"}};
  return invoiceOnSlip(slip, sheet, lines);
}

}  // namespace velmo::documents
