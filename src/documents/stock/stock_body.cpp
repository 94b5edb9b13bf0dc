#include "documents/stock/stock_body.h"

#include "documents/stock/stock_lines.h"
#include "documents/stock/stock_totals.h"
#include "frame/document/compose_document.h"
#include "frame/document/open_master.h"
#include "frame/items/item_grid.h"
#include "frame/items/stray_scans.h"
#include "frame/posting/item_lines.h"

namespace velmo::documents {

std::function<std::shared_ptr<frame::DocumentBody>(const frame::BodyPlace&)> stockBody(StockKind kind) {
  return [kind = std::move(kind)](const frame::BodyPlace& place) -> std::shared_ptr<frame::DocumentBody> {
    return std::make_shared<StockBody>(kind, place);
  };
}

frame::DocumentBody::Parts StockBody::build() {
  lines_ = new frame::ItemGrid(kind_.lines, place_.workplace, &place_.screen);
  totals_ = new StockTotals;
  connect(lines_, &frame::ItemGrid::linesChanged, this, &StockBody::recalculate);
  connect(lines_, &frame::ItemGrid::saveRequested, this, &StockBody::saveRequested);
  frame::dropStrayScans(place_.screen, {lines_});
  return {.lines = lines_, .totals = totals_};
}

void StockBody::addCommands(frame::CommandBar& commands) {
  frame::addNewItemCommand(commands, place_.workplace);
}

void StockBody::open(std::int64_t tranNo) {
  detach();
  frame::openSheet(place_.workplace.context.KORDconn, SubTran_, tranNo,
                   {.condition = kind_.movement == StockMovement::BetweenPlaces ? std::string_view(leavingLines) : ""});
}

void StockBody::bind() {
  lines_->bind(SubTran_);
}

void StockBody::detach() {
  lines_->detach();
}

bool StockBody::commitEdit() {
  return lines_->commitEdit();
}

void StockBody::focusFirst() {
  lines_->focusFirstCell();
}

void StockBody::focusNextPart(const QWidget* focus) {
  if (!lines_->isAncestorOf(focus))
    lines_->focusCurrentCell();
  else if (auto* remarks = place_.screen.findChild<QWidget*>("Desc"); remarks && commitEdit())
    remarks->setFocus(Qt::TabFocusReason);
}

void StockBody::recalculate() {
  totals_->setSums(frame::sumLines(SubTran_), place_.workplace.context.currencyname);
}

void StockBody::fill(frame::DocumentValues& values) const {
  values.totals = totals_->totals();
}

tl::expected<frame::DocumentWrite, std::string> StockBody::compose(const frame::DocumentValues& values,
                                                                   const text::DateTime& now, frame::HeaderWrite mode) {
  return frame::composeDocument(place_.type, values, place_.workplace.context, now, {}, mode);
}

void StockBody::writeRows(const frame::DocumentValues& values, std::int64_t tranNo) {
  writeStockLines(place_.workplace.context.KORDconn, SubTran_, kind_.movement, values, tranNo);
}

store::Recordset StockBody::printRows(const store::Recordset&) {
  return SubTran_.clone();
}

}  // namespace velmo::documents
