#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "store/connection/connection.h"
#include "store/values/value.h"

struct sqlite3;

namespace velmo::store {

// Rows of a table by their whole-number key, rising, and what is to be written to them.
struct RowsToRewrite {
  std::size_t count = 0;
  std::function<std::int64_t(std::size_t row)> keyOf;
  std::function<Value(std::size_t row, std::size_t column)> valueOf;  // of the column's type
  std::function<bool()> goesOn = {};                                  // asked for each row
};

// Writes these columns of many rows in one pass through the table, in the transaction that is open: quicker than a
// statement for each row. Keys that are not there are passed over. False when it was not to go on; some of
// the rows are written then, and the transaction is to be undone. Throws StoreError, and what the functions throw.
bool rewriteRows(Connection& connection, std::string_view table, std::span<const std::string_view> columns,
                 const RowsToRewrite& rows);

// Makes known to the database what rewriteRows() asks it to call.
void registerRewriting(sqlite3* database);

}  // namespace velmo::store
