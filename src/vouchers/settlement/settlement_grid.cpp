#include "vouchers/settlement/settlement_grid.h"

namespace velmo::vouchers {

SettlementGrid::SettlementGrid(const SettlementKind& kind, session::Workplace& workplace, const QString& accessibleName,
                               QWidget* parent)
    : SheetGrid(parent), sheet_(kind, workplace) {
  build(sheet_, "AgingGrid", accessibleName);
}

SettlementGrid::~SettlementGrid() = default;

void SettlementGrid::bind(store::Recordset invoices) {
  detach();
  sheet_.bind(std::move(invoices));
  showRows();
}

void SettlementGrid::detach() {
  cancelEdit();
  sheet_.detach();
  showRows();
}

}  // namespace velmo::vouchers
