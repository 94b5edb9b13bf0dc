#include "masters/import/sheet_preview.h"

#include "forms/look.h"
#include "masters/import/import_mapping.h"
#include "masters/import/import_values.h"

namespace velmo::masters {
namespace {

constexpr std::size_t shownRows = 100;
constexpr std::size_t shownColumns = 100;

}  // namespace

void SheetPreview::setSheet(std::shared_ptr<const spreadsheet::Sheet> sheet) {
  beginResetModel();
  sheet_ = std::move(sheet);
  endResetModel();
}

int SheetPreview::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || !sheet_ ? 0 : static_cast<int>(std::min(sheet_->rows.size(), shownRows));
}

int SheetPreview::columnCount(const QModelIndex& parent) const {
  return parent.isValid() || !sheet_ ? 0 : static_cast<int>(std::min(sheet_->columnCount(), shownColumns));
}

QVariant SheetPreview::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !sheet_) return {};
  const spreadsheet::Cell& cell =
      sheet_->at(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
  const auto* problem = std::get_if<spreadsheet::CellProblem>(&cell);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return QString::fromStdString(problem ? problem->sentence : cleanText(textOf(cell)));
    case Qt::ForegroundRole:
      return problem ? QVariant(forms::colours().warning) : QVariant();
    case Qt::TextAlignmentRole:
      return int(Qt::AlignVCenter) | (std::holds_alternative<double>(cell) ? Qt::AlignRight : Qt::AlignLeft);
    default:
      return {};
  }
}

QVariant SheetPreview::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal) return int(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole || !sheet_) return {};
  if (orientation == Qt::Vertical) return section + 1;
  return QString::fromStdString(columnCaption(*sheet_, std::nullopt, static_cast<std::size_t>(section)));
}

}  // namespace velmo::masters
