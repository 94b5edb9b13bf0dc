#include "frame/items/scan_listener.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScopeGuard>
#include <algorithm>

namespace velmo::frame {

namespace {

constexpr quint64 longestGap = 50;  // milliseconds between two keys of a scanner
constexpr qsizetype shortestCode = 4;
constexpr int untilServed = 20;  // milliseconds between two looks whether a scan can be served

// Whom the keyboard's keys reach first; what such a widget has no use for goes on to those around it.
QWidget* receiver() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup->focusWidget() ? popup->focusWidget() : popup;
  return QApplication::focusWidget();
}

bool isEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool isCharacter(const QKeyEvent& key) {
  return key.text().size() == 1 && key.text().at(0).isPrint() &&
         !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

}  // namespace

ScanListener::ScanListener(QWidget& screen, std::function<bool(const QWidget&)> takes)
    : QObject(&screen), screen_(screen), takes_(std::move(takes)) {
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, this, &ScanListener::pause);
  connect(&service_, &QTimer::timeout, this, &ScanListener::serve);
  qApp->installEventFilter(this);
}

ScanListener::~ScanListener() {
  qApp->removeEventFilter(this);
}

bool ScanListener::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::KeyPress;
  if (event == passing_ || (!press && event->type() != QEvent::KeyRelease)) return false;
  const QWidget* focus = receiver();
  if (!focus || watched != focus) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.timestamp() == 0) return false;  // no key of a keyboard
  if (!press) return released(key);
  if (!listensTo(*focus)) {
    letGo();
    return false;
  }
  return pressed(key);
}

// A list that dropped down belongs to the box that it dropped from.
bool ScanListener::listensTo(const QWidget& receiver) const {
  if (!screen_.isVisible()) return false;
  if (qobject_cast<const QMessageBox*>(receiver.window())) return true;
  for (const QWidget* widget = &receiver; widget; widget = widget->parentWidget())
    if (widget == &screen_) return !QApplication::activeModalWidget() && takes_(receiver);
  return false;
}

// True when the key goes no further, at least for now.
bool ScanListener::pressed(const QKeyEvent& key) {
  const quint64 at = key.timestamp();
  const bool fast = !key.isAutoRepeat() && at - std::exchange(lastAt_, at) <= longestGap;
  if (isEnter(key) && fast && code_.size() >= shortestCode) {
    held_.clear();
    pause_.stop();
    waiting_ += std::exchange(code_, {});
    service_.start(untilServed);
    serve();
    return true;
  }
  if (!fast || !isCharacter(key)) letGo();
  if (key.isAutoRepeat() || !isCharacter(key)) return false;
  hold(key);
  code_ += key.text();
  readOnce_ = false;
  pause_.start(static_cast<int>(longestGap));
  return true;
}

// A key's release stays behind its press.
bool ScanListener::released(const QKeyEvent& key) {
  const bool isHeld = std::ranges::any_of(
      held_, [&](const auto& each) { return each->type() == QEvent::KeyPress && each->key() == key.key(); });
  if (isHeld) hold(key);
  return isHeld;
}

void ScanListener::hold(const QKeyEvent& key) {
  held_.emplace_back(key.clone());
}

// The next key may have come while the program was busy: it is read before it is decided that none did.
void ScanListener::pause() {
  if (!readOnce_) {
    readOnce_ = true;
    pause_.start(0);
    return;
  }
  letGo();
}

// A message box may come of a key, and scans reach that one as well.
void ScanListener::letGo() {
  pause_.stop();
  code_.clear();
  const auto keys = std::exchange(held_, {});
  for (const auto& key : keys) {
    QWidget* to = receiver();
    if (!to) continue;
    const QEvent* before = std::exchange(passing_, key.get());
    QApplication::sendEvent(to, key.get());
    passing_ = before;
  }
}

// One at a time: a message box may come of it.
void ScanListener::serve() {
  if (serving_ || QApplication::activeModalWidget()) return;
  if (QWidget* list = QApplication::activePopupWidget()) {
    list->close();
    return;
  }
  if (waiting_.isEmpty()) return service_.stop();
  serving_ = true;
  const auto served = qScopeGuard([this] { serving_ = false; });
  Q_EMIT scanned(waiting_.takeFirst());
}

}  // namespace velmo::frame
