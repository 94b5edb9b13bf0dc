#pragma once

#include "store/sql/bind/bound.h"
#include "store/sql/parse/statement.h"
#include "store/sql/parse/tokens.h"

// Last stage: the bound tree to SQLite's SQL. All that is particular to SQLite's language stands behind this function;
// the functions that the SQL calls are registered by registerFunctions (functions.h).
namespace velmo::store::sql {

CompiledStatement emit(const BoundStatement& statement, const Tokens& tokens);

}  // namespace velmo::store::sql
