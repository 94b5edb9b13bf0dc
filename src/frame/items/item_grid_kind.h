#pragma once

#include <string>
#include <vector>

#include "frame/items/item_rules.h"
#include "schema/document_kinds.h"

namespace velmo::frame {

enum class StockWarning { None, Shown };  // "Short Item Balance" when more is sold than there is
enum class SerialNumbers { None, Kept };  // the serial box of a line
enum class ItemHistory { LastLines, None };
enum class F4Key { SerialBox, ItemList };

// What Enter does in the item code of a line: to the next cell, or the counter's way: one piece, and to the next line.
enum class ScanRule { ToNextCell, OnePiece };
// Whether an item that is scanned again raises the quantity of its line or gets a line of its own.
enum class ScannedAgain { RaiseQuantity, NewLine };

// In what the item grids of the screens differ.
struct ItemGridKind {
  std::string name = "Grid";
  std::string accessibleName = "Item lines";
  std::string serialName = {};  // behind the names of the serial box, where a screen has more than one: "2"
  std::string quantityField = "StockOut";
  std::string priceField = "SellingPrice";  // of StockLevel3: the rate that an item brings along
  std::string priceCaption = "Selling Price";
  std::string grossCaption = "Gross Amount";
  std::string netCaption = "Net Amount";
  std::vector<int> historyTranTypes = {
      schema::tran_type::SaleInvoice};  // whose last four lines are a guide for the rate
  std::string historyQuantityField = "StockOut";
  std::string historyNumberCaption = "No";
  std::string historyPartyCaption = "Party";
  StockWarning stockWarning = StockWarning::None;
  SerialNumbers serialNumbers = SerialNumbers::None;
  ItemHistory history = ItemHistory::LastLines;
  F4Key f4 = F4Key::SerialBox;
  ScanRule scan = ScanRule::ToNextCell;
  LineRules rules = {};
};

}  // namespace velmo::frame
