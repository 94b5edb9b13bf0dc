#pragma once

#include "store/sql/bind/bound.h"
#include "store/sql/parse/tokens.h"

namespace velmo::store::sql {

// Where a select sums up the lines of documents by nothing finer than what KeptTotals keep, lets it read the kept sums
// in place of the lines; so do the derived tables within it. Of documents it may ask no more than that they are not
// excluded, that they are of one group, for the days from or to a literal, and where the totals are kept by kind for
// some kinds; of lines, for subjects, where the totals are kept by place for some
// places, and for sums of what grows with the amounts, in which null counts as 0:
// Sum(IIf(IsNull([x]),0,[x])). Of totals that pass over lines it must ask for the others, and may sum the bare amounts.
// Any other select stays as it is.
void readKeptTotals(BoundSelect& select, const Tokens& tokens, const Catalog& catalog);

}  // namespace velmo::store::sql
