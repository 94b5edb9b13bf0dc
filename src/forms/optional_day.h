#pragma once

#include <functional>

#include "forms/date_picker.h"

namespace velmo::forms {

// A day that may be left out: blank until the user steps, types or opens the calendar, which begin with today.
class OptionalDay : public DatePicker {
  Q_OBJECT

 public:
  explicit OptionalDay(std::function<text::DateTime()> today, QWidget* parent = nullptr);

  bool isEmpty() const { return date() == minimumDate(); }
  void makeEmpty() { setDate(minimumDate()); }

  void stepBy(int steps) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void begin();

  std::function<text::DateTime()> today_;
};

}  // namespace velmo::forms
