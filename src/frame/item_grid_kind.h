#pragma once

#include <string>

namespace velmo::frame {

enum class StockWarning { None, Shown };  // "Short Item Balance" when more is sold than there is
enum class SerialNumbers { None, Kept };  // the serial box of a line

// In what the item grids of the screens differ.
struct ItemGridKind {
  std::string quantityField = "StockOut";
  std::string priceField = "SellingPrice";  // of StockLevel3: the rate that an item brings along
  std::string priceCaption = "Selling Price";
  std::string grossCaption = "Gross Amount";
  std::string netCaption = "Net Amount";
  int historyTranType = 32;  // whose last four lines are a guide for the rate
  std::string historyQuantityField = "StockOut";
  StockWarning stockWarning = StockWarning::None;
  SerialNumbers serialNumbers = SerialNumbers::None;
};

}  // namespace velmo::frame
