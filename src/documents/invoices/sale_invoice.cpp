#include "documents/invoices/sale_invoice.h"

#include "documents/invoices/sale_invoice_type.h"
#include "documents/print/invoice_print.h"
#include "documents/print/show_print.h"
#include "frame/document/document_screen.h"

namespace velmo::documents {

namespace {

void printInvoice(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* parent) {
  const InvoiceKind kind = onScreen.field("InvTypeList") == "2" ? InvoiceKind::Service : InvoiceKind::Sale;
  showPrint(workplace, onScreen, parent, [kind](const PrintSource& source) { return invoicePrint(source, kind); });
}

}  // namespace

QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  frame::DocumentType type = saleInvoiceType();
  type.print = printInvoice;
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace velmo::documents
