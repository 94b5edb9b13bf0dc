#include "text/amount_in_words.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmo::text {
namespace {

TEST(AmountInWords, NamesEveryGroup) {
  const struct {
    double amount;
    const char* words;
  } cases[] = {
      {0, "zero and 00/100"},
      {0.5, "zero and 50/100"},
      {0.05, "zero and 05/100"},
      {1, "one and 00/100"},
      {10, "ten and 00/100"},
      {10.10, "ten and 10/100"},
      {11, "eleven and 00/100"},
      {19.99, "nineteen and 99/100"},
      {20, "twenty and 00/100"},
      {21, "twenty-one and 00/100"},
      {100, "one hundred and 00/100"},
      {101, "one hundred one and 00/100"},
      {110, "one hundred ten and 00/100"},
      {115, "one hundred fifteen and 00/100"},
      {120, "one hundred twenty and 00/100"},
      {999, "nine hundred ninety-nine and 00/100"},
      {1000, "one thousand and 00/100"},
      {1001, "one thousand, one and 00/100"},
      {1234.5, "one thousand, two hundred thirty-four and 50/100"},
      {13012, "thirteen thousand, twelve and 00/100"},
      {20000, "twenty thousand and 00/100"},
      {100100, "one hundred thousand, one hundred and 00/100"},
      {1000000, "one million and 00/100"},
      {1000001, "one million, one and 00/100"},
      {2300000, "two million, three hundred thousand and 00/100"},
      {999999999.99,
       "nine hundred ninety-nine million, nine hundred ninety-nine thousand, nine hundred ninety-nine and 99/100"},
      {1e9, "one billion and 00/100"},
      {5e12, "five trillion and 00/100"},
      {1e15, "1000000000000000 and 00/100"},
      {-21.5, "minus twenty-one and 50/100"},
      {std::numeric_limits<double>::infinity(), "inf"},
  };
  for (const auto& row : cases) EXPECT_EQ(row.words, AmountInWords(row.amount)) << row.amount;
  EXPECT_EQ("nan", AmountInWords(std::nan("")));
  EXPECT_FALSE(AmountInWords(std::numeric_limits<double>::max()).empty());
}

}  // namespace
}  // namespace velmo::text
