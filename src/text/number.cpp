#include "text/number.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "text/decimal.h"

namespace velmo::text {
namespace {

constexpr std::string_view noBreakSpace = "\xC2\xA0";

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}
bool isExponentMark(char character) {
  return character == 'e' || character == 'E' || character == 'd' || character == 'D';
}

// The length of the blank that the text starts with; 0 when it starts with none.
std::size_t blankLength(std::string_view text) {
  if (text.empty()) return 0;
  if (text.front() == ' ' || (text.front() >= '\t' && text.front() <= '\r')) return 1;
  return text.starts_with(noBreakSpace) ? noBreakSpace.size() : 0;
}

std::optional<double> parsed(const std::string& plainNumber) {
  double value = 0;
  const char* end = plainNumber.data() + plainNumber.size();
  const auto [stop, error] = std::from_chars(plainNumber.data(), end, value);
  if (error == std::errc() && stop == end) return value;
  // Too small to be told from zero is zero; too large is no number.
  const bool tiny = error == std::errc::result_out_of_range && plainNumber.find("e-") != std::string::npos;
  return tiny ? std::optional(0.0) : std::nullopt;
}

struct RadixNumber {
  double value = 0;
  std::size_t length = 0;
};

// "&HFF" and "&O17" at the head of the text.
std::optional<RadixNumber> radixNumber(std::string_view text) {
  if (text.size() < 3 || text[0] != '&') return std::nullopt;
  const bool hexadecimal = text[1] == 'H' || text[1] == 'h';
  if (!hexadecimal && text[1] != 'O' && text[1] != 'o') return std::nullopt;
  std::uint64_t value = 0;
  const auto [stop, error] = std::from_chars(text.data() + 2, text.data() + text.size(), value, hexadecimal ? 16 : 8);
  if (error != std::errc()) return std::nullopt;
  return RadixNumber{static_cast<double>(value), static_cast<std::size_t>(stop - text.data())};
}

// Reads a whole text: blanks, then sign, "$" and "(" in any order before the digits, their closing forms behind them.
class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : rest_(text) {}

  std::optional<double> read() {
    leadingMarks();
    if (const auto radix = radixNumber(rest_)) {
      rest_.remove_prefix(radix->length);
      trailingMarks();
      return complete(radix->value);
    }
    if (!wholeAndFraction() || !exponent()) return std::nullopt;
    trailingMarks();
    const std::optional<double> value = parsed(digits_);
    return value ? complete(*value) : std::nullopt;
  }

 private:
  bool take(char character) {
    if (rest_.empty() || rest_.front() != character) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool takeBlank() {
    const std::size_t length = blankLength(rest_);
    rest_.remove_prefix(length);
    return length > 0;
  }

  bool takeSign() {
    if (signed_ || parenthesis_) return false;
    if (take('-')) return signed_ = negative_ = true;
    return signed_ = take('+');
  }

  void leadingMarks() {
    for (;;) {
      if (takeBlank() || takeSign()) continue;
      if (!currency_ && take('$')) {
        currency_ = true;
      } else if (!parenthesis_ && !signed_ && take('(')) {
        parenthesis_ = negative_ = true;
      } else {
        return;
      }
    }
  }

  void trailingMarks() {
    for (;;) {
      if (takeBlank() || takeSign()) continue;
      if (!currency_ && take('$')) {
        currency_ = true;
      } else if (parenthesis_ && !closed_ && take(')')) {
        closed_ = true;
      } else {
        return;
      }
    }
  }

  void takeDigits() {
    while (!rest_.empty() && isDigit(rest_.front())) {
      digits_ += rest_.front();
      rest_.remove_prefix(1);
    }
  }

  bool wholeAndFraction() {
    takeDigits();
    while (!digits_.empty() && take(',')) takeDigits();
    const std::size_t wholeLength = digits_.size();
    if (wholeLength == 0) digits_ = "0";
    if (take('.')) {
      digits_ += '.';
      const std::size_t before = digits_.size();
      takeDigits();
      if (digits_.size() == before) {
        if (wholeLength == 0) return false;
        digits_.pop_back();
      }
      return true;
    }
    return wholeLength > 0;
  }

  bool exponent() {
    if (rest_.empty() || !isExponentMark(rest_.front())) return true;
    rest_.remove_prefix(1);
    digits_ += 'e';
    if (take('-'))
      digits_ += '-';
    else
      take('+');
    const std::size_t before = digits_.size();
    takeDigits();
    return digits_.size() > before;
  }

  std::optional<double> complete(double magnitude) const {
    if (!rest_.empty() || parenthesis_ != closed_) return std::nullopt;
    return negative_ && magnitude != 0 ? -magnitude : magnitude;
  }

  std::string_view rest_;
  std::string digits_;
  bool negative_ = false, signed_ = false, currency_ = false, parenthesis_ = false, closed_ = false;
};

std::string withoutBlanks(std::string_view text) {
  std::string result;
  for (const char character : text)
    if (character != ' ' && character != '\t' && character != '\n') result += character;
  return result;
}

// The length of the number "-12.5e3" that the text starts with, 0 when it starts with none.
std::size_t plainNumberLength(std::string_view text) {
  const auto skipDigits = [text](std::size_t at) {
    while (at < text.size() && isDigit(text[at])) ++at;
    return at;
  };
  const std::size_t sign = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
  std::size_t end = skipDigits(sign);
  std::size_t digitCount = end - sign;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fractionEnd = skipDigits(end + 1);
    digitCount += fractionEnd - end - 1;
    end = fractionEnd;
  }
  if (digitCount == 0) return 0;
  if (end < text.size() && isExponentMark(text[end])) {
    std::size_t at = end + 1;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    const std::size_t exponentEnd = skipDigits(at);
    if (exponentEnd > at) end = exponentEnd;
  }
  return end;
}

double withoutNegativeZero(double value) {
  return value == 0 ? 0 : value;
}

// The shortest text that reads back as the value, without an exponent; nothing where that has more than 15 digits.
// Rounding the value to 15 digits gives the same, which takes several times as long to find out.
char* plainNumber(double value, char* begin, char* end) {
  constexpr double smallest = 1e-4, beyond = 1e15;
  const double size = std::fabs(value);
  if (size < smallest || size >= beyond) return nullptr;
  if (value == std::trunc(value)) return std::to_chars(begin, end, static_cast<std::int64_t>(value)).ptr;
  char* const last = std::to_chars(begin, end, value, std::chars_format::fixed).ptr;
  char* const first = std::find_if(begin, last, [](char c) { return c >= '1' && c <= '9'; });
  const bool pointFollows = std::find(first, last, '.') != last;
  return last - first <= (pointFollows ? 16 : 15) ? last : nullptr;
}

}  // namespace

std::string numberText(double value) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
  if (value == 0) return "0";
  char buffer[32];  // "-1.23456789012346E+308"
  if (char* const end = plainNumber(value, buffer, buffer + sizeof buffer)) return {buffer, end};
  char* const end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15).ptr;
  std::replace(buffer, end, 'e', 'E');
  return {buffer, end};
}

std::optional<double> numberFrom(std::string_view text) {
  return NumberReader(text).read();
}

bool isNumeric(std::string_view text) {
  return numberFrom(text).has_value();
}

double leadingNumber(std::string_view text) {
  const std::string plain = withoutBlanks(text);
  if (const auto radix = radixNumber(plain)) return radix->value;
  const std::size_t length = plainNumberLength(plain);
  return length == 0 ? 0 : numberFrom(std::string_view(plain).substr(0, length)).value_or(0);
}

double amountFrom(std::string_view text) {
  return numberFrom(text).value_or(0);
}

double roundHalfEven(double value, int digits) {
  const double scale = std::pow(10.0, digits);
  const double scaled = value * scale;
  constexpr double largestWithFraction = 4503599627370496.0;  // 2^52: a double at or above it is a whole number
  if (!(std::fabs(scaled) < largestWithFraction)) return withoutNegativeZero(value);
  double whole = std::floor(scaled);
  const double rest = scaled - whole;
  if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2.0) != 0)) whole += 1;
  return withoutNegativeZero(whole / scale);
}

double wholePart(double value) {
  return withoutNegativeZero(std::floor(value));
}

double truncated(double value) {
  return withoutNegativeZero(std::trunc(value));
}

}  // namespace velmo::text
