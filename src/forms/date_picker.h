#pragma once

#include <QDateEdit>

#include "text/date_time.h"

namespace velmo::forms {

// A day, written dd-MM-yyyy, with a calendar to drop down (Alt+Down). Up, Down, Page Up and Page Down step the part
// under the cursor.
class DatePicker : public QDateEdit {
  Q_OBJECT

 public:
  explicit DatePicker(QWidget* parent = nullptr);

  text::DateTime day() const;  // without a time of day
  void setDay(const text::DateTime& day);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool isAtBeginning() const;
  void noteTyped(const QKeyEvent& key);

  QString typed_;         // the digits of a date that is typed from its beginning: ddMMyyyy
  bool isTyped_ = false;  // it is
};

QDate toQDate(const text::DateTime& day);
text::DateTime fromQDate(const QDate& day);

}  // namespace velmo::forms
