#include "store/rows/result_source.h"

#include <algorithm>

#include "store/values/column_value.h"
#include "store/values/names.h"

namespace velmo::store {
namespace {

int tableIndex(ResultSource& source, const sql::ResultColumn& column) {
  if (column.table.empty() || column.column.empty()) return -1;
  const std::string& alias = column.tableAlias.empty() ? column.table : column.tableAlias;
  for (std::size_t i = 0; i < source.tables.size(); ++i) {
    if (sameName(source.tables[i].alias, alias)) return static_cast<int>(i);
  }
  const Table* table = source.connection->catalog.find(column.table);
  if (table == nullptr) return -1;
  source.tables.push_back({.table = table, .alias = alias, .keyFields = {}, .keySelected = false});
  return static_cast<int>(source.tables.size()) - 1;
}

void findKeys(ResultSource& source) {
  for (std::size_t t = 0; t < source.tables.size(); ++t) {
    SourceTable& table = source.tables[t];
    for (const std::string& name : table.table->key) {
      const Column* column = table.table->find(name);
      int field = -1;
      for (std::size_t i = 0; i < source.sources.size() && field < 0; ++i) {
        if (source.sources[i].table == static_cast<int>(t) && source.sources[i].column == column) {
          field = static_cast<int>(i);
        }
      }
      table.keyFields.push_back(field);
    }
    table.keySelected =
        !table.keyFields.empty() && std::ranges::none_of(table.keyFields, [](int field) { return field < 0; });
  }
}

}  // namespace

std::shared_ptr<ResultSource> describeResult(std::shared_ptr<Connection::Impl> connection, BoundStatement statement,
                                             LockType lock) {
  if (statement.compiled->kind != sql::StatementKind::Select) {
    throw StoreError(ErrorKind::Statement, "Only a SELECT can be opened as a recordset.");
  }
  auto source = std::make_shared<ResultSource>();
  source->connection = std::move(connection);
  source->statement = std::move(statement);
  source->lock = lock;
  const std::vector<sql::ResultColumn>& columns = source->statement.compiled->columns;
  source->fields.reserve(columns.size());
  for (const sql::ResultColumn& column : columns) {
    const int table = tableIndex(*source, column);
    const Column* base =
        table < 0 ? nullptr : source->tables[static_cast<std::size_t>(table)].table->find(column.column);
    source->sources.push_back({.column = base, .table = base == nullptr ? -1 : table});
    source->types.push_back(column.type);
    source->fields.push_back({.name = column.name,
                              .type = column.type,
                              .readOnly = lock == LockType::ReadOnly || base == nullptr || base->autoNumber,
                              .chapter = false});
  }
  findKeys(*source);
  return source;
}

int ResultSource::fieldIndex(std::string_view name, std::size_t from) const {
  return placeOfName(fields, name, from, [](const FieldInfo& field) { return std::string_view(field.name); });
}

int ResultSource::requireField(std::string_view name, std::size_t from) const {
  const int field = fieldIndex(name, from);
  if (field < 0) throw StoreError(ErrorKind::Misuse, "The recordset has no field named \"" + std::string(name) + "\".");
  return field;
}

void ResultSource::addChapter(const std::string& name) {
  fields.push_back({.name = name, .type = ColumnType::Text, .readOnly = true, .chapter = true});
}

Value ResultSource::fittedFor(int field, const Value& value) const {
  const FieldInfo& info = fields.at(static_cast<std::size_t>(field));
  if (info.readOnly || info.chapter) {
    throw StoreError(ErrorKind::Misuse, "The field \"" + info.name + "\" cannot be written.");
  }
  return fitted(*sources[static_cast<std::size_t>(field)].column, value);
}

}  // namespace velmo::store
