#include "frame/items/serial_panel.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "forms/look.h"
#include "frame/picking/drop_place.h"

namespace velmo::frame {

SerialPanel::SerialPanel(const QString& number, QWidget* parent) : QFrame(parent) {
  setObjectName("SerialTxt" + number);
  setAccessibleName("Product serials");
  setAutoFillBackground(true);
  setFrameShape(QFrame::StyledPanel);
  forms::makeCard(*this);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Normal, forms::spacing::Tight);
  auto* caption = new QLabel("Product serials (F4 closes)");
  forms::makeCaption(*caption);
  SerialBox_ = new QPlainTextEdit;
  SerialBox_->setObjectName("SerialBox" + number);
  SerialBox_->setAccessibleName("Product serials");
  SerialBox_->setTabChangesFocus(true);
  SerialBox_->installEventFilter(this);
  caption->setBuddy(SerialBox_);
  column->addWidget(caption);
  column->addWidget(SerialBox_, 1);
  hide();
}

void SerialPanel::open(const QString& serials) {
  SerialBox_->setPlainText(serials);
  opened_ = SerialBox_->toPlainText();
  show();
  raise();
  SerialBox_->moveCursor(QTextCursor::End);
  SerialBox_->setFocus(Qt::OtherFocusReason);
}

void SerialPanel::finish() {
  if (isHidden()) return;
  const bool hadFocus = SerialBox_->hasFocus();
  const QString typed = SerialBox_->toPlainText();
  hide();
  if (typed != opened_) Q_EMIT entered(typed);
  if (hadFocus) Q_EMIT closedFromInside();
}

void SerialPanel::giveUp() {
  SerialBox_->setPlainText(opened_);
  finish();
}

bool SerialPanel::boxKey(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Escape) {
    giveUp();
    return true;
  }
  if (event.key() == Qt::Key_F4) {
    finish();
    return true;
  }
  if (event.key() == Qt::Key_S && event.modifiers() == Qt::ControlModifier) {
    finish();
    Q_EMIT saveRequested();
    return true;
  }
  return false;
}

bool SerialPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && boxKey(*static_cast<QKeyEvent*>(event))) return true;
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape || key->key() == Qt::Key_F4 ||
        (key->key() == Qt::Key_S && key->modifiers() == Qt::ControlModifier)) {
      event->accept();
      return true;
    }
  }
  if (event->type() == QEvent::FocusOut && !isPassingFocusLoss(*static_cast<QFocusEvent*>(event))) finish();
  return QFrame::eventFilter(watched, event);
}

}  // namespace velmo::frame
