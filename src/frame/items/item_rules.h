#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/prompts.h"

namespace velmo::frame {

// The columns of the item grid, in their order.
enum class GridColumn {
  ItemCode,
  FlowId,  // hidden: key of the line
  Description,
  Quantity,
  Unit,
  Rate,
  GrossAmount,
  DiscountRate,
  Discount,
  NetAmount,
  Packing
};
inline constexpr int gridColumnCount = 11;

bool isReadOnly(GridColumn column);
bool isFigure(GridColumn column);  // written as "0.00;(0.00)"

// The cells of a line that rules look at, as plain texts.
struct LineCells {
  std::string itemCode;
  std::string gross;
  std::string discountRate;
};

// What may stand in the code of a line.
enum class LineCodes {
  Services,  // also a text that no item has: the line bills a service
  ItemsOnly  // each line is of an item; until it is given nothing else of the line can be typed
};

// How far quantities and rates may go.
enum class FigureRange {
  BelowLimit,   // less than 99999999
  WithinLimits  // up to 99999999, below zero no further either
};

// In what the rules of lines differ between kinds of documents.
struct LineRules {
  LineCodes codes = LineCodes::Services;
  FigureRange figures = FigureRange::BelowLimit;
};

struct EntryVerdict {
  bool refused = false;
  std::vector<session::Prompt> messages = {};  // told in this order, whether refused or not
};

// May a cell be opened for typing?
EntryVerdict beforeEdit(GridColumn column, const LineCells& line, const LineRules& rules = {});

// May a typed text stand in a cell? The stock on hand is a question of its own, see shortBalance().
bool acceptsEntry(GridColumn column, std::string_view typed, const LineCells& line, const LineRules& rules = {});

// A line of this code bills a service: it has no item and no stock.
bool isServiceCode(std::string_view itemCode);

// The warning that more is taken than there is. It does not refuse: a shop may sell what is still on its way.
std::optional<session::Prompt> shortBalance(std::string_view quantity, double available);

}  // namespace velmo::frame
