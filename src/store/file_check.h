#pragma once

#include <filesystem>
#include <limits>
#include <string_view>

namespace velmo::store {

inline constexpr int anySchemaVersion = std::numeric_limits<int>::max();

// Throws StoreError, each kind with its own sentence, when the file is missing, damaged, of another program, marked or
// kept from writing, of a newer version than `newestSchemaVersion`, or has another password. Only reads: neither the
// file nor its folder changes.
void checkDatabaseFile(const std::filesystem::path& file, std::string_view password,
                       int newestSchemaVersion = anySchemaVersion);

// The version of the schema that the file holds. Throws as checkDatabaseFile does for a missing, damaged or foreign
// file.
int schemaVersionOf(const std::filesystem::path& file);

}  // namespace velmo::store
