#include "documents/print/invoice_design.h"
#include "documents/print/line_columns.h"
#include "documents/print/paper_page.h"

namespace velmo::documents {

using namespace printing;

// A4, with the discount of every line.
Report designInvoice(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  PaperPage page;
  page.columns = {numberColumn(mm(9)),
                  codeColumn(sheet.codeHeading(), mm(24)),
                  descriptionColumn(),
                  quantityColumn(sheet.quantityField(), mm(16)),
                  unitColumn(mm(11)),
                  rateColumn(mm(19)),
                  grossColumn("Gross Amount", mm(23)),
                  discountColumn(mm(18)),
                  netColumn("Net Amount", mm(23))};
  return paperOnPages(page, invoiceTexts(sheet), lines);
}

}  // namespace velmo::documents
