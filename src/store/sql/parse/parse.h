#pragma once

#include <tl/expected.hpp>

#include "store/sql/parse/syntax.h"
#include "store/sql/parse/tokens.h"

// Second stage: tokens to the tree of a statement. Nothing is passed over: a token that has no place in the dialect
// refuses the statement.
namespace velmo::store::sql {

// How deep expressions and sources may nest.
inline constexpr int deepestNesting = 200;

tl::expected<Statement, CompileError> parse(const Tokens& tokens);

}  // namespace velmo::store::sql
