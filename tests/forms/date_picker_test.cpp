#include "forms/date_picker.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QWheelEvent>

#include "support/typing.h"

namespace velmo::forms {
namespace {

text::DateTime day(int year, int month, int dayOfMonth) {
  return text::DateTime::fromCalendar(year, month, dayOfMonth);
}

TEST(DatePicker, IsTypedAndSteppedByKeyboard) {
  DatePicker picker;
  picker.setDay(day(2026, 11, 22));
  test::focus(picker);
  EXPECT_EQ(picker.text(), QStringLiteral("22-11-2026"));
  test::type(picker, QStringLiteral("05022028"));
  EXPECT_EQ(picker.day(), day(2028, 2, 5));
  picker.setCurrentSection(QDateTimeEdit::MonthSection);
  test::press(picker, Qt::Key_Up);
  EXPECT_EQ(picker.day(), day(2028, 3, 5));
}

TEST(DatePicker, DropsTheTimeOfDayAndKeepsEveryDay) {
  DatePicker picker;
  for (const text::DateTime& moment : {day(1899, 12, 30), day(2024, 2, 29), day(9999, 12, 31)}) {
    picker.setDay({moment.day, 86399});
    EXPECT_EQ(picker.day(), moment) << moment.iso();
  }
}

TEST(DatePicker, OpensItsCalendarWithAltDown) {
  DatePicker picker;
  test::focus(picker);
  test::press(picker, Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(picker.calendarWidget()->isVisible());
}

TEST(DatePicker, KeepsItsDayWhenAScreenIsScrolledPastIt) {
  DatePicker picker;
  picker.setDay(day(2026, 11, 22));
  picker.show();
  picker.clearFocus();
  QWheelEvent wheel({5, 5}, {5, 5}, {0, 120}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&picker, &wheel);
  EXPECT_EQ(picker.day(), day(2026, 11, 22));
}

}  // namespace
}  // namespace velmo::forms
