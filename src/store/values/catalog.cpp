#include "store/values/catalog.h"

#include <utility>

#include "store/values/names.h"

namespace velmo::store {

const Column* Table::find(std::string_view columnName) const {
  for (const Column& column : columns) {
    if (sameName(column.name, columnName)) return &column;
  }
  return nullptr;
}

Catalog::Catalog(std::vector<Table> tables, std::vector<KeptTotals> keptTotals, std::vector<KeptBalances> keptBalances)
    : tables_(std::move(tables)), keptTotals_(std::move(keptTotals)), keptBalances_(std::move(keptBalances)) {}

const Table* Catalog::find(std::string_view tableName) const {
  for (const Table& table : tables_) {
    if (sameName(table.name, tableName)) return &table;
  }
  return nullptr;
}

}  // namespace velmo::store
