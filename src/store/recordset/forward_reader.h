#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "store/connection/connection.h"
#include "store/values/value.h"

namespace velmo::store {

// The rows of a SELECT one after the other, each forgotten for the next: for work on a whole table in memory that does
// not grow with it. Not for statements whose rows are changed in the fields that choose or order them while it reads.
// Begins before the first row. Every operation throws StoreError on failure.
class ForwardReader {
 public:
  ForwardReader(Connection& connection, std::string_view statement);
  ~ForwardReader();
  ForwardReader(const ForwardReader&) = delete;
  ForwardReader& operator=(const ForwardReader&) = delete;

  bool next();  // false behind the last row
  // Throws (Misuse) when the statement has none of that name.
  int field(std::string_view name) const;
  // Of the current row, by the field's number; null gives 0 and "".
  Value value(int field) const;
  bool isNull(int field) const;
  double number(int field) const;
  std::int64_t integer(int field) const;
  std::string_view text(int field) const;  // good until the next row

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace velmo::store
