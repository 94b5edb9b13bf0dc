#include "store/sql/decimal_functions.h"

#include <sqlite3.h>

#include <new>
#include <string>
#include <string_view>

#include "store/error.h"
#include "text/decimal_sum.h"

namespace velmo::store::sql {
namespace {

using text::DecimalSum;

// SQLite hands out the group's memory blank, so it holds no more than this pointer.
struct Group {
  DecimalSum* sum = nullptr;
  std::int64_t count = 0;
};

void addFigure(DecimalSum& sum, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return;
    case SQLITE_INTEGER:
      return sum.addWhole(sqlite3_value_int64(value));
    case SQLITE_TEXT: {
      const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
      if (bytes != nullptr && sum.addDigits({bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))})) return;
      break;
    }
    default:
      break;
  }
  sum += sqlite3_value_double(value);
}

// A total that outgrew whole numbers of SQLite stands as a double.
void addKept(DecimalSum& sum, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return;
    case SQLITE_INTEGER:
      return sum.addParts(sqlite3_value_int64(value));
    default:
      sum += sqlite3_value_double(value) / DecimalSum::partsPerUnit;
  }
}

void resultRounded(sqlite3_context* context, const DecimalSum& sum) {
  sqlite3_result_double(context, sum.value());
}

void resultExact(sqlite3_context* context, const DecimalSum& sum) {
  if (sum.fits()) return resultRounded(context, sum);
  const std::string digits = sum.digits();
  sqlite3_result_text64(context, digits.data(), digits.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

using Add = void (*)(DecimalSum&, sqlite3_value*);
using Finish = void (*)(sqlite3_context*, const DecimalSum&);

template <Add add>
void step(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  auto* group = static_cast<Group*>(sqlite3_aggregate_context(context, sizeof(Group)));
  if (group == nullptr) return sqlite3_result_error_nomem(context);
  if (group->sum == nullptr) group->sum = new (std::nothrow) DecimalSum;
  if (group->sum == nullptr) return sqlite3_result_error_nomem(context);
  add(*group->sum, values[0]);
  ++group->count;
}

void resultMean(sqlite3_context* context, const Group& group) {
  sqlite3_result_double(context, group.sum->value() / static_cast<double>(group.count));
}

template <Finish finish>
void resultOf(sqlite3_context* context, const Group& group) {
  finish(context, *group.sum);
}

// Null when there was nothing but nulls.
template <void (*result)(sqlite3_context*, const Group&)>
void finishGroup(sqlite3_context* context) {
  auto* group = static_cast<Group*>(sqlite3_aggregate_context(context, 0));
  if (group == nullptr || group->sum == nullptr) return;
  result(context, *group);
  delete group->sum;
  group->sum = nullptr;
}

template <bool subtracts>
void ofTwo(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL) return;
  DecimalSum sum;
  addFigure(sum, values[1]);
  if (subtracts) sum.negate();
  addFigure(sum, values[0]);
  resultRounded(context, sum);
}

void kept(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  DecimalSum sum;
  addKept(sum, values[0]);
  resultExact(context, sum);
}

struct Registered {
  const char* name;
  int arguments;
  void (*function)(sqlite3_context*, int, sqlite3_value**);
  void (*finish)(sqlite3_context*);  // of an aggregate, whose step the function is
};

constexpr Registered functions[] = {{"velmo_sum", 1, step<addFigure>, finishGroup<resultOf<resultRounded>>},
                                    {"velmo_avg", 1, step<addFigure>, finishGroup<resultMean>},
                                    {"velmo_add", 2, ofTwo<false>, nullptr},
                                    {"velmo_subtract", 2, ofTwo<true>, nullptr},
                                    {"velmo_kept", 1, kept, nullptr},
                                    {"velmo_sum_kept", 1, step<addKept>, finishGroup<resultOf<resultExact>>},
                                    {"velmo_sum_exactly", 1, step<addFigure>, finishGroup<resultOf<resultExact>>}};

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
