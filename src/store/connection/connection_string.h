#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmo::store {

enum class Provider { Plain, Hierarchical };

// What a connection string ("Provider=...;Data Source=Uninstall\Uninstall.MDB;...") says.
struct ConnectionString {
  Provider provider = Provider::Plain;
  std::filesystem::path dataSource;  // as written, with "/" between folders
  std::string password;
};

// Keys are case-insensitive, values may stand in quotes, unknown keys are passed over. Throws StoreError (Misuse) for
// an unknown provider or when the data source is missing.
ConnectionString parseConnectionString(std::string_view text);

}  // namespace velmo::store
