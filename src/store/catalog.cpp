#include "store/catalog.h"

#include <strings.h>

#include <utility>

namespace velmo::store {
namespace {

bool sameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

}  // namespace

const Column* Table::find(std::string_view columnName) const {
  for (const Column& column : columns) {
    if (sameName(column.name, columnName)) return &column;
  }
  return nullptr;
}

Catalog::Catalog(std::vector<Table> tables, std::vector<KeptTotals> keptTotals)
    : tables_(std::move(tables)), keptTotals_(std::move(keptTotals)) {}

const Table* Catalog::find(std::string_view tableName) const {
  for (const Table& table : tables_) {
    if (sameName(table.name, tableName)) return &table;
  }
  return nullptr;
}

}  // namespace velmo::store
