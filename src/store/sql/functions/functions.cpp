#include "store/sql/functions/functions.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/sql/functions/decimal_functions.h"
#include "store/sql/functions/row_choice.h"
#include "store/sql/parse/spellings.h"
#include "store/values/error.h"
#include "store/values/value.h"
#include "text/format.h"
#include "text/like.h"
#include "text/number.h"

namespace velmo::store::sql {
namespace {

std::string_view textIn(sqlite3_value* value) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return bytes == nullptr ? std::string_view()
                          : std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

bool isNullValue(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

void resultText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void resultError(sqlite3_context* context, std::string_view message) {
  sqlite3_result_error(context, message.data(), static_cast<int>(message.size()));
}

void resultNumber(sqlite3_context* context, double value) {
  if (!std::isfinite(value)) return resultError(context, "A figure is too large.");
  sqlite3_result_double(context, value);
}

void resultWhole(sqlite3_context* context, double value) {
  constexpr double limit = 9.2e18;
  if (!(std::fabs(value) < limit)) return resultError(context, "A figure is too large for a whole number.");
  sqlite3_result_int64(context, static_cast<sqlite3_int64>(value));
}

// A whole number of up to fifteen digits as its text; an empty one for another value.
std::string_view shortWhole(sqlite3_value* value, std::array<char, 16>& place) {
  if (sqlite3_value_type(value) != SQLITE_INTEGER) return {};
  const sqlite3_int64 whole = sqlite3_value_int64(value);
  constexpr sqlite3_int64 fifteenDigits = 1'000'000'000'000'000;
  if (whole <= -fifteenDigits || whole >= fifteenDigits) return {};
  return {place.begin(), std::to_chars(place.begin(), place.end(), whole).ptr};
}

std::string numberAsText(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_TEXT) return std::string(textIn(value));
  std::array<char, 16> place;
  const std::string_view whole = shortWhole(value, place);
  return whole.empty() ? text::numberText(sqlite3_value_double(value)) : std::string(whole);
}

std::optional<text::DateTime> dateIn(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_TEXT ? text::DateTime::fromIso(textIn(value)) : std::nullopt;
}

// Reads a number or the number that a text stands for; reports the failure itself.
std::optional<double> numberIn(sqlite3_context* context, sqlite3_value* value) {
  if (sqlite3_value_type(value) != SQLITE_TEXT) return sqlite3_value_double(value);
  const auto number = text::numberFrom(textIn(value));
  if (!number) resultError(context, "The text \"" + std::string(textIn(value)) + "\" is not a number.");
  return number;
}

bool anyNull(int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (isNullValue(values[i])) return true;
  }
  return false;
}

void concat(sqlite3_context* context, int count, sqlite3_value** values) {
  thread_local std::string joined;  // keeps its room: a list has two such texts in every row
  joined.clear();
  std::array<char, 16> place;
  bool any = false;
  for (int i = 0; i < count; ++i) {
    sqlite3_value* const value = values[i];
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL) continue;
    any = true;
    if (type == SQLITE_TEXT) {
      joined += textIn(value);
    } else if (const std::string_view whole = shortWhole(value, place); !whole.empty()) {
      joined += whole;
    } else {
      joined += numberAsText(value);
    }
  }
  if (any) resultText(context, joined);
}

// Null gives "", as Format does of nothing.
void textOrEmpty(sqlite3_context* context, int, sqlite3_value** values) {
  resultText(context, isNullValue(values[0]) ? std::string() : numberAsText(values[0]));
}

void text(sqlite3_context* context, int, sqlite3_value** values) {
  if (!isNullValue(values[0])) resultText(context, numberAsText(values[0]));
}

void requiredText(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNullValue(values[0])) return resultError(context, "CStr was given nothing to convert.");
  resultText(context, numberAsText(values[0]));
}

void dateText(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNullValue(values[0])) return;
  const auto date = dateIn(values[0]);
  resultText(context, date ? textOf(*date) : std::string(textIn(values[0])));
}

void number(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNullValue(values[0])) return;
  if (const auto value = numberIn(context, values[0])) resultNumber(context, *value);
}

void whole(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNullValue(values[0])) return;
  if (sqlite3_value_type(values[0]) == SQLITE_INTEGER) return sqlite3_result_value(context, values[0]);
  if (const auto value = numberIn(context, values[0])) resultWhole(context, text::roundHalfEven(*value));
}

void yesNo(sqlite3_context* context, int, sqlite3_value** values) {
  if (!isNullValue(values[0])) sqlite3_result_int(context, sqlite3_value_double(values[0]) != 0 ? -1 : 0);
}

void val(sqlite3_context* context, int, sqlite3_value** values) {
  if (!isNullValue(values[0])) resultNumber(context, text::leadingNumber(textIn(values[0])));
}

void divide(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const double divisor = sqlite3_value_double(values[1]);
  if (divisor == 0) return resultError(context, "A figure was divided by zero.");
  resultNumber(context, sqlite3_value_double(values[0]) / divisor);
}

// The operands of \ and Mod are rounded first.
struct WholePair {
  sqlite3_int64 dividend = 0;
  sqlite3_int64 divisor = 1;
};

std::optional<WholePair> wholePair(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return std::nullopt;
  const double dividend = text::roundHalfEven(sqlite3_value_double(values[0]));
  const double divisor = text::roundHalfEven(sqlite3_value_double(values[1]));
  constexpr double limit = 9.2e18;
  if (std::fabs(dividend) >= limit || std::fabs(divisor) >= limit) {
    resultError(context, "A figure is too large for a whole number.");
    return std::nullopt;
  }
  if (divisor == 0) {
    resultError(context, "A figure was divided by zero.");
    return std::nullopt;
  }
  return WholePair{static_cast<sqlite3_int64>(dividend), static_cast<sqlite3_int64>(divisor)};
}

void wholeDivide(sqlite3_context* context, int count, sqlite3_value** values) {
  if (const auto pair = wholePair(context, count, values)) {
    sqlite3_result_int64(context, pair->dividend / pair->divisor);
  }
}

void modulo(sqlite3_context* context, int count, sqlite3_value** values) {
  if (const auto pair = wholePair(context, count, values)) {
    sqlite3_result_int64(context, pair->dividend % pair->divisor);
  }
}

void power(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  resultNumber(context, std::pow(sqlite3_value_double(values[0]), sqlite3_value_double(values[1])));
}

// A number of decimals, a length or a place in a text, rounded as whole numbers are. Beyond any text is far
// enough.
sqlite3_int64 countIn(sqlite3_value* value) {
  constexpr double beyondAnyText = 1e15;
  return static_cast<sqlite3_int64>(
      std::clamp(text::roundHalfEven(sqlite3_value_double(value)), -beyondAnyText, beyondAnyText));
}

void round(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const sqlite3_int64 digits = count > 1 ? countIn(values[1]) : 0;
  if (digits < 0 || digits > 22) return resultError(context, "Round takes 0 to 22 decimals.");
  if (sqlite3_value_type(values[0]) == SQLITE_INTEGER) return sqlite3_result_value(context, values[0]);
  resultNumber(context, text::roundHalfEven(sqlite3_value_double(values[0]), static_cast<int>(digits)));
}

template <double (*function)(double)>
void wholeOf(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNullValue(values[0])) return;
  if (sqlite3_value_type(values[0]) == SQLITE_INTEGER) return sqlite3_result_value(context, values[0]);
  resultNumber(context, function(sqlite3_value_double(values[0])));
}

void format(sqlite3_context* context, int, sqlite3_value** values) {
  if (isNullValue(values[0])) return resultText(context, "");
  const std::string_view pattern = textIn(values[1]);
  if (sqlite3_value_type(values[0]) == SQLITE_TEXT) {
    return resultText(context, text::formatText(textIn(values[0]), pattern));
  }
  resultText(context, text::formatNumber(sqlite3_value_double(values[0]), pattern));
}

void formatDate(sqlite3_context* context, int, sqlite3_value** values) {
  const auto date = dateIn(values[0]);
  resultText(context, date ? text::formatDate(*date, textIn(values[1])) : std::string(textIn(values[0])));
}

constexpr double firstDay = -657434;  // 0100-01-01
constexpr double dayBehindLast = 2958466;

void resultDate(sqlite3_context* context, double days) {
  if (!(days >= firstDay && days < dayBehindLast)) return resultError(context, "A date lies outside the calendar.");
  resultText(context, text::DateTime::fromSerial(days).iso());
}

void date(sqlite3_context* context, int, sqlite3_value** values) {
  if (!isNullValue(values[0])) resultDate(context, sqlite3_value_double(values[0]));
}

void addDays(sqlite3_context* context, int, sqlite3_value** values) {
  const auto start = dateIn(values[0]);
  if (start && !isNullValue(values[1])) resultDate(context, start->serial() + sqlite3_value_double(values[1]));
}

void daysBetween(sqlite3_context* context, int, sqlite3_value** values) {
  const auto end = dateIn(values[0]);
  const auto start = dateIn(values[1]);
  if (end && start) sqlite3_result_double(context, end->serial() - start->serial());
}

// The byte behind the first `characters` characters.
std::size_t bytesOf(std::string_view text, sqlite3_int64 characters) {
  std::size_t at = 0;
  while (at < text.size() && characters > 0) {
    ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) ++at;
    --characters;
  }
  return at;
}

sqlite3_int64 charactersIn(std::string_view text) {
  sqlite3_int64 count = 0;
  for (const char c : text) count += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
  return count;
}

void left(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const sqlite3_int64 length = countIn(values[1]);
  if (length < 0) return resultError(context, "Left takes a length of 0 or more.");
  const std::string_view whole = textIn(values[0]);
  resultText(context, whole.substr(0, bytesOf(whole, length)));
}

void right(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const sqlite3_int64 length = countIn(values[1]);
  if (length < 0) return resultError(context, "Right takes a length of 0 or more.");
  const std::string_view whole = textIn(values[0]);
  resultText(context, whole.substr(bytesOf(whole, charactersIn(whole) - length)));
}

void mid(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const sqlite3_int64 start = countIn(values[1]);
  const sqlite3_int64 length = count > 2 ? countIn(values[2]) : std::numeric_limits<sqlite3_int64>::max();
  if (start < 1 || length < 0) return resultError(context, "Mid takes a start of 1 or more and a length of 0 or more.");
  const std::string_view whole = textIn(values[0]);
  const std::string_view rest = whole.substr(bytesOf(whole, start - 1));
  resultText(context, rest.substr(0, bytesOf(rest, length)));
}

// A pattern that is the same for all rows is made ready once.
void like(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  auto* pattern = static_cast<text::LikePattern*>(sqlite3_get_auxdata(context, 1));
  if (pattern == nullptr) {
    auto made = std::make_unique<text::LikePattern>(textIn(values[1]));
    const bool matches = made->matches(textIn(values[0]));
    sqlite3_set_auxdata(context, 1, made.release(), [](void* kept) { delete static_cast<text::LikePattern*>(kept); });
    return sqlite3_result_int(context, matches ? 1 : 0);
  }
  sqlite3_result_int(context, pattern->matches(textIn(values[0])) ? 1 : 0);
}

void unescaped(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const std::string_view pattern = textIn(values[0]);
  resultText(context, text::plainText(pattern).value_or(std::string(pattern)));
}

// As an array that json_each reads.
void spellingList(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  std::string array = "[";
  for (const std::string& spelling :
       spellingsOf(text::plainText(textIn(values[0])).value_or("")).value_or(std::vector<std::string>{})) {
    array += array.size() > 1 ? ",\"" : "\"";
    for (const char c : spelling) {
      if (c == '"' || c == '\\') array += '\\';
      array += c;
    }
    array += '"';
  }
  resultText(context, array + "]");
}

using ScalarFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

struct Registered {
  const char* name;
  int arguments;  // -1 for any number
  ScalarFunction function;
};

constexpr std::array scalars{Registered{"velmo_concat", -1, concat},
                             Registered{"velmo_text_or_empty", 1, textOrEmpty},
                             Registered{"velmo_text", 1, text},
                             Registered{"velmo_required_text", 1, requiredText},
                             Registered{"velmo_date_text", 1, dateText},
                             Registered{"velmo_number", 1, number},
                             Registered{"velmo_whole", 1, whole},
                             Registered{"velmo_yes_no", 1, yesNo},
                             Registered{"velmo_val", 1, val},
                             Registered{"velmo_divide", 2, divide},
                             Registered{"velmo_whole_divide", 2, wholeDivide},
                             Registered{"velmo_modulo", 2, modulo},
                             Registered{"velmo_power", 2, power},
                             Registered{"velmo_round", 1, round},
                             Registered{"velmo_round", 2, round},
                             Registered{"velmo_int", 1, wholeOf<text::wholePart>},
                             Registered{"velmo_fix", 1, wholeOf<text::truncated>},
                             Registered{"velmo_format", 2, format},
                             Registered{"velmo_format_date", 2, formatDate},
                             Registered{"velmo_date", 1, date},
                             Registered{"velmo_add_days", 2, addDays},
                             Registered{"velmo_days_between", 2, daysBetween},
                             Registered{"velmo_left", 2, left},
                             Registered{"velmo_right", 2, right},
                             Registered{"velmo_mid", 2, mid},
                             Registered{"velmo_mid", 3, mid},
                             Registered{"velmo_like", 2, like},
                             Registered{"velmo_plain_text", 1, unescaped},
                             Registered{"velmo_spellings", 1, spellingList}};

}  // namespace

void registerFunctions(sqlite3* database) {
  for (const Registered& scalar : scalars) {
    const int code = sqlite3_create_function_v2(database, scalar.name, scalar.arguments,
                                                SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                                                scalar.function, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
      throw StoreError(ErrorKind::Failed, std::string("The function ") + scalar.name + " cannot be registered.");
    }
  }
  registerDecimalFunctions(database);
  registerRowChoice(database);
}

}  // namespace velmo::store::sql
