#pragma once

#include <string_view>
#include <vector>

#include "store/connection_impl.h"

namespace velmo::store {

// The statement that adds rows to one table, with the same columns each time.
class TableInsertion {
 public:
  // Throws StoreError (Constraint) when a column of the key is missing that the store does not fill in.
  TableInsertion(Connection::Impl& connection, const Table& table, std::vector<const Column*> columns);

  const std::vector<const Column*>& columns() const { return columns_; }
  // The value of a column, by its place among them, in the next row. It must stay where it is until then. Throws
  // StoreError (Constraint) when a column of the key would be empty.
  void bind(std::size_t column, const Value& value);
  // Adds the row and returns the number that the file gave it: the key, where that is an AutoNumber.
  std::int64_t add();

 private:
  Connection::Impl& connection_;
  const Table& table_;
  std::vector<const Column*> columns_;
  std::vector<bool> isKey_;  // of each column
  PreparedStatement statement_;
};

}  // namespace velmo::store
