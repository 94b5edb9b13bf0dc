#include "forms/optional_day.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionComboBox>

namespace velmo::forms {

OptionalDay::OptionalDay(std::function<text::DateTime()> today, QWidget* parent)
    : DatePicker(parent), today_(std::move(today)) {
  setSpecialValueText(QStringLiteral(" "));
  setToolTip(tr("Ctrl+Del leaves the date out"));
}

void OptionalDay::begin() {
  setDay(today_());
  setSelectedSection(DaySection);
}

void OptionalDay::stepBy(int steps) {
  if (isEmpty()) return begin();
  DatePicker::stepBy(steps);
}

void OptionalDay::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::ControlModifier) return makeEmpty();
  const bool types = !event->text().isEmpty() && event->text().at(0).isDigit();
  const bool opens =
      event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier);
  if (isEmpty() && (types || opens)) begin();
  DatePicker::keyPressEvent(event);
}

// A blank has no parts to go through.
bool OptionalDay::focusNextPrevChild(bool next) {
  return isEmpty() ? QWidget::focusNextPrevChild(next) : DatePicker::focusNextPrevChild(next);
}

// The calendar opens on the month of the day that is shown.
void OptionalDay::mousePressEvent(QMouseEvent* event) {
  QStyleOptionComboBox option;
  option.initFrom(this);
  option.editable = true;
  const QRect arrow = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
  if (isEmpty() && arrow.contains(event->pos())) begin();
  DatePicker::mousePressEvent(event);
}

}  // namespace velmo::forms
