#include "masters/catalogue/modify_inventory.h"

#include "frame/master/master_dialog.h"
#include "masters/catalogue/catalogue_levels.h"
#include "masters/catalogue/catalogue_prints.h"
#include "masters/catalogue/chart_of_inventory.h"
#include "masters/codes/code_series.h"
#include "masters/import/bring_in.h"

namespace velmo::masters {
namespace {

using frame::BoxKind;
using frame::MasterEntry;
using frame::MasterPanel;

const CatalogueWords words = {
    .subCategoryNotEmpty = "There have been items present in this sub category. Delete them before deleting it.",
    .codeMissing = "Enter item code to save.",
    .codeTaken = "An item is already present with the same item code. Give a different item code.",
    .nameMissing = "Enter item name to save.",
    .subject = "item",
    .question = "inventory item",
};

frame::MasterLevel categoryLevel() {
  return {
      .frame = "L1Frame",
      .list = "L1List",
      .suffix = "",
      .heading = "Categories",
      .key = "CatID",
      .statement =
          [](const std::string&) {
            return std::string("SELECT catid, catname from Stocklevel1 where catid not like 'Service' order by catid");
          },
      .columns = {{.caption = "Code", .field = "CatID", .width = 10},
                  {.caption = "Category", .field = "CatName", .width = 22}},
      .fields = {{.name = "CatCode",
                  .caption = "Code",
                  .column = "CatID",
                  .use = frame::BoxUse::OpenWhileAdding,
                  .width = 10,
                  .longest = 3},
                 {.name = "CatCodeTxt", .caption = "Name", .column = "CatName"}},
      .written = {{"catid"}, {"catname"}},
      .tests = {{frame::emptyText("CatID", "Enter category code to save."), "CatID"},
                {frame::emptyText("CatName", "Enter inventory category name to save."), "CatName"},
                {frame::codeTaken("CatID", "select catid from stocklevel1 where catid like ",
                                  "A category is already present with the same code. Give a different code."),
                 "CatID"}},
      .deletion =
          frame::MasterDeletion{
              .none = {"Cannot Delete", "There is no category to be deleted."},
              .refusals = {frame::hasRows(
                  "select * from stocklevel2 where catid = ",
                  [](const MasterEntry& entry) { return store::quoted(entry.stored("CatID")); },
                  [](const MasterEntry&) {
                    return std::string(
                        "There have been sub categories present in this category. Delete them before deleting it.");
                  })},
              .question =
                  [](const MasterEntry&) {
                    return std::string("Are you sure, you want to delete this selected category?");
                  }},
      .firstColumn = "CatID",
      .formColumns = 2,
  };
}

frame::MasterLevel numberedSubCategories() {
  frame::MasterLevel level = subCategoryLevel(words);
  level.tests = {
      {frame::emptyText("SubCatID", "You have added maximum number of sub categories in the selected main category.")},
      {frame::emptyText("SubCatName", "Enter sub inventory category name to save."), "SubCatName"},
      {frame::codeTaken("SubCatID", "select subcatid from stocklevel2 where subcatid like ",
                        "A sub category is already present with the same code. Give a different code.")}};
  level.givenCode = frame::givenBy(subCategoryCodes());
  return level;
}

std::vector<frame::MasterField> itemFields() {
  return {itemBox("ItemCode", "Code"),
          {.name = "StatusOpt", .caption = "No longer in use", .column = "Status", .kind = BoxKind::Check},
          itemBox("ItemName", "Name", BoxKind::Text, {}, 2),
          itemBox("Description", "Description", BoxKind::Text, {}, 2),
          {.name = "BrandList",
           .caption = "Brand",
           .column = "BrandID",
           .kind = BoxKind::Choice,
           .initial = "1",
           .choices = {.statement = "SELECT brandid, brandname FROM brands ORDER BY brandname",
                       .shownColumn = "brandname",
                       .boundColumn = "brandid"},
           .keeper = {.button = "BrandBttn", .dialog = "InvBrands", .hint = "Opens the list of brands"}},
          itemBox("Rack", "Rack"),
          itemBox("PurchasePrice", "Purchase price", BoxKind::Amount, "0.00"),
          itemBox("SellingPrice", "Selling price", BoxKind::Amount, "0.00"),
          itemBox("SellingPrice2", "Selling price 2", BoxKind::Amount, "0.00"),
          itemBox("SellingPrice3", "Selling price 3", BoxKind::Amount, "0.00"),
          itemBox("Unit", "Unit", BoxKind::Text, "Pcs"),
          itemBox("ReorderLevel", "Re-order level", BoxKind::Amount, "0.00"),
          {.name = "CostOpt",
           .caption = "Cost",
           .column = "ValuationType",
           .kind = BoxKind::OneOfTwo,
           .initial = "yes",
           .options = {" Weighted Average Price", "Manual Valuation Cost"},
           .span = 2},
          {.name = "VM",
           .caption = "Weighted average",
           .column = "ValuationType",
           .kind = BoxKind::Check,
           .use = frame::BoxUse::Hidden,
           .initial = "yes"},
          itemBox("ValuationCost2", "Valuation cost", BoxKind::Amount, "0.00")};
}

// The cost of an item that is valued at its weighted average is not typed.
void lockCost(MasterPanel& panel) {
  panel.box("ValuationCost2").setOpen(!store::isYes(panel.box("ValuationType").value()));
}

frame::MasterLevel goodsLevel() {
  frame::MasterLevel level = itemLevel(words, itemFields());
  const frame::MasterTest further[] = {
      {frame::noEntry("BrandID", "Select correct brand name."), "BrandID"},
      {frame::notNumeric("PurchasePrice", "Enter a numeric purchase price."), "PurchasePrice"},
      {frame::notNumeric("SellingPrice", "Enter a numeric selling price."), "SellingPrice"},
      {frame::emptyText("Unit", "Enter measurement unit to save."), "Unit"},
      {frame::notNumeric("ReorderLevel", "Enter a numeric re-order quantity."), "ReorderLevel"},
      {frame::notNumeric("ValuationCost2", "Enter a numeric valuation cost."), "ValuationCost2"}};
  level.tests.insert(level.tests.end(), std::begin(further), std::end(further));
  level.shown = lockCost;
  level.changed = [](MasterPanel& panel, const std::string& column) {
    if (column == "ValuationType") lockCost(panel);
  };
  return level;
}

}  // namespace

QWidget* makeModifyInventory(session::Workplace& workplace, QWidget* parent) {
  return new frame::MasterDialog({.screen = "ModifyInventory",
                                  .title = "Chart of Inventory",
                                  .levels = {categoryLevel(), numberedSubCategories(), goodsLevel()},
                                  .prints = inventoryPrints(),
                                  .find = pickItem,
                                  .bringIn = bringIn(ImportKind::Items)},
                                 workplace, parent);
}

}  // namespace velmo::masters
