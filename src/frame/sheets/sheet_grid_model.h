#pragma once

#include <QAbstractTableModel>

#include "frame/sheets/sheet_rows.h"

namespace velmo::frame {

// The cells of a sheet for a view.
class SheetGridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit SheetGridModel(SheetRows& rows, QObject* parent = nullptr);

  void reload();             // other lines
  void refreshRow(int row);  // other values in one line

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
  const SheetColumn& column(int section) const { return rows_.columns()[static_cast<std::size_t>(section)]; }

  SheetRows& rows_;
};

}  // namespace velmo::frame
