#include "frame/sheets/sheet_cell_delegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

#include "forms/figure_fit.h"
#include "forms/look.h"

namespace velmo::frame {

void SheetCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  const QModelIndex current = view ? view->currentIndex() : QModelIndex();
  const bool marked = view && view->selectionModel()->isRowSelected(index.row());
  QStyleOptionViewItem plain = option;
  plain.state.setFlag(QStyle::State_Selected, marked);
  plain.state.setFlag(QStyle::State_HasFocus, false);
  plain.state.setFlag(QStyle::State_MouseOver, false);
  if (!marked && current.row() == index.row()) {
    QColor tint = forms::colours().accent;
    tint.setAlpha(26);
    painter->fillRect(option.rect, tint);
  }
  QStyledItemDelegate::paint(painter, plain, index);
  if (current != index) return;
  painter->save();
  const QWidget* focused = QApplication::focusWidget();
  const bool takesKeys = view->isActiveWindow() && (focused == view || view->isAncestorOf(focused));
  painter->setPen(QPen(takesKeys ? forms::colours().accent : forms::colours().border, 2));
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  painter->restore();
}

void SheetCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  constexpr int besideText = 6;  // at each side: the look's padding and what the style leaves
  QStyledItemDelegate::initStyleOption(option, index);
  if (option->displayAlignment & Qt::AlignRight)
    option->font = forms::fittedFigureFont(option->font, option->text, option->rect.width() - 2 * besideText);
  option->fontMetrics = QFontMetrics(option->font);
}

}  // namespace velmo::frame
