#include "forms/look.h"
#include "masters/import/import_check_page.h"

namespace velmo::masters {
namespace {

enum Column { Line, Code, Name, Place, Problem, columnsInAll };

}  // namespace

ImportCheckModel::ImportCheckModel(const ImportDescriptor& kind, QObject* parent)
    : QAbstractTableModel(parent), kind_(kind) {}

void ImportCheckModel::setPlan(const ImportPlan* plan) {
  plan_ = plan;
  reset();
}

void ImportCheckModel::setRows(Rows rows) {
  rows_ = rows;
  reset();
}

void ImportCheckModel::reset() {
  beginResetModel();
  withProblems_.clear();
  if (plan_ && rows_ == Rows::WithProblems)
    for (std::size_t i = 0; i < plan_->rows.size(); ++i)
      if (!plan_->rows[i].problem.empty()) withProblems_.push_back(i);
  endResetModel();
}

int ImportCheckModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid() || !plan_) return 0;
  return static_cast<int>(rows_ == Rows::All ? plan_->rows.size() : withProblems_.size());
}

int ImportCheckModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columnsInAll;
}

QVariant ImportCheckModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const auto at = static_cast<std::size_t>(index.row());
  const PlannedRow& row = plan_->rows[rows_ == Rows::All ? at : withProblems_[at]];
  if (role == Qt::TextAlignmentRole && index.column() == Line) return int(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::FontRole && index.column() == Line) return forms::figureFont();
  if (role == Qt::ForegroundRole && index.column() == Problem) return forms::colours().warning;
  if (role == Qt::EditRole && index.column() == Line) return static_cast<qlonglong>(row.line);
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::EditRole) return {};
  switch (index.column()) {
    case Line:
      return QString::number(row.line);
    case Code:
      return QString::fromStdString(row.code);
    case Name:
      return QString::fromStdString(row.name);
    case Place:
      return QString::fromStdString(row.place);
    default:
      return QString::fromStdString(row.problem);
  }
}

QVariant ImportCheckModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return int(Qt::AlignVCenter) | (section == Line ? Qt::AlignRight : Qt::AlignLeft);
  if (role != Qt::DisplayRole) return {};
  const QString captions[] = {QStringLiteral("Row"), QString::fromStdString(kind_.codeCaption), QStringLiteral("Name"),
                              QString::fromStdString(kind_.placeCaption), QStringLiteral("Problem")};
  return section < columnsInAll ? captions[section] : QString();
}

}  // namespace velmo::masters
