#pragma once

#include <initializer_list>
#include <string_view>

#include "store/recordset/recordset.h"

namespace velmo::store {

// Adds a row to a table, at once and in the transaction that is open, where nobody is going to look at it through a
// recordset. The values are taken as Recordset::addNew() takes them; names are case-insensitive. Throws StoreError.
void addRow(Connection& connection, std::string_view table, std::span<const FieldValue> values);
inline void addRow(Connection& connection, std::string_view table, std::initializer_list<FieldValue> values) {
  addRow(connection, table, std::span(values.begin(), values.size()));
}

}  // namespace velmo::store
