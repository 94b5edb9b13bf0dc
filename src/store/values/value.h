#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "text/date_time.h"

namespace velmo::store {

using Null = std::monostate;

// What a field holds. Yes/No is bool; Byte, Integer and Long are std::int64_t; text is UTF-8.
using Value = std::variant<Null, bool, std::int64_t, double, std::string, text::DateTime>;

inline bool isNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}
// Null or an empty text.
inline bool isBlank(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return isNull(value) || (text != nullptr && text->empty());
}

// The text that a bound control shows: numbers with up to 15 digits, dates as "1/15/2024 2:07:09 PM", "" for null.
std::string textOf(const Value& value);
std::string textOf(Value&& value);

// Null and text that is no number give 0; Yes is -1.
double numberOf(const Value& value);
std::int64_t integerOf(const Value& value);  // rounded half to even
bool isYes(const Value& value);
text::DateTime dateOf(const Value& value);  // day 0 when the value is no date

}  // namespace velmo::store
