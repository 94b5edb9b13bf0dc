#include "store/upkeep/back_up.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <future>
#include <map>
#include <memory>

#include "store/checks/soundness.h"
#include "store/connection/connection_impl.h"
#include "store/connection/connection_string.h"
#include "store/file/open_database.h"
#include "store/file/work_file.h"
#include "store/recordset/recordset.h"
#include "store/sqlite/sqlite_error.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

namespace fs = std::filesystem;

constexpr int pagesAtOnce = 256;                 // 1 MB between two looks at the screen
constexpr int stepsBetweenRepaints = 2'000'000;  // of the database's machine, some hundredths of a second
constexpr const char* formerNames =
    "KORD Back-Up (";           // of back-ups whose work files may lie there from earlier versions
constexpr int patience = 2000;  // milliseconds that a lock of another program is waited for

// What the copy is held against.
struct Evidence {
  std::map<std::string, std::int64_t> rowCounts;  // by table
  std::vector<std::vector<Value>> proofs;         // all fields of all rows, one after the other
};

void requireOtherFile(const fs::path& source, const fs::path& destination) {
  std::error_code absent;
  if (fs::is_directory(destination, absent))
    throw StoreError(ErrorKind::Misuse, "\"" + destination.string() + "\" is a folder. Choose a name for the file.");
  if (isOpenDatabase(destination))
    throw StoreError(ErrorKind::Misuse, "\"" + destination.string() +
                                            "\" is the company's own file. Choose another name for the back-up.");
  for (const char* part : {"", "-wal", "-shm", "-journal"}) {
    const fs::path own = source.string() + part;
    if (fs::equivalent(own, destination, absent) ||
        fs::weakly_canonical(own, absent) == fs::weakly_canonical(destination, absent))
      throw StoreError(ErrorKind::Misuse, "\"" + destination.string() +
                                              "\" is the company's own file. Choose another name for the back-up.");
  }
}

std::vector<std::string> tablesOf(Connection& connection) {
  std::vector<std::string> names;
  PreparedStatement read = connection.impl()->prepare(
      "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
  while (read.step()) names.push_back(textOf(columnValue(read.handle(), 0)));
  return names;
}

Evidence evidenceOf(Connection& connection, const std::vector<std::string>& proofs) {
  Evidence evidence;
  for (const std::string& table : tablesOf(connection)) {
    PreparedStatement count = connection.impl()->prepare("SELECT count(*) FROM " + quotedName(table));
    count.step();
    evidence.rowCounts[table] = integerOf(columnValue(count.handle(), 0));
  }
  for (const std::string& statement : proofs) {
    std::vector<Value>& fields = evidence.proofs.emplace_back();
    for (Recordset rows(connection, statement, LockType::ReadOnly); !rows.eof(); rows.moveNext())
      for (const FieldInfo& field : rows.fields()) fields.push_back(rows.value(field.name));
  }
  return evidence;
}

StoreError unlike(const fs::path& file, const std::string& what) {
  return {ErrorKind::Damaged, "The back-up \"" + file.string() + "\" was not saved: " + what +
                                  " of the copy are not those of the company's file. Try again, on another disk."};
}

void compare(const Evidence& original, const Evidence& copy, const fs::path& file) {
  if (original.rowCounts != copy.rowCounts) throw unlike(file, "the numbers of records");
  if (original.proofs != copy.proofs) throw unlike(file, "the totals");
}

// Keeps the screen alive while the database works on its own.
class Repaints {
 public:
  Repaints(sqlite3* database, const std::function<void(BackUpStage)>& progress, BackUpStage stage)
      : database_(database), progress_(progress), stage_(stage) {
    call(this);
    sqlite3_progress_handler(database_, stepsBetweenRepaints, call, this);
  }
  ~Repaints() { sqlite3_progress_handler(database_, 0, nullptr, nullptr); }
  Repaints(const Repaints&) = delete;
  Repaints& operator=(const Repaints&) = delete;

 private:
  static int call(void* self) {
    const auto& repaints = *static_cast<Repaints*>(self);
    if (repaints.progress_) repaints.progress_(repaints.stage_);
    return 0;
  }

  sqlite3* database_;
  const std::function<void(BackUpStage)>& progress_;
  BackUpStage stage_;
};

// Does what the database or the system does in one piece, however long that takes, beside the screen. Work that shows
// progress by itself would do so on the wrong thread.
void besideScreen(const BackUpRequest& request, BackUpStage stage, const std::function<void()>& work) {
  constexpr std::chrono::milliseconds betweenRepaints(40);
  std::future<void> running = std::async(std::launch::async, work);
  while (running.wait_for(betweenRepaints) == std::future_status::timeout)
    if (request.progress) request.progress(stage);
  running.get();
}

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

// A file of the back-up's own, without the checks and settings of a company's file. Failures name `shownAs`.
Database openPlain(const fs::path& file, const fs::path& shownAs) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  Database database(opened, sqlite3_close);
  if (code != SQLITE_OK) throw sqliteError(database.get(), code, shownAs.string());
  sqlite3_extended_result_codes(database.get(), 1);
  return database;
}

void run(sqlite3* database, const std::string& sql, const fs::path& shownAs) {
  const int code = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, shownAs.string());
}

void copyPages(Connection& source, sqlite3* target, const BackUpRequest& request, const fs::path& shownAs) {
  sqlite3_backup* copying = sqlite3_backup_init(target, "main", source.handle(), "main");
  if (copying == nullptr) throw sqliteError(target, sqlite3_extended_errcode(target), shownAs.string());
  const std::unique_ptr<sqlite3_backup, decltype(&sqlite3_backup_finish)> finish(copying, sqlite3_backup_finish);
  int waited = 0;
  int code = SQLITE_OK;
  while (code != SQLITE_DONE) {
    code = sqlite3_backup_step(copying, pagesAtOnce);
    if (request.progress) request.progress(BackUpStage::Copying);
    if ((code == SQLITE_BUSY || code == SQLITE_LOCKED) && waited < patience)
      waited += sqlite3_sleep(50);
    else if (code != SQLITE_OK && code != SQLITE_DONE)
      throw sqliteError(nullptr, code, shownAs.string());
  }
}

Evidence copySource(const Catalog& catalog, const BackUpRequest& request, const fs::path& copy,
                    const fs::path& shownAs) {
  Connection source(catalog, request.newestSchemaVersion);
  source.open(request.source);
  const Repaints repaints(source.handle(), request.progress, BackUpStage::Copying);
  source.impl()->run("BEGIN");  // ends with the connection; counts, proofs and pages are of one moment
  Evidence evidence = evidenceOf(source, request.proofs);
  const Database target = openPlain(copy, shownAs);
  run(target.get(), "PRAGMA synchronous = OFF", shownAs);
  copyPages(source, target.get(), request, shownAs);
  return evidence;
}

void compact(const BackUpRequest& request, const fs::path& copy, const fs::path& compacted, const fs::path& shownAs) {
  const Database database = openPlain(copy, shownAs);
  const Repaints repaints(database.get(), request.progress, BackUpStage::Compacting);
  run(database.get(), "PRAGMA journal_mode = DELETE", shownAs);
  run(database.get(), "VACUUM INTO " + store::quoted(compacted.string()), shownAs);
}

// What is read after this comes from the disk itself.
void forgetCached(const fs::path& file) {
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) throw cannotMake(file, errno);
  ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
  ::close(descriptor);
}

void requireSound(Connection& connection, const fs::path& shownAs) {
  PreparedStatement check = connection.impl()->prepare("PRAGMA integrity_check(1)");
  const std::string verdict = check.step() ? textOf(columnValue(check.handle(), 0)) : std::string();
  const auto unsound = [&](const std::string& fault) {
    return StoreError(ErrorKind::Damaged, "The back-up \"" + shownAs.string() +
                                              "\" was not saved: the copy is not sound (" + fault +
                                              "). The company's file or the disk may be damaged.");
  };
  if (verdict != "ok") throw unsound(verdict);
  if (const std::vector<Finding> lost = relationFaults(connection); !lost.empty()) throw unsound(lost.front().words);
}

void verify(const Catalog& catalog, const BackUpRequest& request, const Evidence& evidence, const fs::path& copy,
            const std::string& password, const fs::path& shownAs) {
  forgetCached(copy);
  Connection connection(catalog, request.newestSchemaVersion);
  connection.impl()->open(copy, password);
  besideScreen(request, BackUpStage::Verifying, [&] { requireSound(connection, shownAs); });
  const Repaints repaints(connection.handle(), request.progress, BackUpStage::Verifying);
  compare(evidence, evidenceOf(connection, request.proofs), shownAs);
  connection.impl()->run("PRAGMA journal_mode = DELETE");  // one file that can be read where nothing can be written
}

BackUpResult makeCopy(const Catalog& catalog, const BackUpRequest& request, const ConnectionString& destination) {
  const fs::path& file = destination.dataSource;
  clearAbandonedWork(folderOf(file), formerNames);
  const WorkFile compacted(file, "part");
  Evidence evidence;
  {
    const WorkFile copy(file, "copy");
    evidence = copySource(catalog, request, copy.path, file);
    compact(request, copy.path, compacted.path, file);
  }
  const auto sync = [&] { syncToDisk(compacted.path, O_RDWR); };
  besideScreen(request, BackUpStage::Compacting, sync);
  verify(catalog, request, evidence, compacted.path, destination.password, file);
  besideScreen(request, BackUpStage::Verifying, sync);
  BackUpResult result{.file = file, .bytes = fs::file_size(compacted.path), .records = [&] {
                        std::int64_t sum = 0;
                        for (const auto& [table, rows] : evidence.rowCounts)
                          if (catalog.find(table) != nullptr) sum += rows;
                        return sum;
                      }()};
  if (::rename(compacted.path.c_str(), file.c_str()) != 0) throw cannotMake(file, errno);
  syncToDisk(folderOf(file), O_RDONLY | O_DIRECTORY);
  return result;
}

}  // namespace

BackUpResult backUp(const Catalog& catalog, const BackUpRequest& request) {
  const ConnectionString destination = parseConnectionString(request.destination);
  requireOtherFile(parseConnectionString(request.source).dataSource, destination.dataSource);
  const fs::path folder = folderOf(destination.dataSource);
  const auto folderGone = [&] {
    std::error_code absent;
    return !fs::is_directory(folder, absent);
  };
  const auto gone = [&] {
    return StoreError(ErrorKind::Missing, "The folder \"" + folder.string() +
                                              "\" is not there. Nothing was saved; if it is on a stick or another "
                                              "computer, connect it and try again.");
  };
  if (folderGone()) throw gone();
  try {
    return makeCopy(catalog, request, destination);
  } catch (const std::exception&) {
    if (folderGone()) throw gone();
    throw;
  }
}

}  // namespace velmo::store
