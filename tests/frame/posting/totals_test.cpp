#include <gtest/gtest.h>

#include "frame/posting/document_totals.h"

namespace {

using velmo::frame::amountInWordsOnly;
using velmo::frame::DocumentTotals;
using velmo::frame::LineSums;
using velmo::frame::RecalculateTotals;
using velmo::frame::ReceivedRule;
using velmo::frame::TypedAmounts;

struct TotalsCase {
  const char* what;
  LineSums sums;
  TypedAmounts typed;
  ReceivedRule rule;
  DocumentTotals expected;
};

TEST(Totals, FollowFromLinesAndTypedAmounts) {
  const TotalsCase cases[] = {
      {"part received",
       {200, 20, 180},
       {"10", "5.5", "100"},
       ReceivedRule::AsTyped,
       {"200.00", "20.00", "180.00", "10", "170.00", "5.5", "175.50", "100", "75.50",
        "Rupees one hundred seventy-five and 50/100 only."}},
      {"no lines and a discount give a negative total in parentheses",
       {},
       {"10.00", "0.00", "0.00"},
       ReceivedRule::AsTyped,
       {"0.00", "0.00", "0.00", "10.00", " (10.00)", "0.00", " (10.00)", "0.00", " (10.00)",
        "Rupees minus ten and 00/100 only."}},
      {"a negative carriage, as typed or in parentheses, lowers the total",
       {100, 0, 100},
       {"0.00", " (7.25)", "0.00"},
       ReceivedRule::AsTyped,
       {"100.00", "0.00", "100.00", "0.00", "100.00", " (7.25)", "92.75", "0.00", "92.75",
        "Rupees ninety-two and 75/100 only."}},
      {"what is no number becomes zero",
       {100, 0, 100},
       {"", "-", "abc"},
       ReceivedRule::AsTyped,
       {"100.00", "0.00", "100.00", "0.00", "100.00", "0.00", "100.00", "0.00", "100.00",
        "Rupees one hundred and 00/100 only."}},
      {"a walk-in customer pays in full, whatever was typed",
       {33.335, 0, 33.335},
       {"0.00", "0.00", "1.00"},
       ReceivedRule::WholeNetTotal,
       {"33.34", "0.00", "33.34", "0.00", "33.34", "0.00", "33.34", "33.34", "0.00",
        "Rupees thirty-three and 34/100 only."}},
  };
  for (const TotalsCase& test : cases) {
    SCOPED_TRACE(test.what);
    const DocumentTotals totals = RecalculateTotals(test.sums, test.typed, test.rule, "Rupees");
    EXPECT_EQ(totals.GrTot, test.expected.GrTot);
    EXPECT_EQ(totals.Disc, test.expected.Disc);
    EXPECT_EQ(totals.TExc, test.expected.TExc);
    EXPECT_EQ(totals.Discount, test.expected.Discount);
    EXPECT_EQ(totals.GTotal, test.expected.GTotal);
    EXPECT_EQ(totals.Carriage, test.expected.Carriage);
    EXPECT_EQ(totals.NetTotal, test.expected.NetTotal);
    EXPECT_EQ(totals.Received, test.expected.Received);
    EXPECT_EQ(totals.Balance, test.expected.Balance);
    EXPECT_EQ(totals.AmtWords, test.expected.AmtWords);
  }
}

// Each figure is computed from the shown texts before it: 10.005 is shown as 10.01, and 10.01 is what is billed.
TEST(Totals, ComputeFromTheShownTexts) {
  const DocumentTotals totals =
      RecalculateTotals({10.005, 0, 10.005}, {"0.004", "0.004", "0.00"}, ReceivedRule::AsTyped, "Rs");
  EXPECT_EQ(totals.TExc, "10.01");
  EXPECT_EQ(totals.GTotal, "10.01");
  EXPECT_EQ(totals.NetTotal, "10.01");
  EXPECT_EQ(amountInWordsOnly(0.5), "zero and 50/100 only.");
}

}  // namespace
