#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "store/values/error.h"

struct sqlite3;

namespace velmo::store {

// The file that a path leads to: its device and its number there, as the system tells them without opening it.
struct FileId {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  bool operator==(const FileId&) const = default;
};

// Nothing when nothing is there.
std::optional<FileId> fileIdOf(const std::filesystem::path& path);

// Whether the path leads, under whatever name, to a database that a connection of this program has open, or to what
// the database keeps beside it (its log). Such a file is neither opened nor replaced in any other way: whoever closes
// a file gives up every lock that his program holds on it, and the next program takes the log for one that was left
// behind by a crash.
bool isOpenDatabase(const std::filesystem::path& path);

// The file of one connection, for as long as it is open.
class OpenDatabase {
 public:
  // `path` as the user knows it, right after `database` was opened there and before anything was read.
  // Throws StoreError when nothing is there any more.
  OpenDatabase(const std::filesystem::path& path, sqlite3* database);
  ~OpenDatabase();
  OpenDatabase(const OpenDatabase&) = delete;
  OpenDatabase& operator=(const OpenDatabase&) = delete;

  const FileId& id() const { return id_; }
  // From now on the log beside the file is looked at as well, or no longer.
  void watchLog();
  void forgetLog() { log_.reset(); }
  // Why the file cannot be written: the path leads to it no longer, or the log is another one, and what is written
  // would be lost to whoever opens the file by its name. Nothing when all is in its place.
  std::optional<StoreError> displacement() const;

 private:
  friend bool isOpenDatabase(const std::filesystem::path& path);
  bool isOrKeeps(const FileId& id) const;

  std::filesystem::path path_;      // absolute
  std::filesystem::path realPath_;  // with links followed: what stands beside the file begins with it
  FileId id_;
  std::optional<FileId> log_;
};

}  // namespace velmo::store
