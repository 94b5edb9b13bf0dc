#include "store/sqlite/kept_objects.h"
#include "store/sqlite/kept_totals.h"
#include "store/sqlite/table_sql.h"

// What kept totals are called, and the conditions for what is in them.
namespace velmo::store {
namespace {

std::string sourceOf(std::string_view table) {
  return table.empty() ? std::string() : std::string(table) + ".";
}

}  // namespace

std::string daysTableOf(const KeptTotals& kept) {
  return kept.name + "Days";
}

std::string monthsTableOf(const KeptTotals& kept) {
  return kept.name + "Months";
}

std::string yearsTableOf(const KeptTotals& kept) {
  return kept.name + "Years";
}

std::string pendingTableOf(const KeptTotals& kept) {
  return kept.name + "Pending";
}

std::string stateTableOf(const KeptTotals& kept) {
  return kept.name + "Added";
}

std::string additionTest(const KeptTotals& kept, std::string_view lines, Added added) {
  // Nearly all lines are added already: what a plus stands before is not looked up by its key.
  const bool already = added == Added::Already;
  return (already ? "+" : "") + std::string(lines) + "." + quotedName(kept.lineKey) + (already ? " <= " : " > ") +
         "(SELECT Line FROM " + quotedName(stateTableOf(kept)) + ")";
}

std::string passedOverTest(const KeptTotals& kept, std::string_view lines) {
  return kept.counted.empty() ? std::string() : sourceOf(lines) + quotedName(kept.counted) + " IS NOT NULL";
}

std::string apartTest(const KeptTotals& kept, std::string_view lines) {
  std::vector<std::string> tests;
  for (const std::string& amount : kept.amounts) {
    const std::string column = sourceOf(lines) + quotedName(amount);
    if (!kept.counted.empty() && amount != kept.counted) tests.push_back(column + " IS NULL");
    tests.push_back(isApart(column));
  }
  const std::string counted = passedOverTest(kept, lines);
  return (counted.empty() ? counted : counted + " AND ") + "(" + listed(tests, " OR ") + ")";
}

std::string countTest(const KeptTotals& kept, std::string_view documents) {
  const std::string row = sourceOf(documents);
  std::string test = row + quotedName(kept.group) + " IS NOT NULL";
  if (!kept.kind.empty()) test += " AND " + row + quotedName(kept.kind) + " IS NOT NULL";
  for (const std::string& excluded : kept.excluded) test += " AND " + row + quotedName(excluded) + " = 0";
  return test;
}

std::string givenColumnOf(std::string_view amount) {
  return std::string(amount) + "Given";
}

std::string monthOf(std::string_view dayExpression) {
  return "substr(" + std::string(dayExpression) + ", 1, 7)";  // "2026-11" of "2026-11-22"
}

}  // namespace velmo::store
