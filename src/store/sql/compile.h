#pragma once

#include <string_view>
#include <tl/expected.hpp>

#include "store/sql/parse/statement.h"

// From a statement of the program's dialect to the store's SQL:
//   tokens (tokens.h) -> tree (syntax.h, parse.h) -> bound tree (bind.h) -> SQL and parameters (emit.h)
// In the bound tree, sums of lines that the database keeps are read from there (kept_select.h).
namespace velmo::store::sql {

tl::expected<CompiledStatement, CompileError> compile(std::string_view statement, const Catalog& catalog);

}  // namespace velmo::store::sql
