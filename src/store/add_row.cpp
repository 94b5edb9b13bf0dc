#include "store/add_row.h"

#include "store/column_value.h"
#include "store/table_insertion.h"

namespace velmo::store {
namespace {

const Column& columnToWrite(const Table& table, std::string_view name) {
  const Column* column = table.find(name);
  if (column == nullptr) {
    throw StoreError(ErrorKind::Misuse, "The table " + table.name + " has no column named \"" + std::string(name) +
                                            "\".");
  }
  if (column->autoNumber) throw StoreError(ErrorKind::Misuse, "The field \"" + column->name + "\" cannot be written.");
  return *column;
}

}  // namespace

void addRow(Connection& connection, std::string_view table, std::span<const FieldValue> values) {
  const Table* target = connection.catalog().find(table);
  if (target == nullptr) throw StoreError(ErrorKind::Misuse, "There is no table " + std::string(table) + ".");
  std::vector<const Column*> columns;
  std::vector<Value> kept;
  columns.reserve(values.size());
  kept.reserve(values.size());
  for (const FieldValue& value : values) {
    columns.push_back(&columnToWrite(*target, value.name));
    kept.push_back(fitted(*columns.back(), value.value));
  }
  TableInsertion insertion(*connection.impl(), *target, std::move(columns));
  for (std::size_t i = 0; i < kept.size(); ++i) insertion.bind(i, kept[i]);
  insertion.add();
}

}  // namespace velmo::store
