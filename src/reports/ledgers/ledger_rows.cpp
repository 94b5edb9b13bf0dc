#include "reports/ledgers/ledger_rows.h"

#include <cmath>

namespace velmo::reports {

LedgerRows::LedgerRows(store::Recordset lines, double broughtForward, Opener following)
    : lines_(std::move(lines)),
      openFollowing_(std::move(following)),
      debit_(field("Debit")),
      credit_(field("Credit")),
      balance_(field("Balance")),
      status_(field("Status")) {
  running_ += broughtForward;
  carryOn();
}

bool LedgerRows::hasMore() const {
  return lines_.hasMoreRows() || openFollowing_ || (following_ && following_->hasMoreRows());
}

void LedgerRows::read(int rows) {
  if (lines_.hasMoreRows())
    lines_.fetchMore(rows);
  else if (openFollowing_)
    following_ = std::exchange(openFollowing_, {})();
  else if (following_)
    following_->fetchMore(rows);
  carryOn();
}

void LedgerRows::carryOn() {
  const std::int64_t fetched = lines_.fetchedCount() + (following_ ? following_->fetchedCount() : 0);
  for (std::int64_t row = ready(); row < fetched; ++row) {
    running_ += store::numberOf(stored(row, debit_));
    running_ -= store::numberOf(stored(row, credit_));
    balances_.push_back(running_.value());
  }
}

store::Value LedgerRows::stored(std::int64_t row, int field) const {
  const std::int64_t before = lines_.fetchedCount();
  return row < before ? lines_.valueAt(row, field) : following_->valueAt(row - before, field);
}

store::Value LedgerRows::value(std::int64_t row, int field) const {
  if (field == balance_) return std::fabs(balances_[static_cast<std::size_t>(row)]);
  if (field == status_) return std::string(frame::sideOf(balances_[static_cast<std::size_t>(row)]));
  return stored(row, field);
}

std::optional<double> broughtForward(store::Connection& connection, std::int64_t account, int fyid,
                                     const text::DateTime& from) {
  const store::Recordset before(connection, broughtForwardStatement(account, fyid, from), store::LockType::ReadOnly);
  if (before.isEmpty()) return std::nullopt;
  return before.number("obalance");
}

}  // namespace velmo::reports
