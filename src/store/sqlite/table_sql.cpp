#include "store/sqlite/table_sql.h"

#include <stdexcept>

namespace velmo::store {

std::string declaredType(const Column& column) {
  switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return "TEXT COLLATE NOCASE";
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
      return "INTEGER";
    case ColumnType::Double:
      return "REAL";
    case ColumnType::Date:
      return "DATE";
    case ColumnType::YesNo:
      return "YESNO NOT NULL DEFAULT 0 CHECK (" + quotedName(column.name) + " IN (-1, 0))";
  }
  throw std::invalid_argument("unknown column type");
}

namespace {

bool isWholeNumber(ColumnType type) {
  return type == ColumnType::Byte || type == ColumnType::Integer || type == ColumnType::Long;
}

std::string nameList(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    if (!list.empty()) list += ", ";
    list += quotedName(name);
  }
  return list;
}

bool isSoleKey(const Table& table, const Column& column) {
  return table.key.size() == 1 && table.find(table.key.front()) == &column;
}

bool isKeyPart(const Table& table, const Column& column) {
  for (const std::string& name : table.key) {
    if (table.find(name) == &column) return true;
  }
  return false;
}

std::string columnSql(const Table& table, const Column& column) {
  std::string sql = quotedName(column.name) + " " + declaredType(column);
  const bool soleKey = isSoleKey(table, column);
  if (column.autoNumber && !(soleKey && isWholeNumber(column.type))) {
    throw std::invalid_argument(table.name + "." + column.name + " is an AutoNumber but not the table's key");
  }
  if (soleKey && isWholeNumber(column.type)) {
    sql += column.autoNumber ? " PRIMARY KEY AUTOINCREMENT" : " PRIMARY KEY";
  } else if (isKeyPart(table, column) && column.type != ColumnType::YesNo) {
    sql += " NOT NULL";
  }
  return sql;
}

bool keyStandsInColumn(const Table& table) {
  if (table.key.size() != 1) return false;
  const Column* column = table.find(table.key.front());
  return column != nullptr && isWholeNumber(column->type);
}

}  // namespace

std::string quotedName(std::string_view name) {
  std::string quoted;
  quoted.reserve(name.size() + 2);
  quoted += '"';
  for (std::size_t mark; (mark = name.find('"')) != name.npos; name.remove_prefix(mark + 1)) {
    quoted += name.substr(0, mark);
    quoted += "\"\"";
  }
  quoted += name;
  quoted += '"';
  return quoted;
}

std::string createTableSql(const Table& table) {
  std::string sql = "CREATE TABLE " + quotedName(table.name) + " (";
  const char* separator = "\n  ";
  for (const Column& column : table.columns) {
    sql += separator + columnSql(table, column);
    separator = ",\n  ";
  }
  if (!table.key.empty() && !keyStandsInColumn(table)) sql += separator + ("PRIMARY KEY (" + nameList(table.key) + ")");
  for (const Relation& relation : table.relations) {
    sql += separator + ("FOREIGN KEY (" + quotedName(relation.column) + ") REFERENCES " +
                        quotedName(relation.parentTable) + " (" + quotedName(relation.parentColumn) + ")");
    if (relation.cascadeDelete) sql += " ON DELETE CASCADE";
  }
  return sql + "\n)";
}

std::vector<std::string> createIndexSql(const Table& table) {
  std::vector<std::string> statements;
  for (const Index& index : table.indexes) {
    statements.push_back(std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " + quotedName(index.name) +
                         " ON " + quotedName(table.name) + " (" + nameList(index.columns) + ")" +
                         (index.filled.empty() ? "" : " WHERE " + quotedName(index.filled) + " IS NOT NULL"));
  }
  return statements;
}

}  // namespace velmo::store
