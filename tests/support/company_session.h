#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <memory>

#include "session/login.h"
#include "session/workplace.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/typing.h"

namespace velmo::test {

// A user who is logged in to a new company, and a dialog that he has open.
class CompanySession : public testing::Test {
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
  template <typename Control>
  Control& control(const char* name) {
    auto* found = dialog->findChild<Control*>(QLatin1String(name));
    if (!found) throw std::logic_error(std::string("no control ") + name);
    return *found;
  }
  void write(const char* box, const char* text) { control<QLineEdit>(box).setText(QString::fromUtf8(text)); }
  std::string read(const char* box) { return control<QLineEdit>(box).text().toStdString(); }
  void click(const char* button) { control<QAbstractButton>(button).click(); }
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
