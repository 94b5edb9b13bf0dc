#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "store/result_source.h"
#include "store/statement_cache.h"

namespace velmo::store {

// One field of a row that is to be written.
struct FieldChange {
  int field = 0;
  Value original;  // as it was read; of no meaning for a new row
  Value value;
};

using OriginalValue = std::function<Value(int field)>;

// Writes the rows of a result back to the tables they come from, one statement for each table; new rows with the same
// fields, one after the other, share theirs. Every failure is a StoreError; a row that is no longer as it was read is
// ErrorKind::Conflict.
class RowWriter {
 public:
  explicit RowWriter(const ResultSource& source) : source_(source) {}

  void update(const std::vector<FieldChange>& changes, const OriginalValue& original) const;
  // The fields that the store filled in: the AutoNumber key, and No in every Yes/No that was not given.
  std::vector<FieldChange> insert(const std::vector<FieldChange>& values) const;
  void remove(const OriginalValue& original) const;

 private:
  struct Insertion {
    std::vector<int> fields;
    PreparedStatement statement;
  };

  void updateTable(int table, const std::vector<FieldChange>& changes, const OriginalValue& original) const;
  int tableOfNewRow(const std::vector<FieldChange>& values) const;
  bool isGiven(const Column& column, const std::vector<FieldChange>& values) const;
  std::string insertSql(const Table& table, const std::vector<FieldChange>& values) const;
  PreparedStatement& insertion(const Table& table, const std::vector<FieldChange>& values) const;
  std::vector<FieldChange> filledIn(int table, const std::vector<FieldChange>& values) const;

  const ResultSource& source_;
  mutable std::optional<Insertion> insertion_;  // the last one
};

}  // namespace velmo::store
