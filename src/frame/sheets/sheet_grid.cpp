#include "frame/sheets/sheet_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include "forms/figure_fit.h"
#include "forms/look.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "frame/picking/drop_place.h"
#include "frame/sheets/cell_list.h"
#include "frame/sheets/sheet_cell_delegate.h"
#include "frame/sheets/sheet_grid_model.h"

namespace velmo::frame {

SheetGrid::SheetGrid(QWidget* parent) : QWidget(parent) {}

SheetGrid::~SheetGrid() {
  forms::stopListening(*this);
}

void SheetGrid::build(SheetRows& rows, const QString& name, const QString& accessibleName) {
  rows_ = &rows;
  model_ = new SheetGridModel(rows, this);
  connect(model_, &SheetGridModel::entered, this, &SheetGrid::linesChanged);
  buildTable(name, accessibleName);
  buildEditor();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(table_);
  setFocusProxy(table_);
}

void SheetGrid::buildTable(const QString& name, const QString& accessibleName) {
  table_ = new QTableView(this);
  table_->setObjectName(name);
  table_->setAccessibleName(accessibleName);
  forms::dressTable(*table_);
  table_->setAlternatingRowColors(false);
  table_->setModel(model_);
  table_->setItemDelegate(new SheetCellDelegate(table_));
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionMode(QAbstractItemView::NoSelection);
  table_->setTabKeyNavigation(false);
  table_->verticalHeader()->show();
  table_->verticalHeader()->setSectionsClickable(true);
  table_->verticalHeader()->setToolTip("Click to mark the line, Delete removes it");
  table_->installEventFilter(this);
  table_->viewport()->installEventFilter(this);
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, &SheetGrid::currentChanged);
  connect(table_->verticalHeader(), &QHeaderView::sectionClicked, this, [this](int row) {
    if (!setCurrentCell(row, 0)) return;
    markRow(row);
    table_->setFocus(Qt::MouseFocusReason);
  });
  for (QScrollBar* bar : {table_->verticalScrollBar(), table_->horizontalScrollBar()}) {
    connect(bar, &QScrollBar::valueChanged, this, [this] { placeOverCells(); });
  }
  connect(table_->horizontalHeader(), &QHeaderView::sectionResized, this, [this] { placeOverCells(); });
  sizeColumns();
}

void SheetGrid::sizeColumns() {
  const int figure = QFontMetrics(forms::figureFont()).horizontalAdvance('0');
  QHeaderView* header = table_->horizontalHeader();
  for (int i = 0; i < model_->columnCount(); ++i) {
    const int forCaption = header->fontMetrics().horizontalAdvance(QString::fromStdString(column(i).caption));
    table_->setColumnWidth(i, std::max(column(i).width * figure, forCaption) + 2 * forms::spacing::Normal);
    if (column(i).width == 0) header->setSectionResizeMode(i, QHeaderView::Stretch);
    table_->setColumnHidden(i, column(i).use == CellUse::Hidden);
  }
  table_->verticalHeader()->setFixedWidth(figure * 3 + 2 * forms::spacing::Normal);
  table_->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
}

void SheetGrid::buildEditor() {
  editor_ = new QLineEdit(table_->viewport());
  editor_->setObjectName("GridCell");
  editor_->setFrame(false);
  editor_->setAutoFillBackground(true);
  forms::keepFigureWhole(*editor_);
  editor_->installEventFilter(this);
  editor_->hide();
  narrowTimer_.setSingleShot(true);
  narrowTimer_.setInterval(0);  // keys that wait already are answered together
  connect(&narrowTimer_, &QTimer::timeout, this, &SheetGrid::narrowList);
  connect(editor_, &QLineEdit::textEdited, this, [this] {
    editor_->setPalette({});
    narrowSoon();
  });
  IListTimer_.setObjectName("IListTimer");
  IListTimer_.setSingleShot(true);
  IListTimer_.setInterval(dropListDelay);
  connect(&IListTimer_, &QTimer::timeout, this, [this] {
    if (inListOrGrid_) return;
    for (const ColumnList& each : lists_) each.list->close();
  });
}

void SheetGrid::setList(int column, CellList& list) {
  lists_.push_back({column, &list});
  connect(&list, &CellList::chosen, this, &SheetGrid::choose);
  connect(&list, &CellList::entered, this, [this] { inListOrGrid_ = true; });
  connect(&list, &CellList::left, this, &SheetGrid::editorLeft);
  connect(&list, &CellList::givenUp, this,
          [this] { isEditing() ? editor_->setFocus(Qt::OtherFocusReason) : table_->setFocus(Qt::OtherFocusReason); });
}

CellList* SheetGrid::listOf(int column) const {
  const auto found = std::ranges::find(lists_, column, &ColumnList::column);
  return found == lists_.end() ? nullptr : found->list;
}

CellList* SheetGrid::openList() const {
  CellList* list = isEditing() ? listOf(current().column()) : nullptr;
  return list && list->isOpen() ? list : nullptr;
}

void SheetGrid::showRows() {
  cancelEdit();
  model_->reload();
  if (rows_->rowCount() > 0) {
    setCurrentCell(0, 0);
    table_->scrollToTop();
  }
  for (const ColumnList& each : lists_) each.list->close();
  placeOverCells();
}

std::string SheetGrid::written() const {
  std::string all;
  const int columns = static_cast<int>(rows_->columns().size());
  for (int row = 0; row < rows_->rowCount(); ++row)
    for (int index = 0; index < columns; ++index) {
      const bool typed =
          isEditing() && current().row() == row && current().column() == index && typedText() != openedText_;
      const std::string text = typed ? typedText().toStdString() : rows_->plainText(row, index);
      if (!text.empty()) all += std::to_string(row) + ':' + std::to_string(index) + '=' + text + '\n';
    }
  return all;
}

void SheetGrid::focusFirstCell() {
  if (setCurrentCell(0, 0)) table_->setFocus(Qt::OtherFocusReason);
}

void SheetGrid::focusCurrentCell() {
  table_->setFocus(Qt::OtherFocusReason);
}

QModelIndex SheetGrid::current() const {
  return table_->currentIndex();
}

int SheetGrid::currentRow() const {
  return current().row();
}

bool SheetGrid::setCurrentCell(int row, int column) {
  if (!commitEdit()) return false;
  table_->clearSelection();
  table_->setCurrentIndex(model_->index(row, column));
  return true;
}

bool SheetGrid::isEditing() const {
  return editor_ && !editor_->isHidden();
}

QString SheetGrid::typedText() const {
  return editor_->text();
}

bool SheetGrid::beginEdit() {
  const QModelIndex cell = current();
  if (!rows_->isBound() || !cell.isValid() || isEditing()) return false;
  if (!rows_->mayEdit(cell.row(), cell.column())) return false;
  const SheetColumn& column = this->column(cell.column());
  const bool figure = column.kind == CellKind::Figure;
  table_->clearSelection();
  table_->scrollTo(cell);
  openedText_ = QString::fromStdString(rows_->editText(cell.row(), cell.column()));
  editor_->setAlignment(figure ? Qt::AlignRight : Qt::AlignLeft);
  editor_->setFont(figure ? forms::figureFont() : table_->font());
  editor_->setAccessibleName(QString::fromStdString(column.caption));
  editor_->setPalette({});
  editor_->setText(openedText_);
  editor_->selectAll();
  editor_->show();
  placeOverCells();
  editor_->setFocus(Qt::OtherFocusReason);
  if (CellList* list = listOf(cell.column())) list->open(*table_->viewport(), table_->visualRect(cell), openedText_);
  return true;
}

void SheetGrid::beginReplace(const QString& typed) {
  if (!beginEdit()) return;
  editor_->setText(typed);
  narrowSoon();
}

bool SheetGrid::commitEdit() {
  if (!isEditing()) return true;
  if (ending_) return false;
  const QModelIndex cell = current();
  if (editor_->text() == openedText_) {
    closeEditor();
    return true;
  }
  ending_ = true;
  const bool accepted = rows_->enter(cell.row(), cell.column(), editor_->text().toStdString());
  ending_ = false;
  if (!accepted) {
    QPalette refused = palette();
    refused.setColor(QPalette::Text, forms::colours().warning);
    editor_->setPalette(refused);
    editor_->selectAll();
    narrowTimer_.stop();
    if (CellList* list = openList()) list->close();
    return false;
  }
  closeEditor();
  rowChanged(cell.row());
  return true;
}

void SheetGrid::cancelEdit() {
  if (isEditing()) closeEditor();
}

void SheetGrid::closeEditor() {
  narrowTimer_.stop();
  CellList* list = listOf(current().column());
  // Of its window, which is not yet the active one again when a message has just been answered.
  const QWidget* focus = window()->focusWidget();
  const bool hadFocus = focus == editor_ || (list && list->holds(focus));
  ending_ = true;
  if (hadFocus) table_->setFocus(Qt::OtherFocusReason);
  editor_->hide();
  if (list) list->close();
  ending_ = false;
}

void SheetGrid::rowChanged(int row) {
  model_->refreshRow(row);
  placeOverCells();
  Q_EMIT linesChanged();
}

void SheetGrid::currentChanged(const QModelIndex& current) {
  for (const ColumnList& each : lists_)
    if (each.column != current.column()) each.list->close();
  table_->viewport()->update();
  placeOverCells();
}

void SheetGrid::placeOverCells() {
  if (isEditing()) editor_->setGeometry(table_->visualRect(current()).adjusted(1, 1, -1, -1));
}

bool SheetGrid::moveToNextCell(int step) {
  const QModelIndex cell = current();
  if (!cell.isValid()) return false;
  const int columns = model_->columnCount();
  int row = cell.row();
  int column = cell.column();
  do {
    column += step;
    if (column < 0 || column >= columns) {
      row += step;
      column = step > 0 ? 0 : columns - 1;
    }
    if (row < 0 || row >= rows_->rowCount()) return false;
  } while (isLocked(this->column(column)));
  return setCurrentCell(row, column);
}

void SheetGrid::moveRows(int rows) {
  const QModelIndex cell = current();
  const int row = std::clamp(cell.row() + rows, 0, std::max(0, rows_->rowCount() - 1));
  setCurrentCell(row, cell.column());
}

void SheetGrid::markRow(int row) {
  table_->selectionModel()->select(model_->index(row, 0),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void SheetGrid::clearCell() {
  const QModelIndex cell = current();
  if (!cell.isValid() || rows_->plainText(cell.row(), cell.column()).empty()) return;
  if (!rows_->mayEdit(cell.row(), cell.column())) return;
  if (rows_->enter(cell.row(), cell.column(), {})) rowChanged(cell.row());
}

void SheetGrid::removeCurrentRow() {
  const QModelIndex cell = current();
  if (!rows_->isBound() || !cell.isValid()) return;
  cancelEdit();
  rows_->removeRow(cell.row());
  model_->reload();
  setCurrentCell(std::min(cell.row(), rows_->rowCount() - 1), cell.column());
  Q_EMIT linesChanged();
}

}  // namespace velmo::frame
