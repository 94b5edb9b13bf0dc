#include "store/sql/functions/row_choice.h"

#include <sqlite3.h>

#include <limits>
#include <new>
#include <string>
#include <vector>

#include "store/values/error.h"

namespace velmo::store::sql {
namespace {

enum class Choice { First, Last };

struct Row {
  sqlite3_value* value = nullptr;
  std::vector<sqlite3_int64> keys;
};

// SQLite hands out the group's memory blank, so it holds no more than this pointer.
struct Group {
  Row* row = nullptr;
};

// A row that an outer join filled up has no key and comes first.
sqlite3_int64 keyIn(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL ? std::numeric_limits<sqlite3_int64>::min()
                                                  : sqlite3_value_int64(value);
}

// Of rows with the same keys the one that arrives later is the later one.
template <Choice choice>
bool replaces(const Row& kept, int count, sqlite3_value** values) {
  for (int i = 1; i < count; ++i) {
    const sqlite3_int64 key = keyIn(values[i]);
    const sqlite3_int64 other = kept.keys[static_cast<std::size_t>(i - 1)];
    if (key != other) return choice == Choice::First ? key < other : key > other;
  }
  return choice == Choice::Last;
}

template <Choice choice>
void step(sqlite3_context* context, int count, sqlite3_value** values) {
  auto* group = static_cast<Group*>(sqlite3_aggregate_context(context, sizeof(Group)));
  if (group == nullptr) return sqlite3_result_error_nomem(context);
  if (group->row == nullptr) {
    group->row = new (std::nothrow) Row;
    if (group->row == nullptr) return sqlite3_result_error_nomem(context);
  } else if (!replaces<choice>(*group->row, count, values)) {
    return;
  }
  Row& row = *group->row;
  sqlite3_value_free(row.value);
  row.value = sqlite3_value_dup(values[0]);
  if (row.value == nullptr) return sqlite3_result_error_nomem(context);
  row.keys.clear();
  for (int i = 1; i < count; ++i) row.keys.push_back(keyIn(values[i]));
}

void finish(sqlite3_context* context) {
  auto* group = static_cast<Group*>(sqlite3_aggregate_context(context, 0));
  if (group == nullptr || group->row == nullptr) return;
  if (group->row->value != nullptr) sqlite3_result_value(context, group->row->value);
  sqlite3_value_free(group->row->value);
  delete group->row;
  group->row = nullptr;
}

void registerChoice(sqlite3* database, const char* name, void (*stepFunction)(sqlite3_context*, int, sqlite3_value**)) {
  const int code = sqlite3_create_function_v2(database, name, -1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                              nullptr, nullptr, stepFunction, finish, nullptr);
  if (code != SQLITE_OK) {
    throw StoreError(ErrorKind::Failed, std::string("The function ") + name + " cannot be registered.");
  }
}

}  // namespace

void registerRowChoice(sqlite3* database) {
  registerChoice(database, "velmo_first", step<Choice::First>);
  registerChoice(database, "velmo_last", step<Choice::Last>);
}

}  // namespace velmo::store::sql
