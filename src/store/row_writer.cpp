#include "store/row_writer.h"

#include <sqlite3.h>

#include <algorithm>

#include "store/table_sql.h"

namespace velmo::store {
namespace {

StoreError conflict(const Table& table) {
  return {ErrorKind::Conflict, "The record of " + table.name +
                                   " was changed or deleted since it was read. Nothing was saved; show it again and "
                                   "repeat the change."};
}

StoreError noKey(const Table& table) {
  const char* reason = table.key.empty() ? "the table has no key." : "their key is not selected.";
  return {ErrorKind::Misuse, "Rows of " + table.name + " cannot be written because " + reason};
}

// SQL text with numbered parameters under construction.
struct SqlText {
  std::string sql;
  std::vector<Value> parameters;

  void parameter(Value value) {
    parameters.push_back(std::move(value));
    sql += "?" + std::to_string(parameters.size());
  }
};

void appendKey(SqlText& text, const SourceTable& table, const OriginalValue& original) {
  const char* separator = " WHERE ";
  for (std::size_t i = 0; i < table.keyFields.size(); ++i) {
    text.sql += separator + quotedName(table.table->key[i]) + " = ";
    text.parameter(original(table.keyFields[i]));
    separator = " AND ";
  }
}

const SourceTable& writable(const ResultSource& source, int table) {
  const SourceTable& target = source.tables.at(static_cast<std::size_t>(table));
  if (!target.keySelected) throw noKey(*target.table);
  return target;
}

}  // namespace

void RowWriter::update(const std::vector<FieldChange>& changes, const OriginalValue& original) const {
  std::vector<int> tables;
  for (const FieldChange& change : changes) {
    const int table = source_.sources[static_cast<std::size_t>(change.field)].table;
    if (std::ranges::find(tables, table) == tables.end()) tables.push_back(table);
  }
  const bool severalWrites = tables.size() > 1;
  Connection::Impl& connection = *source_.connection;
  const bool ownTransaction = severalWrites && connection.transaction == 0;
  if (ownTransaction) connection.begin();
  try {
    for (int table : tables) updateTable(table, changes, original);
    if (ownTransaction) connection.commit();
  } catch (...) {
    if (ownTransaction) connection.rollback();
    throw;
  }
}

void RowWriter::updateTable(int table, const std::vector<FieldChange>& changes, const OriginalValue& original) const {
  const SourceTable& target = writable(source_, table);
  SqlText text{.sql = "UPDATE " + quotedName(target.table->name) + " SET ", .parameters = {}};
  const char* separator = "";
  auto belongs = [&](const FieldChange& change) {
    return source_.sources[static_cast<std::size_t>(change.field)].table == table;
  };
  for (const FieldChange& change : changes) {
    if (!belongs(change)) continue;
    text.sql += separator + quotedName(source_.sources[static_cast<std::size_t>(change.field)].column->name) + " = ";
    text.parameter(change.value);
    separator = ", ";
  }
  appendKey(text, target, original);
  for (const FieldChange& change : changes) {
    if (!belongs(change)) continue;
    text.sql += " AND " + quotedName(source_.sources[static_cast<std::size_t>(change.field)].column->name) +
                " COLLATE BINARY IS ";
    text.parameter(change.original);
  }
  if (source_.connection->write(text.sql, text.parameters) != 1) throw conflict(*target.table);
}

int RowWriter::tableOfNewRow(const std::vector<FieldChange>& values) const {
  int table = source_.tables.size() == 1 ? 0 : -1;
  for (const FieldChange& value : values) {
    const int own = source_.sources[static_cast<std::size_t>(value.field)].table;
    if (table >= 0 && own != table) {
      throw StoreError(ErrorKind::Misuse, "A new row of a join must fill the fields of one table only.");
    }
    table = own;
  }
  if (table < 0) throw StoreError(ErrorKind::Misuse, "A row cannot be added here: it belongs to no one table.");
  return table;
}

bool RowWriter::isGiven(const Column& column, const std::vector<FieldChange>& values) const {
  return std::ranges::any_of(values, [&](const FieldChange& value) {
    return source_.sources[static_cast<std::size_t>(value.field)].column == &column && !isNull(value.value);
  });
}

std::string RowWriter::insertSql(const Table& table, const std::vector<FieldChange>& values) const {
  std::string sql = "INSERT INTO " + quotedName(table.name);
  if (values.empty()) return sql + " DEFAULT VALUES";
  std::string parameters;
  constexpr std::size_t usualName = 16;
  sql.reserve(sql.size() + values.size() * (usualName + 6));
  parameters.reserve(values.size() * 5);
  const char* separator = " (";
  for (std::size_t i = 0; i < values.size(); ++i) {
    sql += separator;
    sql += quotedName(source_.sources[static_cast<std::size_t>(values[i].field)].column->name);
    separator = ", ";
    parameters += i == 0 ? "?" : ", ?";
    parameters += std::to_string(i + 1);
  }
  sql += ") VALUES (";
  sql += parameters;
  sql += ')';
  return sql;
}

PreparedStatement& RowWriter::insertion(const Table& table, const std::vector<FieldChange>& values) const {
  if (!insertion_ || !std::ranges::equal(insertion_->fields, values, {}, {}, &FieldChange::field)) {
    std::vector<int> fields;
    fields.reserve(values.size());
    for (const FieldChange& value : values) fields.push_back(value.field);
    insertion_.reset();
    insertion_.emplace(std::move(fields), source_.connection->prepare(insertSql(table, values)));
  }
  return insertion_->statement;
}

std::vector<FieldChange> RowWriter::filledIn(int table, const std::vector<FieldChange>& values) const {
  std::vector<FieldChange> filledIn;
  for (std::size_t i = 0; i < source_.sources.size(); ++i) {
    const SourceField& field = source_.sources[i];
    if (field.table != table) continue;
    if (field.column->autoNumber) {
      const std::int64_t key = sqlite3_last_insert_rowid(source_.connection->database);
      filledIn.push_back({.field = static_cast<int>(i), .original = {}, .value = key});
    } else if (field.column->type == ColumnType::YesNo && !isGiven(*field.column, values)) {
      filledIn.push_back({.field = static_cast<int>(i), .original = {}, .value = false});
    }
  }
  return filledIn;
}

std::vector<FieldChange> RowWriter::insert(const std::vector<FieldChange>& values) const {
  const int tableNumber = tableOfNewRow(values);
  const Table& table = *source_.tables[static_cast<std::size_t>(tableNumber)].table;
  for (const std::string& name : table.key) {
    const Column* column = table.find(name);
    if (!column->autoNumber && !isGiven(*column, values)) {
      throw StoreError(ErrorKind::Constraint,
                       "The record was not saved: " + table.name + "." + name + " must not be empty.");
    }
  }
  PreparedStatement& statement = insertion(table, values);
  for (std::size_t i = 0; i < values.size(); ++i) statement.bindInPlace(static_cast<int>(i) + 1, values[i].value);
  source_.connection->write(statement);
  return filledIn(tableNumber, values);
}

void RowWriter::remove(const OriginalValue& original) const {
  if (source_.tables.size() != 1) {
    throw StoreError(ErrorKind::Misuse, "A row of several joined tables cannot be deleted.");
  }
  const SourceTable& target = writable(source_, 0);
  SqlText text{.sql = "DELETE FROM " + quotedName(target.table->name), .parameters = {}};
  appendKey(text, target, original);
  if (source_.connection->write(text.sql, text.parameters) != 1) throw conflict(*target.table);
}

}  // namespace velmo::store
