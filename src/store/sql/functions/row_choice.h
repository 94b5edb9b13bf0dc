#pragma once

struct sqlite3;

namespace velmo::store::sql {

// The aggregates velmo_first(value, key...) and velmo_last(value, key...): the value of the row with the least or the
// greatest keys, whatever the order in which rows arrive.
void registerRowChoice(sqlite3* database);

}  // namespace velmo::store::sql
