#include "forms/optional_day.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QLineEdit>

#include "support/typing.h"

namespace velmo::forms {
namespace {

TEST(OptionalDay, IsOneStopOnTheWayByTabWhileItIsEmpty) {
  QWidget form;
  QHBoxLayout row(&form);
  OptionalDay day([] { return text::DateTime::fromCalendar(2026, 11, 24); });
  QLineEdit next;
  row.addWidget(&day);
  row.addWidget(&next);
  test::focus(day);
  test::press(day, Qt::Key_Delete, Qt::ControlModifier);
  ASSERT_TRUE(day.isEmpty());
  test::press(day, Qt::Key_Tab);
  EXPECT_TRUE(next.hasFocus());
}

}  // namespace
}  // namespace velmo::forms
