#include "reports/ledger_rows.h"

#include <cmath>

#include "frame/report_period.h"

namespace velmo::reports {

LedgerRows::LedgerRows(store::Recordset lines, double broughtForward)
    : RecordsetRows(std::move(lines)),
      broughtForward_(broughtForward),
      debit_(field("Debit")),
      credit_(field("Credit")),
      balance_(field("Balance")),
      status_(field("Status")) {
  carryOn();
}

void LedgerRows::read(int rows) {
  RecordsetRows::read(rows);
  carryOn();
}

void LedgerRows::carryOn() {
  double running = balance();
  for (auto row = static_cast<std::int64_t>(balances_.size()); row < ready(); ++row) {
    running += store::numberOf(rows_.valueAt(row, debit_)) - store::numberOf(rows_.valueAt(row, credit_));
    balances_.push_back(running);
  }
}

store::Value LedgerRows::value(std::int64_t row, int field) const {
  if (field == balance_) return std::fabs(balances_[static_cast<std::size_t>(row)]);
  if (field == status_) return std::string(frame::sideOf(balances_[static_cast<std::size_t>(row)]));
  return rows_.valueAt(row, field);
}

}  // namespace velmo::reports
