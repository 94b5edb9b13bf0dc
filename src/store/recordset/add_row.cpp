#include "store/recordset/add_row.h"

#include "store/rows/table_insertion.h"
#include "store/values/column_value.h"
#include "store/values/names.h"

namespace velmo::store {
namespace {

// The place of a column that is expected at `from`.
std::size_t columnToWrite(const Table& table, std::string_view name, std::size_t from) {
  const int place =
      placeOfName(table.columns, name, from, [](const Column& column) { return std::string_view(column.name); });
  if (place < 0) {
    throw StoreError(ErrorKind::Misuse,
                     "The table " + table.name + " has no column named \"" + std::string(name) + "\".");
  }
  const auto found = static_cast<std::size_t>(place);
  const Column& column = table.columns[found];
  if (column.autoNumber) throw StoreError(ErrorKind::Misuse, "The field \"" + column.name + "\" cannot be written.");
  return found;
}

}  // namespace

void addRow(Connection& connection, std::string_view table, std::span<const FieldValue> values) {
  const Table* target = connection.catalog().find(table);
  if (target == nullptr) throw StoreError(ErrorKind::Misuse, "There is no table " + std::string(table) + ".");
  std::vector<const Column*> columns;
  std::vector<Value> kept;
  columns.reserve(values.size());
  kept.reserve(values.size());
  std::size_t next = 0;
  for (const FieldValue& value : values) {
    const std::size_t place = columnToWrite(*target, value.name, next);
    columns.push_back(&target->columns[place]);
    kept.push_back(fitted(*columns.back(), value.value));
    next = place + 1;
  }
  TableInsertion insertion(*connection.impl(), *target, columns);
  for (std::size_t i = 0; i < kept.size(); ++i) insertion.bind(i, kept[i]);
  insertion.add();
}

}  // namespace velmo::store
