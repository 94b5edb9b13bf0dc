#include "store/sql/dialect_store.h"

#include <stdexcept>

#include "store/sql/functions/functions.h"
#include "store/sqlite/table_sql.h"

namespace velmo::test {
namespace {

using store::ColumnType;
using store::Table;

sqlite3* openMemory() {
  sqlite3* database = nullptr;
  if (sqlite3_open(":memory:", &database) != SQLITE_OK) throw std::runtime_error("no database in memory");
  return database;
}

std::vector<Table> tables() {
  return {Table{.name = "Items",
                .columns = {{.name = "ItemCode"},
                            {.name = "ItemName"},
                            {.name = "Price", .type = ColumnType::Double},
                            {.name = "Blocked", .type = ColumnType::YesNo}},
                .key = {"ItemCode"}},
          Table{.name = "Sales",
                .columns = {{.name = "SaleNo", .type = ColumnType::Long, .autoNumber = true},
                            {.name = "ItemCode"},
                            {.name = "SaleDate", .type = ColumnType::Date},
                            {.name = "Quantity", .type = ColumnType::Double},
                            {.name = "Rate", .type = ColumnType::Double},
                            {.name = "Desc"},
                            {.name = "Cancel", .type = ColumnType::YesNo},
                            {.name = "Party", .type = ColumnType::Long}},
                .key = {"SaleNo"},
                .indexes = {{.name = "SalesByItem", .columns = {"ItemCode"}},
                            {.name = "SalesByParty", .columns = {"Party"}}}},
          Table{.name = "Money",
                .columns = {{.name = "Serial", .type = ColumnType::Long}, {.name = "Code\u00A0\u00A0"}},
                .key = {"Serial"}}};
}

std::string fieldText(sqlite3_stmt* row, int column) {
  if (sqlite3_column_type(row, column) == SQLITE_NULL) return "null";
  return std::string(reinterpret_cast<const char*>(sqlite3_column_text(row, column)),
                     static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
}

void bindValue(sqlite3_stmt* row, int index, const store::Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    sqlite3_bind_int64(row, index, *whole);
  } else if (const auto* real = std::get_if<double>(&value)) {
    sqlite3_bind_double(row, index, *real);
  } else {
    const auto* date = std::get_if<text::DateTime>(&value);
    const std::string text = date != nullptr ? date->iso() : std::get<std::string>(value);
    sqlite3_bind_text(row, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  }
}

}  // namespace

DialectStore::DialectStore() : catalog_(tables()), database_(openMemory(), &sqlite3_close) {
  store::sql::registerFunctions(database_.get());
  for (const Table& table : catalog_.tables()) {
    run(store::createTableSql(table));
    for (const std::string& index : store::createIndexSql(table)) run(index);
  }
  run("INSERT INTO Items VALUES ('A1', 'Anchor', 2.5, 0), ('B2', 'Bolt 100%', 10, 0), ('C3', 'Émail', NULL, -1)");
  run("INSERT INTO Sales VALUES (1, 'A1', '2024-03-01', 5, 2, 'first', 0, 12001001),"
      "(2, 'a1', '2024-03-05', 3, 2.5, NULL, 0, 12001002), (3, 'B2', '2024-03-05', NULL, 9, 'x', -1, 12001001),"
      "(4, 'B2', '2024-03-09 14:07:09', 2, 10, 'last', 0, 21001001)");
  run("INSERT INTO Money VALUES (1, 'Rs')");
}

void DialectStore::run(const std::string& sql) {
  if (sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_.get()));
  }
}

store::sql::CompiledStatement DialectStore::compiled(std::string_view statement) const {
  auto result = store::sql::compile(statement, catalog_);
  if (!result) throw std::runtime_error(result.error().describe(statement));
  return std::move(*result);
}

std::vector<std::string> DialectStore::step(const store::sql::CompiledStatement& compiled, const std::string& prefix) {
  sqlite3_stmt* row = nullptr;
  std::vector<std::string> rows;
  if (sqlite3_prepare_v2(database_.get(), (prefix + compiled.sql).c_str(), -1, &row, nullptr) != SQLITE_OK) {
    return {std::string("! ") + sqlite3_errmsg(database_.get()) + ": " + compiled.sql};
  }
  for (std::size_t i = 0; i < compiled.parameters.size(); ++i) {
    bindValue(row, static_cast<int>(i) + 1, compiled.parameters[i]);
  }
  int code = SQLITE_OK;
  while ((code = sqlite3_step(row)) == SQLITE_ROW) {
    std::string line;
    for (int i = 0; i < sqlite3_column_count(row); ++i) line += (i > 0 ? "|" : "") + fieldText(row, i);
    rows.push_back(line);
  }
  if (code != SQLITE_DONE) rows = {std::string("! ") + sqlite3_errmsg(database_.get())};
  sqlite3_finalize(row);
  return rows;
}

std::vector<std::string> DialectStore::rows(std::string_view statement) {
  const auto result = store::sql::compile(statement, catalog_);
  if (!result) return {"! " + result.error().describe(statement)};
  return step(*result, "");
}

std::vector<std::string> DialectStore::rowsAfter(std::string_view change, std::string_view select) {
  const std::vector<std::string> failure = rows(change);
  return failure.empty() ? rows(select) : failure;
}

std::string DialectStore::value(const std::string& expression) {
  return rows("SELECT " + expression).front();
}

std::string DialectStore::plan(std::string_view statement) {
  std::string plan;
  for (const std::string& line : step(compiled(statement), "EXPLAIN QUERY PLAN ")) plan += line + "\n";
  return plan;
}

}  // namespace velmo::test
