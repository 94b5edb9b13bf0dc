#pragma once

#include "store/sql/bind/bound.h"
#include "store/sql/parse/tokens.h"

namespace velmo::store::sql {

// Where a derived table of `select` sums up lines by the groups of KeptBalances, lets it read the kept sums in place of
// the lines, and of those only what is open where `select` asks for more than nothing that is due: Sum([due]) -
// Sum([settled]) > 0. Of documents it may ask no more than that they are not excluded, of lines no more than columns of
// their groups, and it may sum no other column. Any other stays as it is.
bool readsBalances(BoundSelect& select, int source, const Tokens& tokens, const KeptBalances& balances);

}  // namespace velmo::store::sql
