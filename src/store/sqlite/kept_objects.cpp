#include "store/sqlite/kept_objects.h"

#include <sqlite3.h>

#include <algorithm>

#include "store/sqlite/sqlite_error.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

constexpr const char* beyondTotals = "100000000000";  // amounts below it are known by as many digits as a double keeps

}  // namespace

std::string listed(const std::vector<std::string>& items, const char* separator) {
  std::string text;
  for (const std::string& item : items) text += (text.empty() ? "" : separator) + item;
  return text;
}

std::vector<std::string> formed(const std::vector<std::string>& items,
                                const std::function<std::string(const std::string&)>& form) {
  std::vector<std::string> all;
  for (const std::string& item : items) all.push_back(form(item));
  return all;
}

std::string isApart(const std::string& amount) {
  return "abs(" + amount + ") >= " + beyondTotals + " OR " + amount + " <> round(" + amount + " * " + partsOfUnit +
         ") / " + partsOfUnit;
}

std::string inParts(const std::string& amount) {
  return "CAST(round(coalesce(" + amount + ", 0) * " + partsOfUnit + ") AS INTEGER)";
}

std::string wholeSum(const std::string& number) {
  return "sum(" + number + " / " + partsOfUnit + ") * " + partsOfUnit + " + sum(" + number + " % " + partsOfUnit + ")";
}

std::string anyDiffers(const std::vector<std::string>& columns) {
  return listed(formed(columns, [](const std::string& column) { return "old." + column + " IS NOT new." + column; }),
                " OR ");
}

std::string differences(const std::string& table, const std::string& lines, const std::vector<std::string>& keys,
                        const std::vector<std::string>& sums) {
  const std::string columns = listed(keys) + ", " + listed(sums);
  const auto unequal = formed(sums, [](const std::string& sum) { return "min(" + sum + ") IS NOT max(" + sum + ")"; });
  return "SELECT 1 FROM (SELECT " + columns + " FROM " + table + " UNION ALL SELECT " + columns + " FROM " + lines +
         ") GROUP BY " + listed(keys) + " HAVING count(*) <> 2 OR " + listed(unequal, " OR ") + " LIMIT 1";
}

void run(sqlite3* database, const std::string& sql) {
  const int code = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, "the company file");
}

// The first column of the only row, "" without one.
std::string lookUp(sqlite3* database, const std::string& sql, const std::vector<std::string>& values) {
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

bool areNone(sqlite3* database, const std::vector<std::string>& all) {
  return std::ranges::all_of(all, [database](const std::string& sql) { return lookUp(database, sql).empty(); });
}

void makeAnew(sqlite3* database, const std::vector<KeptObject>& objects, const std::vector<std::string>& fill) {
  for (const KeptObject& object : objects)
    run(database, "DROP " + object.type + " IF EXISTS " + quotedName(object.name));
  for (const KeptObject& object : objects) run(database, object.sql);
  for (const std::string& statement : fill) run(database, statement);
}

bool areDeclared(sqlite3* database, const std::vector<KeptObject>& objects) {
  return std::ranges::all_of(objects, [database](const KeptObject& object) {
    return lookUp(database, "SELECT sql FROM sqlite_schema WHERE type = ?1 AND name = ?2",
                  {object.type, object.name}) == object.sql;
  });
}

}  // namespace velmo::store
