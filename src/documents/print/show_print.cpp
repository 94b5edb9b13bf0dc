#include "documents/print/show_print.h"

#include "forms/status_line.h"
#include "printing/preview_window.h"
#include "printing/print_at_once.h"
#include "session/settings.h"

namespace velmo::documents {

namespace {

std::optional<printing::Report> makeReport(session::Workplace& workplace, const frame::DocumentValues& onScreen,
                                           const MakePrint& make) {
  session::LoginContext& context = workplace.context;
  const store::Recordset lines(
      context.KORDconn, "Select * from stockflow where tranno = " + context.PrintRS.text("tranno") + " order by serial",
      store::LockType::ReadOnly);
  return make({.context = context,
               .document = context.PrintRS,
               .lines = lines,
               .state = onScreen.Cancel ? DocumentState::Cancelled : DocumentState::Valid,
               .today = workplace.clock.today()});
}

}  // namespace

void showPrint(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen,
               const MakePrint& make) {
  std::optional<printing::Report> report = makeReport(workplace, onScreen, make);
  session::LoginContext& context = workplace.context;
  if (!report) {
    forms::tellInStatusLine(*screen,
                            QObject::tr("The document is saved, but not printed: print format %1 has no layout. "
                                        "Choose another one under Print Settings.")
                                .arg(context.sif));
    context.PrintRS = {};
    return;
  }
  forms::tellInStatusLine(*screen, {});
  printing::showPreview(screen, std::move(*report), workplace.files, [&context] { context.PrintRS = {}; });
}

void printSlip(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen,
               const MakePrint& make) {
  session::LoginContext& context = workplace.context;
  const std::string printer = session::setting(context.KORDconn, session::settings::SlipPrinter);
  if (!printer.empty()) {
    std::optional<printing::Report> slip = makeReport(workplace, onScreen, make);
    const std::optional<std::string> problem = printing::printAtOnce(std::move(*slip), printer);
    if (!problem) {
      context.PrintRS = {};
      return;
    }
    workplace.prompts.tell("Cannot Print", *problem + " The invoice is saved, and its slip is shown instead.");
  }
  showPrint(workplace, onScreen, screen, make);
}

}  // namespace velmo::documents
