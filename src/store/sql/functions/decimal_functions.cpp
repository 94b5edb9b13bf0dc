#include "store/sql/functions/decimal_functions.h"

#include <sqlite3.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "store/values/error.h"
#include "text/decimal_sum.h"

namespace velmo::store::sql {
namespace {

using text::DecimalSum;

// SQLite hands out the memory of a group blank. Most sums never need the rest.
struct Sum {
  std::int64_t count = 0;
  std::int64_t parts = 0;
  DecimalSum* rest = nullptr;
};

DecimalSum& restOf(Sum& sum) {
  if (sum.rest == nullptr) sum.rest = new DecimalSum;
  return *sum.rest;
}

DecimalSum whole(const Sum& sum) {
  DecimalSum all = sum.rest == nullptr ? DecimalSum() : *sum.rest;
  all.addParts(sum.parts);
  return all;
}

bool isShort(const Sum& sum) {
  return sum.rest == nullptr && sum.parts < DecimalSum::mostParts && sum.parts > -DecimalSum::mostParts;
}

double valueOf(const Sum& sum) {
  return isShort(sum) ? static_cast<double>(sum.parts) / DecimalSum::partsPerUnit : whole(sum).value();
}

void addParts(Sum& sum, std::int64_t parts) {
  if (std::int64_t added = 0; __builtin_add_overflow(sum.parts, parts, &added))
    restOf(sum).addParts(parts);
  else
    sum.parts = added;
}

void addNumber(Sum& sum, double value) {
  if (const std::optional<std::int64_t> parts = DecimalSum::partsOf(value))
    addParts(sum, *parts);
  else
    restOf(sum) += value;
}

void addWhole(Sum& sum, std::int64_t value) {
  if (std::int64_t parts = 0; __builtin_mul_overflow(value, DecimalSum::partsPerUnit, &parts))
    restOf(sum).addWhole(value);
  else
    addParts(sum, parts);
}

void addFigure(Sum& sum, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return addWhole(sum, sqlite3_value_int64(value));
    case SQLITE_TEXT: {
      const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
      const std::string_view text(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
      if (restOf(sum).addDigits(text)) return;
      break;
    }
    default:
      break;
  }
  addNumber(sum, sqlite3_value_double(value));
}

// A total that outgrew whole numbers of SQLite stands as a double.
void addKept(Sum& sum, sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_INTEGER) return addParts(sum, sqlite3_value_int64(value));
  addNumber(sum, sqlite3_value_double(value) / DecimalSum::partsPerUnit);
}

void resultRounded(sqlite3_context* context, const Sum& sum) {
  sqlite3_result_double(context, valueOf(sum));
}

void resultExact(sqlite3_context* context, const Sum& sum) {
  if (isShort(sum)) return resultRounded(context, sum);
  const DecimalSum all = whole(sum);
  if (all.fits()) return sqlite3_result_double(context, all.value());
  const std::string digits = all.digits();
  sqlite3_result_text64(context, digits.data(), digits.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void resultMean(sqlite3_context* context, const Sum& sum) {
  sqlite3_result_double(context, valueOf(sum) / static_cast<double>(sum.count));
}

using Add = void (*)(Sum&, sqlite3_value*);
using Result = void (*)(sqlite3_context*, const Sum&);

template <Add add>
void step(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, sizeof(Sum)));
  if (sum == nullptr) return sqlite3_result_error_nomem(context);
  add(*sum, values[0]);
  ++sum->count;
}

// Null when there was nothing but nulls.
template <Result result>
void finish(sqlite3_context* context) {
  auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, 0));
  if (sum == nullptr || sum->count == 0) return;
  result(context, *sum);
  delete std::exchange(sum->rest, nullptr);
}

template <bool subtracts>
void ofTwo(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL) return;
  Sum sum;
  addFigure(sum, values[1]);
  if (subtracts) {
    sum.parts = -sum.parts;
    if (sum.rest != nullptr) sum.rest->negate();
  }
  addFigure(sum, values[0]);
  resultRounded(context, sum);
  delete sum.rest;
}

void kept(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  Sum sum;
  addKept(sum, values[0]);
  resultExact(context, sum);
  delete sum.rest;
}

struct Registered {
  const char* name;
  int arguments;
  void (*function)(sqlite3_context*, int, sqlite3_value**);
  void (*finish)(sqlite3_context*);  // of an aggregate, whose step the function is
};

constexpr Registered functions[] = {{"velmo_sum", 1, step<addFigure>, finish<resultRounded>},
                                    {"velmo_avg", 1, step<addFigure>, finish<resultMean>},
                                    {"velmo_add", 2, ofTwo<false>, nullptr},
                                    {"velmo_subtract", 2, ofTwo<true>, nullptr},
                                    {"velmo_kept", 1, kept, nullptr},
                                    {"velmo_sum_kept", 1, step<addKept>, finish<resultExact>},
                                    {"velmo_sum_exactly", 1, step<addFigure>, finish<resultExact>}};

}  // namespace

void registerDecimalFunctions(sqlite3* database) {
  for (const Registered& each : functions) {
    const bool aggregate = each.finish != nullptr;
    const int code = sqlite3_create_function_v2(
        database, each.name, each.arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
        aggregate ? nullptr : each.function, aggregate ? each.function : nullptr, each.finish, nullptr);
    if (code != SQLITE_OK) {
      throw StoreError(ErrorKind::Failed, std::string("The function ") + each.name + " cannot be registered.");
    }
  }
}

}  // namespace velmo::store::sql
