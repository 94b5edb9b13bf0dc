#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/connection/connection_impl.h"
#include "store/rows/fields.h"

namespace velmo::store {

// Field numbers and the values given for them, converted to their columns.
using FieldValues = std::vector<std::pair<int, Value>>;

// A base table of a result: where its rows can be written, and by which fields they are found.
struct SourceTable {
  const Table* table = nullptr;
  std::string alias;
  std::vector<int> keyFields;  // one for each column of the key, in its order; -1 where it is not selected
  bool keySelected = false;
};

struct SourceField {
  const Column* column = nullptr;  // nullptr when calculated
  int table = -1;                  // into ResultSource::tables
};

// Where a recordset's rows come from and what its fields are. Shared by all cursors over the same rows.
struct ResultSource {
  std::shared_ptr<Connection::Impl> connection;
  BoundStatement statement;
  LockType lock = LockType::ReadOnly;
  std::vector<FieldInfo> fields;
  std::vector<SourceField> sources;  // of each field
  std::vector<ColumnType> types;     // of each field, chapters left out
  std::vector<SourceTable> tables;

  // -1 when absent. The search begins at field `from`, where the name is expected, and goes round.
  int fieldIndex(std::string_view name, std::size_t from = 0) const;
  int requireField(std::string_view name, std::size_t from = 0) const;  // throws StoreError (Misuse)
  void addChapter(const std::string& name);                             // a field behind the others
  // The value as the field's column keeps it. Throws when the field cannot be written or the value does not fit.
  Value fittedFor(int field, const Value& value) const;
};

// Throws StoreError (Statement) when the statement is no SELECT.
std::shared_ptr<ResultSource> describeResult(std::shared_ptr<Connection::Impl> connection, BoundStatement statement,
                                             LockType lock);

}  // namespace velmo::store
