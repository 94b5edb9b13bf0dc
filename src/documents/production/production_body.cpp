#include "documents/production/production_body.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "documents/production/production_card.h"
#include "documents/production/production_costs.h"
#include "documents/production/production_posting.h"
#include "documents/production/recipe_import.h"
#include "documents/production/sheet_caption.h"
#include "documents/stock/stock_lines.h"
#include "forms/look.h"
#include "forms/table_view.h"
#include "frame/document/command_bar.h"
#include "frame/document/compose_document.h"
#include "frame/document/open_master.h"
#include "frame/items/item_grid.h"
#include "frame/items/stray_scans.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

constexpr const char* noImport = "Components Not Imported";

}  // namespace

frame::DocumentBody::Parts ProductionBody::build() {
  card_ = new ProductionCard(place_.workplace.context.KORDconn);
  costs_ = new CostPanel({{"TotM", "Material Cost", CostKind::Computed},
                          {"TotL", "Labour Cost", CostKind::Typed},
                          {"TotFOH", "Factory Overhead", CostKind::Typed},
                          {"TotOS", "Outsourcing Charges", CostKind::Typed},
                          {"TotCOP", "Total Cost of Production", CostKind::Total},
                          {"TotCGM", "Value of Goods Manufactured", CostKind::Total}},
                         3);
  connect(costs_, &CostPanel::changed, this, &ProductionBody::recalculate);
  QWidget* sheets = buildSheets();
  frame::dropStrayScans(place_.screen, {GridOut_, GridIn_});
  return {.beside = card_, .lines = sheets, .totals = costs_};
}

frame::ItemGrid* ProductionBody::buildGrid(const char* name, const char* accessibleName, const char* serialName,
                                           const char* quantityField) {
  frame::ItemGridKind kind = stockLines(quantityField, "ValuationCost2", "Cost");
  kind.name = name;
  kind.accessibleName = accessibleName;
  kind.serialName = serialName;
  auto* grid = new frame::ItemGrid(std::move(kind), place_.workplace, &place_.screen);
  connect(grid, &frame::ItemGrid::linesChanged, this, &ProductionBody::recalculate);
  connect(grid, &frame::ItemGrid::saveRequested, this, &ProductionBody::saveRequested);
  return grid;
}

// The product stands above what it is made of: it is given first.
QWidget* ProductionBody::buildSheets() {
  auto* whole = new QWidget;
  auto* column = new QVBoxLayout(whole);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  auto* head = new QHBoxLayout;
  forms::setGrid(*head, 0);
  head->addWidget(sheetCaption(tr("Product that comes out")));
  head->addStretch(1);
  ImportBttn_ = new QPushButton(tr("&Import Components"));
  ImportBttn_->setObjectName("ImportBttn");
  ImportBttn_->setToolTip(tr("Fills in what the recipes of the product need for the quantity"));
  head->addWidget(ImportBttn_);
  connect(ImportBttn_, &QPushButton::clicked, this,
          [this] { place_.workplace.attempt(noImport, [this] { importComponents(); }); });
  column->addLayout(head);
  GridOut_ = buildGrid("GridOut", "Product that comes out", "2", "StockIn");
  GridOut_->setFixedHeight(2 * forms::rowHeight(*GridOut_) + 2 * forms::spacing::Tight);
  GridOut_->findChild<QTableView*>("GridOut")->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  column->addWidget(GridOut_);
  column->addWidget(sheetCaption(tr("Items that go in")));
  GridIn_ = buildGrid("GridIn", "Items that go in", "1", "StockOut");
  column->addWidget(GridIn_, 1);
  return whole;
}

void ProductionBody::addCommands(frame::CommandBar& commands) {
  commands.include(*ImportBttn_);
  frame::addNewItemCommand(commands, place_.workplace);
}

// What stands in it

void ProductionBody::open(std::int64_t tranNo) {
  detach();
  sheets_.open(place_.workplace.context.KORDconn, tranNo);
}

void ProductionBody::reopen(std::int64_t tranNo, frame::HeaderWrite nextSave) {
  detach();
  sheets_.open(place_.workplace.context.KORDconn, tranNo,
               nextSave == frame::HeaderWrite::Add ? SheetRowsAs::New : SheetRowsAs::Written);
}

void ProductionBody::clear() {
  card_->clear();
  costs_->setTyped({{"TotL", "0.00"}, {"TotFOH", "0.00"}, {"TotOS", "0.00"}});
  recalculate();
}

void ProductionBody::show(const store::Recordset& tran) {
  card_->show(tran);
  const auto amount = [&tran](const char* column) { return text::formatNumber(tran.number(column), "#0.00; (#0.00)"); };
  costs_->setTyped({{"TotL", amount("carriage")}, {"TotFOH", amount("received")}, {"TotOS", amount("balance")}});
  recalculate();
}

void ProductionBody::bind() {
  GridOut_->bind(sheets_.SubTranOut);
  GridIn_->bind(sheets_.SubTranIn);
}

void ProductionBody::detach() {
  GridOut_->detach();
  GridIn_->detach();
}

bool ProductionBody::commitEdit() {
  if (!GridOut_->commitEdit() || !GridIn_->commitEdit()) return false;
  costs_->finishTyping();
  return true;
}

void ProductionBody::focusFirst() {
  GridOut_->focusFirstCell();
}

// Product, inputs, costs, accounts, and round again.
void ProductionBody::focusNextPart(const QWidget* focus) {
  const bool inSheets = GridOut_->isAncestorOf(focus) || GridIn_->isAncestorOf(focus);
  if (inSheets && !commitEdit()) return;
  if (GridOut_->isAncestorOf(focus))
    GridIn_->focusCurrentCell();
  else if (GridIn_->isAncestorOf(focus))
    costs_->firstBox()->setFocus(Qt::TabFocusReason);
  else if (costs_->isAncestorOf(focus))
    card_->focusFirst();
  else
    GridOut_->focusCurrentCell();
}

void ProductionBody::recalculate() {
  counted_ = productionCosts(frame::sumLines(sheets_.SubTranIn).gross, frame::sumLines(sheets_.SubTranOut).gross,
                             costs_->typed(), place_.workplace.context.currencyname);
  costs_->show(counted_);
}

// What the recipes of the product say

void ProductionBody::importComponents() {
  if (!commitEdit()) return;
  const frame::ItemSheet& product = GridOut_->sheet();
  const std::string ProductTxt = product.plainText(0, frame::GridColumn::ItemCode);
  const double ProductQty = text::amountFrom(product.plainText(0, frame::GridColumn::Quantity));
  if (ProductTxt.empty() || !(ProductQty > 0))
    return place_.workplace.prompts.tell("Select Correct Product",
                                         "Select a correct product with quantity greater than 0 to import components.");
  Recipe found = recipeOf(place_.workplace.context.KORDconn, ProductTxt);
  if (found.lines.empty()) return;
  const std::int64_t from = std::max(GridIn_->currentRow(), 0);
  const auto recipe = recipeFor(ProductQty, std::move(found), sheets_.SubTranIn.recordCount() - from);
  if (!recipe) return place_.workplace.prompts.tell(noImport, recipe.error());
  GridIn_->detach();
  putLines(*recipe, sheets_.SubTranIn, from);
  const auto amount = [](double cost) { return text::formatNumber(cost, "#0.00; (#0.00)"); };
  costs_->setTyped({{"TotL", amount(recipe->labour)}, {"TotFOH", amount(recipe->overhead)}});
  recalculate();
  valueOutput(ProductQty);
  GridIn_->bind(sheets_.SubTranIn);
  GridIn_->focusFirstCell();
}

// The product takes over all that it costs.
void ProductionBody::valueOutput(double pieces) {
  const double TotCOP = text::amountFrom(counted_.at("TotCOP"));
  store::Recordset& line = sheets_.SubTranOut;
  for (const auto& [field, value] : {std::pair{"Rate", TotCOP / pieces},
                                     {"GrossAmt", TotCOP},
                                     {"DiscRate", 0.0},
                                     {"DiscAmt", 0.0},
                                     {"ItemValue", TotCOP}})
    line.setAt(0, line.fieldIndex(field), value);
  GridOut_->rowChanged(0);
  recalculate();
}

// Saving

void ProductionBody::fill(frame::DocumentValues& values) const {
  card_->fill(values);
  for (const auto& [name, text] : counted_) values.fields[name] = text;
}

tl::expected<frame::DocumentWrite, std::string> ProductionBody::compose(const frame::DocumentValues& values,
                                                                        const text::DateTime& now,
                                                                        frame::HeaderWrite mode) {
  auto ledger = frame::balanced(productionLedger(values));
  if (!ledger) return tl::unexpected(ledger.error());
  frame::DocumentWrite document = composeHeader(place_.type, values, place_.workplace.context, now, mode);
  document.ledger = std::move(*ledger);
  return document;
}

void ProductionBody::writeRows(const frame::DocumentValues& values, std::int64_t tranNo) {
  sheets_.write({.tranNo = tranNo, .locationId = values.LocationList.id, .jobId = values.JobList.id});
}

store::Recordset ProductionBody::printRows(const store::Recordset& tran) {
  return {place_.workplace.context.KORDconn,
          "SELECT TranNo, flowid, serial, itemcode, itemname, iif(isnull(stockin), Stockout, '') as Qty, "
          "iif(isnull(stockin), unit, '') as unit, iif(isnull(stockin), rate, '') as Rate, iif(isnull(stockin), "
          "grossamt, '') as grossamt, iif(isnull(stockin), grossamt, 0) as valueout, iif(isnull(stockout), Stockin, "
          "'') as Qtyout, iif(isnull(stockout), unit, '') as unitout, iif(isnull(stockout), rate, '') as Rateout, "
          "iif(isnull(stockout), grossamt, '') as grossamtout, iif(isnull(stockout), grossamt, 0) as valuein FROM "
          "StockFlow Where TranNo = " +
              std::to_string(tran.integer("tranno")) + " ORDER BY stockout, serial",
          store::LockType::ReadOnly};
}

}  // namespace velmo::documents
