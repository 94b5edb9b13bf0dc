#include "frame/sheets/ledger_grid.h"

#include "frame/sheets/account_cell_list.h"

namespace velmo::frame {

LedgerGrid::LedgerGrid(LedgerSides sides, session::Workplace& workplace, AccountDropList& list, QWidget* parent)
    : SheetGrid(parent), sheet_(sides, workplace) {
  build(sheet_, "Grid", "Ledger lines");
  setList(static_cast<int>(LedgerColumn::AccCode), *new AccountCellList(workplace.context, list, this));
}

LedgerGrid::~LedgerGrid() = default;

void LedgerGrid::bind(store::Recordset lines) {
  detach();
  sheet_.bind(std::move(lines));
  showRows();
}

void LedgerGrid::detach() {
  cancelEdit();
  sheet_.detach();
  showRows();
}

}  // namespace velmo::frame
