#pragma once

#include "frame/items/stock_panel.h"
#include "frame/sheets/cell_list.h"

namespace velmo::frame {

// The stock panel as the drop list of the item code.
class StockCellList : public CellList {
  Q_OBJECT

 public:
  // The panel outlives the list.
  explicit StockCellList(StockPanel& panel, QObject* parent = nullptr);

  void open(const QWidget& sheet, const QRect& cell, const QString& text) override;
  void narrow(const QString& typed) override { panel_.narrow(typed); }
  void enter() override { panel_.enterList(); }
  void close() override { panel_.hide(); }
  bool isOpen() const override { return panel_.isVisible(); }
  bool holds(const QWidget* widget) const override { return panel_.isInside(widget); }

 private:
  StockPanel& panel_;
};

}  // namespace velmo::frame
