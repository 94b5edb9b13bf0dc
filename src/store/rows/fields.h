#pragma once

#include <cstdint>
#include <string>

#include "store/values/value.h"

// What the fields and rows of a result are called by those who hold them and those who show them.
namespace velmo::store {

enum class LockType { ReadOnly, Optimistic, BatchOptimistic };

// Stable for the life of a row, shared by all clones; survives sorting and filtering.
using Bookmark = std::int64_t;

struct FieldInfo {
  std::string name;
  ColumnType type = ColumnType::Text;
  bool readOnly = false;
  bool chapter = false;
};

}  // namespace velmo::store
