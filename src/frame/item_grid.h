#pragma once

#include <QTimer>
#include <QWidget>
#include <optional>
#include <string>
#include <string_view>

#include "frame/item_grid_kind.h"
#include "frame/item_sheet.h"
#include "session/workplace.h"
#include "store/recordset.h"

class QLabel;
class QModelIndex;
class QToolButton;

namespace velmo::frame {

class ItemCellEditor;
class ItemGridModel;
class ItemGridView;
class SerialPanel;
class StockPanel;

// The item lines of a document: the table `Grid` over a sheet of `StockFlow` rows, with the stock panel `StockBox`
// below the cell of an item code and the serial box `SerialTxt` of a line.
//
// Keys. Enter and Tab lead to the next cell that can be typed in, from the last one to the item code of the next line;
// Shift+Tab leads back. Typing replaces a cell, F2 changes it. In the item code Down and Up lead into the list, whose
// Enter or Tab chooses. F4 opens the serial box. Delete clears a cell or removes a marked row, Ctrl+Delete removes the
// row. Esc gives up a change.
class ItemGrid : public QWidget {
  Q_OBJECT

 public:
  // `overlay` is the widget above whose fields the stock panel may float: the screen; without one the window.
  ItemGrid(ItemGridKind kind, session::Workplace& workplace, QWidget* parent = nullptr, QWidget* overlay = nullptr);
  ~ItemGrid() override;

  // Shows the lines and edits them in place; the recordset stays with the screen, which must not remove or add rows
  // before detach(). The first cell becomes the current one.
  void bind(store::Recordset lines);
  // Lets the lines go; a cell in edit is given up.
  void detach();
  bool isBound() const;

  // Ends the cell in edit. False when its text was refused: then the user is still in the cell.
  bool commitEdit();
  void cancelEdit();

  // The party whose sales the history shows; a code that is no number stands for all parties.
  void setParty(std::string_view code, std::string_view name);

  void focusFirstCell();
  void setCurrentCell(int row, GridColumn column);
  void removeCurrentRow();
  void toggleSerialBox();

  ItemSheet& sheet() { return sheet_; }

 Q_SIGNALS:
  void linesChanged();   // the totals are to be computed again
  void saveRequested();  // Ctrl+S; the cell in edit has been accepted
  void escapePressed();  // Esc when no cell was in edit

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  enum class Opening { Replace, Change };

  void buildTable();
  void buildPanels(QWidget* overlay);
  void sizeColumns();

  // Cells
  bool beginEdit(Opening opening, const QString& typed = {});
  void closeEditor();
  void currentChanged(const QModelIndex& current);
  void moveToNextCell(int step);
  void moveRows(int rows);
  void refreshRow(int row);
  void placeOverCells();
  std::optional<int> currentRow() const;
  GridColumn currentColumn() const;

  // Keys; true when the key was used
  bool tableKey(QKeyEvent& event);
  bool commandKey(QKeyEvent& event);
  bool editorKey(QKeyEvent& event);
  void escape();
  void enterOrClear(QKeyEvent& event);

  // Focus and lists
  void focusEntered();
  void focusLeft(QFocusEvent& event);
  void editorLeft();
  void showStockPanel();
  void hideStockPanel();
  void narrowItems();
  void choose(const QString& itemCode);
  void backToGrid();

  session::Workplace& workplace_;
  ItemSheet sheet_;
  ItemGridModel* model_ = nullptr;
  ItemGridView* Grid_ = nullptr;
  ItemCellEditor* editor_ = nullptr;
  StockPanel* StockBox_ = nullptr;
  SerialPanel* SerialTxt_ = nullptr;
  QToolButton* serialButton_ = nullptr;
  QTimer IListTimer_;
  QTimer narrowTimer_;
  bool InItemList_ = false;
  std::optional<int> markedRow_;
};

}  // namespace velmo::frame
