#pragma once

struct sqlite3;

namespace velmo::store::sql {

// Sums and differences of figures as the decimals that they show (text::DecimalSum), for one connection:
//   velmo_sum, velmo_avg          aggregates, to 15 digits
//   velmo_add, velmo_subtract     of two figures, to 15 digits
//   velmo_kept                    a kept total, which is in ten-thousandths, as a figure
//   velmo_sum_kept                an aggregate of kept totals
//   velmo_sum_exactly             an aggregate of figures that are summed up further
// The last three give a text of digits where a number has not enough of them, and all but velmo_kept and
// velmo_sum_kept take one.
// Throws StoreError.
void registerDecimalFunctions(sqlite3* database);

}  // namespace velmo::store::sql
