#pragma once

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace velmo::test {

// Adds as a child does on paper: digit below digit, by the text of the C library.
class ExactDecimal {
 public:
  ExactDecimal& operator+=(double value) {
    char text[40];  // "-d.dddddddddddddde+308"
    std::snprintf(text, sizeof text, "%.14e", value);
    const int sign = text[0] == '-' ? -1 : 1;
    const char* at = text + (sign < 0 ? 1 : 0);
    int place = std::atoi(std::string(at).substr(std::string(at).find('e') + 1).c_str());
    for (; *at != 'e'; ++at)
      if (*at != '.') columns_[place--] += sign * (*at - '0');
    return *this;
  }
  ExactDecimal& operator-=(double value) { return *this += -value; }

  // The nearest double of the first fifteen digits, half away from zero.
  double value() const {
    std::map<int, long> digits = carried(1);
    const bool negative = !digits.empty() && digits.rbegin()->second < 0;
    if (negative) digits = carried(-1);
    while (!digits.empty() && digits.rbegin()->second == 0) digits.erase(std::prev(digits.end()));
    if (digits.empty()) return 0;
    const int first = digits.rbegin()->first;
    std::string text;
    for (int place = first; place > first - 15; --place) text += static_cast<char>('0' + digits[place]);
    long whole = std::stol(text);
    if (digits[first - 15] >= 5) ++whole;
    const double size = std::strtod((std::to_string(whole) + "e" + std::to_string(first - 14)).c_str(), nullptr);
    return negative ? -size : size;
  }

 private:
  // Each place a digit but the highest, which tells the sign.
  std::map<int, long> carried(long sign) const {
    std::map<int, long> digits;
    if (columns_.empty()) return digits;
    long carry = 0;
    const int highest = columns_.rbegin()->first + 20;
    for (int place = columns_.begin()->first; place < highest; ++place) {
      const auto column = columns_.find(place);
      const long sum = carry + (column == columns_.end() ? 0 : sign * column->second);
      const long digit = ((sum % 10) + 10) % 10;
      digits[place] = digit;
      carry = (sum - digit) / 10;
    }
    digits[highest] = carry;
    return digits;
  }

  std::map<int, long> columns_;  // sums of digits by their power of ten
};

}  // namespace velmo::test
