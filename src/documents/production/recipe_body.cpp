#include "documents/production/recipe_body.h"

#include <QVBoxLayout>

#include "documents/production/product_card.h"
#include "documents/production/production_costs.h"
#include "documents/production/sheet_caption.h"
#include "documents/stock/stock_lines.h"
#include "frame/document/compose_document.h"
#include "frame/document/open_master.h"
#include "frame/items/item_grid.h"
#include "frame/items/stray_scans.h"
#include "frame/posting/item_lines.h"
#include "text/format.h"

namespace velmo::documents {

frame::DocumentBody::Parts RecipeBody::build() {
  product_ = new ProductCard(place_.workplace, &place_.screen);
  lines_ = new frame::ItemGrid(stockLines("StockOut", "ValuationCost2", "Cost"), place_.workplace, &place_.screen);
  costs_ = new CostPanel({{"TExc", "Total of Materials", CostKind::Computed},
                          {"Labour", "Labour", CostKind::Typed},
                          {"FOH", "Factory Overhead", CostKind::Typed},
                          {"TotalCost", "Total Cost of Materials", CostKind::Total}},
                         2);
  connect(product_, &ProductCard::moveOn, lines_, &frame::ItemGrid::focusFirstCell);
  connect(lines_, &frame::ItemGrid::linesChanged, this, &RecipeBody::recalculate);
  connect(lines_, &frame::ItemGrid::saveRequested, this, &RecipeBody::saveRequested);
  connect(costs_, &CostPanel::changed, this, &RecipeBody::recalculate);
  frame::dropStrayScans(place_.screen, {lines_});
  auto* inputs = new QWidget;
  auto* column = new QVBoxLayout(inputs);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  column->addWidget(sheetCaption(tr("Details of Process Inputs to produce given units of above product.")));
  column->addWidget(lines_, 1);
  return {.beside = product_, .lines = inputs, .totals = costs_};
}

void RecipeBody::addCommands(frame::CommandBar& commands) {
  frame::addNewItemCommand(commands, place_.workplace);
}

void RecipeBody::open(std::int64_t tranNo) {
  detach();
  frame::openSheet(place_.workplace.context.KORDconn, SubTran_, tranNo);
}

void RecipeBody::clear() {
  product_->clear();
  costs_->setTyped({{"Labour", "0.00"}, {"FOH", "0.00"}});
  recalculate();
}

void RecipeBody::show(const store::Recordset& tran) {
  product_->show(tran);
  const auto amount = [&tran](const char* column) { return text::formatNumber(tran.number(column), "#0.00; (#0.00)"); };
  costs_->setTyped({{"Labour", amount("Tax1")}, {"FOH", amount("Tax2")}});
  recalculate();
}

void RecipeBody::bind() {
  lines_->bind(SubTran_);
}

void RecipeBody::detach() {
  lines_->detach();
}

bool RecipeBody::commitEdit() {
  if (!lines_->commitEdit()) return false;
  costs_->finishTyping();
  return true;
}

void RecipeBody::focusFirst() {
  product_->focusCode();
}

// Product, materials, costs, and round again.
void RecipeBody::focusNextPart(const QWidget* focus) {
  if (lines_->isAncestorOf(focus)) {
    if (commitEdit()) costs_->firstBox()->setFocus(Qt::TabFocusReason);
  } else if (costs_->isAncestorOf(focus)) {
    product_->focusCode();
  } else {
    lines_->focusCurrentCell();
  }
}

void RecipeBody::recalculate() {
  counted_ = recipeCosts(frame::sumLines(SubTran_).gross, costs_->typed(), place_.workplace.context.currencyname);
  costs_->show(counted_);
}

void RecipeBody::fill(frame::DocumentValues& values) const {
  product_->fill(values);
  for (const auto& [name, text] : counted_) values.fields[name] = text;
}

tl::expected<frame::DocumentWrite, std::string> RecipeBody::compose(const frame::DocumentValues& values,
                                                                    const text::DateTime& now,
                                                                    frame::HeaderWrite mode) {
  return frame::composeHeader(place_.type, values, place_.workplace.context, now, mode);
}

void RecipeBody::writeRows(const frame::DocumentValues&, std::int64_t tranNo) {
  frame::writeLines(SubTran_, {.tranNo = tranNo, .locationId = place_.workplace.context.stocklocationid, .jobId = 0});
}

}  // namespace velmo::documents
