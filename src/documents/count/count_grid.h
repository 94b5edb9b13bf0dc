#pragma once

#include "documents/count/count_sheet.h"
#include "frame/sheets/sheet_grid.h"

namespace velmo::documents {

// The listed items of a count sheet as lines, of which only the counted quantity is typed.
class CountRows : public frame::SheetRows {
 public:
  explicit CountRows(CountSheet& sheet);

  bool isBound() const override { return true; }
  int rowCount() const override { return static_cast<int>(sheet_.size()); }
  const std::vector<frame::SheetColumn>& columns() const override { return columns_; }
  std::string shownText(int row, int column) const override;
  std::string editText(int row, int column) const override;
  std::string plainText(int row, int column) const override;
  bool mayEdit(int row, int column) override;
  bool enter(int row, int column, std::string_view typed) override;
  void removeRow(int row) override;  // the line stays; its count goes

  void setNotCounted(NotCounted notCounted) { notCounted_ = notCounted; }

 private:
  store::Value valueAt(int row, int column) const;

  CountSheet& sheet_;
  NotCounted notCounted_ = NotCounted::Stays;
  std::vector<frame::SheetColumn> columns_;
};

// The table `Grid` over them. Down and Enter lead from count to count.
class CountGrid : public frame::SheetGrid {
  Q_OBJECT

 public:
  explicit CountGrid(CountSheet& sheet, QWidget* parent = nullptr);

  void setNotCounted(NotCounted notCounted);
  // The items that are listed now, the first count being the current cell.
  void showItems();
  // The item's line becomes the current one and shows its count.
  void showCount(std::size_t listed);

 private:
  CountRows rows_;
};

}  // namespace velmo::documents
