#include "documents/invoice_design.h"
#include "documents/invoice_page.h"

namespace velmo::documents {

using namespace printing;

// A4, with the discount of every line.
Report designInvoice(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoicePage page{.margins = {mm(10), mm(12), mm(10), mm(10)}, .partyWidth = mm(104), .referenceCaption = mm(33)};
  page.columns = {
      {.heading = "No.", .dataField = "serial", .width = mm(9), .align = Align::Centre},
      {.heading = sheet.isService() ? "Service" : "Item Code", .dataField = "itemcode", .width = mm(24)},
      {.heading = "Description", .dataField = "itemname", .headingName = "lbl5"},
      {.heading = "Quantity", .dataField = "stockout", .width = mm(16), .align = Align::Right, .format = AmountFormat},
      {.heading = "Unit", .dataField = "unit", .width = mm(11)},
      {.heading = "Rate", .dataField = "rate", .width = mm(19), .align = Align::Right, .format = AmountFormat},
      {.heading = "Gross Amount",
       .dataField = "grossamt",
       .width = mm(23),
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "GrossSum"},
      {.heading = "Discount",
       .dataField = "discamt",
       .width = mm(18),
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "DiscountSum"},
      {.heading = "Net Amount",
       .dataField = "itemvalue",
       .width = mm(23),
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "NetSum"}};
  return invoiceOnPages(page, sheet, lines);
}

}  // namespace velmo::documents
