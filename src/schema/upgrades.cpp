#include "schema/upgrades.h"

#include <sqlite3.h>

#include "schema/company_schema.h"
#include "store/connection/connection.h"
#include "store/sqlite/kept_totals.h"
#include "store/sqlite/sqlite_error.h"
#include "store/sqlite/table_sql.h"

namespace velmo::schema {
namespace {

void run(store::Connection& connection, const std::string& sql) {
  sqlite3* file = connection.handle();
  const int code = sqlite3_exec(file, sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw store::sqliteError(file, code, sqlite3_db_filename(file, "main"));
}

// Settings got a table, and the items of a sub category an index in the order of their codes.
void toVersion2(store::Connection& connection) {
  run(connection, store::createTableSql(*companyCatalog().find("Settings")));
  const store::Table& items = *companyCatalog().find("StockLevel3");
  for (const store::Index& index : items.indexes)
    run(connection, "DROP INDEX IF EXISTS " + store::quotedName(index.name));
  for (const std::string& sql : store::createIndexSql(items)) run(connection, sql);
}

// The totals of accounts and items by day and month, which came with version 3, became whole numbers with version 4.
// Now they come with those of receipts, with whole years, and with what is pending.
void toVersion5(store::Connection& connection) {
  for (const store::KeptTotals& kept : companyCatalog().keptTotals()) store::makeKeptTotals(connection.handle(), kept);
}

}  // namespace

std::vector<store::UpgradeStep> upgrades() {
  return {{.version = 2, .run = toVersion2}, {.version = 5, .run = toVersion5}};
}

}  // namespace velmo::schema
