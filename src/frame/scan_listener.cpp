#include "frame/scan_listener.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace velmo::frame {

namespace {

constexpr qint64 longestGap = 35;  // milliseconds between two keys of a scanner
constexpr qsizetype shortestCode = 4;

}  // namespace

ScanListener::ScanListener(QWidget& form, QWidget& except) : QObject(&form), form_(form), except_(except) {
  qApp->installEventFilter(this);
}

ScanListener::~ScanListener() {
  qApp->removeEventFilter(this);
}

bool ScanListener::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  QWidget* focus = QApplication::focusWidget();
  if (!focus || watched != focus || !form_.isEnabled() || !form_.isAncestorOf(focus)) return false;
  if (focus == &except_ || except_.isAncestorOf(focus)) return false;
  return heard(*focus, *static_cast<QKeyEvent*>(event));
}

// True when the key ended a scan.
bool ScanListener::heard(QWidget& focus, const QKeyEvent& key) {
  const bool fast = sinceLast_.isValid() && sinceLast_.elapsed() <= longestGap;
  sinceLast_.start();
  const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (isEnter && fast && code_.size() >= shortestCode) {
    restore();
    Q_EMIT scanned(std::exchange(code_, {}));
    return true;
  }
  const bool printable = key.text().size() == 1 && key.text().at(0).isPrint() &&
                         !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (!printable) {
    code_.clear();
    return false;
  }
  if (!fast || code_.isEmpty()) begin(focus);
  code_ += key.text();
  return false;
}

void ScanListener::begin(QWidget& focus) {
  code_.clear();
  typedInto_ = &focus;
  if (const auto* line = qobject_cast<QLineEdit*>(&focus))
    textBefore_ = line->text();
  else if (const auto* text = qobject_cast<QPlainTextEdit*>(&focus))
    textBefore_ = text->toPlainText();
}

void ScanListener::restore() {
  if (!typedInto_) return;
  if (auto* line = qobject_cast<QLineEdit*>(typedInto_.data())) {
    if (!line->isReadOnly()) line->setText(textBefore_);
  } else if (auto* text = qobject_cast<QPlainTextEdit*>(typedInto_.data())) {
    text->setPlainText(textBefore_);
  }
}

}  // namespace velmo::frame
