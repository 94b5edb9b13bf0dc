#include "frame/picking/code_box.h"

#include <QKeyEvent>

#include "forms/caption.h"
#include "frame/picking/drop_place.h"

namespace velmo::frame {
namespace {

bool isCommand(const QKeyEvent& key) {
  const bool isCharacter = key.key() < Qt::Key_Escape;
  const bool isFunction = key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35;
  return isFunction || (isCharacter && (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)));
}

}  // namespace

CodeBox::CodeBox(store::Connection& connection, PickListSource source, CodeDropList& list, QWidget* parent)
    : QLineEdit(parent), list_(list), entries_(connection, std::move(source)) {
  setToolTip("Type a part of the code or the name, then Down to pick; Esc clears");
  connect(this, &QLineEdit::textChanged, this, &CodeBox::lookUp);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
    if (list_.ListOwner() != this) list_.takeOver(*this);
    if (!typed.isEmpty()) return list_.showMatching(typed);
    list_.takeOver(*this);
    list_.hide();
  });
}

void CodeBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (isPassingFocusLoss(*event)) return;
  selectAll();
  list_.takeOver(*this);
}

void CodeBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (isPassingFocusLoss(*event)) return;
  // "12,001,001" finds its account as well; statements and documents need the bare code.
  const QString bare = forms::shownText(store::textOf(code()));
  if (text() != bare) setText(bare);
  list_.ownerLeft();
}

// A command, whatever it says of the code, leaves the box as it is, and the list would lie over what comes of it.
bool CodeBox::event(QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride) return QLineEdit::event(event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  if (isCommand(key) && list_.ListOwner() == this) list_.hide();
  return QLineEdit::event(event);
}

void CodeBox::keyPressEvent(QKeyEvent* event) {
  const bool listShown = list_.isVisible() && list_.ListOwner() == this;
  switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (!listShown) break;
      list_.enter();
      return;
    case Qt::Key_Escape:
      clear();
      list_.hide();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      list_.hide();
      Q_EMIT moveOn();
      return;
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
}

void CodeBox::takeFromList(const QString& picked) {
  setText(picked);
  setFocus(Qt::OtherFocusReason);
}

void CodeBox::moveOnFromList() {
  Q_EMIT moveOn();
}

void CodeBox::giveUpList() {
  clear();
  setFocus(Qt::OtherFocusReason);
}

}  // namespace velmo::frame
