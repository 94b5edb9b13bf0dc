#include "reports/settled_accounts.h"

#include "frame/report_period.h"
#include "store/recordset.h"

namespace velmo::reports {

SettledAccounts settledAccounts(store::Connection& connection, const BalancePeriod& period) {
  const store::Recordset accounts(connection, sixColumnsOfAll(period), store::LockType::ReadOnly);
  const auto field = [&](std::string_view name) { return accounts.fieldIndex(name); };
  const int opening = field("ODiff"), debits = field("Debits"), credits = field("Credits"), closing = field("CDiff");
  const auto amount = [&](std::int64_t row, int of) { return store::numberOf(accounts.valueAt(row, of)); };
  SettledAccounts sums;
  for (std::int64_t row = 0, count = accounts.recordCount(); row < count; ++row) {
    if (!frame::isSettled(amount(row, closing))) continue;
    sums.opening += amount(row, opening);
    sums.debits += amount(row, debits);
    sums.credits += amount(row, credits);
  }
  return sums;
}

}  // namespace velmo::reports
