#include "store/upkeep/database_file.h"

#include <fcntl.h>
#include <sqlite3.h>

#include "store/checks/soundness.h"
#include "store/connection/connection_impl.h"
#include "store/file/file_check.h"
#include "store/file/file_mark.h"
#include "store/file/work_file.h"
#include "store/sqlite/kept_totals.h"
#include "store/sqlite/sqlite_error.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

namespace fs = std::filesystem;

// What the user keeps there is nobody else's business; a folder that is there already stays as its owner made it.
void makeFolder(const fs::path& folder) {
  std::error_code failed;
  const bool made = fs::create_directories(folder, failed);
  if (!failed && made) fs::permissions(folder, fs::perms::owner_all, failed);
  if (failed) throw cannotMake(folder, failed.message());
}

void makeTables(Connection::Impl& connection) {
  for (const Table& table : connection.catalog.tables()) {
    connection.run(createTableSql(table).c_str());
    for (const std::string& index : createIndexSql(table)) connection.run(index.c_str());
  }
  for (const KeptTotals& kept : connection.catalog.keptTotals()) makeKeptTotals(connection.database, kept);
}

}  // namespace

bool createDatabaseFile(const fs::path& file, const Catalog& catalog, std::string_view password, int schemaVersion,
                        const std::function<void(Connection&)>& fill) {
  makeFolder(folderOf(file));
  const WorkFile work(file, "new");
  {
    Connection connection(catalog);
    Connection::Impl& impl = *connection.impl();
    impl.attach(work.path, SQLITE_OPEN_READWRITE);
    impl.run("PRAGMA synchronous = OFF");  // the whole file is synced below, before it takes its name
    impl.begin();
    makeTables(impl);
    writePassword(impl.database, password);
    impl.stamp(schemaVersion);
    impl.commit();
    if (fill) fill(connection);
  }
  syncToDisk(work.path, O_RDWR);
  if (!takeNewName(work.path, file)) return false;
  syncToDisk(folderOf(file), O_RDONLY | O_DIRECTORY);
  return true;
}

bool mendKeptTotals(Connection& connection, TotalsCheck check, std::chrono::steady_clock::time_point until) {
  Connection::Impl& impl = *connection.impl();
  const auto areFine = [&](sqlite3* database, const KeptTotals& kept) {
    return check == TotalsCheck::Latest ? areKept(database, kept, until) : areRight(database, kept);
  };
  bool mended = false;
  for (const KeptTotals& kept : impl.catalog.keptTotals()) {
    if (areFine(impl.database, kept)) continue;
    Connection::Transaction transaction(connection);
    if (areFine(impl.database, kept)) continue;  // another program wrote while they were compared
    // What a damaged file says is free may hold rows of others.
    if (!structureFaults(connection).empty()) throw damagedFile(impl.fileName);
    makeKeptTotals(impl.database, kept);
    transaction.commit();
    mended = true;
  }
  impl.addLaterLines();
  return mended;
}

}  // namespace velmo::store
