#pragma once

#include <QTimer>
#include <QWidget>
#include <optional>
#include <string_view>

#include "frame/item_grid_kind.h"
#include "frame/item_sheet.h"
#include "session/workplace.h"
#include "store/recordset.h"

class QLineEdit;
class QModelIndex;
class QTableView;
class QToolButton;

namespace velmo::frame {

class ItemGridModel;
class SerialPanel;
class StockPanel;

// The item lines of a document: the table `Grid` over a sheet of `StockFlow` rows, with the stock panel `StockBox`
// below the cell of an item code and the serial box `SerialTxt` of a line.
//
// Keys. Enter and Tab lead to the next cell that can be typed in, from the last one to the item code of the next line;
// Shift+Tab leads back. Typing replaces a cell, F2 changes it. In the item code Down and Up lead into the list, whose
// Enter or Tab chooses. F4 opens the serial box. Delete clears a cell or removes a marked line (Shift+Space or a click
// on its number marks it), Ctrl+Delete removes the line. Esc gives up a change. A scanner is a keyboard that types the
// code and Enter.
class ItemGrid : public QWidget {
  Q_OBJECT

 public:
  // `overlay` is the widget above whose fields the panels may float, normally the screen that holds the grid.
  ItemGrid(ItemGridKind kind, session::Workplace& workplace, QWidget* overlay, QWidget* parent = nullptr);
  ~ItemGrid() override;

  // Shows the lines and edits them in place; the recordset stays with the screen, which must not remove or add rows
  // before detach(). The first cell becomes the current one.
  void bind(store::Recordset lines);
  // Lets the lines go; a cell in edit is given up.
  void detach();
  bool isBound() const { return sheet_.isBound(); }

  // Ends the cell in edit and the serial box. False when the text was refused: then the user is still in the cell.
  bool commitEdit();
  void cancelEdit();

  // The party whose lines the history shows; a code that is no number stands for all parties.
  void setParty(std::string_view code, std::string_view name);

  void focusFirstCell();
  void focusCurrentCell();
  // False when the cell in edit was refused.
  bool setCurrentCell(int row, GridColumn column);
  void removeCurrentRow();
  void toggleSerialBox();

  ItemSheet& sheet() { return sheet_; }

  // One more piece of the item with this code, as a scanner reads it; the next free line waits for the next one.
  void scan(const QString& code);
  void setScannedAgain(ScannedAgain again) { again_ = again; }

 Q_SIGNALS:
  void linesChanged();                       // the totals are to be computed again
  void saveRequested();                      // Ctrl+S; the cell in edit has been accepted
  void scanned();                            // scan() found its item; linesChanged() went before
  void unknownScanned(const QString& code);  // no item has the code, and nothing changed
  void escapePressed();                      // Esc when no cell was in edit; linesChanged() went before

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Building
  void buildTable();
  void buildEditor();
  void buildPanels(QWidget* overlay);
  void sizeColumns();

  // Cells
  bool isEditing() const;
  bool beginEdit();
  void beginReplace(const QString& typed);
  void closeEditor();
  void currentChanged(const QModelIndex& current);
  bool moveToNextCell(int step);
  void moveRows(int rows);
  void lineChanged(int row);
  void placeOverCells();
  void markRow(int row);
  void clearCell();

  // Keys; true when the key was used
  bool tableKey(QKeyEvent& event);
  bool editorKey(const QKeyEvent& event);
  bool commandKey(const QKeyEvent& event);
  void escape();

  // Focus and lists
  bool watchTable(QEvent& event);
  bool watchEditor(QEvent& event);
  void focusLeft();
  void editorLeft();
  void openItemList();
  bool scanTyped();
  void showStockPanel();
  void narrowItems();
  void choose(const QString& itemCode);

  session::Workplace& workplace_;
  ItemSheet sheet_;
  ItemGridModel* model_ = nullptr;
  QTableView* Grid_ = nullptr;
  QLineEdit* editor_ = nullptr;
  StockPanel* StockBox_ = nullptr;
  SerialPanel* SerialTxt_ = nullptr;
  QToolButton* serialButton_ = nullptr;
  QTimer IListTimer_;
  QTimer narrowTimer_;
  QString openedText_;  // of the cell in edit
  ScannedAgain again_ = ScannedAgain::RaiseQuantity;
  int serialRow_ = -1;  // whose serials are open
  bool InItemList_ = false;
  bool ending_ = false;  // a cell's end is under way: its messages must not end it again
};

}  // namespace velmo::frame
