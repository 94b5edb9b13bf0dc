#include "documents/print/invoice_design.h"
#include "documents/print/invoice_slip.h"
#include "documents/print/line_columns.h"

namespace velmo::documents {

using namespace printing;

// 80 mm roll, with the discount of every line.
Report designInvoice6(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  const PaperTexts texts =
      invoiceTexts(sheet, {.discountWord = "Discount  ", .amountFormat = SlipAmount, .discountFormat = SlipDeduction});
  return invoiceOnSlip({quantityColumn(sheet.quantityField(), mm(14), SlipAmount), rateColumn(mm(15), SlipAmount),
                        discountColumn(mm(15), SlipAmount), netColumn("Amount", mm(18), SlipAmount)},
                       texts, lines);
}

}  // namespace velmo::documents
