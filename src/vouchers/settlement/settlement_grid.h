#pragma once

#include "frame/sheets/sheet_grid.h"
#include "vouchers/settlement/settlement_sheet.h"

namespace velmo::vouchers {

// The invoices that a receipt or payment settles: the table `AgingGrid` over a SettlementSheet.
class SettlementGrid : public frame::SheetGrid {
  Q_OBJECT

 public:
  SettlementGrid(const SettlementKind& kind, session::Workplace& workplace, const QString& accessibleName,
                 QWidget* parent = nullptr);
  ~SettlementGrid() override;

  // Shows the rows and edits them in place; the recordset stays with the screen, which must not remove or add rows
  // before detach(). The first cell becomes the current one.
  void bind(store::Recordset invoices);
  // Lets the rows go; a cell in edit is given up.
  void detach();

  SettlementSheet& sheet() { return sheet_; }
  const SettlementSheet& sheet() const { return sheet_; }

 private:
  SettlementSheet sheet_;
};

}  // namespace velmo::vouchers
