#pragma once

#include <QButtonGroup>
#include <QObject>
#include <string>

#include "frame/master/master_type.h"
#include "frame/picking/account_code_box.h"
#include "store/values/value.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace velmo::forms {
class DropCombo;
class OptionalDay;
}  // namespace velmo::forms

namespace velmo::frame {

// The control of one field of a master dialog.
class MasterBox : public QObject {
  Q_OBJECT

 public:
  // Drop lists float over the screen, which outlives the box.
  MasterBox(const MasterField& field, session::Workplace& workplace, QWidget& screen);

  const MasterField& field() const { return field_; }
  QWidget* place() const { return place_; }      // what goes into the form
  QWidget* control() const { return control_; }  // what gets the focus and the caption
  bool saysItsCaption() const { return field_.kind == BoxKind::Check; }
  bool isHidden() const { return field_.use == BoxUse::Hidden; }

  // None of the three is told as a change.
  void show(const store::Value& value);
  void showInitial(const text::DateTime& today);

  std::string text() const;
  // Without the blanks around it, which nobody sees, where the user may type and it is no password.
  std::string textToSave() const;
  void setText(const std::string& text);  // told as a change
  store::Value value() const;             // as it is written, from textToSave()
  // Of an Account: what the text stands for.
  const std::optional<Account>& account() const { return account_->account(); }
  void setOpen(bool open);
  // Of a Choice: the entries are the rows of this statement from now on. The entry on show stays when it is among them.
  void offer(const std::string& statement);

 Q_SIGNALS:
  void edited();

 private:
  QWidget* makeControl();
  QWidget* makeLine();
  QWidget* makeAccountLine();
  QWidget* makeCombo();
  QWidget* makeOptions();
  QWidget* withKeeper();
  void readChoices();
  void showInitialText();
  void allowLongest(int characters);
  void keepValue();  // reads the choices again and shows the same one
  void tell();

  const MasterField& field_;
  session::Workplace& workplace_;
  QWidget& screen_;
  QWidget* control_ = nullptr;
  QWidget* place_ = nullptr;
  QLineEdit* line_ = nullptr;
  AccountCodeBox* account_ = nullptr;
  forms::DropCombo* combo_ = nullptr;
  QCheckBox* check_ = nullptr;
  forms::OptionalDay* day_ = nullptr;
  QButtonGroup* options_ = nullptr;
  QPushButton* keeper_ = nullptr;
  std::string choices_;  // the statement behind them
  bool choicesRead_ = false;
  bool showing_ = false;
};

}  // namespace velmo::frame
