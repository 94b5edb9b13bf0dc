#include "frame/master/grid_table.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>

#include "forms/look.h"
#include "forms/table_view.h"

namespace velmo::frame {
namespace {

// Enter closes the editor as Tab does.
class GridDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor)) {
      line->setAlignment(static_cast<Qt::Alignment>(index.data(Qt::TextAlignmentRole).toInt()));
      line->setFont(forms::figureFont());
    }
    return editor;
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (key && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
      auto* editor = qobject_cast<QWidget*>(watched);
      Q_EMIT commitData(editor);
      Q_EMIT closeEditor(editor, EditNextItem);
      return true;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
  }
};

}  // namespace

GridTable::GridTable(QWidget* parent) : QTableView(parent) {
  forms::dressTable(*this);
  setItemDelegate(new GridDelegate(this));
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                  QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked);
}

QModelIndex GridTable::nextEditable(int step) const {
  const QModelIndex from = currentIndex();
  if (!from.isValid()) return {};
  const int columns = model()->columnCount();
  int row = from.row();
  int column = from.column();
  while (true) {
    column += step;
    if (column < 0 || column >= columns) {
      row += step;
      column = step > 0 ? 0 : columns - 1;
    }
    if (row == model()->rowCount() && model()->canFetchMore({})) model()->fetchMore({});
    if (row < 0 || row >= model()->rowCount()) return {};
    const QModelIndex next = model()->index(row, column);
    if (!isColumnHidden(column) && next.flags().testFlag(Qt::ItemIsEditable)) return next;
  }
}

QModelIndex GridTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MoveNext || action == MovePrevious) return nextEditable(action == MoveNext ? 1 : -1);
  return QTableView::moveCursor(action, modifiers);
}

void GridTable::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const QModelIndex at = currentIndex();
  if (event->key() == Qt::Key_Space && at.isValid() && !at.flags().testFlag(Qt::ItemIsEditable)) {
    Q_EMIT doubleClicked(at);
    return;
  }
  if (!isEnter || state() == EditingState) return QTableView::keyPressEvent(event);
  const QModelIndex next = nextEditable(1);
  if (next.isValid()) setCurrentIndex(next);
}

}  // namespace velmo::frame
