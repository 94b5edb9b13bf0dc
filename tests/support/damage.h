#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace velmo::test {

// Statements past the program, as any SQLite program could run them; foreign keys are not kept. The first value that
// one of them gives.
inline std::string past(const std::filesystem::path& file, const std::string& sql) {
  sqlite3* opened = nullptr;
  sqlite3_open(file.c_str(), &opened);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
  std::string first;
  const auto keep = [](void* kept, int, char** values, char**) {
    if (auto& text = *static_cast<std::string*>(kept); text.empty() && values[0] != nullptr) text = values[0];
    return 0;
  };
  if (sqlite3_exec(opened, sql.c_str(), keep, &first, nullptr) != SQLITE_OK)
    throw std::logic_error(sql + ": " + sqlite3_errmsg(opened));
  return first;
}

// Runs a statement without telling an index of it.
inline void changeBesideIndex(const std::filesystem::path& file, const std::string& index,
                              const std::string& statement) {
  const std::string ofIndex = " FROM sqlite_schema WHERE name = '" + index + "'";
  past(file, "PRAGMA writable_schema = ON; CREATE TEMP TABLE kept AS SELECT *" + ofIndex + "; DELETE" + ofIndex +
                 "; PRAGMA writable_schema = RESET; " + statement +
                 "; PRAGMA writable_schema = ON; INSERT INTO sqlite_schema SELECT * FROM kept; "
                 "PRAGMA writable_schema = RESET");
}

// Overwrites the first page of a table in a file that nobody has open.
inline void spoilTable(const std::filesystem::path& file, const std::string& table) {
  past(file, "PRAGMA wal_checkpoint(TRUNCATE)");
  const long page = std::stol(past(file, "SELECT rootpage FROM sqlite_schema WHERE name = '" + table + "'"));
  std::fstream bytes(file, std::ios::binary | std::ios::in | std::ios::out);
  bytes.seekp((page - 1) * 4096);
  bytes.write(std::string(100, '\x55').data(), 100);
}

inline std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace velmo::test
