#pragma once

struct sqlite3;

namespace velmo::store::sql {

// Makes every function that emitted SQL calls known to a connection. Throws StoreError when SQLite refuses one.
void registerFunctions(sqlite3* database);

}  // namespace velmo::store::sql
