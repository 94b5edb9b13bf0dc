#pragma once

#include <QAbstractTableModel>

#include "frame/item_sheet.h"

namespace velmo::frame {

// The cells of an item sheet for a view, in the order of GridColumn.
class ItemGridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit ItemGridModel(ItemSheet& sheet, QObject* parent = nullptr);

  void reload();             // other lines
  void refreshRow(int row);  // other values in one line

  static QString caption(const ItemGridKind& kind, GridColumn column);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  // As typed into the cell, under the column's rules.
  bool setData(const QModelIndex& index, const QVariant& text, int role = Qt::EditRole) override;

 Q_SIGNALS:
  void entered();  // a text was accepted by setData()

 private:
  ItemSheet& sheet_;
};

}  // namespace velmo::frame
