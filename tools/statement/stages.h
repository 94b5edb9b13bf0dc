#pragma once

#include <string>

#include "store/sql/bind/bound.h"
#include "store/sql/parse/tokens.h"

// The stages of a statement in words, a node a line, its operands indented below it.
namespace velmo::statement {

// Names and signs as they stand; the values behind them as ?1, ?2 ...
std::string wordsOf(const store::sql::Tokens& tokens, std::string_view statement);
std::string wordsOf(const store::sql::Statement& tree);
// With the kinds of values and where columns come from; lines that are read as kept totals are told of.
std::string wordsOf(const store::sql::BoundStatement& bound);

}  // namespace velmo::statement
