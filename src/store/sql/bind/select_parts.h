#pragma once

#include "store/sql/bind/bound.h"
#include "store/sql/parse/tokens.h"

// Looking at a bound select, for those who read another source in place of one.
namespace velmo::store::sql {

const BoundSource& sourceOf(const BoundSelect& select, const Bound& column);
bool isColumn(const Bound& bound, const BoundSelect& select, int source, std::string_view name);
bool isLiteral(const Bound& bound);
bool isNo(const Bound& bound, const Tokens& tokens);
bool isNothing(const Bound& bound, const Tokens& tokens);  // a nought
// The number of the one source that reads this table; -1 when there are more, or none.
int sourceNamed(const BoundSelect& select, std::string_view table);

bool isInnerOnly(const BoundJoin& join);
// The conditions that all hold for a condition to hold, and those of all joins.
void collectTests(const BoundPtr& condition, std::vector<BoundPtr>& tests);
void collectConditions(const BoundJoin& join, std::vector<BoundPtr>& tests);
// Those that every row of a source must meet, or leaves no trace of its own: of WHERE, and of the joins that do not
// keep it for want of another.
std::vector<BoundPtr> testsOn(const BoundSelect& select, int source);
// Takes one source out of inner joins, and their conditions.
std::unique_ptr<BoundJoin> without(std::unique_ptr<BoundJoin> join, int source);

}  // namespace velmo::store::sql
