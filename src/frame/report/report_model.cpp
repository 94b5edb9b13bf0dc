#include "frame/report/report_model.h"

#include <limits>

#include "forms/look.h"

namespace velmo::frame {
namespace {

std::vector<int> fieldsOf(const ReportRows* rows, const std::vector<std::string>& names) {
  std::vector<int> fields;
  for (const std::string& name : names) fields.push_back(rows ? rows->field(name) : -1);
  return fields;
}

}  // namespace

ReportModel::ReportModel(std::vector<forms::TableColumn> columns, std::vector<std::string> summed, QObject* parent)
    : QAbstractTableModel(parent),
      columns_(std::move(columns)),
      fields_(columns_.size(), -1),
      summed_(std::move(summed)),
      summedFields_(summed_.size(), -1),
      sums_(summed_.size()) {}

void ReportModel::setRows(std::shared_ptr<ReportRows> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  for (std::size_t i = 0; i < columns_.size(); ++i) fields_[i] = rows_ ? rows_->field(columns_[i].field) : -1;
  summedFields_ = fieldsOf(rows_.get(), summed_);
  sums_.assign(summed_.size(), text::DecimalSum());
  summedRows_ = 0;
  sumUp();
  shown_ = static_cast<int>(ready());
  endResetModel();
}

std::int64_t ReportModel::ready() const {
  return rows_ ? std::min<std::int64_t>(rows_->ready(), std::numeric_limits<int>::max()) : 0;
}

void ReportModel::sumUp() {
  for (const std::int64_t ready = this->ready(); summedRows_ < ready; ++summedRows_)
    for (std::size_t i = 0; i < summedFields_.size(); ++i)
      if (summedFields_[i] >= 0) sums_[i] += store::numberOf(rows_->value(summedRows_, summedFields_[i]));
}

// A view's work at each insertion grows with its rows, so the portions grow as well.
void ReportModel::readOn(int rows) {
  if (isComplete()) return;
  rows_->read(rows);
  sumUp();
  if (isComplete() || ready() > 2 * static_cast<std::int64_t>(shown_)) handOut(ready());
}

void ReportModel::handOut(std::int64_t rows) {
  if (rows <= shown_) return;
  beginInsertRows({}, shown_, static_cast<int>(rows) - 1);
  shown_ = static_cast<int>(rows);
  endInsertRows();
}

double ReportModel::sum(std::string_view field) const {
  const auto found = std::ranges::find(summed_, field);
  return found == summed_.end() ? 0 : sums_[static_cast<std::size_t>(found - summed_.begin())].value();
}

store::Value ReportModel::value(std::int64_t row, std::string_view field) const {
  const int index = rows_ ? rows_->field(field) : -1;
  return index < 0 || row < 0 || row >= ready() ? store::Value() : rows_->value(row, index);
}

int ReportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shown_;
}

int ReportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

bool ReportModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && (shown_ < ready() || !isComplete());
}

void ReportModel::fetchMore(const QModelIndex& parent) {
  constexpr int portion = 512;
  if (parent.isValid()) return;
  if (shown_ == ready() && !isComplete()) {
    rows_->read(portion);
    sumUp();
  }
  handOut(ready());
}

QVariant ReportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= shown_) return {};
  const auto at = static_cast<std::size_t>(index.column());
  const forms::TableColumn& column = columns_[at];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return fields_[at] < 0 ? QVariant() : forms::shownValue(rows_->value(index.row(), fields_[at]), column);
    case Qt::TextAlignmentRole:
      return forms::qtAlignment(column.alignment);
    case Qt::FontRole:
      return column.format.empty() && column.alignment != forms::ColumnAlignment::Right ? QVariant()
                                                                                        : QVariant(forms::figureFont());
    default:
      return {};
  }
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
    return QAbstractTableModel::headerData(section, orientation, role);
  const forms::TableColumn& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return QString::fromStdString(column.caption);
  if (role == Qt::TextAlignmentRole) return forms::qtAlignment(column.alignment);
  return {};
}

}  // namespace velmo::frame
