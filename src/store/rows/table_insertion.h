#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "store/connection/connection_impl.h"

namespace velmo::store {

// How rows are added to a table by some of its columns. A connection keeps those of its latest rows.
struct InsertionPlan {
  const Table& table;
  std::vector<const Column*> columns;
  std::vector<bool> isKey;  // of each column: it is a key that the store does not fill in
  std::string sql;
};

// The statement that adds rows to one table, with the same columns each time.
class TableInsertion {
 public:
  // Throws StoreError (Constraint) when a column of the key is missing that the store does not fill in.
  TableInsertion(Connection::Impl& connection, const Table& table, std::span<const Column* const> columns);

  // The value of a column, by its place among them, in the next row. It must stay where it is until then. Throws
  // StoreError (Constraint) when a column of the key would be empty.
  void bind(std::size_t column, const Value& value);
  // Adds the row and returns the number that the file gave it: the key, where that is an AutoNumber.
  std::int64_t add();

 private:
  Connection::Impl& connection_;
  std::shared_ptr<const InsertionPlan> plan_;
  PreparedStatement statement_;
};

}  // namespace velmo::store
