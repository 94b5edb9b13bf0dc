#include "store/checks/soundness.h"

#include <sqlite3.h>

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <thread>

#include "store/checks/check_round.h"
#include "store/checks/declaration_faults.h"
#include "store/connection/connection_impl.h"
#include "store/sqlite/kept_balances.h"
#include "store/sqlite/kept_totals.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

std::string asText(PreparedStatement& statement, int column) {
  return textOf(columnValue(statement.handle(), column));
}

std::vector<std::string> tablesOf(Connection& connection) {
  std::vector<std::string> names = {"sqlite_schema"};
  PreparedStatement read =
      connection.impl()->prepare("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name");
  while (read.step()) names.push_back(asText(read, 0));
  return names;
}

// As SQLite's lower() writes a name.
std::string lowerCase(std::string name) {
  std::ranges::transform(name, name.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return name;
}

Finding damage(std::string words) {
  return {.kind = Finding::Kind::Damage, .words = std::move(words)};
}

// The first fault, in one line and without the database's own heading; "" when all is well.
std::string firstFault(Connection& connection, const std::string& pragma) {
  PreparedStatement check = connection.impl()->prepare(pragma);
  std::string verdict = check.step() ? asText(check, 0) : "it cannot be read";
  if (verdict == "ok") return {};
  if (verdict.starts_with("***")) verdict.erase(0, verdict.find('\n') + 1);
  return verdict.substr(0, verdict.find('\n'));
}

std::vector<Finding> faultsByTable(Connection& connection, const std::string& pragma) {
  std::vector<Finding> faults;
  for (const std::string& table : tablesOf(connection)) {
    std::string fault;
    try {
      fault = firstFault(connection, "PRAGMA " + pragma + "(" + quotedName(table) + ")");
    } catch (const StoreError& failure) {
      if (failure.kind() != ErrorKind::Damaged) throw;
      fault = "it cannot be read";
    }
    if (!fault.empty()) faults.push_back(damage("the table \"" + table + "\" (" + fault + ")"));
  }
  return faults;
}

// A fault of the pages with the tables it is in, where that can be told.
std::vector<Finding> placed(Connection& connection, const std::string& fault) {
  if (fault.empty()) return {};
  std::vector<Finding> faults = faultsByTable(connection, "quick_check");
  if (faults.empty()) faults.push_back(damage("its pages (" + fault + ")"));
  return faults;
}

Finding wrongTotals(const std::string& lines) {
  return {.kind = Finding::Kind::Total, .words = "the totals of \"" + lines + "\""};
}

// Demands a halt after a time, unless it goes before.
class Alarm {
 public:
  Alarm(Halt& halt, std::chrono::milliseconds after)
      : thread_([this, &halt, after] {
          std::unique_lock lock(mutex_);
          if (!condition_.wait_for(lock, after, [this] { return off_; })) halt.demand();
        }) {}
  ~Alarm() {
    {
      const std::lock_guard lock(mutex_);
      off_ = true;
    }
    condition_.notify_one();
    thread_.join();
  }
  Alarm(const Alarm&) = delete;
  Alarm& operator=(const Alarm&) = delete;

 private:
  std::mutex mutex_;
  std::condition_variable condition_;
  bool off_ = false;
  std::thread thread_;
};

}  // namespace

std::vector<Finding> pageFaults(Connection& connection) {
  return placed(connection, firstFault(connection, "PRAGMA quick_check(1)"));
}

std::vector<Finding> structureFaults(Connection& connection) {
  std::vector<Finding> faults = faultsByTable(connection, "integrity_check");
  if (faults.empty()) faults = declarationFaults(connection);
  return faults.empty() ? pageFaults(connection) : faults;  // pages that belong to no table, or to two
}

std::vector<Finding> relationFaults(Connection& connection) {
  std::map<std::pair<std::string, std::string>, std::int64_t> records;  // that are lost, by table and parent
  PreparedStatement check = connection.impl()->prepare("PRAGMA foreign_key_check");
  while (check.step()) ++records[{asText(check, 0), asText(check, 2)}];
  std::vector<Finding> faults;
  for (const auto& [tables, count] : records)
    faults.push_back(damage("the table \"" + tables.first + "\" (" + std::to_string(count) +
                            (count == 1 ? " record refers" : " records refer") + " to what is not there in \"" +
                            tables.second + "\")"));
  return faults;
}

std::vector<Finding> totalFaults(Connection& connection) {
  std::vector<Finding> faults;
  for (const KeptTotals& kept : connection.catalog().keptTotals())
    if (!areRight(connection.handle(), kept)) faults.push_back(wrongTotals(kept.lines));
  for (const KeptBalances& kept : connection.catalog().keptBalances())
    if (!areRight(connection.handle(), kept)) faults.push_back(wrongTotals(kept.lines));
  return faults;
}

std::vector<Finding> totalSumFaults(Connection& connection) {
  std::vector<Finding> faults;
  for (const KeptTotals& kept : connection.catalog().keptTotals())
    if (!haveOneSum(connection.handle(), kept)) faults.push_back(wrongTotals(kept.lines));
  return faults;
}

std::optional<std::vector<Finding>> quickCheck(Connection& connection, std::chrono::milliseconds within) {
  std::string fault;
  {
    Halt halt(connection);
    try {
      const Alarm alarm(halt, within);
      fault = firstFault(connection, "PRAGMA quick_check(1)");
    } catch (const StoreError& failure) {
      if (halt.isDemanded()) return std::nullopt;
      if (failure.kind() != ErrorKind::Damaged) throw;
      fault = "they cannot be read";
    }
  }
  return placed(connection, fault);
}

void requireTables(Connection& connection) {
  const auto lacks = [&](const std::string& what) {
    return StoreError(ErrorKind::Damaged, "The file \"" + connection.impl()->fileName + "\" is damaged: it lacks " +
                                              what +
                                              ", which the program needs. It was not changed. Restore it from "
                                              "a back-up copy.");
  };
  std::set<std::pair<std::string, std::string>> columns;  // of all tables, with an empty one for each table
  PreparedStatement read = connection.impl()->prepare(
      "SELECT lower(tables.name), lower(columns.name) FROM sqlite_schema AS tables, pragma_table_info(tables.name) AS "
      "columns WHERE tables.type = 'table'");
  while (read.step()) {
    columns.emplace(asText(read, 0), "");
    columns.emplace(asText(read, 0), asText(read, 1));
  }
  for (const Table& table : connection.catalog().tables()) {
    const std::string name = lowerCase(table.name);
    if (!columns.contains({name, ""})) throw lacks("the table \"" + table.name + "\"");
    for (const Column& column : table.columns)
      if (!columns.contains({name, lowerCase(column.name)}))
        throw lacks("the column \"" + column.name + "\" of the table \"" + table.name + "\"");
  }
}

}  // namespace velmo::store
