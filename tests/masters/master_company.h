#pragma once

#include <QTableView>

#include "frame/master_dialog.h"
#include "support/company_session.h"

namespace velmo::test {

// A new company and one of its master dialogs.
class MasterCompany : public CompanySession {
 protected:
  using Make = QWidget* (*)(session::Workplace&, QWidget*);

  void open(Make make) {
    if (!context) logIn();
    dialog.reset(make(*workplace, nullptr));
    dialog->show();
    QApplication::setActiveWindow(dialog.get());
    QApplication::processEvents();
  }
  frame::MasterDialog& master() { return dynamic_cast<frame::MasterDialog&>(*dialog); }
  // Picks the row of a list by its first column.
  void choose(const char* list, const QString& code) {
    auto& view = control<QTableView>(list);
    for (int row = 0; row < view.model()->rowCount(); ++row)
      if (view.model()->index(row, 0).data().toString() == code) return view.selectRow(row);
    FAIL() << "no row " << code.toStdString() << " in " << list;
  }
  int count(const char* list) { return control<QTableView>(list).model()->rowCount(); }
  void refused(const char* button, const char* title, const std::string& text) {
    SCOPED_TRACE(text);
    prompts.expect(title, text);
    click(button);
  }
  void deleteAndConfirm(const char* button, const std::string& question) {
    prompts.expect("Delete Confirmation", question, session::Answer::Yes);
    click(button);
  }
};

}  // namespace velmo::test
