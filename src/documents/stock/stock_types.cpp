#include "documents/stock/stock_types.h"

#include "documents/stock/find_stock.h"
#include "documents/stock/stock_body.h"
#include "documents/stock/stock_lines.h"
#include "text/blanks.h"

// Adjustments and transfers of stock.
namespace velmo::documents {

namespace {

using frame::Figure;
using frame::ListChoice;

constexpr frame::FixedAccount purchases{50001002, "Purchases"};
constexpr frame::FixedAccount costOfAdjusted{50001005, "Cost of Inventory Adjusted"};

void header(const frame::DocumentValues& values, const session::LoginContext&, frame::HeaderRow& row) {
  const double total = figureOf(values.totals, Figure::GrTot);
  row.set("TrAmount", total);
  row.set("WordsAmt", frame::amountInWordsOnly(total));
}

frame::DocumentType stockDocument(std::string_view screen, std::string_view title, std::string_view findTitle,
                                  StockKind kind) {
  return {.form = schema::documentForm(screen),
          .title = title,
          .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
          .find = findStock(findTitle),
          .makeBody = stockBody(std::move(kind)),
          .header = header};
}

// The whole amount goes from one account to the other, whatever discounts lower the value of the lines.
frame::DocumentType adjustment(std::string_view screen, std::string_view title, std::string_view findTitle,
                               const char* quantityField, const frame::FixedAccount& debit,
                               const frame::FixedAccount& credit) {
  frame::DocumentType type =
      stockDocument(screen, title, findTitle, {.lines = stockLines(quantityField, "ValuationCost2", "Cost")});
  type.costsOnOpening = frame::CostsOnOpening::ToYearEnd;
  type.validation = {frame::locationIsListed(), frame::jobIsListedOrBlank(), frame::employeeIsListedOrBlank()};
  type.posting = frame::PostingTable{
      .documentName = {},
      .rows = {{.account = debit, .debit = Figure::GrTot}, {.account = credit, .credit = Figure::GrTot}},
      .narration = [](const frame::DocumentValues& values) { return values.Desc; }};
  return type;
}

frame::ValidationStep placeIsListed(ListChoice frame::DocumentValues::*place, std::string_view control,
                                    std::string_view text) {
  return {.fails = [place](const frame::DocumentValues& v, const frame::SaveSituation&) { return !(v.*place).matches; },
          .text = text,
          .control = control};
}

frame::ValidationStep isListedOrBlank(ListChoice frame::DocumentValues::*job, std::string_view control,
                                      std::string_view text) {
  return {.fails = [job](const frame::DocumentValues& v,
                         const frame::SaveSituation&) { return !text::isBlank((v.*job).text) && !(v.*job).matches; },
          .text = text,
          .control = control};
}

frame::DocumentType transfers() {
  frame::DocumentType type = stockDocument(
      "InventoryTransfers", "INVENTORY TRANSFERS", "FIND INVENTORY TRANSFERS",
      {.lines = stockLines("StockOut", "PurchasePrice", "Purchase Price"), .movement = StockMovement::BetweenPlaces});
  type.locationChoice = frame::LocationChoice::FromAndTo;
  type.jobChoice = frame::JobChoice::FromAndTo;
  type.printCommands = frame::PrintCommands::DocumentOnly;
  using Values = frame::DocumentValues;
  type.validation = {
      placeIsListed(&Values::LocationList, "LocationList1", "Select a correct location of inventory to transfer from."),
      placeIsListed(&Values::LocationListTo, "LocationList2", "Select a correct location of inventory to transfer to."),
      isListedOrBlank(&Values::JobList, "JobList1",
                      "Select a correct job to transfer from or leave it blank if you do not want to save a job "
                      "reference."),
      isListedOrBlank(&Values::JobListTo, "JobList2",
                      "Select a correct job to transfer to or leave it blank if you do not want to save a job "
                      "reference."),
      frame::employeeIsListedOrBlank()};
  return type;
}

}  // namespace

const frame::DocumentType& addInventoryType() {
  static const frame::DocumentType type = adjustment("AddInventory", "ADD INVENTORY ADJUSTMENTS",
                                                     "FIND ADD ADJUSTMENTS", "StockIn", purchases, costOfAdjusted);
  return type;
}

const frame::DocumentType& reduceInventoryType() {
  static const frame::DocumentType type = adjustment("ReduceInventory", "REDUCE INVENTORY ADJUSTMENTS",
                                                     "FIND REDUCE ADJUSTMENTS", "StockOut", costOfAdjusted, purchases);
  return type;
}

const frame::DocumentType& inventoryTransfersType() {
  static const frame::DocumentType type = transfers();
  return type;
}

}  // namespace velmo::documents
