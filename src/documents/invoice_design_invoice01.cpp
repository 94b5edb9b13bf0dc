#include "documents/invoice_design.h"
#include "documents/invoice_page.h"

namespace velmo::documents {

using namespace printing;

// A5 across, half an A4 sheet: low, with everything beside each other.
Report designInvoice01(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoicePage page{.paper = A5Landscape,
                   .margins = {mm(8), mm(7), mm(8), mm(6)},
                   .density = {.lengths = 0.78, .fonts = 0.86},
                   .tableSize = 7,
                   .partyWidth = mm(84),
                   .referenceCaption = mm(27),
                   .referenceColumns = 2,
                   .signing = SigningPlace::BesideTotals};
  page.columns = {
      {.heading = "No.", .dataField = "serial", .width = mm(9), .align = Align::Centre},
      {.heading = sheet.isService() ? "Service" : "Item Code", .dataField = "itemcode", .width = mm(20)},
      {.heading = "Description", .dataField = "itemname", .headingName = "lbl5"},
      {.heading = "Quantity", .dataField = "stockout", .width = mm(16), .align = Align::Right, .format = AmountFormat},
      {.heading = "Unit", .dataField = "unit", .width = mm(11)},
      {.heading = "Rate", .dataField = "rate", .width = mm(19), .align = Align::Right, .format = AmountFormat},
      {.heading = "Gross Amount",
       .dataField = "grossamt",
       .width = mm(22),
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
       .width = mm(22),
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "NetSum"}};
  return invoiceOnPages(page, sheet, lines);
}

}  // namespace velmo::documents
