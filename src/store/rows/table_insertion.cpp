#include "store/rows/table_insertion.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

StoreError emptyKey(const Table& table, std::string_view column) {
  return {ErrorKind::Constraint,
          "The record was not saved: " + table.name + "." + std::string(column) + " must not be empty."};
}

std::string insertSql(const Table& table, const std::vector<const Column*>& columns) {
  std::string sql = "INSERT INTO " + quotedName(table.name);
  if (columns.empty()) return sql + " DEFAULT VALUES";
  constexpr std::size_t usualName = 16;
  sql.reserve(sql.size() + columns.size() * (usualName + 6));
  const char* separator = " (";
  for (const Column* column : columns) {
    sql += separator;
    sql += quotedName(column->name);
    separator = ", ";
  }
  sql += ") VALUES (?";
  for (std::size_t i = 1; i < columns.size(); ++i) sql += ", ?";
  sql += ')';
  return sql;
}

InsertionPlan planOf(const Table& table, std::span<const Column* const> columns) {
  InsertionPlan plan{.table = table,
                     .columns = {columns.begin(), columns.end()},
                     .isKey = std::vector<bool>(columns.size()),
                     .sql = {}};
  for (const std::string& name : table.key) {
    const Column* column = table.find(name);
    const auto given = std::ranges::find(columns, column);
    if (given != columns.end()) {
      plan.isKey[static_cast<std::size_t>(given - columns.begin())] = !column->autoNumber;
    } else if (!column->autoNumber) {
      throw emptyKey(table, name);
    }
  }
  plan.sql = insertSql(table, plan.columns);
  return plan;
}

std::shared_ptr<const InsertionPlan> planFrom(std::vector<std::shared_ptr<const InsertionPlan>>& latest,
                                              const Table& table, std::span<const Column* const> columns) {
  const auto known = std::ranges::find_if(
      latest, [&](const auto& plan) { return &plan->table == &table && std::ranges::equal(plan->columns, columns); });
  if (known != latest.end()) return *known;
  constexpr std::size_t mostKept = 64;
  if (latest.size() == mostKept) latest.erase(latest.begin());
  return latest.emplace_back(std::make_shared<const InsertionPlan>(planOf(table, columns)));
}

}  // namespace

TableInsertion::TableInsertion(Connection::Impl& connection, const Table& table, std::span<const Column* const> columns)
    : connection_(connection),
      plan_(planFrom(connection.insertionPlans, table, columns)),
      statement_(connection.prepare(plan_->sql)) {}

void TableInsertion::bind(std::size_t column, const Value& value) {
  if (plan_->isKey[column] && isNull(value)) throw emptyKey(plan_->table, plan_->columns[column]->name);
  statement_.bindInPlace(static_cast<int>(column) + 1, value);
}

std::int64_t TableInsertion::add() {
  connection_.write(statement_);
  return sqlite3_last_insert_rowid(connection_.database);
}

}  // namespace velmo::store
