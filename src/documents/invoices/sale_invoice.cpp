#include "documents/invoices/sale_invoice.h"

#include "documents/invoices/sale_invoice_type.h"
#include "documents/print/invoice_print.h"
#include "documents/print/show_print.h"
#include "frame/document/document_screen.h"

namespace velmo::documents {

namespace {

void printInvoice(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* parent) {
  const bool isService = onScreen.field("InvTypeList") == "2";
  showPrint(workplace, onScreen, parent, isService ? InvoiceKind::Service : InvoiceKind::Sale,
            [](const auto& context, const auto& document, const auto& lines, const PrintRequest& request) {
              return invoicePrint(context, document, lines, request);
            });
}

}  // namespace

QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  frame::DocumentType type = saleInvoiceType();
  type.print = printInvoice;
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace velmo::documents
