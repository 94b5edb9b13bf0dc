#include "store/sqlite/kept_totals.h"

#include <sqlite3.h>

#include <cstdlib>

#include "store/sqlite/kept_sql.h"
#include "store/values/error.h"

namespace velmo::store {
namespace {

using Clock = std::chrono::steady_clock;

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
  makeAnew(database, sql.objects(), sql.fill());
}

void addLaterLines(sqlite3* database, const KeptTotals& kept, std::int64_t atMost) {
  for (const std::string& statement : KeptSql(kept).addLater(atMost)) run(database, statement);
}

std::int64_t laterLines(sqlite3* database, const KeptTotals& kept) {
  return std::strtoll(lookUp(database, KeptSql(kept).countLater()).c_str(), nullptr, 10);
}

bool areKept(sqlite3* database, const KeptTotals& kept, Clock::time_point until) {
  const KeptSql sql(kept);
  return areDeclared(database, sql.objects()) && haveOneSum(database, sql, until) &&
         areNone(database, {sql.staleDays()});
}

bool haveOneSum(sqlite3* database, const KeptTotals& kept) {
  return areNone(database, KeptSql(kept).unequalSums());
}

bool areRight(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  return areDeclared(database, sql.objects()) && areNone(database, sql.wrongTotals());
}

}  // namespace velmo::store
