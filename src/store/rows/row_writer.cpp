#include "store/rows/row_writer.h"

#include <algorithm>
#include <ranges>

#include "store/sqlite/table_sql.h"

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

void RowWriter::update(const FieldValues& changes, const OriginalValue& original) const {
  std::vector<int> tables;
  for (const auto& [field, value] : changes) {
    const int table = source_.sources[static_cast<std::size_t>(field)].table;
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

void RowWriter::updateTable(int table, const FieldValues& changes, const OriginalValue& original) const {
  const SourceTable& target = writable(source_, table);
  SqlText text{.sql = "UPDATE " + quotedName(target.table->name) + " SET ", .parameters = {}};
  const char* separator = "";
  for (const auto& [field, value] : changes) {
    const SourceField& place = source_.sources[static_cast<std::size_t>(field)];
    if (place.table != table) continue;
    text.sql += separator + quotedName(place.column->name) + " = ";
    text.parameter(value);
    separator = ", ";
  }
  appendKey(text, target, original);
  for (const auto& [field, value] : changes) {
    const SourceField& place = source_.sources[static_cast<std::size_t>(field)];
    if (place.table != table) continue;
    text.sql += " AND " + quotedName(place.column->name) + " COLLATE BINARY IS ";
    text.parameter(original(field));
  }
  if (source_.connection->write(text.sql, text.parameters) != 1) throw conflict(*target.table);
}

int RowWriter::tableOfNewRow(const FieldValues& values) const {
  int table = source_.tables.size() == 1 ? 0 : -1;
  for (const auto& [field, value] : values) {
    const int own = source_.sources[static_cast<std::size_t>(field)].table;
    if (table >= 0 && own != table) {
      throw StoreError(ErrorKind::Misuse, "A new row of a join must fill the fields of one table only.");
    }
    table = own;
  }
  if (table < 0) throw StoreError(ErrorKind::Misuse, "A row cannot be added here: it belongs to no one table.");
  return table;
}

bool RowWriter::isGiven(const Column& column, const FieldValues& values) const {
  return std::ranges::any_of(values, [&](const auto& given) {
    return source_.sources[static_cast<std::size_t>(given.first)].column == &column && !isNull(given.second);
  });
}

TableInsertion& RowWriter::insertion(const Table& table, const FieldValues& values) const {
  if (!insertion_ || !std::ranges::equal(insertion_->fields, values | std::views::keys)) {
    std::vector<int> fields;
    std::vector<const Column*> columns;
    fields.reserve(values.size());
    columns.reserve(values.size());
    for (const auto& [field, value] : values) {
      fields.push_back(field);
      columns.push_back(source_.sources[static_cast<std::size_t>(field)].column);
    }
    insertion_.reset();
    insertion_.emplace(std::move(fields), TableInsertion(*source_.connection, table, columns));
  }
  return insertion_->statement;
}

FieldValues RowWriter::filledIn(int table, const FieldValues& values, std::int64_t number) const {
  FieldValues filledIn;
  for (std::size_t i = 0; i < source_.sources.size(); ++i) {
    const SourceField& field = source_.sources[i];
    if (field.table != table) continue;
    if (field.column->autoNumber) {
      filledIn.emplace_back(static_cast<int>(i), number);
    } else if (field.column->type == ColumnType::YesNo && !isGiven(*field.column, values)) {
      filledIn.emplace_back(static_cast<int>(i), false);
    }
  }
  return filledIn;
}

FieldValues RowWriter::insert(const FieldValues& values) const {
  const int table = tableOfNewRow(values);
  TableInsertion& statement = insertion(*source_.tables[static_cast<std::size_t>(table)].table, values);
  for (std::size_t i = 0; i < values.size(); ++i) statement.bind(i, values[i].second);
  return filledIn(table, values, statement.add());
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
