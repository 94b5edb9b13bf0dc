#pragma once

#include <filesystem>
#include <string_view>

#include "store/values/error.h"
#include "store/values/schema_version.h"

struct sqlite3;

namespace velmo::store {

// What can be told of a database file without opening it. Throws StoreError, each kind with its own sentence, when it
// is missing, no file, empty, or marked or kept from reading and writing.
void checkPlace(const std::filesystem::path& file);

// What the file says of itself, read through the connection that has it open: so a log or journal that a crash left
// beside it counts, and only what is damaged after SQLite has recovered it is called damaged. Throws StoreError, each
// kind with its own sentence, when it is damaged, of another program, of a newer version than `newestSchemaVersion`,
// or has another password. Writes nothing.
void checkIdentity(sqlite3* database, const std::filesystem::path& file, std::string_view password,
                   int newestSchemaVersion = anySchemaVersion);

// The version of the schema that the file holds. Throws StoreError.
int schemaVersionOf(sqlite3* database, const std::filesystem::path& file);

// Whether the path leads to a file of this program, or to the log of one that is open here: nothing else may take its
// name. One that is open here is told without opening it once more.
bool isDatabaseFile(const std::filesystem::path& file);

// What is told of a file that is not sound.
StoreError damagedFile(const std::filesystem::path& file);

}  // namespace velmo::store
