#include "documents/invoice_design.h"
#include "documents/invoice_slip.h"

namespace velmo::documents {

using namespace printing;

// 80 mm roll, with the discount of every line.
Report designInvoice6(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoiceSlip slip{
      .totals = {.discountWord = "Discount  ", .amountFormat = SlipAmount, .discountFormat = SlipDeduction}};
  slip.figures = {
      {.heading = "Quantity", .dataField = "stockout", .width = mm(14), .align = Align::Right, .format = SlipAmount},
      {.heading = "Rate", .dataField = "rate", .width = mm(15), .align = Align::Right, .format = SlipAmount},
      {.heading = "Discount",
       .dataField = "discamt",
       .width = mm(15),
       .align = Align::Right,
       .format = SlipAmount,
       .totalName = "DiscountSum"},
      {.heading = "Amount",
       .dataField = "itemvalue",
       .width = mm(18),
       .align = Align::Right,
       .format = SlipAmount,
       .totalName = "NetSum"}};
  return invoiceOnSlip(slip, sheet, lines);
}

}  // namespace velmo::documents
