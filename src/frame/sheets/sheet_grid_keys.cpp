// The keys, the focus and the drop lists of a sheet.
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTableView>

#include "frame/picking/drop_place.h"
#include "frame/sheets/cell_list.h"
#include "frame/sheets/sheet_grid.h"

namespace velmo::frame {
namespace {

bool isEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isSave(const QKeyEvent& event) {
  return event.key() == Qt::Key_S && event.modifiers() == Qt::ControlModifier;
}

// Keys that a screen may use as its own shortcuts, but that mean something else while the grid has the focus.
bool isGridShortcut(const QKeyEvent& event) {
  return isSave(event) || event.key() == Qt::Key_Escape || event.key() == Qt::Key_F2 || event.key() == Qt::Key_F4 ||
         event.key() == Qt::Key_Delete;
}

bool isTyping(const QKeyEvent& event) {
  const bool command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return !command && !event.text().isEmpty() && event.text().at(0).isPrint();
}

}  // namespace

bool SheetGrid::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && isGridShortcut(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  if (watched == table_ && watchTable(*event)) return true;
  if (watched == editor_ && watchEditor(*event)) return true;
  if (watched == table_->viewport()) {
    if (event->type() == QEvent::Resize)
      QMetaObject::invokeMethod(
          this, [this] { placeOverCells(); }, Qt::QueuedConnection);
    // A refused text keeps the user in its cell.
    if (event->type() == QEvent::MouseButtonPress && !commitEdit()) return true;
    if (event->type() == QEvent::MouseButtonDblClick) return beginEdit();
  }
  return QWidget::eventFilter(watched, event);
}

bool SheetGrid::watchTable(QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
      return tableKey(static_cast<QKeyEvent&>(event));
    case QEvent::FocusIn:
      inListOrGrid_ = true;
      return false;
    case QEvent::FocusOut:
      if (!isPassingFocusLoss(static_cast<QFocusEvent&>(event))) focusLeft();
      return false;
    default:
      return false;
  }
}

bool SheetGrid::watchEditor(QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
      return editorKey(static_cast<QKeyEvent&>(event));
    case QEvent::FocusIn:
      inListOrGrid_ = true;
      return false;
    case QEvent::FocusOut:
      if (!isPassingFocusLoss(static_cast<QFocusEvent&>(event))) editorLeft();
      return false;
    default:
      return false;
  }
}

bool SheetGrid::tableKey(QKeyEvent& event) {
  if (isEditing()) {                                     // typed ahead, before the focus reached the cell
    if (editor_->hasFocus() || handingOn_) return true;  // the cell had no use for the key: it must not go round again
    const QScopedValueRollback handingOn(handingOn_, true);
    QCoreApplication::sendEvent(editor_, &event);
    return true;
  }
  if (commandKey(event)) return true;
  const bool rowMarked = !table_->selectionModel()->selectedRows().isEmpty();
  switch (event.key()) {
    case Qt::Key_F2:
      beginEdit();
      return true;
    case Qt::Key_Delete:
      rowMarked ? removeCurrentRow() : clearCell();
      return true;
    case Qt::Key_Backspace:
      beginReplace({});
      return true;
    default:
      break;
  }
  if (event.key() == Qt::Key_Space && event.modifiers() == Qt::ShiftModifier) {
    markRow(currentRow());
    return true;
  }
  if (isTyping(event)) {
    beginReplace(event.text());
    return true;
  }
  table_->clearSelection();
  return false;
}

bool SheetGrid::editorKey(const QKeyEvent& event) {
  if (commandKey(event)) return true;
  if (event.key() != Qt::Key_Down && event.key() != Qt::Key_Up) return false;
  if (CellList* list = openList()) {
    if (narrowTimer_.isActive()) narrowList();
    list->enter();
  } else {
    moveRows(event.key() == Qt::Key_Down ? 1 : -1);
  }
  return true;
}

// The keys that mean the same whether a cell is in edit or not.
bool SheetGrid::commandKey(const QKeyEvent& event) {
  if (isSave(event)) {
    if (commitEdit()) Q_EMIT saveRequested();
    return true;
  }
  if (isEnter(event) && enterPressed()) return true;
  if (isEnter(event) || event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) {
    if (!commitEdit()) return true;
    const bool moved = moveToNextCell(event.key() == Qt::Key_Backtab ? -1 : 1);
    return moved || isEnter(event);  // Tab beyond the last cell leaves the grid
  }
  switch (event.key()) {
    case Qt::Key_Escape:
      escape();
      return true;
    case Qt::Key_F4:
      Q_EMIT lookUpRequested();
      return true;
    case Qt::Key_Delete:
      if (!(event.modifiers() & Qt::ControlModifier)) return false;
      removeCurrentRow();
      return true;
    default:
      return false;
  }
}

void SheetGrid::escape() {
  const bool gaveUp = isEditing();
  cancelEdit();
  Q_EMIT linesChanged();
  if (!gaveUp) Q_EMIT escapePressed();
}

void SheetGrid::focusLeft() {
  inListOrGrid_ = false;
  IListTimer_.start();
}

// The focus is elsewhere: the cell ends, unless the user went into the list or the text is refused.
void SheetGrid::editorLeft() {
  if (ending_ || !isEditing()) return;
  const QWidget* now = QApplication::focusWidget();
  const CellList* list = listOf(current().column());
  if (now == editor_ || (list && list->holds(now))) return;
  focusLeft();
  if (commitEdit()) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (isEditing()) editor_->setFocus(Qt::OtherFocusReason);
      },
      Qt::QueuedConnection);
}

// A list that closed over a refused text opens again.
void SheetGrid::narrowSoon() {
  CellList* list = listOf(current().column());
  if (!list) return;
  if (!list->isOpen()) list->open(*table_->viewport(), table_->visualRect(current()), openedText_);
  narrowTimer_.start();
}

void SheetGrid::narrowList() {
  narrowTimer_.stop();
  if (CellList* list = openList()) list->narrow(editor_->text());
}

void SheetGrid::choose(const QString& key) {
  const QModelIndex cell = current();
  closeEditor();
  table_->setFocus(Qt::OtherFocusReason);
  if (!rows_->isBound() || !cell.isValid() || key.isEmpty()) return;
  if (rows_->choose(cell.row(), cell.column(), key.toStdString())) rowChanged(cell.row());
}

}  // namespace velmo::frame
