#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/values/catalog.h"

namespace velmo::store {

class Connection;

// Makes a database file with the catalogue's tables and indexes, the password and the version; `fill` writes the first
// rows and may use transactions. The file is made under a name of its own in the same folder (made when missing, for
// its owner alone), readable by its owner alone, and takes its name when it is whole and on the disk: a crash leaves no
// half-made file. False when a file of that name is there, or came into being meanwhile: it stays as it is. Throws
// StoreError when the file cannot be made.
bool createDatabaseFile(const std::filesystem::path& file, const Catalog& catalog, std::string_view password,
                        int schemaVersion, const std::function<void(Connection&)>& fill);

// Which kept totals are looked at: what areKept() can tell without a wait, or all of them (areRight()).
enum class TotalsCheck { Latest, All };
// Makes the kept totals of the catalogue again where they are found off, each kind in one transaction. Whether any
// were. Whole sums of `Latest` that are not compared by then are taken for equal. Throws StoreError, of kind Damaged
// where the structure of the file is not sound: nothing is written then.
bool mendKeptTotals(Connection& connection, TotalsCheck check = TotalsCheck::Latest,
                    std::chrono::steady_clock::time_point until = std::chrono::steady_clock::time_point::max());

}  // namespace velmo::store
