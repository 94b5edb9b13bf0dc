#include "store/table_insertion.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "store/table_sql.h"

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

}  // namespace

TableInsertion::TableInsertion(Connection::Impl& connection, const Table& table, std::vector<const Column*> columns)
    : connection_(connection),
      table_(table),
      columns_(std::move(columns)),
      isKey_(columns_.size()),
      statement_(connection.prepare(insertSql(table, columns_))) {
  for (const std::string& name : table.key) {
    const Column* column = table.find(name);
    const auto given = std::ranges::find(columns_, column);
    if (given != columns_.end()) {
      isKey_[static_cast<std::size_t>(given - columns_.begin())] = !column->autoNumber;
    } else if (!column->autoNumber) {
      throw emptyKey(table, name);
    }
  }
}

void TableInsertion::bind(std::size_t column, const Value& value) {
  if (isKey_[column] && isNull(value)) throw emptyKey(table_, columns_[column]->name);
  statement_.bindInPlace(static_cast<int>(column) + 1, value);
}

std::int64_t TableInsertion::add() {
  connection_.write(statement_);
  return sqlite3_last_insert_rowid(connection_.database);
}

}  // namespace velmo::store
