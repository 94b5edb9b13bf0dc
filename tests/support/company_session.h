#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <memory>

#include "session/login.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/typing.h"

namespace velmo::test {

// A user who is logged in to a new company, and a dialog that he has open.
class CompanySession : public testing::Test {
 protected:
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
  // The first row of a statement, fields parted by "|".
  std::string line(const std::string& statement) {
    const store::Recordset found = rows(statement);
    std::string all;
    for (const store::FieldInfo& field : found.fields()) all += (all.empty() ? "" : "|") + found.text(field.name);
    return all;
  }

  NewCompany company;
  QueuedPrompts prompts;
  SetClock clock;
  NamedFile files;
  NotedScreens screens;
  std::unique_ptr<session::LoginContext> context;
  std::unique_ptr<session::Workplace> workplace;
  std::unique_ptr<QWidget> dialog;
};

}  // namespace velmo::test
