#include "masters/import/import_codes.h"

#include <algorithm>

#include "masters/codes/code_series.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {
namespace {

using Codes = std::map<std::string, std::string>;
using Families = std::map<std::string, std::vector<std::string>>;  // planned codes by parent, in their order

store::StoreError refused(const std::string& words) {
  return {store::ErrorKind::Constraint, words};
}

bool isAnyTaken(store::Connection& connection, const frame::CodeSeries& series, const std::string& parent,
                const std::vector<std::string>& planned) {
  std::unordered_set<std::string> inFile;
  store::Recordset rows(connection,
                        "select " + series.column + " from " + series.table + " where " + series.ofParent(parent),
                        store::LockType::ReadOnly);
  for (; !rows.eof(); rows.moveNext()) inFile.insert(foldedName(rows.text(series.column)));
  return std::ranges::any_of(planned, [&](const std::string& code) { return inFile.contains(foldedName(code)); });
}

void move(store::Connection& connection, const frame::CodeSeries& series, const Families& families,
          const std::string& full, Codes& moved) {
  for (const auto& [parent, planned] : families) {
    if (!isAnyTaken(connection, series, parent, planned)) continue;
    std::string last = frame::lastCode(connection, series.column, series.table, series.ofParent(parent));
    for (const std::string& code : planned) {
      last = frame::codeAfter(last, parent, series.digits);
      if (last.empty()) throw refused(full);
      moved[code] = last;
    }
  }
}

Families accountsOf(const ImportPlan& plan) {
  const std::vector<std::string>& columns = writtenColumns(plan.kind);
  const auto subType = static_cast<std::size_t>(std::ranges::find(columns, "Level2ID") - columns.begin());
  Families families;
  for (const PlannedRow& row : plan.rows)
    if (row.problem.empty()) families[store::textOf(row.values[subType])].push_back(row.code);
  return families;
}

Families subCategoriesOf(const ImportPlan& plan) {
  Families families;
  for (const NamedRow& row : plan.newSubCategories) families[row.parent].push_back(row.code);
  return families;
}

void demandFreeItemCodes(store::Connection& connection, const ImportPlan& plan, const std::string& taken) {
  std::unordered_set<std::string> inFile;
  store::Recordset items(connection, "select itemcode from stocklevel3", store::LockType::ReadOnly);
  for (std::int64_t at = 0; at < items.recordCount(); ++at)
    inFile.insert(foldedName(store::textOf(items.valueAt(at, 0))));
  const auto isTaken = [&](const std::string& code) {
    if (inFile.contains(foldedName(code))) return true;
    const auto pattern = wildcardsOf(code);
    return pattern && std::ranges::any_of(inFile, [&](const std::string& other) { return pattern->matches(other); });
  };
  for (const PlannedRow& row : plan.rows)
    if (row.problem.empty() && isTaken(row.code))
      throw refused(taken + " (" + row.code + ", row " + std::to_string(row.line) + " of the file.)");
}

}  // namespace

std::map<std::string, std::string> movedCodes(store::Connection& connection, const ImportPlan& plan) {
  const ImportDescriptor& kind = importDescriptor(plan.kind);
  Codes moved;
  if (plan.kind == ImportKind::Items) {
    demandFreeItemCodes(connection, plan, kind.taken);
    move(connection, subCategoryCodes(), subCategoriesOf(plan), kind.full, moved);
  } else {
    move(connection, accountCodes(), accountsOf(plan), kind.full, moved);
  }
  return moved;
}

}  // namespace velmo::masters
