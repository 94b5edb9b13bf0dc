#include "documents/sale_invoice.h"

#include "documents/invoice_print.h"
#include "documents/sale_invoice_type.h"
#include "frame/document_screen.h"
#include "printing/preview_window.h"

namespace velmo::documents {

namespace {

void printInvoice(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* parent) {
  session::LoginContext& context = workplace.context;
  const store::Recordset lines(
      context.KORDconn, "Select * from stockflow where tranno = " + context.PrintRS.text("tranno") + " order by serial",
      store::LockType::ReadOnly);
  const PrintRequest request{.kind = onScreen.field("InvTypeList") == "2" ? InvoiceKind::Service : InvoiceKind::Sale,
                             .state = onScreen.Cancel ? DocumentState::Cancelled : DocumentState::Valid,
                             .today = workplace.clock.today()};
  std::optional<printing::Report> report = invoicePrint(context, context.PrintRS, lines, request);
  if (!report) return;
  printing::showPreview(parent, std::move(*report), workplace.files, [&context] { context.PrintRS = {}; });
}

}  // namespace

QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  frame::DocumentType type = saleInvoiceType();
  type.print = printInvoice;
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace velmo::documents
