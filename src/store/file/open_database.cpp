#include "store/file/open_database.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <mutex>
#include <vector>

namespace velmo::store {
namespace {

namespace fs = std::filesystem;

// Locks belong to the process, so what it has open is kept for all of it. A back-up works beside the screen's thread.
std::mutex openMutex;
std::vector<const OpenDatabase*> openDatabases;

fs::path logOf(const fs::path& file) {
  return file.string() + "-wal";
}

StoreError notInPlace(const fs::path& file, const std::optional<FileId>& now) {
  const std::string name = "\"" + file.string() + "\"";
  if (!now)
    return {ErrorKind::Missing, "The file " + name +
                                    " is no longer there: it, or its folder, was renamed, moved or removed. Nothing "
                                    "was saved. Put it back under its name and save again."};
  return {ErrorKind::Missing, "Another file was put in the place of " + name +
                                  " while the program had it open. Nothing was saved. Put the former file back and "
                                  "save again, or note what you have entered, close the program and start it again."};
}

StoreError withoutLog(const fs::path& file) {
  return {ErrorKind::Missing, "The log \"" + logOf(file).string() +
                                  "\" was removed or replaced while the program had the file open. Nothing was saved. "
                                  "Note what you have entered, close the program and start it again."};
}

}  // namespace

std::optional<FileId> fileIdOf(const fs::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileId{status.st_dev, status.st_ino};
}

bool isOpenDatabase(const fs::path& path) {
  const std::lock_guard guard(openMutex);
  if (openDatabases.empty()) return false;
  const std::optional<FileId> id = fileIdOf(path);
  return id && std::ranges::any_of(openDatabases, [&](const OpenDatabase* each) { return each->isOrKeeps(*id); });
}

OpenDatabase::OpenDatabase(const fs::path& path, sqlite3* database) : path_(fs::absolute(path)) {
  const char* const name = sqlite3_db_filename(database, "main");
  realPath_ = name == nullptr ? path_ : fs::path(name);
  const std::optional<FileId> id = fileIdOf(path_);
  if (!id) throw notInPlace(path_, id);
  id_ = *id;
  const std::lock_guard guard(openMutex);
  openDatabases.push_back(this);
}

OpenDatabase::~OpenDatabase() {
  const std::lock_guard guard(openMutex);
  std::erase(openDatabases, this);
}

bool OpenDatabase::isOrKeeps(const FileId& id) const {
  if (id == id_) return true;
  return std::ranges::any_of(std::initializer_list<const char*>{"-wal", "-shm", "-journal"},
                             [&](const char* part) { return fileIdOf(realPath_.string() + part) == id; });
}

void OpenDatabase::watchLog() {
  log_ = fileIdOf(logOf(realPath_));
}

std::optional<StoreError> OpenDatabase::displacement() const {
  const std::optional<FileId> now = fileIdOf(path_);
  if (now != id_) return notInPlace(path_, now);
  if (log_ && fileIdOf(logOf(realPath_)) != log_) return withoutLog(realPath_);
  return std::nullopt;
}

}  // namespace velmo::store
