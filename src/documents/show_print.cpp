#include "documents/show_print.h"

#include "printing/preview_window.h"

namespace velmo::documents {

void showPrint(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen, InvoiceKind kind,
               const MakePrint& make) {
  session::LoginContext& context = workplace.context;
  const store::Recordset lines(
      context.KORDconn, "Select * from stockflow where tranno = " + context.PrintRS.text("tranno") + " order by serial",
      store::LockType::ReadOnly);
  const PrintRequest request{.kind = kind,
                             .state = onScreen.Cancel ? DocumentState::Cancelled : DocumentState::Valid,
                             .today = workplace.clock.today()};
  std::optional<printing::Report> report = make(context, context.PrintRS, lines, request);
  if (!report) return;
  printing::showPreview(screen, std::move(*report), workplace.files, [&context] { context.PrintRS = {}; });
}

}  // namespace velmo::documents
