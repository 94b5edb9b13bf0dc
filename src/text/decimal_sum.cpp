#include "text/decimal_sum.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>

#include "text/decimal.h"

namespace velmo::text {
namespace {

constexpr int significantDigits = 15;

// A limb holds nine digits once carries are settled; the lowest stands for less than the smallest double shows, the
// highest for more than the largest.
constexpr int limbDigits = 9;
constexpr std::int64_t limbBase = 1'000'000'000;
constexpr std::size_t limbCount = 76;
constexpr int lowestExponent = -342;
constexpr int highestExponent = lowestExponent + limbDigits * (static_cast<int>(limbCount) - 4);
constexpr std::array<std::int64_t, limbDigits> powers{1,       10,        100,        1000,       10'000,
                                                      100'000, 1'000'000, 10'000'000, 100'000'000};

using Limbs = std::vector<std::int64_t>;

// What is left over above the highest limb: below zero when the number is.
std::int64_t settleCarries(Limbs& limbs) {
  std::int64_t carry = 0;
  for (std::int64_t& limb : limbs) {
    limb += carry;
    carry = limb / limbBase - (limb % limbBase < 0 ? 1 : 0);
    limb -= carry * limbBase;
  }
  return carry;
}

// From the highest of them down.
std::string digitsOf(std::span<const std::int64_t> limbs) {
  std::string digits;
  for (; !limbs.empty(); limbs = limbs.first(limbs.size() - 1)) {
    const std::string nine = std::to_string(limbs.back());
    digits.append(limbDigits - nine.size(), '0').append(nine);
  }
  return digits;
}

std::int64_t wholeOf(std::string_view digits) {
  std::int64_t whole = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), whole);
  return whole;
}

double nearest(std::int64_t digits, int exponent) {
  const std::string text = std::to_string(digits) + "e" + std::to_string(exponent);
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec == std::errc()) return value;
  return exponent > 0 ? std::numeric_limits<double>::infinity() : 0;
}

}  // namespace

// A number of at most four decimals lies nearer to its whole number of parts than half of its fifteenth digit.
std::optional<std::int64_t> DecimalSum::partsOf(double value) {
  constexpr double nearness = 3e-16;
  const double scaled = value * partsPerUnit;
  if (!(std::fabs(scaled) < mostParts)) return std::nullopt;
  const auto parts = static_cast<std::int64_t>(scaled + (scaled < 0 ? -0.5 : 0.5));
  if (std::fabs(static_cast<double>(parts) - scaled) <= nearness * std::fabs(scaled)) return parts;
  return std::nullopt;
}

DecimalSum& DecimalSum::operator+=(double value) {
  if (const std::optional<std::int64_t> parts = partsOf(value))
    parts_ += *parts;
  else
    addRare(value);
  return *this;
}

void DecimalSum::addRare(double value) {
  if (!std::isfinite(value)) {
    notFinite_ += value;
    return;
  }
  const Decimal decimal = Decimal::of(value);
  const std::int64_t digits = wholeOf(decimal.digits);
  addShifted(decimal.negative ? -digits : digits, decimal.exponent + 1 - static_cast<int>(decimal.digits.size()));
}

void DecimalSum::addShifted(std::int64_t digits, int exponent) {
  if (limbs_.empty()) limbs_.resize(limbCount);
  const auto place = static_cast<std::size_t>(exponent - lowestExponent);
  Parts rest = Parts(digits) * powers[place % limbDigits];
  for (std::size_t limb = place / limbDigits; rest != 0; ++limb, rest /= limbBase)
    limbs_[limb] += static_cast<std::int64_t>(rest % limbBase);
}

void DecimalSum::negate() {
  parts_ = -parts_;
  for (std::int64_t& limb : limbs_) limb = -limb;
  notFinite_ = -notFinite_;
}

bool DecimalSum::addDigits(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const std::size_t mark = text.find('e');
  if (mark == 0 || mark == std::string_view::npos) return false;
  std::string_view digits = text.substr(0, mark);
  if (digits.find_first_not_of("0123456789") != std::string_view::npos) return false;
  int exponent = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data() + mark + 1, end, exponent);
  if (read.ec != std::errc() || read.ptr != end || exponent < lowestExponent ||
      exponent > highestExponent - static_cast<int>(digits.size()))
    return false;
  constexpr std::size_t atOnce = 18;
  while (!digits.empty()) {
    const std::string_view head = digits.substr(0, atOnce);
    digits.remove_prefix(head.size());
    addShifted(negative ? -wholeOf(head) : wholeOf(head), exponent + static_cast<int>(digits.size()));
  }
  return true;
}

DecimalSum::Size DecimalSum::size() const {
  DecimalSum all = *this;
  all.limbs_.resize(limbCount);
  constexpr Parts atOnce = 1'000'000'000'000'000'000;
  int exponent = -4;
  for (Parts rest = parts_; rest != 0; rest /= atOnce, exponent += 18)
    all.addShifted(static_cast<std::int64_t>(rest % atOnce), exponent);
  Limbs limbs = all.limbs_;
  const bool negative = settleCarries(limbs) < 0;
  if (negative) {
    all.negate();
    limbs = all.limbs_;
    settleCarries(limbs);
  }
  const auto isFilled = [](std::int64_t limb) { return limb != 0; };
  const auto lowest = std::ranges::find_if(limbs, isFilled);
  if (lowest == limbs.end()) return {.digits = "0"};
  const auto behindHighest = std::find_if(limbs.rbegin(), limbs.rend(), isFilled).base();
  std::string digits = digitsOf({lowest, behindHighest});
  const std::size_t behind = digits.find_last_not_of('0') + 1;
  const int last =
      lowestExponent + limbDigits * static_cast<int>(lowest - limbs.begin()) + static_cast<int>(digits.size() - behind);
  digits.resize(behind);
  digits.erase(0, digits.find_first_not_of('0'));
  return {.negative = negative, .digits = digits, .exponent = last};
}

bool DecimalSum::hasFewDigits() const {
  return limbs_.empty() && parts_ < mostParts && -parts_ < mostParts;
}

bool DecimalSum::fits() const {
  return notFinite_ != 0 || hasFewDigits() || size().digits.size() <= significantDigits;
}

double DecimalSum::value() const {
  if (notFinite_ != 0) return notFinite_;
  if (hasFewDigits()) return static_cast<double>(static_cast<std::int64_t>(parts_)) / partsPerUnit;
  const Size size = this->size();
  const std::string_view digits = size.digits;
  const std::string_view shown = digits.substr(0, significantDigits);
  const std::string_view rest = digits.substr(shown.size());
  const std::int64_t whole = wholeOf(shown) + (!rest.empty() && rest.front() >= '5' ? 1 : 0);
  const double nearestSize = nearest(whole, size.exponent + static_cast<int>(rest.size()));
  return size.negative ? -nearestSize : nearestSize;
}

std::string DecimalSum::digits() const {
  const Size size = this->size();
  return (size.negative ? "-" : "") + size.digits + "e" + std::to_string(size.exponent);
}

double sumOf(std::initializer_list<double> values) {
  DecimalSum sum;
  for (const double value : values) sum += value;
  return sum.value();
}

}  // namespace velmo::text
