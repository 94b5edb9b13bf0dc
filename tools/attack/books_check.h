#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "attack/told_books.h"

struct sqlite3;

// What stands in a company's file, read row by row in plain SQL and added up here: none of the program's statements,
// and no sum of the database.
namespace velmo::attack {

// The sale invoices.
Documents documentsInFile(sqlite3* file);

// What the books hold against themselves.
struct Flaw {
  enum class Kind {
    Structure,  // the database finds its own file unsound, or cannot read it
    Relation,   // records refer to others which are not there
    Total,      // a kept total is not the sum of its lines
    Balance,    // the debits of a document are not its credits
    Document    // the parts of a sale invoice do not agree: item lines, ledger lines, open item, number
  };
  Kind kind = Kind::Structure;
  std::string words = {};
  std::int64_t document = 0;  // its key, where one is meant
};

enum class Totals { Looked, Passed };  // a file of the first version keeps none
std::vector<Flaw> flawsOfBooks(sqlite3* file, Totals totals = Totals::Looked);

// All of them in words: what no crash and no full disk may leave.
Problems problemsOfBooks(sqlite3* file);

std::int64_t numberIn(sqlite3* file, const std::string& statement);  // throws std::runtime_error

}  // namespace velmo::attack
