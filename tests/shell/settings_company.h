#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <memory>

#include "session/login.h"
#include "shell/screen_catalogue.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/typing.h"

namespace velmo::test {

// A user who is logged in to a new company, and its settings dialogs, opened as the menu opens them.
class SettingsCompany : public testing::Test {
 protected:
  class Now : public session::Clock {
   public:
    text::DateTime now() const override { return text::DateTime::fromCalendar(2026, 11, 22, 14, 7, 9); }
  };
  // Answers every file dialog with the same name, after something else happened.
  class OneFile : public session::FileChooser {
   public:
    std::string openFile(const std::string& title, const std::string&, const std::string&) override {
      return answer(title);
    }
    std::string saveFile(const std::string& title, const std::string&, const std::string& proposed) override {
      proposedName = proposed;
      return answer(title);
    }
    std::string name;
    std::string titleSeen;
    std::string proposedName;
    std::function<void()> meanwhile = [] {};

   private:
    std::string answer(const std::string& title) {
      titleSeen = title;
      meanwhile();
      return name;
    }
  };
  class NoScreens : public session::ScreenOpener {
   public:
    bool openScreen(std::string_view) override { return false; }
    bool openDialog(std::string_view name) override {
      opened = name;
      return true;
    }
    bool hasScreen(std::string_view) const override { return true; }
    std::string opened;
  };

  void logIn() {
    context = std::make_unique<session::LoginContext>(schema::companyCatalog());
    context->KORDconn.open(schema::plainConnectionString);
    session::fillLoginContext(*context, session::LoginRecords(context->KORDconn));
    workplace = std::make_unique<session::Workplace>(session::Workplace{*context, clock, prompts, files, screens});
  }
  void open(std::string_view screen) {
    if (!context) logIn();
    for (const shell::ScreenEntry& entry : shell::screenCatalogue())
      if (entry.name == screen) dialog.reset(entry.make(*workplace, nullptr));
    dialog->show();
  }
  template <typename Control>
  Control& control(const char* name) {
    auto* found = dialog->findChild<Control*>(QLatin1String(name));
    if (!found) throw std::logic_error(std::string("no control ") + name);
    return *found;
  }
  void write(const char* box, const char* text) { control<QLineEdit>(box).setText(QString::fromUtf8(text)); }
  bool saveCloses() {
    control<QPushButton>("SaveBttn").click();
    return !dialog->isVisible();
  }
  store::Recordset rows(const std::string& statement) { return {context->KORDconn, statement}; }

  NewCompany company;
  QueuedPrompts prompts;
  Now clock;
  OneFile files;
  NoScreens screens;
  std::unique_ptr<session::LoginContext> context;
  std::unique_ptr<session::Workplace> workplace;
  std::unique_ptr<QWidget> dialog;
};

}  // namespace velmo::test
