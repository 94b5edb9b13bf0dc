#include "schema/upgrades.h"

#include <sqlite3.h>

#include "schema/company_schema.h"
#include "schema/company_tables.h"
#include "store/connection/connection.h"
#include "store/sqlite/kept_balances.h"
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

// Makes an index of a table as it is declared, or all of them.
void makeIndexes(store::Connection& connection, const char* name, std::string_view only = {}) {
  const store::Table& table = *companyCatalog().find(name);
  const std::vector<std::string> sql = store::createIndexSql(table);
  for (std::size_t i = 0; i < sql.size(); ++i) {
    const std::string& index = table.indexes[i].name;
    if (!only.empty() && index != only) continue;
    run(connection, "DROP INDEX IF EXISTS " + store::quotedName(index));
    run(connection, sql[i]);
  }
}

// Settings got a table, and the items of a sub category an index in the order of their codes.
void toVersion2(store::Connection& connection) {
  run(connection, store::createTableSql(*companyCatalog().find("Settings")));
  makeIndexes(connection, "StockLevel3");
}

// The totals of accounts and items by day and month, which came with version 3, became whole numbers with version 4.
// Now they come with those of receipts, with whole years, and with what is pending.
void toVersion5(store::Connection& connection) {
  for (const store::KeptTotals& kept : companyCatalog().keptTotals()) store::makeKeptTotals(connection.handle(), kept);
}

// The totals of places and of kinds of documents came, what is open of invoices and bills, and indexes for reports and
// for lines with the serial numbers of their goods.
void toVersion6(store::Connection& connection) {
  for (const char* table : {"Transactions", "AgingDr", "AgingCr"}) makeIndexes(connection, table);
  makeIndexes(connection, "StockFlow", "StockFlow_Serials");
  for (const store::KeptTotals& kept : {placeTotals(), kindTotals()}) store::makeKeptTotals(connection.handle(), kept);
  for (const store::KeptBalances& kept : companyCatalog().keptBalances())
    store::makeKeptBalances(connection.handle(), kept);
}

}  // namespace

std::vector<store::UpgradeStep> upgrades() {
  return {{.version = 2, .run = toVersion2}, {.version = 5, .run = toVersion5}, {.version = 6, .run = toVersion6}};
}

}  // namespace velmo::schema
