#include "reports/balances/settled_accounts.h"

#include "frame/report/report_screen.h"
#include "store/recordset/rows_ahead.h"
#include "text/decimal_sum.h"

namespace velmo::reports {

SettledAccounts settledAccounts(store::Connection& connection, const BalancePeriod& period) {
  constexpr int patience = 5;  // milliseconds
  constexpr int rowsAtOnce = 1024;
  store::RowsAhead ahead(connection, sixColumnsOfAll(period));
  while (!ahead.isReady(patience)) frame::ReportScreen::breathe();
  store::Recordset& accounts = ahead.rows();
  const auto field = [&](std::string_view name) { return accounts.fieldIndex(name); };
  const int opening = field("ODiff"), debits = field("Debits"), credits = field("Credits"), closing = field("CDiff");
  const auto amount = [&](std::int64_t row, int of) { return store::numberOf(accounts.valueAt(row, of)); };
  text::DecimalSum openings, debitSum, creditSum;
  for (std::int64_t row = 0;; ++row) {
    while (row >= accounts.fetchedCount() && accounts.hasMoreRows()) {
      accounts.fetchMore(rowsAtOnce);
      frame::ReportScreen::breathe();
    }
    if (row >= accounts.fetchedCount()) break;
    if (amount(row, closing) != 0) continue;
    openings += amount(row, opening);
    debitSum += amount(row, debits);
    creditSum += amount(row, credits);
  }
  return {.opening = openings.value(), .debits = debitSum.value(), .credits = creditSum.value()};
}

}  // namespace velmo::reports
