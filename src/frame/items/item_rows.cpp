#include "frame/items/item_rows.h"

namespace velmo::frame {
namespace {

std::string caption(const ItemGridKind& kind, GridColumn column) {
  switch (column) {
    case GridColumn::ItemCode:
      return "Item Code";
    case GridColumn::FlowId:
      return "Line";
    case GridColumn::Description:
      return "Description";
    case GridColumn::Quantity:
      return "Quantity";
    case GridColumn::Unit:
      return "Unit";
    case GridColumn::Rate:
      return "Rate";
    case GridColumn::GrossAmount:
      return kind.grossCaption;
    case GridColumn::DiscountRate:
      return "Disc %";
    case GridColumn::Discount:
      return "Discount";
    case GridColumn::NetAmount:
      return kind.netCaption;
    case GridColumn::Packing:
      return "Packing Detail";
  }
  return {};
}

int width(GridColumn column) {
  switch (column) {
    case GridColumn::Description:
      return 0;
    case GridColumn::ItemCode:
      return 15;
    case GridColumn::Unit:
      return 4;
    case GridColumn::DiscountRate:
      return 5;
    case GridColumn::Quantity:
    case GridColumn::Discount:
      return 7;
    case GridColumn::Rate:
      return 8;
    default:
      return 10;
  }
}

CellUse use(GridColumn column) {
  if (column == GridColumn::FlowId) return CellUse::Hidden;
  if (column == GridColumn::NetAmount) return CellUse::Result;
  return isReadOnly(column) ? CellUse::Locked : CellUse::Typed;
}

}  // namespace

ItemRows::ItemRows(ItemSheet& sheet) : sheet_(sheet) {
  for (int i = 0; i < gridColumnCount; ++i) {
    const GridColumn column = of(i);
    columns_.push_back({.caption = caption(sheet.kind(), column),
                        .width = width(column),
                        .kind = isFigure(column) ? CellKind::Figure : CellKind::Text,
                        .use = use(column)});
  }
}

bool ItemRows::choose(int row, int column, std::string_view key) {
  return of(column) == GridColumn::ItemCode && sheet_.chooseItem(row, key);
}

}  // namespace velmo::frame
