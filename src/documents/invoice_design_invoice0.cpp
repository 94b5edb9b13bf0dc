#include "documents/invoice_design.h"
#include "documents/invoice_page.h"

namespace velmo::documents {

using namespace printing;

// A4, without a discount column.
Report designInvoice0(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoicePage page{.margins = {mm(10), mm(12), mm(10), mm(10)},
                   .totals = {.discountWord = "Discount  ", .lineDiscounts = LineDiscounts::AmongTotals},
                   .tableSize = 8,
                   .partyWidth = mm(104),
                   .referenceCaption = mm(33)};
  page.columns = {
      {.heading = "No.", .dataField = "serial", .width = mm(9), .align = Align::Centre},
      {.heading = sheet.isService() ? "Service" : "Item Code", .dataField = "itemcode", .width = mm(24)},
      {.heading = "Description", .dataField = "itemname", .headingName = "lbl5"},
      {.heading = "Quantity", .dataField = "stockout", .width = mm(19), .align = Align::Right, .format = AmountFormat},
      {.heading = "Unit", .dataField = "unit", .width = mm(13)},
      {.heading = "Rate", .dataField = "rate", .width = mm(24), .align = Align::Right, .format = AmountFormat},
      {.heading = "Amount",
       .dataField = "grossamt",
       .width = mm(28),
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "GrossSum"}};
  return invoiceOnPages(page, sheet, lines);
}

}  // namespace velmo::documents
