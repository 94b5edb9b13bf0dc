#include "frame/sheets/sheet_grid_model.h"

#include "forms/look.h"

namespace velmo::frame {
namespace {

int alignmentOf(const SheetColumn& column) {
  return int((column.kind == CellKind::Figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

}  // namespace

SheetGridModel::SheetGridModel(SheetRows& rows, QObject* parent) : QAbstractTableModel(parent), rows_(rows) {}

void SheetGridModel::reload() {
  beginResetModel();
  endResetModel();
}

void SheetGridModel::refreshRow(int row) {
  Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int SheetGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_.rowCount();
}

int SheetGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.columns().size());
}

QVariant SheetGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_.rowCount()) return {};
  const SheetColumn& column = this->column(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(rows_.shownText(index.row(), index.column()));
    case Qt::EditRole:
      return QString::fromStdString(rows_.editText(index.row(), index.column()));
    case Qt::ToolTipRole: {
      const std::string plain = rows_.plainText(index.row(), index.column());
      return plain.empty() ? QVariant() : QVariant(QString::fromStdString(plain));
    }
    case Qt::TextAlignmentRole:
      return alignmentOf(column);
    case Qt::FontRole:
      return column.kind == CellKind::Figure ? QVariant(forms::figureFont()) : QVariant();
    case Qt::ForegroundRole:
      return column.use == CellUse::Locked ? QVariant(forms::colours().quietText) : QVariant();
    case Qt::AccessibleTextRole:
      return QString::fromStdString(column.caption + " " + rows_.shownText(index.row(), index.column()));
    default:
      return {};
  }
}

QVariant SheetGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
  if (role == Qt::DisplayRole) return QString::fromStdString(column(section).caption);
  if (role == Qt::TextAlignmentRole) return alignmentOf(column(section));
  return {};
}

Qt::ItemFlags SheetGridModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  flags.setFlag(Qt::ItemIsEditable, index.isValid() && !isLocked(column(index.column())));
  return flags;
}

bool SheetGridModel::setData(const QModelIndex& index, const QVariant& text, int role) {
  if (role != Qt::EditRole || !index.isValid()) return false;
  if (!rows_.enter(index.row(), index.column(), text.toString().toStdString())) return false;
  refreshRow(index.row());
  Q_EMIT entered();
  return true;
}

}  // namespace velmo::frame
