#pragma once

#include <QLineEdit>

#include "frame/picking/code_drop_list.h"
#include "frame/picking/pick_list.h"
#include "store/values/value.h"

namespace velmo::frame {

// A box for a code. Typing a part of a code or a name narrows the drop list below it; a whole code is looked up at each
// change. Enter leads on, Down or Up into the list, Esc clears; a text that is no code is cleared when the focus
// leaves.
class CodeBox : public QLineEdit, public CodeListOwner {
  Q_OBJECT

 public:
  // What the text stands for at present; null for nothing.
  virtual store::Value code() const = 0;

  PickList& entries() override { return entries_; }
  const QWidget& listAnchor() const override { return *this; }
  QRect listArea() const override { return rect(); }
  void takeFromList(const QString& picked) override;
  void moveOnFromList() override;
  void giveUpList() override;

 Q_SIGNALS:
  // At every change of the text, also when the same is found again: its name, or "" for nothing.
  void named(const QString& name);
  // The user is done with this box.
  void moveOn();

 protected:
  // One drop list serves all boxes of its kind on a screen.
  CodeBox(store::Connection& connection, PickListSource source, CodeDropList& list, QWidget* parent);

  virtual void lookUp() = 0;

  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  CodeDropList& list_;
  PickList entries_;
};

}  // namespace velmo::frame
