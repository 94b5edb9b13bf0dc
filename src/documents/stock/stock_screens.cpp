#include "documents/stock/stock_screens.h"

#include "documents/stock/stock_print.h"
#include "documents/stock/stock_types.h"
#include "frame/document/document_screen.h"

namespace velmo::documents {

namespace {

QWidget* makeScreen(frame::DocumentType type, StockPaper paper, session::Workplace& workplace, QWidget* parent,
                    frame::PrintOuts printOuts) {
  type.print = [paper = std::move(paper)](session::Workplace& place, const frame::DocumentValues& onScreen,
                                          QWidget* screen) { showStockPrint(place, paper, onScreen, screen); };
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace

QWidget* makeAddInventory(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(
      addInventoryType(),
      {.title = "Add Inventory Adjustment", .heading = "ADD INVENTORY ADJUSTMENT", .quantityField = "stockin"},
      workplace, parent, std::move(printOuts));
}

QWidget* makeReduceInventory(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(
      reduceInventoryType(),
      {.title = "Reduce Inventory Adjustment", .heading = "REDUCE INVENTORY ADJUSTMENT", .quantityField = "stockout"},
      workplace, parent, std::move(printOuts));
}

QWidget* makeInventoryTransfers(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(inventoryTransfersType(),
                    {.title = "Inventory Transfer",
                     .heading = "INVENTORY TRANSFER",
                     .quantityField = "stockout",
                     .movement = StockMovement::BetweenPlaces},
                    workplace, parent, std::move(printOuts));
}

}  // namespace velmo::documents
