#include "guide.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPixmap>
#include <iostream>

namespace velmo::tour {

session::Answer TravelPrompts::ask(const session::Prompt& prompt) {
  std::cout << "  [" << prompt.title << "] " << prompt.text << "\n";
  return prompt.buttons == session::Buttons::Ok ? session::Answer::Ok : session::Answer::Yes;
}

Guide::Guide(std::filesystem::path pictures, std::string suffix)
    : pictures_(std::move(pictures)), suffix_(std::move(suffix)) {}

void Guide::picture(QWidget& widget, const std::string& name) {
  rest(30);
  const std::string file = (pictures_ / (name + suffix_ + ".png")).string();
  if (!widget.grab().save(QString::fromStdString(file))) throw std::runtime_error("cannot write " + file);
  std::cout << file << "\n";
}

void Guide::type(const QString& text) {
  for (const QChar character : text) {
    QWidget* target = QApplication::focusWidget();
    if (!target) throw std::logic_error("nothing has the focus");
    const int key = character.toUpper().unicode();
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, QString(character));
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, QString(character));
    QApplication::sendEvent(QApplication::focusWidget() ? QApplication::focusWidget() : target, &up);
  }
  rest(80);
}

void Guide::press(int key, Qt::KeyboardModifiers modifiers) {
  QWidget* target = QApplication::focusWidget();
  if (!target) throw std::logic_error("nothing has the focus");
  const QString text = key == Qt::Key_Return ? "\r" : key == Qt::Key_Tab ? "\t" : "";
  QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(target, &down);
  QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
  QApplication::sendEvent(QApplication::focusWidget() ? QApplication::focusWidget() : target, &up);
  rest(80);
}

void Guide::rest(int milliseconds) {
  QElapsedTimer clock;
  clock.start();
  do {
    QApplication::processEvents(QEventLoop::AllEvents, 10);
  } while (clock.elapsed() < milliseconds);
}

void Guide::focus(QWidget& widget) {
  widget.window()->activateWindow();
  QApplication::setActiveWindow(widget.window());
  widget.setFocus(Qt::TabFocusReason);
  rest(20);
}

}  // namespace velmo::tour
