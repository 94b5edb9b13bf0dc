#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <string>
#include <vector>

#include "store/recordset.h"

namespace velmo::forms {

enum class ColumnAlignment { Left, Centre, Right };
enum class ColumnUse { Shown, Editable };

// What a spreadsheet of a list holds of a number that is shown in a format.
enum class FigureKind {
  Money,  // the amount that is shown
  Exact   // every digit: rates, costs and quantities
};

// One column of a list. Numbers and dates are written in the format ("0.00;(0.00)", "dd-mm-yyyy"); without a format
// the text is what the store gives.
struct TableColumn {
  std::string caption;
  std::string field;
  std::string format = {};
  ColumnAlignment alignment = ColumnAlignment::Left;
  int width = 12;  // in average characters
  ColumnUse use = ColumnUse::Shown;
  std::string yes = {};  // of a Yes/No column: what stands for Yes and for No
  std::string no = {};
  FigureKind figures = FigureKind::Money;
};

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
  QString shownText(const store::Value& value, const TableColumn& column) const;
  int availableUpTo(int wanted) const;

  std::vector<TableColumn> columns_;
  std::vector<int> fields_;  // of the recordset, by column
  store::Recordset rows_;
  int shown_ = 0;  // rows handed to the view so far
};

}  // namespace velmo::forms
