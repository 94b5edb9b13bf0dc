#pragma once

#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <vector>

#include "store/sql/parse/statement.h"

namespace velmo::store::sql {

// What is left of a statement when the values of its literals are taken out. Two statements of the same key compile
// to the same SQL over the same catalogue, and differ in their parameters alone.
struct StatementShape {
  std::string key;
  std::vector<Value> parameters;  // as CompiledStatement::parameters would hold them
};

// Refused where compile() refuses the same statement for its characters, numbers, dates or quotes.
tl::expected<StatementShape, CompileError> shapeOf(std::string_view statement);

}  // namespace velmo::store::sql
