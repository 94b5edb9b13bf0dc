#include "masters/catalogue/catalogue_levels.h"

#include "frame/master/master_dialog.h"
#include "store/connection/connection.h"
#include "text/number.h"

namespace velmo::masters {
namespace {

using frame::MasterEntry;
using frame::WrittenColumn;

// The typed columns of StockLevel3 in the order of the array `InvTxt`.
constexpr const char* boxColumns[] = {"ItemCode",      "ItemName",     "Description",   "Rack",
                                      "PurchasePrice", "SellingPrice", "SellingPrice2", "SellingPrice3",
                                      "Unit",          "ReorderLevel", "ValuationCost2"};

// A figure without a box, or of an optional one that was left empty.
WrittenColumn figure(const std::string& column) {
  return {column, [=](const MasterEntry& entry) -> store::Value {
            return text::amountFrom(store::textOf(entry.value(column)));
          }};
}

std::vector<WrittenColumn> itemColumns() {
  const auto cost = [](const MasterEntry& entry) -> store::Value {
    return text::amountFrom(store::textOf(entry.value("ValuationCost2")));
  };
  const auto brand = [](const MasterEntry& entry) -> store::Value {
    const store::Value chosen = entry.value("BrandID");
    return store::isNull(chosen) ? store::Value(std::int64_t{1}) : chosen;
  };
  const auto yes = [](const char* column) {
    return WrittenColumn{column,
                         [=](const MasterEntry& entry) -> store::Value { return store::isYes(entry.value(column)); }};
  };
  return {{"ItemCode"},
          {"ItemName"},
          {"Description"},
          {"BrandID", brand},
          {"Rack"},
          figure("PurchasePrice"),
          figure("SellingPrice"),
          figure("SellingPrice2"),
          figure("SellingPrice3"),
          {"PackPcs", [](const MasterEntry&) -> store::Value { return std::int64_t{1}; }},
          {"Unit"},
          figure("ReorderLevel"),
          {"ValuationCost1", cost},
          {"ValuationCost2", cost},
          yes("ValuationType"),
          yes("Status"),
          {"CatID", [](const MasterEntry& entry) -> store::Value { return *(entry.parentKeys.end() - 2); }},
          {"SubCatID", [](const MasterEntry& entry) -> store::Value { return entry.parent(); }}};
}

// An item that has moved keeps its movements under its new code.
void renameMovements(const MasterEntry& entry, const std::string& codeBefore) {
  const std::string code = entry.text("ItemCode");
  if (entry.isNew || code == codeBefore) return;
  entry.connection().execute("UPDATE StockFlow SET ItemCode = " + store::quoted(code) +
                             " WHERE ItemCode = " + store::quoted(codeBefore));
}

std::string codeOrNone(const std::string& code, const char* none) {
  return store::quotedWhole(code.empty() ? none : code);
}

}  // namespace

frame::MasterLevel subCategoryLevel(const CatalogueWords& words) {
  return {
      .frame = "L2Frame",
      .list = "L2List",
      .suffix = "2",
      .heading = "Sub categories",
      .key = "SubCatID",
      .statement =
          [](const std::string& category) {
            return "SELECT * from stocklevel2 where catid like " + codeOrNone(category, "0X0X0X0") +
                   " order by subcatid";
          },
      .columns = {{.caption = "Code", .field = "SubCatID", .width = 10},
                  {.caption = "Sub category", .field = "SubCatName", .width = 22}},
      .fields = {{.name = "SubCatCode",
                  .caption = "Code",
                  .column = "SubCatID",
                  .use = frame::BoxUse::ShownOnly,
                  .width = 10},
                 {.name = "SubCatCodeTxt", .caption = "Name", .column = "SubCatName"}},
      .written = {{"subcatid"},
                  {"subcatname"},
                  {"catid", [](const MasterEntry& entry) -> store::Value { return entry.parent(); }}},
      .deletion =
          frame::MasterDeletion{.none = {"Cannot Delete", "There is no sub categories to be deleted."},
                                .refusals = {frame::hasRows(
                                    "select * from stocklevel3 where subcatid = ",
                                    [](const MasterEntry& entry) { return store::quoted(entry.stored("SubCatID")); },
                                    [text = words.subCategoryNotEmpty](const MasterEntry&) { return text; })},
                                .question =
                                    [](const MasterEntry&) {
                                      return std::string(
                                          "Are you sure, you want to delete this selected sub category?");
                                    }},
      .firstColumn = "SubCatName",
      .formColumns = 2,
  };
}

frame::MasterLevel itemLevel(const CatalogueWords& words, std::vector<frame::MasterField> fields) {
  return {
      .frame = "L3Frame",
      .list = "L3List",
      .suffix = "3",
      .heading = "Items",
      .key = "ItemCode",
      .statement =
          [](const std::string& subCategory) {
            return "SELECT * from Stocklevel3 where subcatid like " + codeOrNone(subCategory, "0X0X0X0X0") +
                   " order by itemcode";
          },
      .columns = {{.caption = "Code", .field = "ItemCode", .width = 16},
                  {.caption = "Name", .field = "ItemName", .width = 36},
                  {.caption = "Selling price",
                   .field = "SellingPrice",
                   .format = "#,##0.00;(#,##0.00)",
                   .alignment = forms::ColumnAlignment::Right,
                   .width = 12,
                   .figures = forms::FigureKind::Exact}},
      .fields = std::move(fields),
      .written = itemColumns(),
      .tests = {{frame::emptyText("ItemCode", words.codeMissing), "ItemCode"},
                {frame::codeTaken("ItemCode", "select itemcode from stocklevel3 where itemcode like ", words.codeTaken),
                 "ItemCode"},
                {frame::emptyText("ItemName", words.nameMissing), "ItemName"}},
      .deletion = frame::MasterDeletion{.none = {"Cannot Delete", "There is no inventory item to be deleted."},
                                        .refusals = {frame::codeHasRows(
                                            "ItemCode", "select * from stockflow where itemcode like ",
                                            [subject = words.subject](const MasterEntry& entry) {
                                              return "There have been ledger entries recorded for the selected " +
                                                     subject + ", " + entry.stored("ItemName") + ".";
                                            })},
                                        .question =
                                            [question = words.question](const MasterEntry& entry) {
                                              return "Are you sure, you want to delete this selected " + question +
                                                     ", " + entry.stored("ItemName") + "?";
                                            }},
      .firstColumn = "ItemCode",
      .formColumns = 2,
      .alsoWrite = renameMovements,
  };
}

frame::MasterField itemBox(const std::string& column, const std::string& caption, frame::BoxKind kind,
                           const std::string& initial, int span) {
  const auto found = std::ranges::find(boxColumns, column);
  return {.name = "InvTxt_" + std::to_string(found - std::begin(boxColumns)),
          .caption = caption,
          .column = column,
          .kind = kind,
          .initial = initial,
          .span = span};
}

}  // namespace velmo::masters
