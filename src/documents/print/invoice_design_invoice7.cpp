#include "documents/print/invoice_design.h"
#include "documents/print/invoice_slip.h"
#include "documents/print/line_columns.h"

namespace velmo::documents {

using namespace printing;

// 80 mm roll, without a discount column.
Report designInvoice7(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  const PaperTexts texts = invoiceTexts(sheet, {.discountWord = "Discount  ",
                                                .receivedWord = "Received  ",
                                                .amountFormat = SlipAmount,
                                                .discountFormat = SlipDeduction,
                                                .lineDiscounts = LineDiscounts::AmongTotals});
  return invoiceOnSlip({quantityColumn(sheet.quantityField(), mm(16), SlipAmount), rateColumn(mm(18), SlipAmount),
                        grossColumn("Amount", mm(22), SlipAmount)},
                       texts, lines);
}

}  // namespace velmo::documents
