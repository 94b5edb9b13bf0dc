#include "text/decimal_sum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "support/exact_decimal.h"
#include "text/number.h"

namespace velmo::text {
namespace {

double added(const std::vector<double>& values) {
  DecimalSum sum;
  for (const double value : values) sum += value;
  return sum.value();
}

TEST(DecimalSum, AddsWhatFiguresShow) {
  const struct {
    std::vector<double> values;
    double sum;
  } cases[] = {
      {{}, 0},
      {{0.1, 0.2, -0.3}, 0},
      {{0.1 + 0.2, -0.3}, 0},
      {{4009.53, -2004.76, -2004.77}, 0},
      {{99999999999999, 120.37, -99999999999999}, 120.37},
      {{999999999999999, 0.0001, -999999999999999}, 0.0001},
      {{5901234123457, 0.35, -5901234123457, -0.35}, 0},
      {{1.0 / 3, 1.0 / 3, 1.0 / 3}, 0.999999999999999},
      {{1e300, 0.05, -1e300}, 0.05},
      {{5e-324, 1e308, -1e308, -5e-324}, 0},
      {{999999999999999, 0.5}, 1e15},
      {{-999999999999999, -0.5}, -1e15},
      {{99999999999.9999, 99999999999.9999, 0.0002}, 200000000000},
      {{123456789012345, 0.4999}, 123456789012345},
      {{1e308, 1e308}, std::numeric_limits<double>::infinity()},
      {{1, std::numeric_limits<double>::infinity(), -2}, std::numeric_limits<double>::infinity()},
  };
  for (const auto& row : cases) EXPECT_EQ(added(row.values), row.sum) << testing::PrintToString(row.values);
  EXPECT_TRUE(std::isnan(added({std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()})));
  EXPECT_FALSE(std::signbit(added({-0.0, -0.0})));
}

class Amounts {
 public:
  // Amounts with up to fifteen digits and four decimals, results of arithmetic with them, and any numbers.
  double next() {
    const auto digits = static_cast<double>(random_() % powers[random_() % powers.size()]);
    const double sign = random_() % 2 == 0 ? 1 : -1;
    switch (random_() % 8) {
      case 0:
        return sign * digits / 7;
      case 1:
        return sign * digits * std::pow(10, static_cast<int>(random_() % 40) - 20);
      case 2:
        return std::nextafter(sign * digits / 100, 0);
      case 3:
        return random_() % 16 == 0 ? anyBits() : last_ == 0 ? 0 : -last_;
      default:
        return last_ = sign * digits / tens[random_() % tens.size()];
    }
  }
  std::size_t below(std::size_t limit) { return random_() % limit; }
  void shuffle(std::vector<double>& values) { std::shuffle(values.begin(), values.end(), random_); }

 private:
  double anyBits() {
    const double value = std::bit_cast<double>(random_());
    return std::fabs(value) < 1e300 ? value : 1;
  }

  static constexpr std::array<std::uint64_t, 4> powers{1000, 1000'000'0, 100'000'000'000, 1'000'000'000'000'000};
  static constexpr std::array<double, 5> tens{1, 10, 100, 1000, 10000};
  std::mt19937_64 random_{1915};
  double last_ = 0;
};

TEST(DecimalSum, IsExactInAnyOrder) {
  Amounts amounts;
  for (int round = 0; round < 20000; ++round) {
    std::vector<double> values(amounts.below(12));
    for (double& value : values) value = amounts.next();
    test::ExactDecimal exact;
    for (const double value : values) exact += value;
    ASSERT_EQ(added(values), exact.value()) << testing::PrintToString(values);
    const double before = added(values);
    amounts.shuffle(values);
    ASSERT_EQ(added(values), before);
  }
}

// What a sum writes is the sum, whatever is added behind.
TEST(DecimalSum, ReadsItsDigits) {
  Amounts amounts;
  for (int round = 0; round < 5000; ++round) {
    DecimalSum whole, head;
    for (std::size_t count = amounts.below(6); count > 0; --count) {
      const double value = amounts.next();
      whole += value;
      head += value;
    }
    const bool fits = head.fits();
    DecimalSum rest;
    ASSERT_TRUE(rest.addDigits(head.digits())) << head.digits();
    ASSERT_EQ(rest.fits(), fits) << head.digits();
    if (fits) {
      rest -= head.value();
      ASSERT_EQ(rest.value(), 0) << head.digits();
    }
    const double value = amounts.next();
    DecimalSum carriedOn;
    carriedOn.addDigits(head.digits());
    whole += value;
    carriedOn += value;
    ASSERT_EQ(carriedOn.value(), whole.value());
  }
  for (const char* text : {"", "-", "12", "e5", "1.5e3", "abc", "1e", "1e9999", "1e-9999", "12e3x", "--1e1"})
    EXPECT_FALSE(DecimalSum().addDigits(text)) << text;
}

TEST(DecimalSum, TakesWholeNumbersAndParts) {
  DecimalSum sum;
  for (int i = 0; i < 40000; ++i) sum.addParts(std::numeric_limits<std::int64_t>::max());
  for (int i = 0; i < 40000; ++i) sum.addParts(-std::numeric_limits<std::int64_t>::max());
  sum.addParts(-12345);
  sum.addWhole(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(sum.digits(), "92233720368547758057655e-4");
  EXPECT_FALSE(sum.fits());
  EXPECT_EQ(sum.value(), 9.22337203685478e18);
  EXPECT_EQ(sumOf({100, -0.3, -99.7}), 0);
}

}  // namespace
}  // namespace velmo::text
