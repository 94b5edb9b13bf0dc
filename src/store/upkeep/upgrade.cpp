#include "store/upkeep/upgrade.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <random>

#include "store/checks/soundness.h"
#include "store/connection/connection_impl.h"
#include "store/file/file_check.h"
#include "store/file/work_file.h"
#include "store/sqlite/sqlite_error.h"
#include "store/upkeep/copy_pages.h"
#include "store/upkeep/database_file.h"

namespace velmo::store {
namespace {

namespace fs = std::filesystem;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

constexpr std::chrono::seconds patience(6);       // with somebody who has the file open and may be about to close it
constexpr std::chrono::minutes othersUpgrade(5);  // which takes as long as the file is large

StoreError inUse(const fs::path& file) {
  return {ErrorKind::Busy, "The file \"" + file.string() +
                               "\" has to be brought up to date for this version of the program, and another program "
                               "has it open. Nothing was changed. Close that program and start this one again."};
}

// Of programs that start together one after the other brings the file up to date, or finds that it is; by chance alone
// three of them stood in each other's way for longer than their patience. The lock is on the folder, goes with a
// program that dies, and where there are no such locks everybody has his turn.
class Turn {
 public:
  explicit Turn(const fs::path& file) : folder_(::open(folderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
  ~Turn() {
    if (folder_ >= 0) ::close(folder_);
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  bool hasCome() const { return folder_ < 0 || ::flock(folder_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK; }

 private:
  int folder_;
};

// The first value of the first row; `database` may be in the midst of a transaction.
std::string answerOf(sqlite3* database, const char* sql, const fs::path& file) {
  sqlite3_stmt* prepared = nullptr;
  int code = sqlite3_prepare_v2(database, sql, -1, &prepared, nullptr);
  const Statement statement(prepared, sqlite3_finalize);
  if (code == SQLITE_OK) code = sqlite3_step(prepared);
  if (code == SQLITE_DONE) return {};
  if (code != SQLITE_ROW) throw sqliteError(database, code, file.string());
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared, 0));
  return text == nullptr ? "" : text;
}

void requireSound(sqlite3* database, const fs::path& file) {
  if (answerOf(database, "PRAGMA integrity_check(1)", file) != "ok") throw damagedFile(file);
  if (!answerOf(database, "PRAGMA foreign_key_check", file).empty()) {
    throw StoreError(ErrorKind::Damaged, "The file \"" + file.string() +
                                             "\" holds records that refer to others which are not there. It was not "
                                             "changed. Restore it from a back-up copy.");
  }
}

// The steps are sound, so it is the file in which one cannot be carried out.
StoreError lacksWhatStepsNeed(const fs::path& file, const std::string& reason) {
  return {ErrorKind::Damaged, "The file \"" + file.string() +
                                  "\" is damaged: it cannot be brought up to date for this version of the program. It "
                                  "was not changed. Restore it from a back-up copy. (" +
                                  reason + ")"};
}

void keepCopy(const fs::path& copy, const fs::path& kept) {
  if (::rename(copy.c_str(), kept.c_str()) != 0) throw cannotMake(kept, errno);
  syncToDisk(folderOf(kept), O_RDONLY | O_DIRECTORY);
}

// Nobody wrote since the copy was made, and nobody has brought the log back.
bool isAsCopied(Connection::Impl& impl, const std::string& dataVersion) {
  return answerOf(impl.database, "PRAGMA data_version", impl.fileName) == dataVersion &&
         answerOf(impl.database, "PRAGMA journal_mode", impl.fileName) == "delete";
}

using Require = std::function<void(Connection&)>;

void takeSteps(Connection& connection, const std::vector<UpgradeStep>& steps, const Require& require) {
  Connection::Impl& impl = *connection.impl();
  const int before = impl.schemaVersion;
  try {
    for (const UpgradeStep& step : steps)
      if (step.version > before) step.run(connection);
  } catch (const StoreError& failure) {
    if (failure.kind() != ErrorKind::Statement) throw;
    throw lacksWhatStepsNeed(impl.fileName, failure.what());
  }
  impl.stamp(steps.back().version);
  requireSound(impl.database, impl.fileName);
  requireTables(connection);  // a file that is refused in the end stays what it was
  require(connection);
}

// False when somebody else has the file open. The connection is at work without a log.
bool upgradeAlone(Connection& connection, const fs::path& file, const std::vector<UpgradeStep>& steps,
                  const Require& require) {
  Connection::Impl& impl = *connection.impl();
  const WorkFile copy(file, "copy");
  const std::string dataVersion = answerOf(impl.database, "PRAGMA data_version", file);
  copyPages(impl, copy.path, [&](sqlite3* copied) { requireSound(copied, file); });
  impl.run("PRAGMA foreign_keys = OFF");  // tables may be rebuilt; the check at the end stands for it
  impl.begin(Connection::Impl::Lock::Sole);
  try {
    const bool alone = isAsCopied(impl, dataVersion);
    if (alone) {
      takeSteps(connection, steps, require);
      keepCopy(copy.path, file.string() + " before version " + std::to_string(steps.back().version));
      impl.commit();
    } else {
      impl.rollback();
    }
    return alone;
  } catch (...) {
    impl.rollback();
    throw;
  }
}

// False when somebody else has the file open, or brought it up to date at the same moment.
bool upgradeOnce(const fs::path& file, const Catalog& catalog, std::string_view password,
                 const std::vector<UpgradeStep>& steps, const Require& require) {
  Connection connection(catalog);
  try {
    connection.impl()->open(file, password);
    if (connection.impl()->schemaVersion >= steps.back().version) return true;
    if (!connection.impl()->leaveLog()) return false;
    const bool done = upgradeAlone(connection, file, steps, require);
    connection.impl()->run("PRAGMA journal_mode = WAL");
    return done;
  } catch (const StoreError& failure) {
    if (failure.kind() != ErrorKind::Busy && failure.kind() != ErrorKind::Newer) throw;
    return false;
  }
}

}  // namespace

void upgradeDatabaseFile(const fs::path& file, const Catalog& catalog, std::string_view password,
                         const std::vector<UpgradeStep>& steps, const Require& require) {
  if (steps.empty()) return;
  const Turn turn(file);
  // Two that wait for each other in step would never find the file free.
  std::minstd_rand random(static_cast<unsigned>(::getpid()));
  const auto waitUntil = [&](auto longest, const auto& isSo) {
    const auto end = std::chrono::steady_clock::now() + longest;
    while (!isSo()) {
      if (std::chrono::steady_clock::now() > end) throw inUse(file);
      sqlite3_sleep(std::uniform_int_distribution(20, 200)(random));
    }
  };
  waitUntil(othersUpgrade, [&turn] { return turn.hasCome(); });
  waitUntil(patience, [&] { return upgradeOnce(file, catalog, password, steps, require); });
}

}  // namespace velmo::store
