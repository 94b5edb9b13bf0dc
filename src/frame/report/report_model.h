#pragma once

#include <QAbstractTableModel>
#include <memory>
#include <string>
#include <vector>

#include "forms/recordset_model.h"
#include "frame/report/report_rows.h"
#include "spreadsheet/table_rows.h"
#include "text/decimal_sum.h"

namespace velmo::frame {

// The rows of a report for its grid, and the sums of some of their fields. The first rows are there at once; readOn()
// brings the others, in any number of steps.
class ReportModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Sums are kept of these fields; null counts as 0.
  ReportModel(std::vector<forms::TableColumn> columns, std::vector<std::string> summed, QObject* parent = nullptr);

  const std::vector<forms::TableColumn>& columns() const { return columns_; }
  void setRows(std::shared_ptr<ReportRows> rows);  // nothing: an empty grid
  const std::shared_ptr<ReportRows>& rows() const { return rows_; }

  bool isComplete() const { return !rows_ || !rows_->hasMore(); }
  bool pauses() const { return rows_ && rows_->pauses(); }
  void readOn(int rows);                     // hands them to the grid as well, in few large portions
  std::int64_t ready() const;                // rows read
  double sum(std::string_view field) const;  // over the rows read
  // Null outside the rows, and for a field that they do not have.
  store::Value value(std::int64_t row, std::string_view field) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  void sumUp();
  void handOut(std::int64_t rows);

  std::vector<forms::TableColumn> columns_;
  std::vector<int> fields_;  // of the rows, by column
  std::vector<std::string> summed_;
  std::vector<int> summedFields_;
  std::vector<text::DecimalSum> sums_;
  std::shared_ptr<ReportRows> rows_;
  std::int64_t summedRows_ = 0;
  int shown_ = 0;  // rows handed to the grid
};

}  // namespace velmo::frame
