#include "text/number.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "text/format.h"

namespace velmo::text {
namespace {

TEST(NumberText, ShowsFifteenDigitsAndNoNegativeZero) {
  const struct {
    double value;
    const char* text;
  } cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {5, "5"},
      {-5.25, "-5.25"},
      {0.1 + 0.2, "0.3"},
      {0.5, "0.5"},
      {100, "100"},
      {123456789012345, "123456789012345"},
      {999999999999999, "999999999999999"},
      {1e15, "1E+15"},
      {1234567890123456, "1.23456789012346E+15"},
      {0.0001, "0.0001"},
      {0.00001, "1E-05"},
      {-2.5e-7, "-2.5E-07"},
      {9.999999999999999e22, "1E+23"},
      {1e308, "1E+308"},
      {5e-324, "4.94065645841247E-324"},
      {std::numeric_limits<double>::infinity(), "inf"},
      {-std::numeric_limits<double>::infinity(), "-inf"},
      {std::nan(""), "nan"},
  };
  for (const auto& row : cases) EXPECT_EQ(row.text, numberText(row.value));
}

// The C library's rounding to 15 digits, of sums of cents, of whole numbers, of fractions and of any bits.
TEST(NumberText, IsRoundedToFifteenDigits) {
  std::mt19937_64 random(15);
  for (int i = 0; i < 200000; ++i) {
    const auto bits = random();
    const double cents = static_cast<double>(bits % 2'000'000'000) / 100;
    const double any = std::bit_cast<double>(bits);
    for (const double value :
         {cents, -cents, cents * 1.1, std::trunc(cents), 1 / cents, cents / 3e7, cents * 1e7, any}) {
      if (!std::isfinite(value)) continue;
      char expected[40];
      std::snprintf(expected, sizeof expected, "%.15g", value);
      std::string text = expected;
      std::ranges::replace(text, 'e', 'E');
      ASSERT_EQ(numberText(value), text == "-0" ? "0" : text);
      const auto read = numberFrom(formatNumber(value, "0.00"));
      if (std::fabs(value) < 1e12) {
        ASSERT_TRUE(read && std::fabs(*read - value) <= 0.005 + 1e-9 * std::fabs(value)) << text;
      }
    }
  }
}

struct Reading {
  const char* text;
  std::optional<double> number;  // nothing: not numeric
  double leading;
};

TEST(NumberFromText, FollowsTheWholeTextAndTheHeadOfIt) {
  const Reading cases[] = {
      {"", {}, 0},
      {" ", {}, 0},
      {"(5.00)", -5, 0},
      {" (5.00)", -5, 0},
      {"-5", -5, -5},
      {"5-", -5, 5},
      {"+5", 5, 5},
      {"1,234.50", 1234.5, 1},
      {"1,,2", 12, 1},
      {"1,2,3", 123, 1},
      {"1,", 1, 1},
      {",5", {}, 0},
      {"1.2,3", {}, 1.2},
      {"$5", 5, 0},
      {"-$5", -5, 0},
      {"$-5", -5, 0},
      {"5$", 5, 5},
      {"$5$", {}, 0},
      {"($5)", -5, 0},
      {"1e3", 1000, 1000},
      {"1d3", 1000, 1000},
      {"1E-3", 0.001, 0.001},
      {"1e", {}, 1},
      {"&HFF", 255, 255},
      {"&hff", 255, 255},
      {"&O17", 15, 15},
      {"&HG", {}, 0},
      {".", {}, 0},
      {"+.5", 0.5, 0.5},
      {"5.", 5, 5},
      {"5 ", 5, 5},
      {"\t5\r\n", 5, 5},
      {"\xC2\xA0"
       "5\xC2\xA0",
       5, 0},
      {"1.2.3", {}, 1.2},
      {"1 2", {}, 12},
      {"-5-", {}, -5},
      {"--5", {}, 0},
      {"(-5)", {}, 0},
      {"(5", {}, 0},
      {"5)", {}, 5},
      {"()", {}, 0},
      {"5%", {}, 5},
      {"-0", 0, 0},
      {"1e308", 1e308, 1e308},
      {"1e309", {}, 0},
      {"1e-400", 0, 0},
      {"inf", {}, 0},
      {"nan", {}, 0},
      {"0x10", {}, 0},
      {"abc", {}, 0},
      {"\xD9\xA3", {}, 0},  // an Arabic digit
  };
  for (const Reading& row : cases) {
    EXPECT_EQ(row.number, numberFrom(row.text)) << row.text;
    EXPECT_EQ(row.number.has_value(), isNumeric(row.text)) << row.text;
    EXPECT_EQ(row.number.value_or(0), amountFrom(row.text)) << row.text;
    EXPECT_EQ(row.leading, leadingNumber(row.text)) << row.text;
  }
  EXPECT_FALSE(std::signbit(*numberFrom("-0")));
}

TEST(NumberFromText, SurvivesHostileTexts) {
  const std::string_view withNul("5\0", 2);
  EXPECT_FALSE(isNumeric(withNul));
  EXPECT_EQ(5, leadingNumber(withNul));
  EXPECT_FALSE(isNumeric(std::string(10000, '9')));
  EXPECT_FALSE(isNumeric(std::string(10000, '(')));
  EXPECT_DOUBLE_EQ(1, amountFrom("1." + std::string(10000, '0')));
  EXPECT_FALSE(isNumeric("&H" + std::string(40, 'F')));
}

TEST(NumberFromText, ReadsBackWhatNumberTextWrites) {
  std::uint64_t state = 42;
  for (int round = 0; round < 20000; ++round) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    const double value = static_cast<double>(static_cast<std::int64_t>(state >> 20)) / 100.0;
    const double cents = std::floor(value) / 100;
    ASSERT_EQ(numberText(cents), numberText(*numberFrom(numberText(cents))));
  }
}

TEST(NumberText, DoesNotFollowTheProcessLocale) {
  const char* before = std::setlocale(LC_ALL, nullptr);
  const std::string kept = before ? before : "C";
  for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8"})
    if (std::setlocale(LC_ALL, name)) break;
  EXPECT_EQ("1234.5", numberText(1234.5));
  EXPECT_EQ(1234.5, numberFrom("1,234.5"));
  std::setlocale(LC_ALL, kept.c_str());
}

TEST(Rounding, GoesToEvenDownAndTowardsZero) {
  const struct {
    double value, even, down, truncated;
  } cases[] = {
      {0.5, 0, 0, 0},     {1.5, 2, 1, 1},     {2.5, 2, 2, 2},     {-0.5, 0, -1, 0},
      {-1.5, -2, -2, -1}, {-2.6, -3, -3, -2}, {-8.4, -8, -9, -8}, {1e300, 1e300, 1e300, 1e300},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(row.even, roundHalfEven(row.value)) << row.value;
    EXPECT_EQ(row.down, wholePart(row.value)) << row.value;
    EXPECT_EQ(row.truncated, truncated(row.value)) << row.value;
    EXPECT_FALSE(std::signbit(row.even) == 0 && std::signbit(roundHalfEven(row.value))) << row.value;
  }
  EXPECT_EQ(114, wholePart(1.15 * 100));
}

TEST(Rounding, WorksOnTheScaledDouble) {
  EXPECT_EQ(2.4, roundHalfEven(2.45, 1));
  EXPECT_EQ(22.22, roundHalfEven(22.225, 2));
  EXPECT_EQ(4.69, roundHalfEven(2.344 + 2.341, 2));
  EXPECT_EQ(4.68, roundHalfEven(4.685, 2));
  EXPECT_EQ(1200, roundHalfEven(1250, -2));
}

}  // namespace
}  // namespace velmo::text
