#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/items/item_grid_kind.h"
#include "frame/items/item_history.h"
#include "frame/items/item_rules.h"
#include "frame/items/line_arithmetic.h"
#include "session/workplace.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

// The item lines of a document behind their cells: reads and writes the rows of `StockFlow` under the rules of each
// column and keeps the amounts of a line in step. Rows are counted from 0 in the order of the recordset; every
// operation on a row needs bound lines.
class ItemSheet {
 public:
  ItemSheet(ItemGridKind kind, session::Workplace& workplace);

  const ItemGridKind& kind() const { return kind_; }
  void bind(store::Recordset lines);
  void detach();
  bool isBound() const { return bound_; }
  int rowCount() const;

  std::string shownText(int row, GridColumn column) const;  // as printed: "(5.00)"
  std::string editText(int row, GridColumn column) const;   // as typed: "-5.00"; more decimals only when there are
  std::string plainText(int row, GridColumn column) const;  // as stored

  // May the cell be opened for typing? Tells the user what stands against it.
  bool mayEdit(int row, GridColumn column);
  // Puts a typed text into a cell. An item's code brings the item along, and the amounts of the line follow; without
  // its code a line is blank. False, and nothing changed, when the text may not stand there.
  bool enter(int row, GridColumn column, std::string_view typed);
  // One more piece of the item with this code: of a line that has it already, when that is wanted, otherwise in the
  // first line that is free. Gives the line; nothing, and nothing changed, when no item has the code.
  std::optional<int> scan(std::string_view code, ScannedAgain again);
  // As if the item's code had been typed in full, for an item of the drop list.
  bool chooseItem(int row, std::string_view itemCode);
  void recalculateLine(int row);
  // Removes the line; a blank one at the end takes its place, so that the sheet keeps its length.
  void removeRow(int row);

  // The first line that has an amount and no item code.
  std::optional<int> lineWithoutItem() const;
  // What of the line's item can be handed out, its own saved quantity included; 0 without an item.
  double ItemAvailable(int row) const;

  std::string productSerials(int row) const;
  bool setProductSerials(int row, std::string_view serials);

 private:
  LineCells cells(int row) const;
  LineFigures figures(int row) const;
  store::Value valueAt(int row, GridColumn column) const;
  void write(int row, GridColumn column, store::Value value);
  bool enterItemCode(int row, std::string_view typed);  // false when the text may not stand there
  void clearLine(int row);
  void fillFromItem(int row, const ListedItem& item);
  std::optional<ListedItem> findItem(std::string_view typed) const;
  int fieldOf(GridColumn column) const { return fields_[static_cast<std::size_t>(column)]; }

  ItemGridKind kind_;
  session::Workplace& workplace_;
  store::Recordset lines_;
  bool bound_ = false;
  std::array<int, gridColumnCount> fields_ = {};  // of the recordset, by column
  int serialsField_ = -1;
};

}  // namespace velmo::frame
