#include "documents/print/invoice_columns.h"
#include "documents/print/invoice_design.h"
#include "documents/print/invoice_page.h"

namespace velmo::documents {

using namespace printing;

// A4, with the discount of every line.
Report designInvoice(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoicePage page{.margins = {mm(10), mm(12), mm(10), mm(10)}, .partyWidth = mm(104), .referenceCaption = mm(33)};
  page.columns = {numberColumn(mm(9)),
                  codeColumn(sheet, mm(24)),
                  descriptionColumn(),
                  quantityColumn(sheet, mm(16)),
                  unitColumn(mm(11)),
                  rateColumn(mm(19)),
                  grossColumn("Gross Amount", mm(23)),
                  discountColumn(mm(18)),
                  netColumn("Net Amount", mm(23))};
  return invoiceOnPages(page, sheet, lines);
}

}  // namespace velmo::documents
