#include "documents/print/invoice_columns.h"
#include "documents/print/invoice_design.h"
#include "documents/print/invoice_slip.h"

namespace velmo::documents {

using namespace printing;

// 80 mm roll, with the discount of every line.
Report designInvoice6(const InvoiceSheet& sheet, const InvoiceLines& lines) {
  InvoiceSlip slip{
      .totals = {.discountWord = "Discount  ", .amountFormat = SlipAmount, .discountFormat = SlipDeduction}};
  slip.figures = {quantityColumn(sheet, mm(14), SlipAmount), rateColumn(mm(15), SlipAmount),
                  discountColumn(mm(15), SlipAmount), netColumn("Amount", mm(18), SlipAmount)};
  return invoiceOnSlip(slip, sheet, lines);
}

}  // namespace velmo::documents
