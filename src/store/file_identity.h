#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/catalog.h"

struct sqlite3;

namespace velmo::store {

class Connection;

// Stands in the header of every file of this program.
inline constexpr int applicationId = 0x56454c4d;

// Makes a database file with the catalogue's tables and indexes, the password and the version; `fill` writes the first
// rows and may use transactions. The file is made under another name in the same folder (made when missing), readable
// by its owner alone, and takes its name when it is whole and on the disk: a crash leaves no half-made file. Throws
// StoreError when the file exists already or cannot be made.
void createDatabaseFile(const std::filesystem::path& file, const Catalog& catalog, std::string_view password,
                        int schemaVersion, const std::function<void(Connection&)>& fill);

// One step from the version before to `version`: changes of the tables through handle(), of rows as usual. Runs inside
// the upgrade's transaction, so it opens none itself.
struct UpgradeStep {
  int version = 0;
  std::function<void(Connection&)> run;
};

// Brings an older file to the version of the last step that is newer than its own; nothing happens when there is none.
// The steps run in one transaction on a copy beside the file. Copy and result are checked for soundness; the old file
// is kept as "<name> before version <n>" and the result takes its place at once. Throws StoreError, the file untouched.
void upgradeDatabaseFile(const std::filesystem::path& file, const Catalog& catalog,
                         const std::vector<UpgradeStep>& steps);

// Makes the kept totals of the catalogue again where areKept() finds them off, in one transaction.
// Throws StoreError.
void mendKeptTotals(Connection& connection);

// Keeps a salted derivation of the password in the file, in place of any earlier one.
void writePassword(sqlite3* database, std::string_view password);
bool passwordFits(sqlite3* database, std::string_view password);

}  // namespace velmo::store
