#pragma once

#include "attack/told_books.h"

struct sqlite3;

// What stands in a company's file, by statements that are none of the program's.
namespace velmo::attack {

// The sale invoices.
Documents documentsInFile(sqlite3* file);

// What no crash and no full disk may leave: an unsound file, torn documents, kept totals that are not those of their
// lines.
Problems problemsOfBooks(sqlite3* file);

std::int64_t numberIn(sqlite3* file, const std::string& statement);  // throws std::runtime_error

}  // namespace velmo::attack
