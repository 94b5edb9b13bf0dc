#pragma once

#include "store/connection/connection.h"

namespace velmo::schema {

// Throws StoreError (Damaged) with a sentence when the file has no user, no financial year or no company, without which
// nobody can log in. The tables are there.
void requireLoginRows(store::Connection& connection);

}  // namespace velmo::schema
