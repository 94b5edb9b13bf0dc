#pragma once

#include <optional>
#include <string_view>

#include "frame/items/item_grid_kind.h"
#include "frame/items/item_rows.h"
#include "frame/items/item_sheet.h"
#include "frame/sheets/sheet_grid.h"
#include "session/workplace.h"
#include "store/recordset/recordset.h"

class QToolButton;

namespace velmo::frame {

class SerialPanel;
class StockPanel;

// The item lines of a document: the table `Grid` over a sheet of `StockFlow` rows, with the stock panel `StockBox`
// below the cell of an item code and the serial box `SerialTxt` of a line, which F4 opens.
//
// A scanner is a keyboard that types the code and Enter.
class ItemGrid : public SheetGrid {
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
  bool commitEdit() override;

  // The party whose lines the history shows; a code that is no number stands for all parties.
  void setParty(std::string_view code, std::string_view name);

  // False when the cell in edit was refused.
  bool setCurrentCell(int row, GridColumn column);
  void toggleSerialBox();

  ItemSheet& sheet() { return sheet_; }

  // One more piece of the item with this code, as a scanner reads it; the next free line waits for the next one.
  void scan(const QString& code);
  bool isInCode() const;      // the current cell is an item code
  bool waitsForCode() const;  // that of a line without an item, and the user is in the lines, not in a list below them
  bool isSerialBox(const QWidget& focus) const;
  void setScannedAgain(ScannedAgain again) { again_ = again; }

 Q_SIGNALS:
  void scanned();                            // scan() found its item; linesChanged() went before
  void unknownScanned(const QString& code);  // no item has the code, and nothing changed

 protected:
  bool enterPressed() override;
  void placeOverCells() override;

 private:
  void buildSerials(QWidget* overlay);
  void openItemList();

  ItemSheet sheet_;
  ItemRows rows_;
  StockPanel* StockBox_ = nullptr;
  SerialPanel* SerialTxt_ = nullptr;
  QToolButton* serialButton_ = nullptr;
  ScannedAgain again_ = ScannedAgain::RaiseQuantity;
  int serialRow_ = -1;  // whose serials are open
};

}  // namespace velmo::frame
