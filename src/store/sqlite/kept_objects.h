#pragma once

#include <functional>
#include <string>
#include <vector>

struct sqlite3;

// What the SQL behind all kept sums is made of.
namespace velmo::store {

// A table, index or trigger as it is to be made.
struct KeptObject {
  std::string type;
  std::string name;
  std::string sql;
};

inline constexpr const char* partsOfUnit = "10000";

// "a, b, c", and a form of each of them.
std::string listed(const std::vector<std::string>& items, const char* separator = ", ");
std::vector<std::string> formed(const std::vector<std::string>& items,
                                const std::function<std::string(const std::string&)>& form);

// An amount in whole ten-thousandths, nothing when it is null.
std::string inParts(const std::string& amount);
// The sum of whole numbers, and a double where it outgrows them: sum() alone would fail then.
std::string wholeSum(const std::string& number);
// Whether an amount has no such whole number; null for null.
std::string isApart(const std::string& amount);
// Of the row of a trigger.
std::string anyDiffers(const std::vector<std::string>& columns);
// Selects a row when one side has a row of `keys` and the other has not, or with other sums: by one pass over both. The
// table comes first, since its columns say how texts are compared.
std::string differences(const std::string& table, const std::string& lines, const std::vector<std::string>& keys,
                        const std::vector<std::string>& sums);

// Makes all of them in their order, in place of any older ones, and runs what fills them. Throws StoreError.
void makeAnew(sqlite3* database, const std::vector<KeptObject>& objects, const std::vector<std::string>& fill);
bool areDeclared(sqlite3* database, const std::vector<KeptObject>& objects);

void run(sqlite3* database, const std::string& sql);
// The first column of the only row, "" without one.
std::string lookUp(sqlite3* database, const std::string& sql, const std::vector<std::string>& values = {});
// Whether none of them selects a row.
bool areNone(sqlite3* database, const std::vector<std::string>& all);

}  // namespace velmo::store
