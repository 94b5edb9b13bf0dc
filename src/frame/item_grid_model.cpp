#include "frame/item_grid_model.h"

#include "forms/look.h"

namespace velmo::frame {

ItemGridModel::ItemGridModel(ItemSheet& sheet, QObject* parent) : QAbstractTableModel(parent), sheet_(sheet) {}

void ItemGridModel::reload() {
  beginResetModel();
  endResetModel();
}

void ItemGridModel::refreshRow(int row) {
  Q_EMIT dataChanged(index(row, 0), index(row, gridColumnCount - 1));
}

QString ItemGridModel::caption(const ItemGridKind& kind, GridColumn column) {
  switch (column) {
    case GridColumn::ItemCode:
      return "Item Code";
    case GridColumn::FlowId:
      return "Line";
    case GridColumn::Description:
      return "Description";
    case GridColumn::Quantity:
      return "Quantity";
    case GridColumn::Unit:
      return "Unit";
    case GridColumn::Rate:
      return "Rate";
    case GridColumn::GrossAmount:
      return QString::fromStdString(kind.grossCaption);
    case GridColumn::DiscountRate:
      return "Disc %";
    case GridColumn::Discount:
      return "Discount";
    case GridColumn::NetAmount:
      return QString::fromStdString(kind.netCaption);
    case GridColumn::Packing:
      return "Packing Detail";
  }
  return {};
}

int ItemGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : sheet_.rowCount();
}

int ItemGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : gridColumnCount;
}

QVariant ItemGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= sheet_.rowCount()) return {};
  const auto column = static_cast<GridColumn>(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(sheet_.shownText(index.row(), column));
    case Qt::EditRole:
      return QString::fromStdString(sheet_.editText(index.row(), column));
    case Qt::ToolTipRole: {
      const std::string plain = sheet_.plainText(index.row(), column);
      return plain.empty() ? QVariant() : QVariant(QString::fromStdString(plain));
    }
    case Qt::TextAlignmentRole:
      return int((isFigure(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::FontRole:
      return isFigure(column) ? QVariant(forms::figureFont()) : QVariant();
    case Qt::ForegroundRole:
      // The line's result is read most; the other columns that nobody types step back.
      return isReadOnly(column) && column != GridColumn::NetAmount ? QVariant(forms::colours().quietText) : QVariant();
    case Qt::AccessibleTextRole:
      return QString(caption(sheet_.kind(), column) + " " +
                     QString::fromStdString(sheet_.shownText(index.row(), column)));
    default:
      return {};
  }
}

QVariant ItemGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
  const auto column = static_cast<GridColumn>(section);
  if (role == Qt::DisplayRole) return caption(sheet_.kind(), column);
  if (role == Qt::TextAlignmentRole) return int((isFigure(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  return {};
}

Qt::ItemFlags ItemGridModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  flags.setFlag(Qt::ItemIsEditable, index.isValid() && !isReadOnly(static_cast<GridColumn>(index.column())));
  return flags;
}

bool ItemGridModel::setData(const QModelIndex& index, const QVariant& text, int role) {
  if (role != Qt::EditRole || !index.isValid()) return false;
  if (!sheet_.enter(index.row(), static_cast<GridColumn>(index.column()), text.toString().toStdString())) return false;
  refreshRow(index.row());
  Q_EMIT entered();
  return true;
}

}  // namespace velmo::frame
