#pragma once

#include <QAbstractTableModel>
#include <memory>

#include "spreadsheet/sheet.h"

namespace velmo::masters {

// The first rows of a sheet, as a spreadsheet shows them: columns by letters, rows by numbers.
class SheetPreview : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void setSheet(std::shared_ptr<const spreadsheet::Sheet> sheet);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  std::shared_ptr<const spreadsheet::Sheet> sheet_;
};

}  // namespace velmo::masters
