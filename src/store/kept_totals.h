#pragma once

#include <string>
#include <string_view>

#include "store/catalog.h"

struct sqlite3;

// The tables, triggers and index behind KeptTotals. The triggers are part of the file and written in plain SQL, so that
// whoever writes a document or a line keeps the totals right, other programs included.
namespace velmo::store {

std::string daysTableOf(const KeptTotals& kept);
std::string monthsTableOf(const KeptTotals& kept);

// An expression for the month of a day, which is less than any day of that month and greater than any before.
std::string monthOf(std::string_view dayExpression);

// Stands for the day of documents without one: later than any date.
inline constexpr const char* noDay = "'~'";

// Makes them, in place of any older ones, and sums up the lines that are there; to be called within a transaction.
// Throws StoreError.
void makeKeptTotals(sqlite3* database, const KeptTotals& kept);

// Whether tables and triggers are those that makeKeptTotals() makes, the totals of the latest days are those of their
// lines and every month is the sum of its days: all that can be told without reading the lines of a year.
bool areKept(sqlite3* database, const KeptTotals& kept);
// Whether every total is the sum of its lines, up to what sums of binary fractions in another order differ by.
bool areRight(sqlite3* database, const KeptTotals& kept);

}  // namespace velmo::store
