#include "frame/picking/pick_list_delegate.h"

#include <QApplication>
#include <QPainter>

#include "forms/look.h"
#include "forms/table_view.h"
#include "frame/picking/pick_list_model.h"

namespace velmo::frame {

void PickListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  initStyleOption(&row, index);
  row.text.clear();
  const QStyle& style = row.widget ? *row.widget->style() : *QApplication::style();
  style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

  const bool selected = row.state & QStyle::State_Selected;
  const QRect area = row.rect.adjusted(forms::spacing::Normal, 0, -forms::spacing::Normal, 0);
  const int digit = QFontMetrics(forms::figureFont()).horizontalAdvance('0');
  const int longest = index.data(PickListModel::LongestCode).toInt();
  const int codes = std::min((longest + 2) * digit, area.width() * 2 / 5);
  // Both fonts stand on one line.
  const int line = area.top() + (area.height() + row.fontMetrics.ascent() - row.fontMetrics.descent()) / 2;
  const auto draw = [&](int left, int width, const QFont& font, const QString& text) {
    painter->setFont(font);
    painter->drawText(left, line, QFontMetrics(font).elidedText(text, Qt::ElideRight, width));
  };
  painter->save();
  painter->setPen(row.palette.color(QPalette::Normal, selected ? QPalette::HighlightedText : QPalette::Text));
  draw(area.left(), codes - digit, forms::figureFont(), index.data(PickListModel::Code).toString());
  draw(area.left() + codes, area.width() - codes, row.font, index.data(PickListModel::Name).toString());
  painter->restore();
}

QSize PickListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return {QStyledItemDelegate::sizeHint(option, index).width(), forms::rowHeight(*option.widget)};
}

}  // namespace velmo::frame
