#include "text/format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmo::text {
namespace {

TEST(FormatNumber, FollowsTheSections) {
  const char* const patterns[] = {"0.00",           "Fixed",          "00",           "0.00;(0.00)",
                                  "0.00; (0.00)",   "#0.00; (#0.00)", "(0.00); 0.00", "#,##0;(#,##0)",
                                  "#,##0; (#,##0)", "0;(0)"};
  const struct {
    double value;
    std::array<const char*, 10> texts;
  } cases[] = {
      {0, {"0.00", "0.00", "00", "0.00", "0.00", "0.00", "(0.00)", "0", "0", "0"}},
      {5, {"5.00", "5.00", "05", "5.00", "5.00", "5.00", "(5.00)", "5", "5", "5"}},
      {-5, {"-5.00", "-5.00", "-05", "(5.00)", " (5.00)", " (5.00)", " 5.00", "(5)", " (5)", "(5)"}},
      {2.675, {"2.68", "2.68", "03", "2.68", "2.68", "2.68", "(2.68)", "3", "3", "3"}},
      {1.005, {"1.01", "1.01", "01", "1.01", "1.01", "1.01", "(1.01)", "1", "1", "1"}},
      {0.125, {"0.13", "0.13", "00", "0.13", "0.13", "0.13", "(0.13)", "0", "0", "0"}},
      {0.005, {"0.01", "0.01", "00", "0.01", "0.01", "0.01", "(0.01)", "0", "0", "0"}},
      {2.5, {"2.50", "2.50", "03", "2.50", "2.50", "2.50", "(2.50)", "3", "3", "3"}},
      {-0.5, {"-0.50", "-0.50", "-01", "(0.50)", " (0.50)", " (0.50)", " 0.50", "(1)", " (1)", "(1)"}},
      {-0.004, {"0.00", "0.00", "00", "0.00", "0.00", "0.00", "(0.00)", "0", "0", "0"}},
      {-1234.565,
       {"-1234.57", "-1234.57", "-1235", "(1234.57)", " (1234.57)", " (1234.57)", " 1234.57", "(1,235)", " (1,235)",
        "(1235)"}},
      {999.995, {"1000.00", "1000.00", "1000", "1000.00", "1000.00", "1000.00", "(1000.00)", "1,000", "1,000", "1000"}},
      {1e15,
       {"1000000000000000.00", "1000000000000000.00", "1000000000000000", "1000000000000000.00", "1000000000000000.00",
        "1000000000000000.00", "(1000000000000000.00)", "1,000,000,000,000,000", "1,000,000,000,000,000",
        "1000000000000000"}},
  };
  for (const auto& row : cases)
    for (std::size_t index = 0; index < row.texts.size(); ++index)
      EXPECT_EQ(row.texts[index], formatNumber(row.value, patterns[index])) << row.value << " " << patterns[index];
}

TEST(FormatNumber, PutsDigitsInTheirPlaces) {
  const struct {
    double value;
    const char* pattern;
    const char* text;
  } cases[] = {
      {1234567.891, "#,##0.00;(#,##0.00)", "1,234,567.89"},
      {-1234567.891, "#,##0.00;(#,##0.00)", "(1,234,567.89)"},
      {-1234567.891, "#,##0.00; (#,##0.00)", " (1,234,567.89)"},
      {39518826278598.74, "0.00", "39518826278598.70"},
      {0.5, "#.##", ".5"},
      {12, "#.##", "12."},
      {12, "0000", "0012"},
      {1234, "0,000,000", "0,001,234"},
      {123456789, "###, ###, ###", "123, 456, 789"},
      {7, "\\#0", "#7"},
      {-7, "0;", "-7"},
      {0, "0.00;(0.00);\"nil\"", "nil"},
      {-0.001, "0.00;(0.00);nil", "nil"},
      {5, "Standard", "5.00"},
      {1e-300, "0.00", "0.00"},
      {5, "", ""},
  };
  for (const auto& row : cases) EXPECT_EQ(row.text, formatNumber(row.value, row.pattern)) << row.pattern;
}

TEST(FormatNumber, TakesAnyNumber) {
  EXPECT_EQ(312u, formatNumber(1e308, "0.00").size());
  EXPECT_EQ("0.00", formatNumber(std::numeric_limits<double>::denorm_min(), "0.00"));
  EXPECT_EQ("inf", formatNumber(std::numeric_limits<double>::infinity(), "0.00"));
  EXPECT_EQ("nan", formatNumber(std::nan(""), "0.00;(0.00)"));
}

// Every thousandth must be rounded as a person reads it, which the binary fraction does not always allow to libc.
TEST(FormatNumber, RoundsThousandthsAsRead) {
  for (int thousandths = 0; thousandths < 20000; ++thousandths) {
    const int cents = (thousandths + 5) / 10;
    const std::string expected = std::to_string(cents / 100) + "." + std::to_string(cents % 100 + 100).substr(1);
    ASSERT_EQ(expected, formatNumber(thousandths / 1000.0, "0.00")) << thousandths;
  }
}

TEST(FormatText, ConvertsNumbersAndKeepsOtherTexts) {
  EXPECT_EQ("1234.50", formatText("1,234.5", "0.00"));
  EXPECT_EQ(" (5.00)", formatText("(5)", "0.00; (0.00)"));
  EXPECT_EQ("abc", formatText("abc", "0.00"));
  EXPECT_EQ("", formatText("", "0.00"));
}

TEST(FormatDate, FollowsThePattern) {
  const DateTime moment = DateTime::fromCalendar(2024, 3, 5, 14, 7, 9);
  const struct {
    const char* pattern;
    const char* text;
  } cases[] = {
      {"MM-dd-yyyy", "03-05-2024"},
      {"dd-mm-yyyy", "05-03-2024"},
      {"dd-MM-yy", "05-03-24"},
      {"mmm d, yyyy", "Mar 5, 2024"},
      {"mmmm dd, yyyy", "March 05, 2024"},
      {"MMMM dd, yyyy", "March 05, 2024"},
      {"hh-mm-ss am/pm", "02-07-09 pm"},
      {"h:nn:ss AM/PM", "2:07:09 PM"},
      {"hh:mm:mm", "14:07:03"},
      {"hh:dd:mm:mm", "14:05:03:03"},
      {"hh mmm", "14 Mar"},
      {"m/d/yyyy", "3/5/2024"},
      {"YYYY", "2024"},
      {"YY", "24"},
      {"y", "65"},
      {"dddd, ddd", "Tuesday, Tue"},
      {"\\d\\m", "dm"},
      {"", ""},
  };
  for (const auto& row : cases) EXPECT_EQ(row.text, formatDate(moment, row.pattern)) << row.pattern;
}

TEST(FormatDate, CountsTwelveHours) {
  const std::pair<int, const char*> cases[] = {{0, "12 am"}, {1, "01 am"}, {11, "11 am"}, {12, "12 pm"}, {23, "11 pm"}};
  for (const auto& [hour, text] : cases)
    EXPECT_EQ(text, formatDate(DateTime::fromCalendar(2024, 1, 1, hour), "hh am/pm"));
}

}  // namespace
}  // namespace velmo::text
