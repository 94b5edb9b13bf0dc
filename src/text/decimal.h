#pragma once

#include <string>

namespace velmo::text {

// The decimal digits that a double is known by: 15 significant ones, the first not zero unless the number is. All
// texts of numbers start here, so that rounding is done on what a person reads and not on the binary fraction.
struct Decimal {
  bool negative = false;
  std::string digits = "0";  // significant digits without trailing zeros, "0" for zero
  int exponent = 0;          // of ten, of the first digit: 123.4 is {"1234", 2}

  static Decimal of(double value);  // value is finite

  bool isZero() const { return digits == "0"; }
  // Digits before the decimal point and exactly `places` digits behind it, both without sign; half away from zero.
  struct Fixed {
    std::string whole;  // without leading zeros, empty below one
    std::string fraction;
    bool isZero() const;
  };
  Fixed rounded(int places) const;
};

}  // namespace velmo::text
