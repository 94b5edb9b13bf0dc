#include <gtest/gtest.h>

#include "printing/preview_window.h"
#include "windows/person.h"

namespace velmo::test {
namespace {

bool previewIsInFront() {
  return qobject_cast<printing::PreviewWindow*>(QApplication::activeWindow()) != nullptr;
}

// A dialog holds up everything but its own windows; what it prints is read before it goes on.
TEST(PreviewOfADialog, ComesToTheFrontTakesKeysAndClosesWithoutIt) {
  withTheProgram([](Person& person) {
    for (const char* dialog : {"ModifyAccounts", "ModifyInventory"}) {
      SCOPED_TRACE(dialog);
      person.openDialog(dialog);
      person.press("alt+p");
      person.waitUntil("the list of print-outs", [] { return QApplication::activePopupWidget() != nullptr; });
      person.press({"Down", "Return"});
      person.waitUntil("the preview in front", previewIsInFront);
      person.press("ctrl+plus");
      person.press("Escape");
      person.waitUntil("the dialog again", [dialog] {
        const QWidget* front = QApplication::activeWindow();
        return front && front->objectName() == QLatin1String(dialog);
      });
      person.press("Escape");
      person.waitUntil("the dialog closed", [] { return !QApplication::activeModalWidget(); });
    }
  });
}

}  // namespace
}  // namespace velmo::test
