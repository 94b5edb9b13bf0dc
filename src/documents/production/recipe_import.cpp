#include "documents/production/recipe_import.h"

#include <cmath>

#include "frame/posting/item_lines.h"
#include "frame/sheets/cell_text.h"

namespace velmo::documents {

namespace {

constexpr double mostInACell = 99999999;

// The lines of the product's recipes of all years: recipes stand beside the books, under the mark of what is cancelled.
std::string recipesOf(const std::string& itemCode) {
  return "Where (((Transactions.Text1) like " + store::quotedWhole(itemCode) + ") And ((Transactions.TranType) = 95))";
}

std::string missingItem(store::Connection& books, const std::string& itemCode) {
  const store::Recordset missing(
      books,
      "SELECT StockFlow.ItemCode FROM (Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo) "
      "LEFT JOIN StockLevel3 ON StockFlow.ItemCode = StockLevel3.ItemCode " +
          recipesOf(itemCode) + " AND StockLevel3.ItemCode Is Null ORDER BY StockFlow.Serial, StockFlow.FlowId",
      store::LockType::ReadOnly);
  return missing.isEmpty() ? std::string() : missing.text("ItemCode");
}

double moneyOf(double amount) {
  return store::numberOf(frame::moneyOf(amount));
}

}  // namespace

Recipe recipeOf(store::Connection& books, const std::string& itemCode) {
  store::Recordset rows(
      books,
      "SELECT Transactions.Text1, Transactions.tax1, Transactions.tax2, Transactions.additionaltax, "
      "StockFlow.ItemCode, StockFlow.ItemName, StockFlow.StockOut, StockFlow.Unit, StockFlow.Rate, StockFlow.GrossAmt, "
      "StockFlow.Serial FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo " +
          recipesOf(itemCode) + " ORDER BY StockFlow.Serial, StockFlow.FlowId",
      store::LockType::ReadOnly);
  Recipe recipe;
  if (rows.isEmpty()) return recipe;
  recipe.labour = rows.number("tax1");
  recipe.overhead = rows.number("tax2");
  for (; !rows.eof(); rows.moveNext())
    recipe.lines.push_back({.itemCode = rows.text("ItemCode"),
                            .itemName = rows.value("ItemName"),
                            .unit = rows.value("Unit"),
                            .rate = rows.value("Rate"),
                            .quantity = rows.number("StockOut"),
                            .amount = rows.number("GrossAmt")});
  recipe.missing = missingItem(books, itemCode);
  return recipe;
}

tl::expected<Recipe, std::string> recipeFor(double pieces, Recipe recipe, std::int64_t room) {
  if (!recipe.missing.empty())
    return tl::unexpected("Item " + recipe.missing +
                          " of the recipe is not among the items any more. Nothing was imported; change the recipe "
                          "first.");
  if (static_cast<std::int64_t>(recipe.lines.size()) > room)
    return tl::unexpected("The recipe has " + std::to_string(recipe.lines.size()) +
                          " components, and there is room for " + std::to_string(room) +
                          " from this line on. Nothing was imported.");
  for (RecipeLine& line : recipe.lines) {
    line.quantity *= pieces;
    line.amount = moneyOf(line.amount * pieces);
    if (std::abs(line.quantity) > mostInACell || !std::isfinite(line.amount))
      return tl::unexpected("So many pieces need more of item " + line.itemCode +
                            " than a line can hold. Nothing was imported.");
  }
  recipe.labour *= pieces;
  recipe.overhead *= pieces;
  return recipe;
}

void putLines(const Recipe& recipe, store::Recordset& sheet, std::int64_t from) {
  constexpr const char* names[] = {"itemcode", "itemname", "stockout",  "unit",    "rate",           "grossamt",
                                   "discrate", "discamt",  "itemvalue", "packing", "ProductSerials", "serial"};
  std::vector<int> fields;
  for (const char* name : names) fields.push_back(sheet.fieldIndex(name));
  for (std::size_t i = 0; i < recipe.lines.size(); ++i) {
    const RecipeLine& line = recipe.lines[i];
    const store::Value values[] = {line.itemCode, line.itemName, line.quantity, line.unit,
                                   line.rate,     line.amount,   0.0,           0.0,
                                   line.amount,   store::Null{}, store::Null{}, static_cast<std::int64_t>(i + 1)};
    for (std::size_t at = 0; at < fields.size(); ++at)
      sheet.setAt(from + static_cast<std::int64_t>(i), fields[at], values[at]);
  }
}

}  // namespace velmo::documents
