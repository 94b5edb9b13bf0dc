#include "forms/recordset_model.h"

#include "forms/look.h"

namespace velmo::forms {
namespace {

// Rows handed to a view at a time: more than the tallest screen shows, so that opening a list costs the same whatever
// its length.
constexpr int portion = 256;

}  // namespace

RecordsetModel::RecordsetModel(std::vector<TableColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)), fields_(columns_.size(), -1) {}

void RecordsetModel::setRecordset(store::Recordset rows) {
  beginResetModel();
  rows_ = std::move(rows);
  for (std::size_t i = 0; i < columns_.size(); ++i)
    fields_[i] = rows_.isOpen() ? rows_.fieldIndex(columns_[i].field) : -1;
  shown_ = availableUpTo(portion);
  endResetModel();
}

void RecordsetModel::reload() {
  beginResetModel();
  shown_ = availableUpTo(std::max(shown_, portion));
  endResetModel();
}

void RecordsetModel::refreshRow(int row) {
  if (row >= 0 && row < shown_) Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void RecordsetModel::refreshAll() {
  if (shown_ > 0) Q_EMIT dataChanged(index(0, 0), index(shown_ - 1, columnCount() - 1));
}

void RecordsetModel::showUpTo(int row) {
  const int wanted = availableUpTo(row + 1);
  if (wanted <= shown_) return;
  beginInsertRows({}, shown_, wanted - 1);
  shown_ = wanted;
  endInsertRows();
}

// A large result is read as far as its rows are wanted, not to its end.
int RecordsetModel::availableUpTo(int wanted) const {
  if (!rows_.isOpen()) return 0;
  store::Recordset rows = rows_;  // the same cursor
  const auto missing = wanted - static_cast<int>(rows.fetchedCount());
  if (missing > 0 && rows.hasMoreRows()) rows.fetchMore(missing);
  return static_cast<int>(std::min<std::int64_t>(wanted, rows_.fetchedCount()));
}

int RecordsetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shown_;
}

int RecordsetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

bool RecordsetModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && shown_ < availableUpTo(shown_ + 1);
}

void RecordsetModel::fetchMore(const QModelIndex& parent) {
  const int more = parent.isValid() ? 0 : availableUpTo(shown_ + portion) - shown_;
  if (more <= 0) return;
  beginInsertRows({}, shown_, shown_ + more - 1);
  shown_ += more;
  endInsertRows();
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= shown_) return {};
  const auto at = static_cast<std::size_t>(index.column());
  const TableColumn& column = columns_[at];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      if (fields_[at] < 0) return {};
      return shownValue(rows_.valueAt(index.row(), fields_[at]), column);
    case Qt::EditRole:
      if (fields_[at] < 0) return {};
      return QString::fromStdString(store::textOf(rows_.valueAt(index.row(), fields_[at])));
    case Qt::UserRole:
      return static_cast<qlonglong>(rows_.bookmarkAt(index.row()));
    case Qt::TextAlignmentRole:
      return qtAlignment(column.alignment);
    case Qt::FontRole:
      return column.format.empty() && column.alignment != ColumnAlignment::Right ? QVariant() : QVariant(figureFont());
    default:
      return {};
  }
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
    return QAbstractTableModel::headerData(section, orientation, role);
  const TableColumn& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return QString::fromStdString(column.caption);
  if (role == Qt::TextAlignmentRole) return qtAlignment(column.alignment);
  return {};
}

Qt::ItemFlags RecordsetModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (index.isValid() && columns_[static_cast<std::size_t>(index.column())].use == ColumnUse::Editable)
    flags |= Qt::ItemIsEditable;
  return flags;
}

bool RecordsetModel::setData(const QModelIndex& index, const QVariant& text, int role) {
  if (role != Qt::EditRole || !index.isValid() || index.row() >= shown_) return false;
  const auto at = static_cast<std::size_t>(index.column());
  if (columns_[at].use != ColumnUse::Editable || fields_[at] < 0) return false;
  const std::string typed = text.toString().toStdString();
  try {
    rows_.setAt(index.row(), fields_[at], typed.empty() ? store::Value() : store::Value(typed));
  } catch (const store::StoreError& error) {
    Q_EMIT refused(QString::fromUtf8(error.what()));
    return false;
  }
  refreshRow(index.row());
  return true;
}

void RecordsetModel::sort(int column, Qt::SortOrder order) {
  if (!rows_.isOpen() || column < 0 || column >= columnCount()) return;
  const std::string& field = columns_[static_cast<std::size_t>(column)].field;
  rows_.setSort(field + (order == Qt::AscendingOrder ? " asc" : " desc"));
  reload();
}

}  // namespace velmo::forms
