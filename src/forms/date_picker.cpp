#include "forms/date_picker.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>
#include <QWheelEvent>

#include "forms/look.h"

namespace velmo::forms {

namespace {

bool isDigit(const QKeyEvent& key) {
  return key.text().size() == 1 && key.text().at(0).isDigit();
}

bool isSeparator(const QKeyEvent& key) {
  return key.text().size() == 1 && QStringLiteral("-/. ").contains(key.text());
}

// All of it, or the place before it: what is typed there is a new date.
bool isMarkedWhole(const QLineEdit& box) {
  return box.hasSelectedText() ? box.selectedText() == box.text() : box.cursorPosition() == 0;
}

}  // namespace

QDate toQDate(const text::DateTime& day) {
  const text::DateTime::Calendar parts = day.calendar();
  return QDate(parts.year, parts.month, parts.dayOfMonth);
}

text::DateTime fromQDate(const QDate& day) {
  return text::DateTime::fromCalendar(day.year(), day.month(), day.day());
}

DatePicker::DatePicker(QWidget* parent) : QDateEdit(parent) {
  setDisplayFormat(QStringLiteral("dd-MM-yyyy"));
  setCalendarPopup(true);
  setFont(figureFont());
  setDateRange(QDate(1753, 1, 1), QDate(9999, 12, 31));
  calendarWidget()->setFirstDayOfWeek(Qt::Monday);
  QCalendarWidget* calendar = calendarWidget();
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar->setMinimumSize(fontMetrics().averageCharWidth() * 38, (fontMetrics().height() + 9) * 8);
  QTextCharFormat weekend;
  weekend.setForeground(colours().quietText);
  for (Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) calendar->setWeekdayTextFormat(day, weekend);
}

text::DateTime DatePicker::day() const {
  return fromQDate(date());
}

void DatePicker::setDay(const text::DateTime& day) {
  setDate(toQDate(day));
}

// The calendar opens by a press on the arrow only; the keyboard makes that press.
void DatePicker::keyPressEvent(QKeyEvent* event) {
  const bool opensCalendar = (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier)) ||
                             (event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier);
  if (!opensCalendar) {
    // Two digits went on to the next part by themselves: the separator behind them has nothing left to do.
    const bool atNextPart = currentSectionIndex() > 0 && lineEdit()->selectedText() == sectionText(currentSection());
    if (isSeparator(*event) && atNextPart) return;
    if (isDigit(*event) && isMarkedWhole(*lineEdit())) setSelectedSection(DaySection);
    isTyped_ = isDigit(*event) ? isTyped_ || isAtBeginning() : isTyped_ && isSeparator(*event);
    QKeyEvent separator(QEvent::KeyPress, Qt::Key_Minus, Qt::NoModifier, QStringLiteral("-"));
    QDateEdit::keyPressEvent(isSeparator(*event) ? &separator : event);
    noteTyped(*event);
    return;
  }
  QStyleOptionComboBox option;
  option.initFrom(this);
  option.editable = true;
  const QRect arrow = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
  QMouseEvent press(QEvent::MouseButtonPress, arrow.center(), mapToGlobal(arrow.center()), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(this, &press);
}

// The day of a month with more days than the one on show would be cut to that before the month is typed.
void DatePicker::noteTyped(const QKeyEvent& key) {
  if (!isTyped_) return typed_.clear();
  if (isDigit(key))
    typed_ += key.text();
  else if (typed_.size() == 1 || typed_.size() == 3)
    typed_.insert(typed_.size() - 1, u'0');
  if (typed_.size() != 4 && typed_.size() != 8) return;
  const int year = typed_.size() == 8 ? typed_.mid(4).toInt() : date().year();
  const QDate typed(year, typed_.mid(2, 2).toInt(), typed_.left(2).toInt());
  if (!typed.isValid() || typed == date()) return;
  const Section section = currentSection();
  setDate(typed);
  setSelectedSection(section);
}

bool DatePicker::isAtBeginning() const {
  return currentSection() == DaySection &&
         (lineEdit()->selectedText() == sectionText(DaySection) || isMarkedWhole(*lineEdit()));
}

void DatePicker::focusInEvent(QFocusEvent* event) {
  isTyped_ = false;
  QDateEdit::focusInEvent(event);
}

void DatePicker::mousePressEvent(QMouseEvent* event) {
  isTyped_ = false;
  QDateEdit::mousePressEvent(event);
}

// Scrolling a screen past the box must not change its date.
void DatePicker::wheelEvent(QWheelEvent* event) {
  if (hasFocus())
    QDateEdit::wheelEvent(event);
  else
    event->ignore();
}

}  // namespace velmo::forms
