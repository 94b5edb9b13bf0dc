#include "text/decimal.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace velmo::text {
namespace {

constexpr int significantDigits = 15;

// Adds one to the last digit; a carry out of the first makes the text one digit longer.
void increment(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  digits.insert(digits.begin(), '1');
}

}  // namespace

Decimal Decimal::of(double value) {
  Decimal result;
  if (value == 0) return result;
  char buffer[40];  // "-d.dddddddddddddde+308"
  // The shortest text that reads back as the value mostly has few enough digits, and then rounding gives the same.
  char* const last = buffer + sizeof buffer;
  char* end = std::to_chars(buffer, last, value, std::chars_format::scientific).ptr;
  const auto digits = std::find(buffer, end, 'e') - buffer - (value < 0 ? 2 : 1);
  if (digits > significantDigits)
    end = std::to_chars(buffer, last, value, std::chars_format::scientific, significantDigits - 1).ptr;
  const std::string text(buffer, end);
  const std::size_t start = text[0] == '-' ? 1 : 0;
  const std::size_t mark = text.find('e');
  result.negative = start == 1;
  result.digits = text.substr(start, 1);
  if (mark > start + 2) result.digits += text.substr(start + 2, mark - start - 2);
  result.digits.erase(result.digits.find_last_not_of('0') + 1);
  result.exponent = std::atoi(text.c_str() + mark + 1);
  return result;
}

bool Decimal::Fixed::isZero() const {
  return whole.empty() && fraction.find_first_not_of('0') == std::string::npos;
}

Decimal::Fixed Decimal::rounded(int places) const {
  // All digits down to the wanted place, zero-filled on both sides.
  const int wholeLength = exponent + 1 > 0 ? exponent + 1 : 0;
  std::string all(exponent + 1 < 0 ? static_cast<std::size_t>(-exponent - 1) : 0, '0');
  all += digits;
  const auto wanted = static_cast<std::size_t>(wholeLength + places);
  std::size_t pointAt = static_cast<std::size_t>(wholeLength);
  if (all.size() > wanted) {
    const bool up = all[wanted] >= '5';
    all.resize(wanted);
    if (up) {
      const std::size_t before = all.size();
      increment(all);
      pointAt += all.size() - before;
    }
  } else {
    all.append(wanted - all.size(), '0');
  }
  Fixed result{all.substr(0, pointAt), all.substr(pointAt)};
  result.whole.erase(0, result.whole.find_first_not_of('0'));
  return result;
}

}  // namespace velmo::text
