#include "text/date_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmo::text {
namespace {

TEST(DateTime, CountsDaysFromTheEpoch) {
  const struct {
    int year, month, day, number;
  } cases[] = {{1899, 12, 30, 0},    {1900, 1, 1, 2},       {1900, 3, 1, 61},     {1970, 1, 1, 25569},
               {2024, 2, 29, 45351}, {2026, 11, 22, 46348}, {100, 1, 1, -657434}, {9999, 12, 31, 2958465}};
  for (const auto& row : cases) {
    const DateTime date = DateTime::fromCalendar(row.year, row.month, row.day);
    EXPECT_EQ(row.number, date.day);
    EXPECT_EQ(row.number, date.serial());
    const DateTime::Calendar back = date.calendar();
    EXPECT_EQ(std::tuple(row.year, row.month, row.day), std::tuple(back.year, back.month, back.dayOfMonth));
  }
}

TEST(DateTime, CarriesPartsBeyondTheirRange) {
  EXPECT_EQ(DateTime::fromCalendar(2024, 2, 29), DateTime::fromCalendar(2024, 3, 0));
  EXPECT_EQ(DateTime::fromCalendar(2025, 1, 1), DateTime::fromCalendar(2024, 13, 1));
  EXPECT_EQ(DateTime::fromCalendar(2024, 1, 2, 0, 0, 1), DateTime::fromCalendar(2024, 1, 1, 23, 59, 61));
  EXPECT_EQ(DateTime::fromCalendar(2023, 12, 31, 23), DateTime::fromCalendar(2024, 1, 1, -1));
  EXPECT_EQ(DateTime::fromCalendar(2024, 3, 1), DateTime::fromCalendar(2024, 2, 28).addDays(2));
}

TEST(DateTime, TurnsToSerialAndBack) {
  EXPECT_EQ(DateTime::fromCalendar(2024, 3, 5, 12), DateTime::fromSerial(45356.5));
  EXPECT_EQ((DateTime{46000, 0}), DateTime::fromSerial(45999.9999999));
  EXPECT_EQ((DateTime{-1, 21600}), DateTime::fromSerial(-1.25));
  EXPECT_EQ(-1.25, DateTime::fromSerial(-1.25).serial());
  for (int second = 0; second < 86400; second += 7)
    ASSERT_EQ((DateTime{45000, second}), DateTime::fromSerial(DateTime{45000, second}.serial()));
  EXPECT_EQ(2958465, DateTime::fromSerial(1e300).day);
  EXPECT_EQ(-657434, DateTime::fromSerial(-std::numeric_limits<double>::infinity()).day);
  EXPECT_EQ(0, DateTime::fromSerial(std::nan("")).day);
}

TEST(DateTime, ReadsAndWritesIso) {
  for (const char* text : {"2026-11-22", "2026-11-22 14:07:09", "2024-02-29", "0100-01-01", "9999-12-31 23:59:59"}) {
    const auto moment = DateTime::fromIso(text);
    ASSERT_TRUE(moment) << text;
    EXPECT_EQ(text, moment->iso());
  }
  EXPECT_EQ("2024-03-05", DateTime::fromIso("2024-03-05 00:00:00")->iso());
}

TEST(DateTime, RefusesWhatIsNoIsoDate) {
  for (const char* text :
       {"", "2026-11-2", "2026-13-01", "2026-00-10", "2023-02-29", "2026/11/22", "22-11-2026", "2026-11-22T14:07:09",
        "2026-11-22 24:00:00", "2026-11-22 14:60:00", "2026-11-22 14:07", "0099-01-01", "2026-11-2x", "+026-11-22"})
    EXPECT_FALSE(DateTime::fromIso(text)) << text;
}

}  // namespace
}  // namespace velmo::text
