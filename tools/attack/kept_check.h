#pragma once

#include <set>
#include <string>

#include "attack/told_books.h"

struct sqlite3;

namespace velmo::attack {

// How the totals that the file keeps differ from the sums of the lines, each line read and added here. Throws
// std::runtime_error when the file cannot be read.
Problems flawsOfKeptTotals(sqlite3* file);
// The names of all tables that have to do with them.
std::set<std::string> tablesOfKeptTotals();

}  // namespace velmo::attack
