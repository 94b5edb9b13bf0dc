#include "frame/item_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/table_view.h"
#include "frame/drop_place.h"
#include "frame/item_cell_delegate.h"
#include "frame/item_grid_model.h"
#include "frame/serial_panel.h"
#include "frame/stock_panel.h"
#include "text/number.h"

namespace velmo::frame {
namespace {

// Widths in figures of the table's font; the description takes what is left.
int figuresWide(GridColumn column) {
  switch (column) {
    case GridColumn::ItemCode:
      return 15;
    case GridColumn::Unit:
      return 4;
    case GridColumn::DiscountRate:
      return 5;
    case GridColumn::Quantity:
    case GridColumn::Discount:
      return 7;
    case GridColumn::Rate:
      return 8;
    default:
      return 10;
  }
}

}  // namespace

ItemGrid::ItemGrid(ItemGridKind kind, session::Workplace& workplace, QWidget* overlay, QWidget* parent)
    : QWidget(parent), workplace_(workplace), sheet_(std::move(kind), workplace) {
  model_ = new ItemGridModel(sheet_, this);
  connect(model_, &ItemGridModel::entered, this, &ItemGrid::linesChanged);
  buildTable();
  buildEditor();
  buildPanels(overlay);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(Grid_);
  setFocusProxy(Grid_);
}

ItemGrid::~ItemGrid() = default;

void ItemGrid::buildTable() {
  Grid_ = new QTableView(this);
  Grid_->setObjectName("Grid");
  Grid_->setAccessibleName("Item lines");
  forms::dressTable(*Grid_);
  Grid_->setAlternatingRowColors(false);
  Grid_->setModel(model_);
  Grid_->setItemDelegate(new ItemCellDelegate(Grid_));
  Grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  Grid_->setSelectionMode(QAbstractItemView::NoSelection);
  Grid_->setTabKeyNavigation(false);
  Grid_->setColumnHidden(static_cast<int>(GridColumn::FlowId), true);
  Grid_->verticalHeader()->show();
  Grid_->verticalHeader()->setSectionsClickable(true);
  Grid_->verticalHeader()->setToolTip("Click to mark the line, Delete removes it");
  Grid_->installEventFilter(this);
  Grid_->viewport()->installEventFilter(this);
  connect(Grid_->selectionModel(), &QItemSelectionModel::currentChanged, this, &ItemGrid::currentChanged);
  connect(Grid_->verticalHeader(), &QHeaderView::sectionClicked, this, [this](int row) {
    if (!setCurrentCell(row, GridColumn::ItemCode)) return;
    markRow(row);
    Grid_->setFocus(Qt::MouseFocusReason);
  });
  for (QScrollBar* bar : {Grid_->verticalScrollBar(), Grid_->horizontalScrollBar()}) {
    connect(bar, &QScrollBar::valueChanged, this, &ItemGrid::placeOverCells);
  }
  connect(Grid_->horizontalHeader(), &QHeaderView::sectionResized, this, &ItemGrid::placeOverCells);
  sizeColumns();
}

void ItemGrid::sizeColumns() {
  const int figure = QFontMetrics(forms::figureFont()).horizontalAdvance('0');
  for (int i = 0; i < gridColumnCount; ++i) {
    const auto column = static_cast<GridColumn>(i);
    const int forCaption =
        Grid_->horizontalHeader()->fontMetrics().horizontalAdvance(ItemGridModel::caption(sheet_.kind(), column));
    Grid_->setColumnWidth(i, std::max(figuresWide(column) * figure, forCaption) + 2 * forms::spacing::Normal);
  }
  QHeaderView* header = Grid_->horizontalHeader();
  header->setSectionResizeMode(static_cast<int>(GridColumn::Description), QHeaderView::Stretch);
  Grid_->verticalHeader()->setFixedWidth(figure * 3 + 2 * forms::spacing::Normal);
  Grid_->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
}

void ItemGrid::buildEditor() {
  editor_ = new QLineEdit(Grid_->viewport());
  editor_->setObjectName("GridCell");
  editor_->setFrame(false);
  editor_->setAutoFillBackground(true);
  editor_->installEventFilter(this);
  editor_->hide();
  narrowTimer_.setSingleShot(true);
  narrowTimer_.setInterval(0);  // keys that wait already are answered together
  connect(&narrowTimer_, &QTimer::timeout, this, &ItemGrid::narrowItems);
  connect(editor_, &QLineEdit::textEdited, this, [this] {
    editor_->setPalette({});
    if (StockBox_->isVisible()) narrowTimer_.start();
  });
}

void ItemGrid::buildPanels(QWidget* overlay) {
  StockBox_ = new StockPanel(sheet_.kind(), workplace_.context, overlay);
  connect(StockBox_, &StockPanel::chosen, this, &ItemGrid::choose);
  connect(StockBox_, &StockPanel::listEntered, this, [this] { InItemList_ = true; });
  connect(StockBox_, &StockPanel::listLeft, this, &ItemGrid::editorLeft);
  connect(StockBox_, &StockPanel::givenUp, this,
          [this] { isEditing() ? editor_->setFocus(Qt::OtherFocusReason) : Grid_->setFocus(Qt::OtherFocusReason); });
  IListTimer_.setObjectName("IListTimer");
  IListTimer_.setSingleShot(true);
  IListTimer_.setInterval(dropListDelay);
  connect(&IListTimer_, &QTimer::timeout, this, [this] {
    if (!InItemList_) StockBox_->hide();
  });

  if (sheet_.kind().serialNumbers == SerialNumbers::None) return;
  SerialTxt_ = new SerialPanel(overlay);
  connect(SerialTxt_, &SerialPanel::entered, this, [this](const QString& serials) {
    if (isBound() && serialRow_ >= 0) sheet_.setProductSerials(serialRow_, serials.toStdString());
  });
  connect(SerialTxt_, &SerialPanel::closedFromInside, this, [this] { Grid_->setFocus(Qt::OtherFocusReason); });
  connect(SerialTxt_, &SerialPanel::saveRequested, this, &ItemGrid::saveRequested);
  serialButton_ = new QToolButton(Grid_->viewport());
  serialButton_->setObjectName("SerialBttn");
  serialButton_->setText("#");
  serialButton_->setToolTip("Product serials of the line (F4)");
  serialButton_->setAccessibleName("Product serials");
  serialButton_->setFocusPolicy(Qt::NoFocus);
  serialButton_->setAutoRaise(true);
  serialButton_->hide();
  connect(serialButton_, &QToolButton::clicked, this, &ItemGrid::toggleSerialBox);
}

void ItemGrid::bind(store::Recordset lines) {
  detach();
  sheet_.bind(std::move(lines));
  model_->reload();
  setCurrentCell(0, GridColumn::ItemCode);
  Grid_->scrollToTop();
}

void ItemGrid::detach() {
  cancelEdit();
  serialRow_ = -1;  // what the box holds is given up with the lines
  sheet_.detach();
  model_->reload();
  if (SerialTxt_) SerialTxt_->hide();
  StockBox_->hide();
  placeOverCells();
}

void ItemGrid::setParty(std::string_view code, std::string_view name) {
  const auto number = text::numberFrom(code);
  StockBox_->setParty(number ? std::optional(static_cast<std::int64_t>(*number)) : std::nullopt, name);
}

void ItemGrid::focusFirstCell() {
  if (setCurrentCell(0, GridColumn::ItemCode)) Grid_->setFocus(Qt::OtherFocusReason);
}

void ItemGrid::focusCurrentCell() {
  Grid_->setFocus(Qt::OtherFocusReason);
}

bool ItemGrid::setCurrentCell(int row, GridColumn column) {
  if (!commitEdit()) return false;
  Grid_->clearSelection();
  Grid_->setCurrentIndex(model_->index(row, static_cast<int>(column)));
  return true;
}

bool ItemGrid::isEditing() const {
  return editor_ && !editor_->isHidden();
}

// Opens the current cell with its text. False when its column or its line does not allow it.
bool ItemGrid::beginEdit() {
  const QModelIndex cell = Grid_->currentIndex();
  if (!isBound() || !cell.isValid() || isEditing()) return false;
  const auto column = static_cast<GridColumn>(cell.column());
  if (!sheet_.mayEdit(cell.row(), column)) return false;
  Grid_->clearSelection();
  Grid_->scrollTo(cell);
  openedText_ = QString::fromStdString(sheet_.editText(cell.row(), column));
  editor_->setAlignment(isFigure(column) ? Qt::AlignRight : Qt::AlignLeft);
  editor_->setFont(isFigure(column) ? forms::figureFont() : Grid_->font());
  editor_->setAccessibleName(ItemGridModel::caption(sheet_.kind(), column));
  editor_->setPalette({});
  editor_->setText(openedText_);
  editor_->selectAll();
  editor_->show();
  placeOverCells();
  editor_->setFocus(Qt::OtherFocusReason);
  if (column == GridColumn::ItemCode) showStockPanel();
  return true;
}

void ItemGrid::beginReplace(const QString& typed) {
  if (!beginEdit()) return;
  editor_->setText(typed);
  if (StockBox_->isVisible()) narrowTimer_.start();
}

bool ItemGrid::commitEdit() {
  if (SerialTxt_) SerialTxt_->finish();
  if (!isEditing()) return true;
  if (ending_) return false;
  const QModelIndex cell = Grid_->currentIndex();
  if (editor_->text() != openedText_) {
    ending_ = true;
    const bool accepted =
        sheet_.enter(cell.row(), static_cast<GridColumn>(cell.column()), editor_->text().toStdString());
    ending_ = false;
    if (!accepted) {
      QPalette refused = palette();
      refused.setColor(QPalette::Text, forms::colours().warning);
      editor_->setPalette(refused);
      editor_->selectAll();
      return false;
    }
    closeEditor();
    lineChanged(cell.row());
    return true;
  }
  closeEditor();
  return true;
}

void ItemGrid::cancelEdit() {
  if (isEditing()) closeEditor();
}

void ItemGrid::closeEditor() {
  narrowTimer_.stop();
  // Of its window, which is not yet the active one again when a message has just been answered.
  const QWidget* focus = window()->focusWidget();
  const bool hadFocus = focus == editor_ || StockBox_->isInside(focus);
  ending_ = true;
  if (hadFocus) Grid_->setFocus(Qt::OtherFocusReason);
  editor_->hide();
  StockBox_->hide();
  ending_ = false;
}

void ItemGrid::lineChanged(int row) {
  model_->refreshRow(row);
  placeOverCells();
  Q_EMIT linesChanged();
}

void ItemGrid::currentChanged(const QModelIndex& current) {
  if (current.column() != static_cast<int>(GridColumn::ItemCode)) StockBox_->hide();
  Grid_->viewport()->update();
  placeOverCells();
}

// The editor stands on the current cell, the serial button at the end of its line's description.
void ItemGrid::placeOverCells() {
  const QModelIndex cell = Grid_->currentIndex();
  if (isEditing()) editor_->setGeometry(Grid_->visualRect(cell).adjusted(1, 1, -1, -1));
  if (!serialButton_) return;
  const bool hasItem = isBound() && cell.isValid() && !sheet_.plainText(cell.row(), GridColumn::ItemCode).empty();
  const bool covered = isEditing() && cell.column() == static_cast<int>(GridColumn::Description);
  serialButton_->setVisible(hasItem && !covered);
  if (!hasItem) return;
  const QRect description = Grid_->visualRect(cell.siblingAtColumn(static_cast<int>(GridColumn::Description)));
  const int side = description.height() - 4;
  serialButton_->setGeometry(description.right() - side - 2, description.top() + 2, side, side);
}

bool ItemGrid::moveToNextCell(int step) {
  const QModelIndex cell = Grid_->currentIndex();
  if (!cell.isValid()) return false;
  int row = cell.row();
  int column = cell.column();
  do {
    column += step;
    if (column < 0 || column >= gridColumnCount) {
      row += step;
      column = step > 0 ? 0 : gridColumnCount - 1;
    }
    if (row < 0 || row >= sheet_.rowCount()) return false;
  } while (isReadOnly(static_cast<GridColumn>(column)));
  return setCurrentCell(row, static_cast<GridColumn>(column));
}

void ItemGrid::moveRows(int rows) {
  const QModelIndex cell = Grid_->currentIndex();
  const int row = std::clamp(cell.row() + rows, 0, std::max(0, sheet_.rowCount() - 1));
  setCurrentCell(row, static_cast<GridColumn>(cell.column()));
}

void ItemGrid::markRow(int row) {
  Grid_->selectionModel()->select(model_->index(row, 0),
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ItemGrid::clearCell() {
  const QModelIndex cell = Grid_->currentIndex();
  const auto column = static_cast<GridColumn>(cell.column());
  if (!cell.isValid() || sheet_.plainText(cell.row(), column).empty() || !sheet_.mayEdit(cell.row(), column)) return;
  if (sheet_.enter(cell.row(), column, {})) lineChanged(cell.row());
}

void ItemGrid::removeCurrentRow() {
  const QModelIndex cell = Grid_->currentIndex();
  if (!isBound() || !cell.isValid()) return;
  cancelEdit();
  sheet_.removeRow(cell.row());
  model_->reload();
  setCurrentCell(std::min(cell.row(), sheet_.rowCount() - 1), static_cast<GridColumn>(cell.column()));
  Q_EMIT linesChanged();
}

}  // namespace velmo::frame
