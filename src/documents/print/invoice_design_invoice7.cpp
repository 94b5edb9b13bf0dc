#include "documents/print/invoice_columns.h"
#include "documents/print/invoice_design.h"
#include "documents/print/invoice_slip.h"

namespace velmo::documents {

using namespace printing;

// 80 mm roll, without a discount column.
Report designInvoice7(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoiceSlip slip{.totals = {.discountWord = "Discount  ",
                              .receivedWord = "Received  ",
                              .amountFormat = SlipAmount,
                              .discountFormat = SlipDeduction,
                              .lineDiscounts = LineDiscounts::AmongTotals}};
  slip.figures = {quantityColumn(sheet, mm(16), SlipAmount), rateColumn(mm(18), SlipAmount),
                  grossColumn("Amount", mm(22), SlipAmount)};
  return invoiceOnSlip(slip, sheet, lines);
}

}  // namespace velmo::documents
