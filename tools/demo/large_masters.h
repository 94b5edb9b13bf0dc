#pragma once

#include <sqlite3.h>

#include <string>

#include "demo_company/dice.h"

namespace velmo::demo {

// Accounts in sub types of 900, of which each takes 999 numbers.
struct AccountRange {
  int firstSubType = 0;
  std::string name;   // of the sub types
  std::string terms;  // of each account
  int count = 0;
};

int accountCode(const AccountRange& range, int index);

// Masters with made up names by prepared statements, for companies too large to be written row by row. Throw
// std::runtime_error when SQLite refuses.
void writeAccounts(sqlite3* database, Dice& dice, const AccountRange& range);

// Goods of one category, 10,000 to a sub category.
void writeItems(sqlite3* database, Dice& dice, int count);
std::string itemCode(int index);

}  // namespace velmo::demo
