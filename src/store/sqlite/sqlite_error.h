#pragma once

#include <string>

#include "store/values/error.h"

struct sqlite3;

namespace velmo::store {

// The failure that SQLite just reported on `database` as a sentence for the user. `fileName` is the file it names.
StoreError sqliteError(sqlite3* database, int code, const std::string& fileName);

}  // namespace velmo::store
