#include "store/upkeep/copy_pages.h"

#include <fcntl.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>

#include "store/connection/connection_impl.h"
#include "store/file/work_file.h"
#include "store/sqlite/sqlite_error.h"

namespace velmo::store {
namespace {

namespace fs = std::filesystem;
using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

// When a file or what its log holds was last written.
fs::file_time_type lastWritten(const fs::path& file) {
  std::error_code absent;
  fs::file_time_type last = fs::last_write_time(file, absent);
  const fs::path log = file.string() + "-wal";
  if (const auto size = fs::file_size(log, absent); !absent && size > 0)
    last = std::max(last, fs::last_write_time(log, absent));
  return last;
}

std::optional<fs::path> keptSince(const fs::path& file, const std::string& beginning) {
  const fs::file_time_type written = lastWritten(file);
  std::error_code unreadable;
  for (fs::directory_iterator each(folderOf(file), unreadable), end; !unreadable && each != end;
       each.increment(unreadable)) {
    std::error_code gone;
    if (each->path().filename().string().starts_with(beginning) && each->last_write_time(gone) >= written && !gone)
      return each->path();
  }
  return std::nullopt;
}

std::string ofMoment(const text::DateTime& now) {
  std::string moment = now.iso();
  std::ranges::replace(moment, ':', '-');
  return moment;
}

}  // namespace

void copyPages(Connection::Impl& from, const fs::path& to, const std::function<void(sqlite3*)>& verify) {
  sqlite3* opened = nullptr;
  int code = sqlite3_open_v2(to.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  Database target(opened, sqlite3_close);
  sqlite3_backup* copying =
      code == SQLITE_OK ? sqlite3_backup_init(target.get(), "main", from.database, "main") : nullptr;
  if (copying != nullptr) {
    code = sqlite3_backup_step(copying, -1);
    sqlite3_backup_finish(copying);
  } else if (code == SQLITE_OK) {
    code = sqlite3_errcode(target.get());
  }
  if (code != SQLITE_DONE) throw sqliteError(nullptr, code, from.fileName);
  if (verify) verify(target.get());
  target.reset();
  syncToDisk(to, O_RDWR);
}

fs::path setAside(Connection& connection, const text::DateTime& now) {
  const fs::path file = fs::absolute(connection.impl()->fileName);
  const std::string beginning = file.string() + " damaged ";
  if (auto kept = keptSince(file, fs::path(beginning).filename().string())) return *kept;
  const WorkFile work(file, "copy");
  copyPages(*connection.impl(), work.path);
  fs::path kept = beginning + ofMoment(now);
  for (int other = 2; !takeNewName(work.path, kept); ++other)
    kept = beginning + ofMoment(now) + " (" + std::to_string(other) + ")";
  syncToDisk(folderOf(kept), O_RDONLY | O_DIRECTORY);
  return kept;
}

}  // namespace velmo::store
