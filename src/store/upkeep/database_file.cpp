#include "store/upkeep/database_file.h"

#include <fcntl.h>
#include <sqlite3.h>

#include "store/checks/soundness.h"
#include "store/connection/connection_impl.h"
#include "store/file/file_check.h"
#include "store/file/file_mark.h"
#include "store/file/work_file.h"
#include "store/sqlite/kept_balances.h"
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
  for (const KeptBalances& kept : connection.catalog.keptBalances()) makeKeptBalances(connection.database, kept);
}

// Makes what is kept anew where it is not fine; whether that was so.
bool mend(Connection& connection, const std::function<bool(sqlite3*)>& areFine,
          const std::function<void(sqlite3*)>& makeAnew) {
  Connection::Impl& impl = *connection.impl();
  if (areFine(impl.database)) return false;
  Connection::Transaction transaction(connection);
  if (areFine(impl.database)) return false;  // another program wrote while they were compared
  // What a damaged file says is free may hold rows of others.
  if (!structureFaults(connection).empty()) throw damagedFile(impl.fileName);
  makeAnew(impl.database);
  transaction.commit();
  return true;
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
  const Catalog& catalog = connection.catalog();
  bool mended = false;
  for (const KeptTotals& kept : catalog.keptTotals()) {
    const auto areFine = [&](sqlite3* database) {
      return check == TotalsCheck::Latest ? areKept(database, kept, until) : areRight(database, kept);
    };
    mended |= mend(connection, areFine, [&](sqlite3* database) { makeKeptTotals(database, kept); });
  }
  for (const KeptBalances& kept : catalog.keptBalances()) {
    const auto areFine = [&](sqlite3* database) {
      return check == TotalsCheck::Latest ? areKept(database, kept) : areRight(database, kept);
    };
    mended |= mend(connection, areFine, [&](sqlite3* database) { makeKeptBalances(database, kept); });
  }
  return mended;
}

}  // namespace velmo::store
