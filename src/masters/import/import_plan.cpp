#include "masters/import/import_plan.h"

#include <algorithm>

#include "masters/import/import_planner.h"

namespace velmo::masters {

std::string shownPlace(const NamedRow& row) {
  return row.code + "  " + row.name;
}

void TakenNames::check(const std::string& folded, ImportRow& row) const {
  if (folded.empty()) return;
  if (books_.taken.contains(folded)) row.note(kind_.taken);
  if (const auto before = lines_.find(folded); before != lines_.end())
    row.note(kind_.taken + " (Row " + std::to_string(before->second) + " of the file.)");
}

void TakenNames::checkCode(const std::string& code, ImportRow& row) const {
  const std::string folded = foldedName(code);
  check(folded, row);
  const auto pattern = wildcardsOf(folded);
  if (!pattern || books_.taken.contains(folded) || lines_.contains(folded)) return;
  const auto isLike = [&](const std::string& taken) { return pattern->matches(taken); };
  const auto before = std::ranges::find_if(lines_, isLike, &std::pair<const std::string, std::size_t>::first);
  if (std::ranges::any_of(books_.taken, isLike))
    row.note(kind_.taken);
  else if (before != lines_.end())
    row.note(kind_.taken + " (Row " + std::to_string(before->second) + " of the file.)");
}

const std::vector<std::string>& writtenColumns(ImportKind kind) {
  static const std::vector<std::string> accounts = {
      "AccCode",     "AccName",     "Level1ID", "Level2ID", "Contact", "Address",  "Branch",         "AccountTitle",
      "AccountNo",   "Phone",       "Mobile",   "Fax",      "EMail",   "Website",  "SalesTaxRegnNo", "NTN",
      "CreditLimit", "CreditTerms", "Remarks",  "Default",  "EmpID",   "SectorID", "Region1ID",      "Region2ID"};
  static const std::vector<std::string> items = {
      "ItemCode",       "ItemName",       "Description",   "BrandID", "Rack",  "PurchasePrice",
      "SellingPrice",   "SellingPrice2",  "SellingPrice3", "PackPcs", "Unit",  "ReorderLevel",
      "ValuationCost1", "ValuationCost2", "ValuationType", "Status",  "CatID", "SubCatID"};
  static const std::vector<std::string> counts = {"ItemCode", "Counted"};
  if (kind == ImportKind::Counts) return counts;
  return kind == ImportKind::Items ? items : accounts;
}

std::optional<ImportPlan> planImport(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet,
                                     const ImportMapping& mapping, const ImportOptions& options,
                                     const ImportBooks& books, const ImportProgress& progress) {
  constexpr std::size_t rowsBetweenReports = 256;
  ImportPlan plan{.kind = kind.kind};
  const auto planner = kind.kind == ImportKind::Items    ? makeItemPlanner(kind, options, books, plan)
                       : kind.kind == ImportKind::Counts ? makeCountPlanner(kind, books)
                                                         : makeAccountPlanner(kind, options, books);
  ImportRow row(kind, sheet, mapping);
  for (std::size_t at = mapping.firstRow(); at < sheet.rows.size(); ++at) {
    if (progress && at % rowsBetweenReports == 0 && !progress(static_cast<std::int64_t>(at))) return std::nullopt;
    row.goTo(at);
    if (row.isBlank()) continue;
    PlannedRow planned{.line = at + 1};
    planner->plan(row, planned);
    planned.problem = row.problem();
    if (!planned.problem.empty()) {
      ++plan.problems;
      planned.values.clear();
    }
    plan.rows.push_back(std::move(planned));
  }
  return plan;
}

}  // namespace velmo::masters
