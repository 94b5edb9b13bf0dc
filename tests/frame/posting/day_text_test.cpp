#include "frame/posting/day_text.h"

#include <gtest/gtest.h>

namespace {

using namespace velmo;
using frame::dayFrom;

TEST(DayText, IsWrittenDayFirstAndReadInEveryFormThatWasEverWritten) {
  const text::DateTime third = text::DateTime::fromCalendar(2026, 10, 3);
  EXPECT_EQ(frame::dayText(third), "03-10-2026");
  EXPECT_EQ(frame::formerDayText(third), "10/3/2026");
  for (const char* text : {"03-10-2026", "3-10-2026", " 3-10-2026", "10/3/2026", "10/03/2026", "2026-10-03",
                           "2026/10/3", "2026-10-03 14:07:09", "10/3/2026 2:07:09 PM"})
    EXPECT_EQ(dayFrom(text), third) << text;
  EXPECT_EQ(dayFrom("28-02-2026"), text::DateTime::fromCalendar(2026, 2, 28));
  EXPECT_EQ(dayFrom("02/28/2026"), text::DateTime::fromCalendar(2026, 2, 28));
  for (const char* text : {"", "-", "15.11", "PO-9", "PO-9-1", "31-02-2026", "13/13/2026", "28/02/2026", "02-28-2026",
                           "3-10/2026", "3 October 2026", "1-2-3-4", "1-2"})
    EXPECT_FALSE(dayFrom(text)) << text;
}

}  // namespace
