#pragma once

#include "store/sql/bind/bound.h"

namespace velmo::store::sql {

// What a select asks of a column, it asks of those that must be equal to it. Where that is what a derived table groups
// by, its groups are tested before they are summed up: a list of one month does not sum up the year. Numbers and dates
// are compared with literals; the result stays the same.
void pushTests(BoundSelect& select);

}  // namespace velmo::store::sql
