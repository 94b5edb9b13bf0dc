#include "frame/items/line_arithmetic.h"

#include <gtest/gtest.h>

namespace velmo::frame {
namespace {

TEST(LineArithmetic, FollowsTheTextsOfTheCells) {
  const struct {
    LineFigures line;
    LineAmounts amounts;
  } cases[] = {
      {{"3", "33.335", "", ""}, {"100.01", "", "100.01"}},
      {{"2", "10", "12.5", "7"}, {"20.00", "2.50", "17.5"}},  // a rate overwrites the discount
      {{"2", "10", "", "7"}, {"20.00", "7", "13"}},           // without one it stays as typed
      {{"", "abc", "", ""}, {"0.00", "", "0"}},
      {{"1", "0.125", "50", ""}, {"0.13", "0.07", "0.06"}},  // from the rounded gross: 0.065 is 0.07
      {{"-2", "(5.00)", "", ""}, {"10.00", "", "10"}},
      {{"1", "10.1", "", "0.3"}, {"10.10", "0.3", "9.8"}},  // no binary dust in the net
      {{"1,000", "1.005", "0", "9"}, {"1005.00", "0.00", "1005"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(lineAmounts(c.line), c.amounts)
        << c.line.quantity << " x " << c.line.rate << " gives " << lineAmounts(c.line).gross << " "
        << lineAmounts(c.line).discount << " " << lineAmounts(c.line).net;
  }
}

TEST(LineArithmetic, TellsAmountsBeyondNumbers) {
  EXPECT_FALSE(isComputable({"-1e308", "100", "", ""}));
  EXPECT_FALSE(isComputable({"1000", "10", "-1e308", ""}));
  EXPECT_TRUE(isComputable({"99999998", "99999998", "99.99", ""}));
}

}  // namespace
}  // namespace velmo::frame
