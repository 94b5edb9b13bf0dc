#pragma once

#include <QObject>
#include <QRect>

class QWidget;

namespace velmo::frame {

// The drop list of a column: it opens below a cell that is opened for typing and follows what is typed there. It floats
// above the screen and may take the keyboard.
class CellList : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // Below the cell, an area of `sheet`, which holds this text; with all entries.
  virtual void open(const QWidget& sheet, const QRect& cell, const QString& text) = 0;
  virtual void narrow(const QString& typed) = 0;  // to the entries that hold the text
  virtual void enter() = 0;                       // the keyboard goes into the list
  virtual void close() = 0;
  virtual bool isOpen() const = 0;
  virtual bool holds(const QWidget* widget) const = 0;  // is it a part of the list?

 Q_SIGNALS:
  void chosen(const QString& key);  // "" when there is nothing to choose
  void givenUp();                   // Esc in the list: back to the cell
  void entered();                   // the list gained the keyboard
  void left();                      // and lost it to another widget
};

}  // namespace velmo::frame
