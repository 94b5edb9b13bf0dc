#include "documents/print/invoice_design.h"
#include "documents/print/line_columns.h"
#include "documents/print/paper_page.h"

namespace velmo::documents {

using namespace printing;

// A4, without a discount column.
Report designInvoice0(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  PaperPage page{.tableSize = 8};
  page.columns = {numberColumn(mm(9)),          codeColumn(sheet.codeHeading(), mm(24)),
                  descriptionColumn(),          quantityColumn(sheet.quantityField(), mm(19)),
                  unitColumn(mm(13)),           rateColumn(mm(24)),
                  grossColumn("Amount", mm(28))};
  return paperOnPages(
      page, invoiceTexts(sheet, {.discountWord = "Discount  ", .lineDiscounts = LineDiscounts::AmongTotals}), lines);
}

}  // namespace velmo::documents
