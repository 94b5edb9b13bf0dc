#include "frame/items/item_sheet.h"

#include <algorithm>

#include "frame/sheets/cell_text.h"
#include "store/values/value.h"
#include "text/blanks.h"
#include "text/decimal_sum.h"
#include "text/number.h"

namespace velmo::frame {
ItemSheet::ItemSheet(ItemGridKind kind, session::Workplace& workplace)
    : kind_(std::move(kind)), workplace_(workplace) {}

void ItemSheet::bind(store::Recordset lines) {
  const std::array<std::string_view, gridColumnCount> names = {"ItemCode", "FlowId",    "ItemName", kind_.quantityField,
                                                               "Unit",     "Rate",      "GrossAmt", "DiscRate",
                                                               "DiscAmt",  "ItemValue", "Packing"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    fields_[i] = lines.fieldIndex(names[i]);
    if (fields_[i] < 0) {
      throw store::StoreError(store::ErrorKind::Misuse, "The item lines have no column " + std::string(names[i]) + ".");
    }
  }
  serialsField_ = lines.fieldIndex("ProductSerials");
  lines_ = std::move(lines);
  bound_ = true;
}

void ItemSheet::detach() {
  lines_ = store::Recordset();
  bound_ = false;
}

int ItemSheet::rowCount() const {
  return bound_ ? static_cast<int>(lines_.recordCount()) : 0;
}

store::Value ItemSheet::valueAt(int row, GridColumn column) const {
  return lines_.valueAt(row, fieldOf(column));
}

std::string ItemSheet::plainText(int row, GridColumn column) const {
  return store::textOf(valueAt(row, column));
}

std::string ItemSheet::shownText(int row, GridColumn column) const {
  const store::Value value = valueAt(row, column);
  return isFigure(column) ? shownFigure(value) : store::textOf(value);
}

std::string ItemSheet::editText(int row, GridColumn column) const {
  const store::Value value = valueAt(row, column);
  return isFigure(column) ? editFigure(value) : store::textOf(value);
}

LineCells ItemSheet::cells(int row) const {
  return {.itemCode = plainText(row, GridColumn::ItemCode),
          .gross = plainText(row, GridColumn::GrossAmount),
          .discountRate = plainText(row, GridColumn::DiscountRate)};
}

LineFigures ItemSheet::figures(int row) const {
  return {.quantity = plainText(row, GridColumn::Quantity),
          .rate = plainText(row, GridColumn::Rate),
          .discountRate = plainText(row, GridColumn::DiscountRate),
          .discount = plainText(row, GridColumn::Discount)};
}

bool ItemSheet::mayEdit(int row, GridColumn column) {
  const EntryVerdict verdict = beforeEdit(column, cells(row), kind_.rules);
  for (const session::Prompt& message : verdict.messages) workplace_.prompts.ask(message);
  return !verdict.refused;
}

bool ItemSheet::enter(int row, GridColumn column, std::string_view typed) {
  std::string text = withoutNul(typed);
  if (column == GridColumn::ItemCode) text = text::trimmed(text);
  const LineCells line = cells(row);
  if (!acceptsEntry(column, text, line, kind_.rules)) return false;

  LineFigures after = figures(row);
  if (column == GridColumn::Quantity) after.quantity = text;
  if (column == GridColumn::Rate) after.rate = text;
  if (column == GridColumn::DiscountRate) after.discountRate = text;
  if (column == GridColumn::Discount) after.discount = text;
  if (!isComputable(after)) return false;

  if (column == GridColumn::Quantity && kind_.stockWarning == StockWarning::Shown && !isServiceCode(line.itemCode)) {
    if (const auto warning = shortBalance(text, ItemAvailable(row))) workplace_.prompts.ask(*warning);
  }
  try {
    if (column == GridColumn::ItemCode && text.empty()) {
      clearLine(row);
      return true;
    }
    if (column == GridColumn::ItemCode) {
      if (!enterItemCode(row, text)) return false;
    } else if (column == GridColumn::Discount) {
      write(row, column, moneyOf(figureOrNull(text)));
    } else {
      write(row, column, isFigure(column) ? figureOrNull(text) : textOrNull(text));
    }
    recalculateLine(row);
  } catch (const store::StoreError& error) {
    workplace_.prompts.tell("Cannot Save", error.what());
    return false;
  }
  return true;
}

bool ItemSheet::enterItemCode(int row, std::string_view typed) {
  if (const auto item = findItem(typed)) {
    fillFromItem(row, *item);
  } else {
    if (kind_.rules.codes == LineCodes::ItemsOnly) return false;
    write(row, GridColumn::ItemCode, textOrNull(std::string(typed)));
  }
  return true;
}

void ItemSheet::clearLine(int row) {
  for (std::size_t column = 0; column < fields_.size(); ++column)
    if (column != static_cast<std::size_t>(GridColumn::FlowId))
      write(row, static_cast<GridColumn>(column), store::Null{});
  setProductSerials(row, {});
}

std::optional<int> ItemSheet::lineWithoutItem() const {
  constexpr std::array amounts = {GridColumn::GrossAmount, GridColumn::Discount, GridColumn::NetAmount};
  for (int row = 0; row < rowCount(); ++row)
    if (plainText(row, GridColumn::ItemCode).empty() &&
        std::ranges::any_of(amounts, [&](GridColumn column) { return store::numberOf(valueAt(row, column)) != 0; }))
      return row;
  return std::nullopt;
}

std::optional<int> ItemSheet::scan(std::string_view code, ScannedAgain again) {
  const auto item = findItem(text::trimmed(code));
  if (!item) return std::nullopt;
  int free = -1;
  for (int row = 0; row < rowCount(); ++row) {
    const std::string there = plainText(row, GridColumn::ItemCode);
    if (there.empty() && free < 0) free = row;
    if (there != item->code || again == ScannedAgain::NewLine) continue;
    const double quantity = text::amountFrom(plainText(row, GridColumn::Quantity));
    enter(row, GridColumn::Quantity, text::numberText(text::sumOf({quantity, 1})));
    return row;
  }
  if (free < 0) return std::nullopt;
  fillFromItem(free, *item);
  enter(free, GridColumn::Quantity, "1");
  return free;
}

bool ItemSheet::chooseItem(int row, std::string_view itemCode) {
  const auto item = listedItem(workplace_.context.KORDconn, kind_, itemCode);
  if (!item) return false;
  fillFromItem(row, *item);
  recalculateLine(row);
  return true;
}

void ItemSheet::fillFromItem(int row, const ListedItem& item) {
  write(row, GridColumn::ItemCode, item.code);
  write(row, GridColumn::Description, textOrNull(item.name));
  write(row, GridColumn::Quantity, 0.0);
  write(row, GridColumn::Unit, textOrNull(item.unit));
  write(row, GridColumn::Rate, item.price);
  write(row, GridColumn::Discount, 0.0);
}

// The shared items are searched, not the file: a scanner must not wait. A code that no item has may hold wildcards and
// finds the first item that is like it.
std::optional<ListedItem> ItemSheet::findItem(std::string_view typed) const {
  store::Recordset& items = workplace_.context.ItemsRS;
  if (typed.empty() || !items.isOpen() || items.isEmpty()) return std::nullopt;
  const auto isFound = [&](const char* criterion) {
    items.moveFirst();
    return items.find(criterion + store::quoted(typed));
  };
  if (!isFound("itemCode = ") && !isFound("itemCode like ")) return std::nullopt;
  return ListedItem{.code = items.text("itemcode"),
                    .name = items.text("itemname"),
                    .description = {},
                    .unit = items.text("unit"),
                    .category = {},
                    .price = items.value(kind_.priceField)};
}

// Of wide amounts the difference has a rest that is no money.
void ItemSheet::recalculateLine(int row) {
  LineFigures line = figures(row);
  line.discount = store::textOf(moneyOf(figureOrNull(line.discount)));
  const LineAmounts amounts = lineAmounts(line);
  write(row, GridColumn::GrossAmount, figureOrNull(amounts.gross));
  write(row, GridColumn::Discount, figureOrNull(amounts.discount));
  write(row, GridColumn::NetAmount, moneyOf(figureOrNull(amounts.net)));
}

void ItemSheet::write(int row, GridColumn column, store::Value value) {
  if (valueAt(row, column) == value) return;
  lines_.setAt(row, fieldOf(column), value);
}

void ItemSheet::removeRow(int row) {
  lines_.moveTo(row);
  lines_.remove();
  lines_.addNew();
  lines_.update();
  lines_.moveTo(std::min<std::int64_t>(row, lines_.recordCount() - 1));
}

double ItemSheet::ItemAvailable(int row) const {
  const std::string code = plainText(row, GridColumn::ItemCode);
  if (code.empty()) return 0;
  return itemAvailable(workplace_.context.KORDconn, code, store::integerOf(valueAt(row, GridColumn::FlowId)),
                       workplace_.context.FYID);
}

std::string ItemSheet::productSerials(int row) const {
  return serialsField_ < 0 ? std::string() : store::textOf(lines_.valueAt(row, serialsField_));
}

bool ItemSheet::setProductSerials(int row, std::string_view serials) {
  if (serialsField_ < 0) return false;
  try {
    lines_.setAt(row, serialsField_, textOrNull(withoutNul(serials)));
  } catch (const store::StoreError& error) {
    workplace_.prompts.tell("Cannot Save", error.what());
    return false;
  }
  return true;
}

}  // namespace velmo::frame
