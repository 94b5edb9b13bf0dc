#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "store/values/catalog.h"

struct sqlite3;

// The tables, triggers and index behind KeptTotals. The triggers are part of the file and written in plain SQL, so that
// whoever writes a document or a line keeps the totals right, other programs included.
namespace velmo::store {

std::string daysTableOf(const KeptTotals& kept);
std::string monthsTableOf(const KeptTotals& kept);
std::string yearsTableOf(const KeptTotals& kept);    // of whole groups, where lines are added later
std::string pendingTableOf(const KeptTotals& kept);  // what is to be added to the others, and with a minus taken off
std::string stateTableOf(const KeptTotals& kept);    // up to which line they are added later

// A condition, for lines under the name `lines`, that holds for those that are in the totals already, or for those that
// are not; of totals to which lines are added later.
enum class Added { Already, NotYet };
std::string additionTest(const KeptTotals& kept, std::string_view lines, Added added);
// A condition for lines that count though they are in no totals, whether added or not: KeptTotals says which. Their
// tables have an index for it. `lines` may be empty, where they are the only table.
std::string apartTest(const KeptTotals& kept, std::string_view lines);
// A condition for lines that are not passed over; "" when none is.
std::string passedOverTest(const KeptTotals& kept, std::string_view lines);
// A condition for documents under that name: not excluded, of a group and of a kind.
std::string countTest(const KeptTotals& kept, std::string_view documents);

// The column that says how many lines have an amount, where nulls are told.
std::string givenColumnOf(std::string_view amount);

// An expression for the month of a day, which is less than any day of that month and greater than any before.
std::string monthOf(std::string_view dayExpression);

// Stands for the day of documents without one: later than any date.
inline constexpr const char* noDay = "'~'";

// Makes them, in place of any older ones, and sums up the lines that are there; to be called within a transaction.
// Throws StoreError.
void makeKeptTotals(sqlite3* database, const KeptTotals& kept);

// Adds to the totals what is not in them yet: of pending amounts and of later lines the oldest first and no more than
// so many; to be called within a transaction. How many of them there are, lines that are gone meanwhile included.
void addLaterLines(sqlite3* database, const KeptTotals& kept, std::int64_t atMost);
std::int64_t laterLines(sqlite3* database, const KeptTotals& kept);

// Whether tables and triggers are those that makeKeptTotals() makes, the totals of the latest days are those of their
// lines, and days, months and years have one sum. Sums that are not compared by then are taken for equal.
bool areKept(sqlite3* database, const KeptTotals& kept,
             std::chrono::steady_clock::time_point until = std::chrono::steady_clock::time_point::max());
// Whether days, months and years have one sum.
bool haveOneSum(sqlite3* database, const KeptTotals& kept);
// Whether every total is the sum of its lines.
bool areRight(sqlite3* database, const KeptTotals& kept);

}  // namespace velmo::store
