#pragma once

#include "frame/picking/account_drop_list.h"
#include "frame/sheets/ledger_sheet.h"
#include "frame/sheets/sheet_grid.h"

namespace velmo::frame {

// Ledger lines that the user types: the table `Grid` over a LedgerSheet, with the drop list of accounts below the cell
// of an account code.
class LedgerGrid : public SheetGrid {
  Q_OBJECT

 public:
  // The list may serve code boxes of the same screen as well.
  LedgerGrid(LedgerSides sides, session::Workplace& workplace, AccountDropList& list, QWidget* parent = nullptr);
  ~LedgerGrid() override;

  // Shows the lines and edits them in place; the recordset stays with the screen, which must not remove or add rows
  // before detach(). The first cell becomes the current one.
  void bind(store::Recordset lines);
  // Lets the lines go; a cell in edit is given up.
  void detach();

  LedgerSums sums() const { return sheet_.sums(); }  // 0 without lines

 private:
  LedgerSheet sheet_;
};

}  // namespace velmo::frame
