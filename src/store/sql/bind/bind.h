#pragma once

#include <tl/expected.hpp>

#include "store/sql/bind/bound.h"
#include "store/sql/parse/tokens.h"

// Third stage: names are looked up in the catalogue and the derived tables, aliases are put in place of their uses,
// kinds of values are settled and aggregates checked. The bound tree points into the catalogue and the statement.
namespace velmo::store::sql {

tl::expected<BoundStatement, CompileError> bind(const Statement& statement, const Tokens& tokens,
                                                const Catalog& catalog);

}  // namespace velmo::store::sql
