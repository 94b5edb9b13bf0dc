#pragma once

#include <QTableView>
#include <QTimer>

#include "forms/drop_combo.h"
#include "frame/master/master_dialog.h"
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
  // The entry of a drop list, as if it was picked.
  void pick(const char* list, const store::Value& bound) { control<forms::DropCombo>(list).setBoundValue(bound); }
  // Clicks a button that opens a modal dialog, and visits the dialog there.
  void inDialogOf(const char* button, const std::function<void(QDialog&)>& visit) {
    bool visited = false;
    QTimer::singleShot(0, dialog.get(), [&] {
      auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!modal || modal == dialog.get()) return;
      visited = true;
      visit(*modal);
      modal->close();
    });
    click(button);
    EXPECT_TRUE(visited) << button << " opened no dialog";
  }
  void run(std::initializer_list<const char*> statements) { NewCompany::run(context->KORDconn, statements); }
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
