#include <algorithm>

#include "masters/codes/code_series.h"
#include "masters/import/import_planner.h"

namespace velmo::masters {
namespace {

constexpr std::int64_t firstBrand = 1;  // of items that are given none

class ItemPlanner : public ImportPlanner {
 public:
  ItemPlanner(const ImportDescriptor& kind, const ImportOptions& options, const ImportBooks& books, ImportPlan& plan)
      : kind_(kind),
        options_(options),
        books_(books),
        plan_(plan),
        taken_(kind, books),
        subCategories_(books.subCategories),
        lastCodes_(books.lastCodes) {}

  // Sub categories and brands are made for rows that can be written, and for no others.
  void plan(ImportRow& row, PlannedRow& planned) override {
    planned.name = row.given("ItemName");
    for (const std::string& column : writtenColumns(kind_.kind)) planned.values.push_back(valueOf(column, row));
    if (place_) planned.place = (place_->isNew ? "New: " : "") + shownPlace(place_->row);
    if (!row.problem().empty()) return;
    planned.code = row.given("ItemCode");
    taken_.take(foldedName(planned.code), planned.line);
    if (place_->isNew) make(place_->row);
    if (brand_ == newBrand()) makeBrand(row.given("BrandID"));
  }

 private:
  struct Place {
    NamedRow row;
    bool isNew = false;
  };

  // A brand that is yet to be made, as the value of its column.
  std::int64_t newBrand() const { return -1 - static_cast<std::int64_t>(plan_.newBrands.size()); }

  std::optional<Place> subCategoryOf(ImportRow& row) {
    const std::string wanted = row.text("SubCategory");
    const bool categoryGiven = !row.given("Category").empty();
    const auto category = row.named("Category", books_.categories);
    if (wanted.empty() || (categoryGiven && !category)) return std::nullopt;
    const std::string* parent = category ? &books_.categories[*category].code : nullptr;
    const auto found = parent ? subCategories_.findUnder(*parent, wanted) : subCategories_.find(wanted);
    if (found.outcome == NameLookup::Outcome::One) return Place{.row = subCategories_[found.row]};
    if (found.outcome == NameLookup::Outcome::None && options_.missing == MissingRows::Make) {
      if (parent) return newSubCategory(*parent, wanted, row);
      row.refuse("SubCategory");
      row.note("Give the category that it is to be made in.");
      return std::nullopt;
    }
    row.refuse("SubCategory");
    if (found.outcome == NameLookup::Outcome::Several) row.note("There are several of this name; give the code.");
    return std::nullopt;
  }

  std::optional<Place> newSubCategory(const std::string& category, const std::string& name, ImportRow& row) {
    const auto last = lastCodes_.find(category);
    const std::string code =
        frame::codeAfter(last == lastCodes_.end() ? std::string() : last->second, category, subCategoryCodes().digits);
    if (code.empty()) {
      row.note(kind_.full);
      return std::nullopt;
    }
    const auto wildcards = wildcardsOf(code);
    const auto isLike = [&](const NamedRow& other) { return wildcards && wildcards->matches(other.code); };
    if (std::ranges::any_of(subCategories_.rows(), isLike)) {
      row.note("A sub category is already present with the same code. Give a different code.");
      return std::nullopt;
    }
    return Place{.row = {.code = code, .name = name, .parent = category}, .isNew = true};
  }

  void make(const NamedRow& subCategory) {
    lastCodes_[subCategory.parent] = subCategory.code;
    subCategories_.add(subCategory);
    plan_.newSubCategories.push_back(subCategory);
  }

  void makeBrand(const std::string& name) {
    newBrands_.emplace(foldedName(name), newBrand());
    plan_.newBrands.push_back(name);
  }

  std::int64_t brandOf(ImportRow& row) {
    const std::string name = row.given("BrandID");
    const bool known = books_.brands.find(name).outcome != NameLookup::Outcome::None;
    if (name.empty()) return firstBrand;
    if (!known && options_.missing == MissingRows::Make) {
      row.text("BrandID");  // for its length
      const auto made = newBrands_.find(foldedName(name));
      return made != newBrands_.end() ? made->second : newBrand();
    }
    const auto brand = row.named("BrandID", books_.brands);
    return brand ? std::stoll(books_.brands[*brand].code) : firstBrand;
  }

  std::string codeOf(ImportRow& row) {
    std::string code = row.text("ItemCode");
    taken_.checkCode(code, row);
    return code;
  }

  // In the order of the columns, which is that of the dialog's tests.
  store::Value valueOf(const std::string& column, ImportRow& row) {
    if (column == "ItemCode") return codeOf(row);
    if (column == "BrandID") return brand_ = brandOf(row);
    if (column == "PackPcs") return std::int64_t{1};
    if (column == "ValuationCost1") return cost_ = row.amount("ValuationCost2");
    if (column == "ValuationCost2") return cost_;
    if (column == "CatID") {
      place_ = subCategoryOf(row);
      return place_ ? place_->row.parent : std::string();
    }
    if (column == "SubCatID") return place_ ? place_->row.code : std::string();
    return row.value(column);
  }

  const ImportDescriptor& kind_;
  const ImportOptions options_;
  const ImportBooks& books_;
  ImportPlan& plan_;
  TakenNames taken_;
  NameLookup subCategories_;
  std::map<std::string, std::string> lastCodes_;
  std::unordered_map<std::string, std::int64_t> newBrands_;
  std::optional<Place> place_;  // of the present row
  std::int64_t brand_ = firstBrand;
  double cost_ = 0;
};

}  // namespace

std::unique_ptr<ImportPlanner> makeItemPlanner(const ImportDescriptor& kind, const ImportOptions& options,
                                               const ImportBooks& books, ImportPlan& plan) {
  return std::make_unique<ItemPlanner>(kind, options, books, plan);
}

}  // namespace velmo::masters
