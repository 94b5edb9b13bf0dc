#pragma once

#include <QStyledItemDelegate>

namespace velmo::frame {

// Paints the cells of a sheet: the current cell framed, its line tinted, a marked line filled.
class SheetCellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  // A figure that is wider than its cell is written smaller, so that no digit of it is lost.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace velmo::frame
