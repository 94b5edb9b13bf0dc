#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::text {

// Adds numbers as the decimals of 15 significant digits that they are known by (Decimal), exactly: in any order the sum
// is the same, and 0.1 + 0.2 - 0.3 is 0.
class DecimalSum {
 public:
  // Numbers of up to four decimals are added in ten-thousandths.
  static constexpr int partsPerUnit = 10'000;
  static constexpr std::int64_t mostParts = 1'000'000'000'000'000;  // and more are not told by 15 digits
  // How many they are; nothing when the number has more decimals or digits.
  static std::optional<std::int64_t> partsOf(double value);

  DecimalSum& operator+=(double value);
  DecimalSum& operator-=(double value) { return *this += -value; }
  void addWhole(std::int64_t value) { parts_ += Parts(value) * partsPerUnit; }
  void addParts(std::int64_t parts) { parts_ += parts; }
  void negate();
  // A sum as digits() writes it; false when the text is none, and nothing is added.
  bool addDigits(std::string_view digits);

  // Rounded to 15 significant digits, half away from zero. A sum with a number that is not finite is not finite.
  double value() const;
  // Whether value() is the sum itself.
  bool fits() const;
  // The sum in all its digits, "-12345e-4"; of finite numbers.
  std::string digits() const;

 private:
  __extension__ using Parts = __int128;

  // All digits of the size from the first to the last that is not zero, and the power of ten of the last.
  struct Size {
    bool negative = false;
    std::string digits = {};
    int exponent = 0;
  };
  Size size() const;
  void addRare(double value);
  void addShifted(std::int64_t digits, int exponent);  // up to 18 digits
  bool hasFewDigits() const;

  Parts parts_ = 0;
  std::vector<std::int64_t> limbs_ = {};  // of what is no whole number of parts or too large, each of nine digits
  double notFinite_ = 0;
};

// Of any numbers, differences being sums of what is negative.
double sumOf(std::initializer_list<double> values);

}  // namespace velmo::text
