#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "store/connection.h"
#include "store/value.h"

namespace velmo::store {

// An INSERT, UPDATE or DELETE that is run again and again with other values, prepared once.
class RepeatedWrite {
 public:
  // Every literal of the statement stands for a value to come, of its type; what it holds is never used. A statement
  // that keeps one of its literals to itself throws StoreError (Misuse).
  RepeatedWrite(Connection& connection, std::string_view statement, std::size_t values);
  ~RepeatedWrite();
  RepeatedWrite(const RepeatedWrite&) = delete;
  RepeatedWrite& operator=(const RepeatedWrite&) = delete;

  // The values in the order of the literals. Returns the number of rows written. Throws StoreError.
  std::int64_t run(std::span<const Value> values);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace velmo::store
