#pragma once

#include <string>
#include <string_view>

#include "store/values/catalog.h"

struct sqlite3;

// The table, indexes and triggers behind KeptBalances: part of the file and written in plain SQL, as those of
// KeptTotals are.
namespace velmo::store {

// Columns of their table beside those of the groups and the amounts: how many lines a group has, and how many of them
// stand apart.
inline constexpr const char* linesColumn = "Lines";
inline constexpr const char* apartColumn = "Apart";

// A condition for a group under that name: more of it is due than settled. Their table has an index for it.
std::string openTest(const KeptBalances& kept, std::string_view groups);
// A condition for lines under that name that belong to no group, since they lack a column of it. Their table has an
// index for it.
std::string groupless(const KeptBalances& kept, std::string_view lines);
// A condition for documents under that name: not excluded.
std::string countTest(const KeptBalances& kept, std::string_view documents);

// Makes them, in place of any older ones, and sums up the lines that are there; to be called within a transaction.
// Throws StoreError.
void makeKeptBalances(sqlite3* database, const KeptBalances& kept);

// Whether table and triggers are those that makeKeptBalances() makes, and the groups of the latest lines are right.
bool areKept(sqlite3* database, const KeptBalances& kept);
// Whether every group is the sum of its lines.
bool areRight(sqlite3* database, const KeptBalances& kept);

}  // namespace velmo::store
