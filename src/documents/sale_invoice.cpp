#include "documents/sale_invoice.h"

#include "documents/sale_invoice_type.h"
#include "frame/document_screen.h"

namespace velmo::documents {

QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  frame::DocumentType type = saleInvoiceType();
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace velmo::documents
