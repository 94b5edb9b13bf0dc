#include "documents/invoice_design.h"
#include "documents/invoice_page.h"

namespace velmo::documents {

using namespace printing;

// A5 upright, half an A4 sheet: the table without what a narrow page can spare.
Report designInvoice02(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoicePage page{.paper = A5,
                   .margins = {mm(8), mm(9), mm(8), mm(7)},
                   .density = {.lengths = 0.86, .fonts = 0.9},
                   .tableSize = 7,
                   .partyWidth = mm(66),
                   .referenceCaption = mm(30)};
  page.columns = {
      {.heading = "No.", .dataField = "serial", .width = mm(8), .align = Align::Centre},
      {.heading = "Description", .dataField = "itemname", .headingName = "lbl5"},
      {.heading = "Quantity", .dataField = "stockout", .width = mm(15), .align = Align::Right, .format = AmountFormat},
      {.heading = "Rate", .dataField = "rate", .width = mm(17), .align = Align::Right, .format = AmountFormat},
      {.heading = "Discount",
       .dataField = "discamt",
       .width = mm(16),
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "DiscountSum"},
      {.heading = "Net Amount",
       .dataField = "itemvalue",
       .width = mm(21),
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "NetSum"}};
  return invoiceOnPages(page, sheet, lines);
}

}  // namespace velmo::documents
