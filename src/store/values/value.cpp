#include "store/values/value.h"

#include <cmath>
#include <limits>
#include <utility>

#include "text/number.h"

namespace velmo::store {
namespace {

std::string clockText(const text::DateTime::Calendar& at) {
  const int hour = at.hour % 12 == 0 ? 12 : at.hour % 12;
  auto twoDigits = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  return std::to_string(hour) + ":" + twoDigits(at.minute) + ":" + twoDigits(at.second) +
         (at.hour < 12 ? " AM" : " PM");
}

std::string dateText(const text::DateTime& date) {
  const text::DateTime::Calendar at = date.calendar();
  if (date.day == 0) return clockText(at);
  std::string text = std::to_string(at.month) + "/" + std::to_string(at.dayOfMonth) + "/" + std::to_string(at.year);
  if (date.second != 0) text += " " + clockText(at);
  return text;
}

}  // namespace

std::string textOf(const Value& value) {
  struct Writer {
    std::string operator()(Null) const { return {}; }
    std::string operator()(bool yes) const { return yes ? "True" : "False"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return text::numberText(number); }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const text::DateTime& date) const { return dateText(date); }
  };
  return std::visit(Writer{}, value);
}

std::string textOf(Value&& value) {
  if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
  const Value& other = value;
  return textOf(other);
}

double numberOf(const Value& value) {
  struct Reader {
    double operator()(Null) const { return 0; }
    double operator()(bool yes) const { return yes ? -1 : 0; }
    double operator()(std::int64_t number) const { return static_cast<double>(number); }
    double operator()(double number) const { return number; }
    double operator()(const std::string& text) const { return text::numberFrom(text).value_or(0); }
    double operator()(const text::DateTime& date) const { return date.serial(); }
  };
  return std::visit(Reader{}, value);
}

std::int64_t integerOf(const Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
  const double rounded = text::roundHalfEven(numberOf(value));
  if (std::isnan(rounded)) return 0;
  constexpr double limit = 9223372036854775808.0;
  if (rounded >= limit) return std::numeric_limits<std::int64_t>::max();
  if (rounded < -limit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(rounded);
}

bool isYes(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (*text == "True" || *text == "Yes") return true;
  }
  return numberOf(value) != 0;
}

text::DateTime dateOf(const Value& value) {
  if (const auto* date = std::get_if<text::DateTime>(&value)) return *date;
  if (const auto* text = std::get_if<std::string>(&value))
    return text::DateTime::fromIso(*text).value_or(text::DateTime{});
  return {};
}

}  // namespace velmo::store
