#pragma once

#include "frame/items/item_grid_kind.h"

namespace velmo::documents {

// Whether goods come or go, or leave one place and job for another.
enum class StockMovement {
  OneWay,
  BetweenPlaces  // behind every line that leaves stands one that arrives, which only a save writes
};

// In what documents of goods without a party differ from each other.
struct StockKind {
  frame::ItemGridKind lines;
  StockMovement movement = StockMovement::OneWay;
};

}  // namespace velmo::documents
