#include "reports/balances/settled_accounts.h"

#include "store/recordset/recordset.h"
#include "text/decimal_sum.h"

namespace velmo::reports {

SettledAccounts settledAccounts(store::Connection& connection, const BalancePeriod& period) {
  const store::Recordset accounts(connection, sixColumnsOfAll(period), store::LockType::ReadOnly);
  const auto field = [&](std::string_view name) { return accounts.fieldIndex(name); };
  const int opening = field("ODiff"), debits = field("Debits"), credits = field("Credits"), closing = field("CDiff");
  const auto amount = [&](std::int64_t row, int of) { return store::numberOf(accounts.valueAt(row, of)); };
  text::DecimalSum openings, debitSum, creditSum;
  for (std::int64_t row = 0, count = accounts.recordCount(); row < count; ++row) {
    if (amount(row, closing) != 0) continue;
    openings += amount(row, opening);
    debitSum += amount(row, debits);
    creditSum += amount(row, credits);
  }
  return {.opening = openings.value(), .debits = debitSum.value(), .credits = creditSum.value()};
}

}  // namespace velmo::reports
