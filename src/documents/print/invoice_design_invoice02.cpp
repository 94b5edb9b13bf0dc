#include "documents/print/invoice_design.h"
#include "documents/print/line_columns.h"
#include "documents/print/paper_page.h"

namespace velmo::documents {

using namespace printing;

// A5 upright, half an A4 sheet: the table without what a narrow page can spare.
Report designInvoice02(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  PaperPage page{.paper = A5,
                 .margins = {mm(8), mm(9), mm(8), mm(7)},
                 .density = {.lengths = 0.86, .fonts = 0.9},
                 .tableSize = 7,
                 .partyWidth = mm(66),
                 .referenceCaption = mm(30)};
  page.columns = {numberColumn(mm(8)), descriptionColumn(),    quantityColumn(sheet.quantityField(), mm(15)),
                  rateColumn(mm(17)),  discountColumn(mm(16)), netColumn("Net Amount", mm(21))};
  return paperOnPages(page, invoiceTexts(sheet), lines);
}

}  // namespace velmo::documents
