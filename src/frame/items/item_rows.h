#pragma once

#include "frame/items/item_sheet.h"
#include "frame/sheets/sheet_rows.h"

namespace velmo::frame {

// The cells of an item sheet, in the order of GridColumn.
class ItemRows : public SheetRows {
 public:
  explicit ItemRows(ItemSheet& sheet);

  bool isBound() const override { return sheet_.isBound(); }
  int rowCount() const override { return sheet_.rowCount(); }
  const std::vector<SheetColumn>& columns() const override { return columns_; }
  std::string shownText(int row, int column) const override { return sheet_.shownText(row, of(column)); }
  std::string editText(int row, int column) const override { return sheet_.editText(row, of(column)); }
  std::string plainText(int row, int column) const override { return sheet_.plainText(row, of(column)); }
  bool mayEdit(int row, int column) override { return sheet_.mayEdit(row, of(column)); }
  bool enter(int row, int column, std::string_view typed) override { return sheet_.enter(row, of(column), typed); }
  bool choose(int row, int column, std::string_view key) override;
  void removeRow(int row) override { sheet_.removeRow(row); }

 private:
  static GridColumn of(int column) { return static_cast<GridColumn>(column); }

  ItemSheet& sheet_;
  std::vector<SheetColumn> columns_;
};

}  // namespace velmo::frame
