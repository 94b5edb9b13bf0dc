#include "frame/report/report_drill_down.h"

namespace velmo::frame {

void openDocument(session::Workplace& workplace, int tranType, std::int64_t tranNo, schema::LedFrom reports,
                  const std::function<void()>& leave) {
  const schema::DocumentForm* form = schema::formFromReport(tranType, reports);
  if (!form || !workplace.rights().demand(form->viewRight)) return;
  if (!workplace.screens.hasScreen(form->screen)) {
    workplace.prompts.tell(
        "Cannot Open", "The screen of this document, " + std::string(form->screen) + ", is not part of this program.");
    return;
  }
  if (leave) leave();
  if (tranType != schema::tran_type::OpeningBalance) {
    workplace.context.OpenTranNo = tranNo;
    workplace.context.OpenTranFlag = true;
  }
  if (!workplace.screens.openScreen(form->screen)) workplace.context.OpenTranFlag = false;
}

}  // namespace velmo::frame
