#pragma once

#include "store/sql/bound.h"
#include "store/sql/statement.h"
#include "store/sql/tokens.h"

// Last stage: the bound tree to SQLite's SQL. All that is particular to SQLite's language stands behind this function;
// the functions that the SQL calls are registered by registerFunctions (functions.h).
namespace velmo::store::sql {

CompiledStatement emit(const BoundStatement& statement, const Tokens& tokens);

}  // namespace velmo::store::sql
