#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <string>
#include <vector>

#include "forms/table_column.h"
#include "store/recordset/recordset.h"

namespace velmo::forms {

// The rows of a recordset in its present order as an item model. The recordset's own position is its user's business:
// neither reading nor writing moves it. Whoever moves, sorts, filters or queries the recordset tells the model after
// it. Qt::EditRole is the plain text of the value, Qt::UserRole the row's bookmark.
class RecordsetModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit RecordsetModel(std::vector<TableColumn> columns, QObject* parent = nullptr);

  const std::vector<TableColumn>& columns() const { return columns_; }
  store::Recordset& rows() { return rows_; }

  void setRecordset(store::Recordset rows);  // a closed one gives an empty list
  void reload();                             // other rows, or another order
  void refreshRow(int row);                  // other values in one row
  void refreshAll();                         // other values, the same rows
  void showUpTo(int row);                    // hands the row out, and those before it, at once

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  // Writes the text of an editable cell; a text that does not fit the column is refused and told by refused().
  bool setData(const QModelIndex& index, const QVariant& text, int role = Qt::EditRole) override;
  void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

 Q_SIGNALS:
  void refused(const QString& sentence);

 private:
  int availableUpTo(int wanted) const;

  std::vector<TableColumn> columns_;
  std::vector<int> fields_;  // of the recordset, by column
  store::Recordset rows_;
  int shown_ = 0;  // rows handed to the view so far
};

}  // namespace velmo::forms
