#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "store/checks/finding.h"
#include "store/connection/connection.h"

// The checks that every database has, whatever its tables hold. Each reads the whole file and throws StoreError when it
// cannot be read to its end.
namespace velmo::store {

// How the pages of the file hang together, and each row by itself.
std::vector<Finding> pageFaults(Connection& connection);
// The same table by table, and the indexes of each against its rows.
std::vector<Finding> structureFaults(Connection& connection);
// Records that refer to others which are not there.
std::vector<Finding> relationFaults(Connection& connection);
// Kept totals that are not the sums of their lines.
std::vector<Finding> totalFaults(Connection& connection);
// Kept totals whose days, months and years have not one sum, which is sooner seen.
std::vector<Finding> totalSumFaults(Connection& connection);

// pageFaults(), or nothing when it was not through within the time.
std::optional<std::vector<Finding>> quickCheck(Connection& connection, std::chrono::milliseconds within);

// Throws StoreError (Damaged) with a sentence when the file lacks a table of the catalogue, or a column of one.
void requireTables(Connection& connection);

}  // namespace velmo::store
