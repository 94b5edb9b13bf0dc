#include "masters/catalogue/modify_services.h"

#include "frame/master/master_dialog.h"
#include "masters/catalogue/catalogue_levels.h"
#include "masters/catalogue/catalogue_prints.h"

namespace velmo::masters {
namespace {

using frame::BoxKind;
using frame::MasterEntry;

const CatalogueWords words = {
    .subCategoryNotEmpty = "There have been service present in this category. Delete them before deleting it.",
    .codeMissing = "Enter service code to save.",
    .codeTaken = "A service is already present with the same service code. Give a different service code.",
    .nameMissing = "Enter service name to save.",
    .subject = "service",
    .question = "inventory service",
};

frame::MasterLevel serviceCategories() {
  frame::MasterLevel level = subCategoryLevel(words);
  level.heading = "Service categories";
  level.statement = [](const std::string&) {
    return std::string("SELECT * from stocklevel2 where catid like 'SERVICE' order by subcatid");
  };
  level.fields.front().use = frame::BoxUse::OpenWhileAdding;
  level.firstColumn = "SubCatID";
  level.tests = {{frame::emptyText("SubCatID", "Enter sub inventory category code to save."), "SubCatID"},
                 {frame::emptyText("SubCatName", "Enter sub inventory category name to save."), "SubCatName"},
                 {frame::codeTaken("SubCatID", "select subcatid from stocklevel2 where subcatid like ",
                                   "A category is already present with the same code. Give a different code."),
                  "SubCatID"}};
  auto& refusals = level.deletion->refusals;
  refusals.insert(refusals.begin(), [](const MasterEntry& entry) {
    return entry.rows.recordCount() == 1 ? std::optional<std::string>("The only service category cannot be deleted.")
                                         : std::nullopt;
  });
  return level;
}

frame::MasterLevel serviceLevel() {
  frame::MasterLevel level = itemLevel(
      words, {itemBox("ItemCode", "Code"),
              {.name = "StatusOpt", .caption = "No longer in use", .column = "Status", .kind = BoxKind::Check},
              itemBox("ItemName", "Name", BoxKind::Text, {}, 2),
              itemBox("Description", "Description", BoxKind::Text, {}, 2),
              itemBox("PurchasePrice", "Purchase price", BoxKind::Amount, "0.00"),
              itemBox("SellingPrice", "Selling price", BoxKind::Amount, "0.00"),
              itemBox("Unit", "Unit", BoxKind::Text, "Pcs")});
  level.heading = "Services";
  const frame::MasterTest further[] = {
      {frame::notNumeric("PurchasePrice", "Enter a numeric purchase price."), "PurchasePrice"},
      {frame::notNumeric("SellingPrice", "Enter a numeric selling price."), "SellingPrice"},
      {frame::emptyText("Unit", "Enter measurement unit to save."), "Unit"}};
  level.tests.insert(level.tests.end(), std::begin(further), std::end(further));
  auto& refusals = level.deletion->refusals;
  refusals.insert(refusals.begin(), [](const MasterEntry& entry) {
    const store::Recordset services(entry.connection(), "select itemcode from stocklevel3 where catid like 'Service'",
                                    store::LockType::ReadOnly);
    return services.recordCount() == 1 ? std::optional<std::string>("The only service cannot be deleted.")
                                       : std::nullopt;
  });
  return level;
}

}  // namespace

QWidget* makeModifyServices(session::Workplace& workplace, QWidget* parent) {
  return new frame::MasterDialog({.screen = "ModifyServices",
                                  .title = "Chart of Services",
                                  .rootKey = "Service",
                                  .levels = {serviceCategories(), serviceLevel()},
                                  .prints = servicePrints()},
                                 workplace, parent);
}

}  // namespace velmo::masters
