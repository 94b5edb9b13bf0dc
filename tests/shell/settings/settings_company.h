#pragma once

#include "shell/catalogue/screen_catalogue.h"
#include "support/company_session.h"

namespace velmo::test {

// The settings dialogs of a new company, opened as the menu opens them.
class SettingsCompany : public CompanySession {
 protected:
  void open(std::string_view screen) {
    if (!context) logIn();
    for (const shell::ScreenEntry& entry : shell::screenCatalogue())
      if (entry.name == screen) dialog.reset(entry.make(*workplace, nullptr));
    dialog->show();
  }
  bool saveCloses() {
    control<QPushButton>("SaveBttn").click();
    return !dialog->isVisible();
  }
};

}  // namespace velmo::test
