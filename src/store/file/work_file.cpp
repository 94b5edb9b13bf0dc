#include "store/file/work_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "store/file/open_database.h"

namespace velmo::store {

namespace fs = std::filesystem;

WorkFile::WorkFile(const fs::path& file, std::string_view kind) : path(workPath(file, kind)) {
  const int descriptor = ::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
  if (descriptor < 0) throw cannotMake(file, errno);
  ::close(descriptor);
}

WorkFile::~WorkFile() {
  removeAll();
}

void WorkFile::removeAll() const noexcept {
  std::error_code absent;
  for (const char* part : {"", "-wal", "-shm", "-journal"}) fs::remove(path.string() + part, absent);
}

bool takeNewName(const fs::path& workFile, const fs::path& file) {
  if (::renameat2(AT_FDCWD, workFile.c_str(), AT_FDCWD, file.c_str(), RENAME_NOREPLACE) == 0) return true;
  // Where the file system has no such renaming, a second name does not replace a file either.
  const bool unknown = errno == EINVAL || errno == ENOSYS;
  if (unknown && ::link(workFile.c_str(), file.c_str()) == 0) return true;
  if (errno == EEXIST) return false;
  throw cannotMake(file, errno);
}

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

void syncToDisk(const fs::path& path, int flags) {
  if (isOpenDatabase(path)) throw std::logic_error(path.string() + " is open in a connection");
  const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC);
  if (descriptor < 0) throw cannotMake(path, errno);
  const int reason = ::fsync(descriptor) == 0 ? 0 : errno;
  ::close(descriptor);
  if (reason != 0) throw cannotMake(path, reason);
}

StoreError cannotMake(const fs::path& file, const std::string& reason) {
  return {ErrorKind::Failed, "The file \"" + file.string() + "\" cannot be made: " + reason + "."};
}

StoreError cannotMake(const fs::path& file, int reason) {
  const std::string folder = "The folder \"" + folderOf(file).string() + "\"";
  switch (reason) {
    case ENOSPC:
    case EDQUOT:
      return {ErrorKind::Full,
              "The disk that holds \"" + file.string() + "\" is full. Nothing was saved; make room and try again."};
    case EACCES:
    case EPERM:
    case EROFS:
      return {ErrorKind::ReadOnly, folder +
                                       " is read-only. Nothing was saved; choose another folder or ask for the "
                                       "right to write there."};
    case ENOENT:
    case ENOTDIR:
      return {ErrorKind::Missing, folder + " is not there. Nothing was saved."};
    default:
      return cannotMake(file, std::string(std::strerror(reason)));
  }
}

}  // namespace velmo::store
