#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "store/rows/result_source.h"
#include "store/rows/table_insertion.h"

namespace velmo::store {

// What the fields of a row hold in the file, as it was read.
using OriginalValue = std::function<Value(int field)>;

// Writes the rows of a result back to the tables they come from, one statement for each table; new rows with the same
// fields, one after the other, share theirs. Every failure is a StoreError; a row that is no longer as it was read is
// ErrorKind::Conflict.
class RowWriter {
 public:
  explicit RowWriter(const ResultSource& source) : source_(source) {}

  void update(const FieldValues& changes, const OriginalValue& original) const;
  // The fields that the store filled in: the AutoNumber key, and No in every Yes/No that was not given.
  FieldValues insert(const FieldValues& values) const;
  void remove(const OriginalValue& original) const;

 private:
  struct Insertion {
    std::vector<int> fields;
    TableInsertion statement;
  };

  void updateTable(int table, const FieldValues& changes, const OriginalValue& original) const;
  int tableOfNewRow(const FieldValues& values) const;
  bool isGiven(const Column& column, const FieldValues& values) const;
  TableInsertion& insertion(const Table& table, const FieldValues& values) const;
  FieldValues filledIn(int table, const FieldValues& values, std::int64_t number) const;

  const ResultSource& source_;
  mutable std::optional<Insertion> insertion_;  // the last one
};

}  // namespace velmo::store
