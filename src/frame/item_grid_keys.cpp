// The item grid's keys, focus and drop list.
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

#include "frame/drop_place.h"
#include "frame/item_grid.h"
#include "frame/serial_panel.h"
#include "frame/stock_panel.h"

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

bool ItemGrid::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && isGridShortcut(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  if (watched == Grid_ && watchTable(*event)) return true;
  if (watched == editor_ && watchEditor(*event)) return true;
  if (watched == Grid_->viewport()) {
    if (event->type() == QEvent::Resize)
      QMetaObject::invokeMethod(this, &ItemGrid::placeOverCells, Qt::QueuedConnection);
    // A refused text keeps the user in its cell.
    if (event->type() == QEvent::MouseButtonPress && !commitEdit()) return true;
    if (event->type() == QEvent::MouseButtonDblClick) return beginEdit();
  }
  return QWidget::eventFilter(watched, event);
}

bool ItemGrid::watchTable(QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
      return tableKey(static_cast<QKeyEvent&>(event));
    case QEvent::FocusIn:
      InItemList_ = true;
      return false;
    case QEvent::FocusOut:
      if (!isPassingFocusLoss(static_cast<QFocusEvent&>(event))) focusLeft();
      return false;
    default:
      return false;
  }
}

bool ItemGrid::watchEditor(QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
      return editorKey(static_cast<QKeyEvent&>(event));
    case QEvent::FocusIn:
      InItemList_ = true;
      return false;
    case QEvent::FocusOut:
      if (!isPassingFocusLoss(static_cast<QFocusEvent&>(event))) editorLeft();
      return false;
    default:
      return false;
  }
}

bool ItemGrid::tableKey(QKeyEvent& event) {
  if (isEditing()) {                       // typed ahead, before the focus reached the cell
    if (editor_->hasFocus()) return true;  // the cell had no use for the key: it must not go round again
    QCoreApplication::sendEvent(editor_, &event);
    return true;
  }
  if (commandKey(event)) return true;
  const bool rowMarked = !Grid_->selectionModel()->selectedRows().isEmpty();
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
    markRow(Grid_->currentIndex().row());
    return true;
  }
  if (isTyping(event)) {
    beginReplace(event.text());
    return true;
  }
  Grid_->clearSelection();
  return false;
}

bool ItemGrid::editorKey(const QKeyEvent& event) {
  if (commandKey(event)) return true;
  if (event.key() != Qt::Key_Down && event.key() != Qt::Key_Up) return false;
  if (StockBox_->isVisible()) {
    if (narrowTimer_.isActive()) narrowItems();
    StockBox_->enterList();
  } else {
    moveRows(event.key() == Qt::Key_Down ? 1 : -1);
  }
  return true;
}

// The keys that mean the same whether a cell is in edit or not.
bool ItemGrid::commandKey(const QKeyEvent& event) {
  if (isSave(event)) {
    if (commitEdit()) Q_EMIT saveRequested();
    return true;
  }
  if (isEnter(event) && scanTyped()) return true;
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
      if (sheet_.kind().f4 == F4Key::ItemList)
        openItemList();
      else
        toggleSerialBox();
      return true;
    case Qt::Key_Delete:
      if (!(event.modifiers() & Qt::ControlModifier)) return false;
      removeCurrentRow();
      return true;
    default:
      return false;
  }
}

void ItemGrid::escape() {
  const bool gaveUp = isEditing();
  cancelEdit();
  Q_EMIT linesChanged();
  if (!gaveUp) Q_EMIT escapePressed();
}

void ItemGrid::focusLeft() {
  InItemList_ = false;
  IListTimer_.start();
}

// The focus is elsewhere: the cell ends, unless the user went into the list or the text is refused.
void ItemGrid::editorLeft() {
  if (ending_ || !isEditing()) return;
  const QWidget* now = QApplication::focusWidget();
  if (now == editor_ || StockBox_->isInside(now)) return;
  focusLeft();
  if (commitEdit()) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (isEditing()) editor_->setFocus(Qt::OtherFocusReason);
      },
      Qt::QueuedConnection);
}

void ItemGrid::showStockPanel() {
  const QRect cell = Grid_->visualRect(Grid_->currentIndex());
  StockBox_->narrow({});
  StockBox_->setGeometry(placeBelow(*Grid_->viewport(), cell, *StockBox_->parentWidget(), StockBox_->wantedSize()));
  StockBox_->show();
  StockBox_->raise();
}

// Enter in the code of a line that is still free is a scan, where the document is written at the counter.
bool ItemGrid::scanTyped() {
  if (sheet_.kind().scan != ScanRule::OnePiece || !isEditing() || !openedText_.isEmpty()) return false;
  const QString code = editor_->text().trimmed();
  if (Grid_->currentIndex().column() != static_cast<int>(GridColumn::ItemCode) || code.isEmpty()) return false;
  if (isServiceCode(code.toStdString())) return false;
  scan(code);
  return true;
}

void ItemGrid::scan(const QString& code) {
  if (!isBound()) return;
  cancelEdit();
  const std::optional<int> row = sheet_.scan(code.toStdString(), again_);
  if (!row) {
    QApplication::beep();
    Q_EMIT unknownScanned(code);
    return;
  }
  lineChanged(*row);
  int next = 0;
  while (next + 1 < sheet_.rowCount() && !sheet_.plainText(next, GridColumn::ItemCode).empty()) ++next;
  setCurrentCell(next, GridColumn::ItemCode);
  Grid_->scrollTo(Grid_->currentIndex());
  Grid_->setFocus(Qt::OtherFocusReason);
  Q_EMIT scanned();
}

// The list of the item code of this line, whatever cell the user is in.
void ItemGrid::openItemList() {
  if (StockBox_->isVisible()) return StockBox_->enterList();
  const int row = Grid_->currentIndex().row();
  if (row >= 0 && setCurrentCell(row, GridColumn::ItemCode) && beginEdit()) StockBox_->enterList();
}

void ItemGrid::narrowItems() {
  narrowTimer_.stop();
  StockBox_->narrow(editor_->text());
}

void ItemGrid::choose(const QString& itemCode) {
  const QModelIndex cell = Grid_->currentIndex();
  closeEditor();
  Grid_->setFocus(Qt::OtherFocusReason);
  if (!isBound() || !cell.isValid() || itemCode.isEmpty()) return;
  if (sheet_.chooseItem(cell.row(), itemCode.toStdString())) lineChanged(cell.row());
}

void ItemGrid::toggleSerialBox() {
  if (!SerialTxt_ || !isBound()) return;
  if (SerialTxt_->isVisible()) {
    SerialTxt_->finish();
    return;
  }
  const QModelIndex cell = Grid_->currentIndex();
  if (!cell.isValid() || !commitEdit() || sheet_.plainText(cell.row(), GridColumn::ItemCode).empty()) return;
  serialRow_ = cell.row();
  const QRect line = Grid_->visualRect(cell.siblingAtColumn(static_cast<int>(GridColumn::Description)));
  const QSize wanted(fontMetrics().averageCharWidth() * 46, fontMetrics().height() * 7);
  SerialTxt_->setGeometry(placeBelow(*Grid_->viewport(), line, *SerialTxt_->parentWidget(), wanted));
  SerialTxt_->open(QString::fromStdString(sheet_.productSerials(serialRow_)));
}

}  // namespace velmo::frame
