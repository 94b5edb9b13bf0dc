#include "attack/amount.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace velmo::attack {
namespace {

__extension__ using Units = __int128;

constexpr int decimals = 12;
constexpr int greatestPower = 20;

constexpr Units powerOfTen(int power) {
  Units value = 1;
  for (; power > 0; --power) value *= 10;
  return value;
}

constexpr Units greatest = powerOfTen(greatestPower + decimals);
constexpr Units halfCent = 5 * powerOfTen(decimals - 3);

Units bounded(Units units) {
  return std::clamp(units, -greatest, greatest);
}

Units magnitude(Units units) {
  return units < 0 ? -units : units;
}

}  // namespace

Amount::Amount(double value) {
  if (std::isnan(value)) return;
  if (std::fabs(value) >= 1e20) {
    units_ = value < 0 ? -greatest : greatest;
    return;
  }
  char digits[32];  // -1.23456789012345e+02
  std::snprintf(digits, sizeof digits, "%.14e", value);
  Units mantissa = 0;
  const char* next = digits;
  for (; *next != 'e'; ++next)
    if (*next >= '0' && *next <= '9') mantissa = mantissa * 10 + (*next - '0');
  const int shift = std::atoi(next + 1) - 14 + decimals;
  if (shift >= 0) {
    mantissa *= powerOfTen(shift);
  } else if (shift < -18) {
    mantissa = 0;
  } else {
    const Units divisor = powerOfTen(-shift);
    mantissa = (mantissa + divisor / 2) / divisor;
  }
  units_ = digits[0] == '-' ? -mantissa : mantissa;
}

Amount Amount::ofTenThousandths(std::int64_t parts) {
  Amount amount;
  amount.units_ = bounded(Units(parts) * powerOfTen(decimals - 4));
  return amount;
}

Amount& Amount::operator+=(const Amount& other) {
  units_ = bounded(units_ + other.units_);
  return *this;
}

Amount operator-(const Amount& one, const Amount& other) {
  Amount difference;
  difference.units_ = bounded(one.units_ - other.units_);
  return difference;
}

bool Amount::isHalfCentOrMore() const {
  return magnitude(units_) >= halfCent;
}

bool Amount::isAbout(const Amount& other) const {
  const Units allowed = halfCent / 100 + std::max(magnitude(units_), magnitude(other.units_)) / powerOfTen(12);
  return magnitude(units_ - other.units_) <= allowed;
}

std::string Amount::text() const {
  const Units all = magnitude(units_);
  std::string fraction = std::to_string(static_cast<std::int64_t>(all % powerOfTen(decimals)));
  fraction.insert(0, static_cast<std::size_t>(decimals) - fraction.size(), '0');
  std::string whole;
  Units rest = all / powerOfTen(decimals);
  do whole.insert(whole.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
  while ((rest /= 10) != 0);
  return (units_ < 0 ? "-" : "") + whole + "." + fraction;
}

}  // namespace velmo::attack
