#include "masters/codes/code_series.h"
#include "masters/import/import_planner.h"

namespace velmo::masters {
namespace {

constexpr const char* firstOfAll = "1";  // region, sub region, sector and account manager of who is given none

class AccountPlanner : public ImportPlanner {
 public:
  AccountPlanner(const ImportDescriptor& kind, const ImportOptions& options, const ImportBooks& books)
      : kind_(kind), options_(options), books_(books), taken_(kind, books), lastCodes_(books.lastCodes) {}

  void plan(ImportRow& row, PlannedRow& planned) override {
    planned.name = row.given("AccName");
    const std::optional<std::size_t> subType = subTypeOf(row);
    level2_ = subType ? books_.subTypes[*subType].code : std::string();
    level1_ = subType ? books_.subTypes[*subType].parent : std::string();
    if (subType) planned.place = shownPlace(books_.subTypes[*subType]);
    planned.values.reserve(writtenColumns(kind_.kind).size());
    for (const std::string& column : writtenColumns(kind_.kind)) planned.values.push_back(valueOf(column, row));
    if (!row.problem().empty()) return;
    planned.code = frame::codeAfter(lastCodes_[level2_], level2_, accountCodes().digits);
    if (planned.code.empty()) return row.note(kind_.full);
    lastCodes_[level2_] = planned.code;
    planned.values.front() = planned.code;
    taken_.take(takenName(kind_, level2_, planned.name), planned.line);
  }

 private:
  // What has no field counts as nobody's account manager and the first of the rest, as in the dialogs.
  struct Classification {
    std::string employee = "0";
    std::string sector = firstOfAll;
    std::string region = firstOfAll;
    std::string subRegion = firstOfAll;
  };

  std::optional<std::size_t> subTypeOf(ImportRow& row) const {
    if (!kind_.field("Type")) return row.named("SubType", books_.subTypes);
    const bool typeGiven = !row.given("Type").empty();
    const std::optional<std::size_t> type = row.named("Type", books_.types);
    if (typeGiven && !type) return std::nullopt;
    return row.named("SubType", books_.subTypes, type ? &books_.types[*type].code : nullptr);
  }

  Classification classification(ImportRow& row) const {
    Classification ids;
    const auto region = row.named("Region1ID", books_.regions);
    const bool subRegionGiven = !row.given("Region2ID").empty();
    if (region) ids.region = books_.regions[*region].code;
    const std::string* within = region ? &ids.region : nullptr;
    if (const auto subRegion = row.named("Region2ID", books_.subRegions, within)) {
      ids.subRegion = books_.subRegions[*subRegion].code;
      ids.region = books_.subRegions[*subRegion].parent;
    } else if (!subRegionGiven && ids.region != firstOfAll) {
      ids.subRegion = onlyOneOf(ids.region);
      if (ids.subRegion.empty()) row.refuse("Region2ID");
    }
    if (const auto sector = row.named("SectorID", books_.sectors)) ids.sector = books_.sectors[*sector].code;
    const auto manager = row.named("EmpID", books_.employees);
    ids.employee = manager ? books_.employees[*manager].code : firstOfAll;
    return ids;
  }

  std::string onlyOneOf(const std::string& region) const {
    std::string only;
    for (const NamedRow& subRegion : books_.subRegions.rows()) {
      if (subRegion.parent != region) continue;
      if (!only.empty()) return {};
      only = subRegion.code;
    }
    return only;
  }

  // The name and what it is classified by come first, as the dialogs test them.
  std::string nameOf(ImportRow& row) {
    std::string name = row.text("AccName");
    if (options_.sameNames == SameNames::Refuse && !name.empty() && !level2_.empty())
      taken_.check(takenName(kind_, level2_, name), row);
    ids_ = kind_.kind == ImportKind::Customers ? classification(row) : Classification{};
    return name;
  }

  store::Value valueOf(const std::string& column, ImportRow& row) {
    if (column == "AccCode") return {};  // handed out at the end
    if (column == "AccName") return nameOf(row);
    if (column == "Level1ID") return level1_;
    if (column == "Level2ID") return level2_;
    if (column == "Default") return false;
    if (column == "EmpID") return ids_.employee;
    if (column == "SectorID") return ids_.sector;
    if (column == "Region1ID") return ids_.region;
    if (column == "Region2ID") return ids_.subRegion;
    return row.value(column);
  }

  const ImportDescriptor& kind_;
  const ImportOptions options_;
  const ImportBooks& books_;
  TakenNames taken_;
  std::map<std::string, std::string> lastCodes_;
  std::string level1_;  // of the present row, "" when its sub type is unknown
  std::string level2_;
  Classification ids_;
};

}  // namespace

std::unique_ptr<ImportPlanner> makeAccountPlanner(const ImportDescriptor& kind, const ImportOptions& options,
                                                  const ImportBooks& books) {
  return std::make_unique<AccountPlanner>(kind, options, books);
}

}  // namespace velmo::masters
