#include "frame/items/item_grid.h"

#include <QApplication>
#include <QTableView>
#include <QToolButton>

#include "frame/items/serial_panel.h"
#include "frame/items/stock_cell_list.h"
#include "frame/items/stock_panel.h"
#include "frame/picking/drop_place.h"
#include "text/number.h"

namespace velmo::frame {

ItemGrid::ItemGrid(ItemGridKind kind, session::Workplace& workplace, QWidget* overlay, QWidget* parent)
    : SheetGrid(parent), sheet_(std::move(kind), workplace), rows_(sheet_) {
  build(rows_, QString::fromStdString(sheet_.kind().name), QString::fromStdString(sheet_.kind().accessibleName));
  StockBox_ = new StockPanel(sheet_.kind(), workplace.context, overlay);
  setList(static_cast<int>(GridColumn::ItemCode), *new StockCellList(*StockBox_, this));
  if (sheet_.kind().serialNumbers == SerialNumbers::Kept) buildSerials(overlay);
  connect(this, &SheetGrid::lookUpRequested, this, [this] {
    if (sheet_.kind().f4 == F4Key::ItemList)
      openItemList();
    else
      toggleSerialBox();
  });
}

ItemGrid::~ItemGrid() = default;

void ItemGrid::buildSerials(QWidget* overlay) {
  SerialTxt_ = new SerialPanel(QString::fromStdString(sheet_.kind().serialName), overlay);
  connect(SerialTxt_, &SerialPanel::entered, this, [this](const QString& serials) {
    if (isBound() && serialRow_ >= 0) sheet_.setProductSerials(serialRow_, serials.toStdString());
  });
  connect(SerialTxt_, &SerialPanel::closedFromInside, this, &ItemGrid::focusCurrentCell);
  connect(SerialTxt_, &SerialPanel::saveRequested, this, &ItemGrid::saveRequested);
  serialButton_ = new QToolButton(table().viewport());
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
  showRows();
}

void ItemGrid::detach() {
  cancelEdit();
  serialRow_ = -1;  // what the box holds is given up with the lines
  sheet_.detach();
  if (SerialTxt_) SerialTxt_->hide();
  showRows();
}

bool ItemGrid::commitEdit() {
  if (SerialTxt_) SerialTxt_->finish();
  return SheetGrid::commitEdit();
}

void ItemGrid::setParty(std::string_view code, std::string_view name) {
  const auto number = text::numberFrom(code);
  StockBox_->setParty(number ? std::optional(static_cast<std::int64_t>(*number)) : std::nullopt, name);
}

bool ItemGrid::setCurrentCell(int row, GridColumn column) {
  return SheetGrid::setCurrentCell(row, static_cast<int>(column));
}

// The serial button stands at the end of the line's description.
void ItemGrid::placeOverCells() {
  SheetGrid::placeOverCells();
  if (!serialButton_) return;
  const QModelIndex cell = current();
  const bool hasItem = isBound() && cell.isValid() && !sheet_.plainText(cell.row(), GridColumn::ItemCode).empty();
  const bool covered = isEditing() && cell.column() == static_cast<int>(GridColumn::Description);
  serialButton_->setVisible(hasItem && !covered);
  if (!hasItem) return;
  const QRect description = table().visualRect(cell.siblingAtColumn(static_cast<int>(GridColumn::Description)));
  const int side = description.height() - 4;
  serialButton_->setGeometry(description.right() - side - 2, description.top() + 2, side, side);
}

// Enter in the code of a line that is still free is a scan, where the document is written at the counter.
bool ItemGrid::enterPressed() {
  if (sheet_.kind().scan != ScanRule::OnePiece || !isEditing() || !openedText().isEmpty()) return false;
  const QString code = typedText().trimmed();
  if (current().column() != static_cast<int>(GridColumn::ItemCode) || code.isEmpty()) return false;
  if (isServiceCode(code.toStdString())) return false;
  scan(code);
  return true;
}

bool ItemGrid::isInCode() const {
  return isBound() && current().column() == static_cast<int>(GridColumn::ItemCode);
}

bool ItemGrid::waitsForCode() const {
  return isInCode() &&
         (isEditing() ? openedText().isEmpty() : sheet_.plainText(current().row(), GridColumn::ItemCode).empty());
}

bool ItemGrid::isSerialBox(const QWidget& focus) const {
  return SerialTxt_ && SerialTxt_->isAncestorOf(&focus);
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
  rowChanged(*row);
  int next = 0;
  while (next + 1 < sheet_.rowCount() && !sheet_.plainText(next, GridColumn::ItemCode).empty()) ++next;
  setCurrentCell(next, GridColumn::ItemCode);
  table().scrollTo(current());
  focusCurrentCell();
  Q_EMIT scanned();
}

// The list of the item code of this line, whatever cell the user is in.
void ItemGrid::openItemList() {
  if (StockBox_->isVisible()) return StockBox_->enterList();
  const int row = currentRow();
  if (row >= 0 && setCurrentCell(row, GridColumn::ItemCode) && beginEdit()) StockBox_->enterList();
}

void ItemGrid::toggleSerialBox() {
  if (!SerialTxt_ || !isBound()) return;
  if (SerialTxt_->isVisible()) {
    SerialTxt_->finish();
    return;
  }
  const QModelIndex cell = current();
  if (!cell.isValid() || !commitEdit() || sheet_.plainText(cell.row(), GridColumn::ItemCode).empty()) return;
  serialRow_ = cell.row();
  const QRect line = table().visualRect(cell.siblingAtColumn(static_cast<int>(GridColumn::Description)));
  const QSize wanted(fontMetrics().averageCharWidth() * 46, fontMetrics().height() * 7);
  SerialTxt_->setGeometry(placeBelow(*table().viewport(), line, *SerialTxt_->parentWidget(), wanted));
  SerialTxt_->open(QString::fromStdString(sheet_.productSerials(serialRow_)));
}

}  // namespace velmo::frame
