#include <sqlite3.h>

#include "store/connection/connection_impl.h"
#include "store/connection/rewrite_rows.h"
#include "store/file/file_check.h"
#include "store/file/file_mark.h"
#include "store/sql/functions/functions.h"
#include "store/sqlite/sqlite_error.h"

// How a connection comes to its file.
namespace velmo::store {
namespace {

// Whatever SQLite takes up again when it opens the file: a log, or the journal of a change without one.
bool hasLog(const std::filesystem::path& path) {
  for (const char* part : {"-wal", "-journal"}) {
    std::error_code none;
    const auto size = std::filesystem::file_size(path.string() + part, none);
    if (!none && size > 0) return true;
  }
  return false;
}

}  // namespace

void Connection::Impl::open(const std::filesystem::path& path, std::string_view password) {
  close();
  checkPlace(path);
  try {
    connect(path, SQLITE_OPEN_READWRITE);
    // A file that is refused keeps the log that a crash has left beside it.
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, hasLog(path) ? 1 : 0, nullptr);
    checkIdentity(database, path, password, newestSchemaVersion);
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    prepareForWork();
  } catch (...) {
    close();
    throw;
  }
}

void Connection::Impl::attach(const std::filesystem::path& path, int openFlags) {
  try {
    connect(path, openFlags);
    prepareForWork();
  } catch (...) {
    close();
    throw;
  }
}

void Connection::Impl::connect(const std::filesystem::path& path, int openFlags) {
  fileName = path.string();
  const std::optional<FileId> before = fileIdOf(path);
  const int code = sqlite3_open_v2(fileName.c_str(), &database, openFlags | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, fileName);
  sqlite3_extended_result_codes(database, 1);
  sqlite3_busy_timeout(database, busyTimeout);
  file = std::make_unique<OpenDatabase>(path, database);
  if (before != file->id())
    throw StoreError(ErrorKind::Missing, "The file \"" + fileName + "\" was replaced as it was opened. Try again.");
  statements = std::make_shared<StatementCache>(database, fileName);
}

void Connection::Impl::prepareForWork() {
  run("PRAGMA foreign_keys = ON");
  run("PRAGMA journal_mode = WAL");
  run("PRAGMA synchronous = FULL");
  sqlite3_wal_autocheckpoint(database, logPagesLimit);
  run("PRAGMA cache_size = -32000");
  sql::registerFunctions(database);
  registerRewriting(database);
  changes.watch(database);
  schemaVersion = static_cast<int>(number("PRAGMA user_version"));
  file->watchLog();
}

bool Connection::Impl::leaveLog() {
  finishReaders();
  file->forgetLog();
  const int code = sqlite3_exec(database, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
  if (code == SQLITE_OK) return true;
  file->watchLog();
  if ((code & 0xff) != SQLITE_BUSY && (code & 0xff) != SQLITE_LOCKED) throw sqliteError(database, code, fileName);
  return false;
}

void Connection::Impl::stamp(int version) {
  run(("PRAGMA user_version = " + std::to_string(version)).c_str());
  run(("PRAGMA application_id = " + std::to_string(applicationId)).c_str());
  schemaVersion = version;
}

std::int64_t Connection::Impl::number(const char* pragma) {
  PreparedStatement statement = prepare(pragma);
  return statement.step() ? sqlite3_column_int64(statement.handle(), 0) : 0;
}

std::shared_ptr<Connection::Impl> Connection::Impl::snapshot() const {
  requireOpen();
  requireInPlace();
  auto reading = std::make_shared<Impl>(catalog, newestSchemaVersion);
  reading->attach(sqlite3_db_filename(database, "main"), SQLITE_OPEN_READONLY);
  requireInPlace();
  reading->run("BEGIN; SELECT 1 FROM sqlite_schema");
  return reading;
}

}  // namespace velmo::store
