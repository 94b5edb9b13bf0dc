#pragma once

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "store/values/catalog.h"

namespace velmo::store {

class Connection;

// One step from the version before to `version`: changes of the tables through handle(), of rows as usual. Runs inside
// the upgrade's transaction, so it opens none itself.
struct UpgradeStep {
  int version = 0;
  std::function<void(Connection&)> run;
};

// Brings an older file to the version of the last step that is newer than its own, in its place; nothing happens when
// there is none. The stages:
//   1. the file is written without a log, which proves that nobody else has it open;
//   2. a copy of it is made, checked for soundness and brought to the disk;
//   3. in one transaction that shuts everybody out: the steps, the check of what came out, the new version; before it
//      ends the copy takes the name "<name> before version <n>", where it stays;
//   4. the log comes back.
// A crash at any instant leaves the old file or the new one. Somebody else who has it open is waited for some seconds,
// another program that is bringing it up to date for minutes. `require` throws when what came out is of no use. Throws
// StoreError (Busy when he stays, and whatever Connection::open(), the steps and `require` throw); the file holds what
// it held then.
void upgradeDatabaseFile(
    const std::filesystem::path& file, const Catalog& catalog, std::string_view password,
    const std::vector<UpgradeStep>& steps, const std::function<void(Connection&)>& require = [](Connection&) {});

}  // namespace velmo::store
