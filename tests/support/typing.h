#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace velmo::test {

inline void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  const QString& text = {}) {
  QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&widget, &down);
  QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
  QApplication::sendEvent(&widget, &up);
}

// Key by key, as from a keyboard. Stops when the widget is disabled by what was typed.
inline void type(QWidget& widget, const QString& text) {
  for (const QChar character : text) press(widget, character.toUpper().unicode(), Qt::NoModifier, QString(character));
}

// Gives the widget the focus in a shown window, as Tab does.
inline void focus(QWidget& widget) {
  widget.window()->show();
  widget.window()->activateWindow();
  QApplication::setActiveWindow(widget.window());
  widget.setFocus(Qt::TabFocusReason);
  QApplication::processEvents();
}

}  // namespace velmo::test
