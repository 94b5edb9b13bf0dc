#include "text/amount_in_words.h"

#include <array>
#include <cmath>
#include <string_view>

#include "text/format.h"
#include "text/number.h"

namespace velmo::text {
namespace {

constexpr std::array<std::string_view, 20> ones = {
    "zero", "one",    "two",    "three",    "four",     "five",    "six",     "seven",     "eight",    "nine",
    "ten",  "eleven", "twelve", "thirteen", "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array<std::string_view, 10> tens = {"",      "ten",   "twenty",  "thirty", "forty",
                                                   "fifty", "sixty", "seventy", "eighty", "ninety"};
constexpr std::array<std::string_view, 5> groupNames = {"", "thousand", "million", "billion", "trillion"};
constexpr std::size_t mostDigits = 3 * groupNames.size();

// "two hundred thirty-four " of three digits; nothing for 0.
std::string groupWords(int number) {
  std::string words;
  if (number >= 100) words.append(ones[number / 100]).append(" hundred ");
  const int rest = number % 100;
  if (rest == 0) return words;
  if (rest < 20) return words.append(ones[rest]).append(" ");
  words.append(tens[rest / 10]);
  if (rest % 10 != 0) words.append("-").append(ones[rest % 10]);
  return words.append(" ");
}

// Words of a whole number, each followed by a blank. Groups are written from the right; all but the first written are
// set off by a comma.
std::string wholeWords(std::string_view digits) {
  std::string words;
  for (std::size_t group = 0; group * 3 < digits.size(); ++group) {
    const std::size_t end = digits.size() - group * 3;
    const std::size_t start = end > 3 ? end - 3 : 0;
    int number = 0;
    for (const char digit : digits.substr(start, end - start)) number = number * 10 + (digit - '0');
    if (number == 0) continue;
    std::string written = groupWords(number);
    if (group > 0) written.append(groupNames[group]).append(words.empty() ? " " : ", ");
    words.insert(0, written);
  }
  return words.empty() ? std::string(ones[0]) + " " : words;
}

}  // namespace

std::string AmountInWords(double amount) {
  if (!std::isfinite(amount)) return numberText(amount);
  if (amount < 0) return "minus " + AmountInWords(-amount);
  const double whole = wholePart(amount);
  const std::string fraction = "and " + formatNumber((amount - whole) * 100, "00") + "/100";
  const std::string digits = formatNumber(whole, "0");
  return (digits.size() > mostDigits ? digits + " " : wholeWords(digits)) + fraction;
}

}  // namespace velmo::text
