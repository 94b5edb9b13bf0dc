#pragma once

#include <QStyledItemDelegate>

namespace velmo::frame {

// The rows of a drop list over a PickListModel: as high as those of a grid, the code and the name in two columns.
class PickListDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace velmo::frame
