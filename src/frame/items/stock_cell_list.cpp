#include "frame/items/stock_cell_list.h"

#include "frame/picking/drop_place.h"

namespace velmo::frame {

StockCellList::StockCellList(StockPanel& panel, QObject* parent) : CellList(parent), panel_(panel) {
  connect(&panel_, &StockPanel::chosen, this, &CellList::chosen);
  connect(&panel_, &StockPanel::givenUp, this, &CellList::givenUp);
  connect(&panel_, &StockPanel::listEntered, this, &CellList::entered);
  connect(&panel_, &StockPanel::listLeft, this, &CellList::left);
}

void StockCellList::open(const QWidget& sheet, const QRect& cell, const QString&) {
  panel_.narrow({});
  panel_.setGeometry(placeBelow(sheet, cell, *panel_.parentWidget(), panel_.wantedSize(), panel_.rowHeight()));
  panel_.show();
  panel_.raise();
}

}  // namespace velmo::frame
