#include "store/sqlite/kept_totals.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>

#include "store/sqlite/kept_sql.h"
#include "store/sqlite/sqlite_error.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

using Clock = std::chrono::steady_clock;
using Names = KeptSql::Names;

void run(sqlite3* database, const std::string& sql) {
  const int code = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, "the company file");
}

// The first column of the only row, "" without one.
std::string lookUp(sqlite3* database, const std::string& sql, const Names& values = {}) {
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
  for (std::size_t i = 0; i < values.size() && code == SQLITE_OK; ++i)
    code = sqlite3_bind_text(statement, static_cast<int>(i) + 1, values[i].c_str(), -1, SQLITE_TRANSIENT);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  std::string found;
  if (code == SQLITE_ROW)
    if (const unsigned char* text = sqlite3_column_text(statement, 0)) found = reinterpret_cast<const char*>(text);
  if (code != SQLITE_ROW && code != SQLITE_DONE) {
    const StoreError error = sqliteError(database, code, "the company file");
    sqlite3_finalize(statement);
    throw error;
  }
  sqlite3_finalize(statement);
  return found;
}

bool isDeclared(sqlite3* database, const KeptSql& sql) {
  return std::ranges::all_of(sql.objects(), [database](const KeptSql::Object& object) {
    return lookUp(database, "SELECT sql FROM sqlite_schema WHERE type = ?1 AND name = ?2",
                  {object.type, object.name}) == object.sql;
  });
}

bool isNone(sqlite3* database, const std::string& sql) {
  return lookUp(database, sql).empty();
}
bool areNone(sqlite3* database, const Names& all) {
  return std::ranges::all_of(all, [database](const std::string& sql) { return isNone(database, sql); });
}

// Ends what a connection is doing when the time has come.
class Deadline {
 public:
  Deadline(sqlite3* database, Clock::time_point until) : database_(database), until_(until) {
    constexpr int stepsBetween = 10000;
    if (until != Clock::time_point::max()) sqlite3_progress_handler(database, stepsBetween, isOver, this);
  }
  ~Deadline() {
    if (until_ != Clock::time_point::max()) sqlite3_progress_handler(database_, 0, nullptr, nullptr);
  }
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

  bool isOver() const { return Clock::now() >= until_; }

 private:
  static int isOver(void* self) { return static_cast<Deadline*>(self)->isOver() ? 1 : 0; }

  sqlite3* database_;
  Clock::time_point until_;
};

bool haveOneSum(sqlite3* database, const KeptSql& sql, Clock::time_point until) {
  const Deadline deadline(database, until);
  if (deadline.isOver()) return true;
  try {
    return areNone(database, sql.unequalSums());
  } catch (const StoreError&) {
    if (!deadline.isOver()) throw;
    return true;
  }
}

}  // namespace

void makeKeptTotals(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  for (const KeptSql::Object& object : sql.objects())
    run(database, "DROP " + object.type + " IF EXISTS " + quotedName(object.name));
  for (const KeptSql::Object& object : sql.objects()) run(database, object.sql);
  for (const std::string& fill : sql.fill()) run(database, fill);
}

void addLaterLines(sqlite3* database, const KeptTotals& kept) {
  for (const std::string& statement : KeptSql(kept).addLater()) run(database, statement);
}

std::int64_t laterLines(sqlite3* database, const KeptTotals& kept) {
  return std::strtoll(lookUp(database, KeptSql(kept).countLater()).c_str(), nullptr, 10);
}

bool areKept(sqlite3* database, const KeptTotals& kept, Clock::time_point until) {
  const KeptSql sql(kept);
  return isDeclared(database, sql) && haveOneSum(database, sql, until) && isNone(database, sql.staleDays());
}

bool haveOneSum(sqlite3* database, const KeptTotals& kept) {
  return areNone(database, KeptSql(kept).unequalSums());
}

bool areRight(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  return isDeclared(database, sql) && areNone(database, sql.wrongTotals());
}

}  // namespace velmo::store
