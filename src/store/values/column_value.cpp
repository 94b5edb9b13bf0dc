#include "store/values/column_value.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "store/values/error.h"
#include "text/number.h"

namespace velmo::store {
namespace {

StoreError misfit(const Column& column, const Value& value, std::string_view expected) {
  return {ErrorKind::Value,
          "\"" + textOf(value) + "\" does not fit " + column.name + ", which holds " + std::string(expected) + "."};
}

double numberFor(const Column& column, const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    const std::optional<double> number = text::numberFrom(*text);
    if (!number) throw misfit(column, value, "a number");
    return *number;
  }
  const double number = numberOf(value);
  if (!std::isfinite(number)) throw misfit(column, value, "a number");
  return number;
}

struct Range {
  double lowest;
  double highest;
  std::string_view words;
};

Range rangeOf(ColumnType type) {
  switch (type) {
    case ColumnType::Byte:
      return {0, 255, "a whole number from 0 to 255"};
    case ColumnType::Integer:
      return {-32768, 32767, "a whole number from -32,768 to 32,767"};
    default:
      return {-2147483648.0, 2147483647.0, "a whole number of up to ten digits"};
  }
}

Value wholeNumberFor(const Column& column, const Value& value) {
  const Range range = rangeOf(column.type);
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    const auto number = static_cast<double>(*whole);
    if (number >= range.lowest && number <= range.highest) return *whole;
  }
  const double rounded = text::roundHalfEven(numberFor(column, value));
  if (rounded < range.lowest || rounded > range.highest) throw misfit(column, value, range.words);
  return static_cast<std::int64_t>(rounded);
}

Value dateFor(const Column& column, const Value& value) {
  if (std::holds_alternative<text::DateTime>(value)) return value;
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (const auto date = text::DateTime::fromIso(*text)) return *date;
    throw misfit(column, value, "a date");
  }
  constexpr double firstDay = -657434;  // year 100
  constexpr double dayAfterLast = 2958466;
  const double days = numberFor(column, value);
  if (days < firstDay || days >= dayAfterLast) throw misfit(column, value, "a date");
  return text::DateTime::fromSerial(days);
}

Value textFor(const Column& column, const Value& value) {
  std::string text = textOf(value);
  if (text.find('\0') != std::string::npos) {
    throw StoreError(ErrorKind::Value, "A text for " + column.name + " holds a character that cannot be kept.");
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

Value yesNoFor(const Column& column, const Value& value) {
  if (isNull(value)) return false;
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (*text == "True" || *text == "Yes") return true;
    if (*text == "False" || *text == "No") return false;
  }
  return numberFor(column, value) != 0;
}

}  // namespace

Value fitted(const Column& column, const Value& value) {
  if (column.type == ColumnType::YesNo) return yesNoFor(column, value);
  if (isNull(value)) return value;
  switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return textFor(column, value);
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
      return wholeNumberFor(column, value);
    case ColumnType::Double:
      return numberFor(column, value);
    case ColumnType::Date:
      return dateFor(column, value);
    case ColumnType::YesNo:
      break;
  }
  throw misfit(column, value, "another kind of value");
}

}  // namespace velmo::store
