#include "documents/print/invoice_design.h"
#include "documents/print/line_columns.h"
#include "documents/print/paper_page.h"

namespace velmo::documents {

using namespace printing;

// A5 across, half an A4 sheet: low, with everything beside each other.
Report designInvoice01(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  PaperPage page{.paper = A5Landscape,
                 .margins = {mm(8), mm(7), mm(8), mm(6)},
                 .density = {.lengths = 0.78, .fonts = 0.86},
                 .tableSize = 7,
                 .partyWidth = mm(84),
                 .referenceCaption = mm(27),
                 .referenceColumns = 2,
                 .signing = SigningPlace::BesideTotals};
  page.columns = {numberColumn(mm(9)),
                  codeColumn(sheet.codeHeading(), mm(20)),
                  descriptionColumn(),
                  quantityColumn(sheet.quantityField(), mm(16)),
                  unitColumn(mm(11)),
                  rateColumn(mm(19)),
                  grossColumn("Gross Amount", mm(22)),
                  discountColumn(mm(18)),
                  netColumn("Net Amount", mm(22))};
  return paperOnPages(page, invoiceTexts(sheet), lines);
}

}  // namespace velmo::documents
