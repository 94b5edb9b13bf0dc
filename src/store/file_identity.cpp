#include "store/file_identity.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>
#include <cerrno>
#include <cstdio>

#include "store/connection_impl.h"
#include "store/kept_totals.h"
#include "store/sqlite_error.h"
#include "store/table_sql.h"
#include "store/work_file.h"

namespace velmo::store {
namespace {

namespace fs = std::filesystem;

constexpr int derivationRounds = 4096;

// PBKDF2 with HMAC-SHA-256, one block.
std::string derived(std::string_view password, std::string_view salt, int rounds) {
  QMessageAuthenticationCode code(QCryptographicHash::Sha256,
                                  QByteArray(password.data(), static_cast<qsizetype>(password.size())));
  code.addData(salt.data(), static_cast<qsizetype>(salt.size()));
  code.addData("\0\0\0\1", 4);
  QByteArray block = code.result();
  QByteArray sum = block;
  for (int round = 1; round < rounds; ++round) {
    code.reset();
    code.addData(block);
    block = code.result();
    for (qsizetype i = 0; i < sum.size(); ++i) sum[i] = static_cast<char>(sum[i] ^ block[i]);
  }
  return sum.toStdString();
}

std::string newSalt() {
  std::string salt(16, '\0');
  for (char& c : salt) c = static_cast<char>(QRandomGenerator::system()->bounded(256));
  return salt;
}

class OwnStatement {
 public:
  OwnStatement(sqlite3* database, const char* sql) {
    const int code = sqlite3_prepare_v2(database, sql, -1, &handle, nullptr);
    if (code != SQLITE_OK) throw sqliteError(database, code, "the company file");
  }
  ~OwnStatement() { sqlite3_finalize(handle); }
  OwnStatement(const OwnStatement&) = delete;
  OwnStatement& operator=(const OwnStatement&) = delete;
  sqlite3_stmt* handle = nullptr;
};

// Whole numbers of one-value pragmas.
std::int64_t pragmaNumber(sqlite3* database, const char* sql) {
  const OwnStatement statement(database, sql);
  return sqlite3_step(statement.handle) == SQLITE_ROW ? sqlite3_column_int64(statement.handle, 0) : 0;
}

void requireSound(sqlite3* database, const fs::path& file) {
  const OwnStatement check(database, "PRAGMA integrity_check(1)");
  const bool row = sqlite3_step(check.handle) == SQLITE_ROW;
  const auto* verdict = row ? reinterpret_cast<const char*>(sqlite3_column_text(check.handle, 0)) : nullptr;
  if (verdict == nullptr || std::string_view(verdict) != "ok") {
    throw StoreError(ErrorKind::Damaged, "The file \"" + file.string() +
                                             "\" is damaged. It was not changed. Restore it from a back-up copy.");
  }
  const OwnStatement relations(database, "PRAGMA foreign_key_check");
  if (sqlite3_step(relations.handle) == SQLITE_ROW) {
    throw StoreError(ErrorKind::Damaged, "The file \"" + file.string() +
                                             "\" holds records that refer to others which are not there. It was not "
                                             "changed. Restore it from a back-up copy.");
  }
}

void stamp(Connection::Impl& connection, int schemaVersion) {
  connection.run(("PRAGMA user_version = " + std::to_string(schemaVersion)).c_str());
  connection.run(("PRAGMA application_id = " + std::to_string(applicationId)).c_str());
}

void makeTables(Connection::Impl& connection) {
  for (const Table& table : connection.catalog.tables()) {
    connection.run(createTableSql(table).c_str());
    for (const std::string& index : createIndexSql(table)) connection.run(index.c_str());
  }
  for (const KeptTotals& kept : connection.catalog.keptTotals()) makeKeptTotals(connection.database, kept);
}

void copyDatabase(const fs::path& from, const fs::path& to) {
  sqlite3* source = nullptr;
  sqlite3* target = nullptr;
  int code = sqlite3_open_v2(from.c_str(), &source, SQLITE_OPEN_READWRITE, nullptr);
  if (code == SQLITE_OK) code = sqlite3_open_v2(to.c_str(), &target, SQLITE_OPEN_READWRITE, nullptr);
  if (code == SQLITE_OK) {
    sqlite3_busy_timeout(source, 2000);
    // What the log still holds belongs into the file, which is kept by its name alone.
    code = sqlite3_wal_checkpoint_v2(source, nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
  }
  if (code == SQLITE_OK) {
    sqlite3_backup* backup = sqlite3_backup_init(target, "main", source, "main");
    if (backup != nullptr) sqlite3_backup_step(backup, -1);
    code = backup != nullptr ? sqlite3_backup_finish(backup) : sqlite3_errcode(target);
  }
  const StoreError failure = sqliteError(nullptr, code, from.string());
  sqlite3_close(source);
  sqlite3_close(target);
  if (code != SQLITE_OK) throw failure;
}

}  // namespace

void writePassword(sqlite3* database, std::string_view password) {
  const int code = sqlite3_exec(database,
                                "CREATE TABLE IF NOT EXISTS StoreIdentity (Salt BLOB NOT NULL, Verifier BLOB NOT "
                                "NULL, Rounds INTEGER NOT NULL); DELETE FROM StoreIdentity;",
                                nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, "the company file");
  const std::string salt = newSalt();
  const std::string verifier = derived(password, salt, derivationRounds);
  const OwnStatement insert(database, "INSERT INTO StoreIdentity (Salt, Verifier, Rounds) VALUES (?1, ?2, ?3)");
  sqlite3_bind_blob64(insert.handle, 1, salt.data(), salt.size(), SQLITE_TRANSIENT);
  sqlite3_bind_blob64(insert.handle, 2, verifier.data(), verifier.size(), SQLITE_TRANSIENT);
  sqlite3_bind_int(insert.handle, 3, derivationRounds);
  const int result = sqlite3_step(insert.handle);
  if (result != SQLITE_DONE) throw sqliteError(database, result, "the company file");
}

bool passwordFits(sqlite3* database, std::string_view password) {
  const OwnStatement read(database, "SELECT Salt, Verifier, Rounds FROM StoreIdentity");
  const int result = sqlite3_step(read.handle);
  if (result != SQLITE_ROW) throw sqliteError(database, result, "the company file");
  auto bytes = [&](int column) {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(read.handle, column));
    return std::string(data == nullptr ? "" : data,
                       static_cast<std::size_t>(sqlite3_column_bytes(read.handle, column)));
  };
  const std::string salt = bytes(0);
  const std::string verifier = bytes(1);
  constexpr int mostRounds = 1'000'000;
  const int rounds = sqlite3_column_int(read.handle, 2);
  return rounds > 0 && rounds <= mostRounds && derived(password, salt, rounds) == verifier;
}

void createDatabaseFile(const fs::path& file, const Catalog& catalog, std::string_view password, int schemaVersion,
                        const std::function<void(Connection&)>& fill) {
  std::error_code failed;
  fs::create_directories(folderOf(file), failed);
  if (failed) throw cannotMake(file, failed.message());
  const WorkFile work(file, ".new");
  {
    Connection connection(catalog);
    Connection::Impl& impl = *connection.impl();
    impl.attach(work.path, SQLITE_OPEN_READWRITE);
    impl.run("PRAGMA synchronous = OFF");  // the whole file is synced below, before it takes its name
    impl.begin();
    makeTables(impl);
    writePassword(impl.database, password);
    stamp(impl, schemaVersion);
    impl.commit();
    if (fill) fill(connection);
  }
  syncToDisk(work.path, O_RDWR);
  // A hard link, unlike a rename, never replaces a file that came into being meanwhile.
  if (::link(work.path.c_str(), file.c_str()) != 0) throw cannotMake(file, errno);
  syncToDisk(folderOf(file), O_RDONLY | O_DIRECTORY);
}

void upgradeDatabaseFile(const fs::path& file, const Catalog& catalog, const std::vector<UpgradeStep>& steps) {
  const int oldVersion = schemaVersionOf(file);
  if (steps.empty() || steps.back().version <= oldVersion) return;
  const int newVersion = steps.back().version;
  const WorkFile work(file, ".upgrade");
  copyDatabase(file, work.path);
  {
    Connection connection(catalog);
    Connection::Impl& impl = *connection.impl();
    impl.attach(work.path, SQLITE_OPEN_READWRITE);
    requireSound(impl.database, file);
    impl.run("PRAGMA foreign_keys = OFF");  // tables may be rebuilt; the check below stands for it
    Connection::Transaction transaction(connection);
    for (const UpgradeStep& step : steps) {
      if (step.version > oldVersion) step.run(connection);
    }
    stamp(impl, newVersion);
    transaction.commit();
    requireSound(impl.database, work.path);
    if (pragmaNumber(impl.database, "PRAGMA user_version") != newVersion) {
      throw cannotMake(file, "the upgrade did not take hold");
    }
  }
  syncToDisk(work.path, O_RDWR);
  const fs::path kept = file.string() + " before version " + std::to_string(newVersion);
  std::error_code absent;
  fs::remove(kept, absent);
  if (::link(file.c_str(), kept.c_str()) != 0) throw cannotMake(kept, errno);
  if (::rename(work.path.c_str(), file.c_str()) != 0) throw cannotMake(file, errno);
  syncToDisk(folderOf(file), O_RDONLY | O_DIRECTORY);
}

void mendKeptTotals(Connection& connection) {
  Connection::Impl& impl = *connection.impl();
  for (const KeptTotals& kept : impl.catalog.keptTotals()) {
    if (areKept(impl.database, kept)) continue;
    Connection::Transaction transaction(connection);
    makeKeptTotals(impl.database, kept);
    transaction.commit();
  }
  impl.addLaterLines();
}

}  // namespace velmo::store
