#pragma once

#include "attack/told_books.h"

struct sqlite3;

namespace velmo::attack {

// How the totals that the file keeps differ from the sums of the lines, each line read and added here. Throws
// std::runtime_error when the file cannot be read.
Problems flawsOfKeptTotals(sqlite3* file);

}  // namespace velmo::attack
