#include "store/sql/parse/literals.h"

#include <array>
#include <charconv>
#include <cmath>

#include "store/sql/parse/refusal.h"

namespace velmo::store::sql {
namespace {

class Digits {
 public:
  explicit Digits(std::string_view text) : rest_(text) {}

  void skipBlanks() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
  }
  bool atEnd() const { return rest_.empty(); }
  bool take(char wanted) {
    if (rest_.empty() || rest_.front() != wanted) return false;
    rest_.remove_prefix(1);
    return true;
  }
  bool takeDateSeparator() { return take('-') || take('/'); }
  std::optional<int> number() {
    int value = 0;
    const std::size_t most = std::min<std::size_t>(rest_.size(), 4);
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + most, value);
    if (error != std::errc() || value < 0) return std::nullopt;
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return value;
  }
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// Two-digit years stand for 1930 to 2029.
int fullYear(int year) {
  if (year >= 100) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

bool isDayOfCalendar(int year, int month, int day) {
  static constexpr std::array<int, 12> lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
  const bool leapYear = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  const int extra = month == 2 && leapYear ? 1 : 0;
  return day <= lengths[static_cast<std::size_t>(month - 1)] + extra;
}

struct TimeOfDay {
  int hour = 0, minute = 0, second = 0;
};

std::optional<TimeOfDay> timeFrom(Digits& digits) {
  TimeOfDay time;
  const auto hour = digits.number();
  if (!hour || !digits.take(':')) return std::nullopt;
  const auto minute = digits.number();
  if (!minute) return std::nullopt;
  time = {*hour, *minute, 0};
  if (digits.take(':')) {
    const auto second = digits.number();
    if (!second) return std::nullopt;
    time.second = *second;
  }
  digits.skipBlanks();
  if (!digits.atEnd()) {
    const bool afternoon = sameWord(digits.rest(), "pm");
    if (!afternoon && !sameWord(digits.rest(), "am")) return std::nullopt;
    if (time.hour < 1 || time.hour > 12) return std::nullopt;
    time.hour = time.hour % 12 + (afternoon ? 12 : 0);
  }
  if (time.hour > 23 || time.minute > 59 || time.second > 59) return std::nullopt;
  return time;
}

}  // namespace

std::optional<text::DateTime> dateFromLiteral(std::string_view inside) {
  Digits digits(inside);
  digits.skipBlanks();
  const auto first = digits.number();
  if (!first || !digits.takeDateSeparator()) return std::nullopt;
  const auto second = digits.number();
  if (!second || !digits.takeDateSeparator()) return std::nullopt;
  const auto third = digits.number();
  if (!third) return std::nullopt;
  const bool yearFirst = *first > 31;
  const int year = fullYear(yearFirst ? *first : *third);
  const int month = yearFirst ? *second : *first;
  const int day = yearFirst ? *third : *second;
  if (!isDayOfCalendar(year, month, day)) return std::nullopt;
  TimeOfDay time;
  const bool separated = !digits.rest().empty() && digits.rest().front() == ' ';
  digits.skipBlanks();
  if (!digits.atEnd()) {
    const auto found = separated ? timeFrom(digits) : std::nullopt;
    if (!found) return std::nullopt;
    time = *found;
  }
  return text::DateTime::fromCalendar(year, month, day, time.hour, time.minute, time.second);
}

std::optional<Value> numberFromLiteral(std::string_view digits) {
  std::int64_t whole = 0;
  const char* end = digits.data() + digits.size();
  if (const auto result = std::from_chars(digits.data(), end, whole); result.ec == std::errc() && result.ptr == end) {
    return whole;
  }
  double real = 0;
  const auto result = std::from_chars(digits.data(), end, real);
  if (result.ec != std::errc() || result.ptr != end || !std::isfinite(real)) return std::nullopt;
  return real;
}

std::string textFromLiteral(std::string_view inside, char quote) {
  std::string text;
  text.reserve(inside.size());
  for (std::size_t i = 0; i < inside.size(); ++i) {
    text += inside[i];
    if (inside[i] == quote) ++i;
  }
  return text;
}

}  // namespace velmo::store::sql
