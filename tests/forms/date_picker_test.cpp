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

TEST(DatePicker, TakesADateThatIsTypedAsItIsWritten) {
  DatePicker picker;
  test::focus(picker);
  for (const char* typed : {"03-02-2025", "3-2-2025", "03/02/2025", "3.2.2025", "03022025"}) {
    for (const int begin : {Qt::Key_Home, Qt::Key_A, Qt::Key_Tab}) {
      SCOPED_TRACE(std::string(typed) + " behind " + std::to_string(begin));
      picker.setDay(day(2026, 11, 24));
      picker.setSelectedSection(begin == Qt::Key_Tab ? QDateEdit::DaySection : QDateEdit::YearSection);
      if (begin != Qt::Key_Tab) test::press(picker, begin, begin == Qt::Key_A ? Qt::ControlModifier : Qt::NoModifier);
      test::type(picker, QString::fromLatin1(typed));
      EXPECT_EQ(picker.day().iso(), day(2025, 2, 3).iso());
    }
  }
}

TEST(DatePicker, TakesADayThatTheMonthOnShowHasNot) {
  DatePicker picker;
  test::focus(picker);
  const struct {
    const char* typed;
    text::DateTime taken;
  } cases[] = {{"31122026", day(2026, 12, 31)}, {"31-12-2025", day(2025, 12, 31)}, {"3112", day(2026, 12, 31)},
               {"29022028", day(2028, 2, 29)},  {"31-1-2027", day(2027, 1, 31)},   {"30022026", day(2026, 2, 28)}};
  for (const auto& [typed, taken] : cases) {
    picker.setDay(day(2026, 11, 24));
    test::press(picker, Qt::Key_Home);
    test::type(picker, QString::fromLatin1(typed));
    EXPECT_EQ(picker.day().iso(), taken.iso()) << typed;
  }
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
