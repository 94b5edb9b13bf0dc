#include "documents/print/invoice_columns.h"
#include "documents/print/invoice_design.h"
#include "documents/print/invoice_page.h"

namespace velmo::documents {

using namespace printing;

// A4, without a discount column.
Report designInvoice0(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoicePage page{.margins = {mm(10), mm(12), mm(10), mm(10)},
                   .totals = {.discountWord = "Discount  ", .lineDiscounts = LineDiscounts::AmongTotals},
                   .tableSize = 8,
                   .partyWidth = mm(104),
                   .referenceCaption = mm(33)};
  page.columns = {numberColumn(mm(9)),           codeColumn(sheet, mm(24)), descriptionColumn(),
                  quantityColumn(sheet, mm(19)), unitColumn(mm(13)),        rateColumn(mm(24)),
                  grossColumn("Amount", mm(28))};
  return invoiceOnPages(page, sheet, lines);
}

}  // namespace velmo::documents
