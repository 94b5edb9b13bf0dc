#pragma once

#include "reports/balances/balances_statements.h"
#include "store/connection/connection.h"

namespace velmo::reports {

// What the accounts that closed at zero, which no trial balance lists, have of its six columns: with it the opening
// balances of all accounts come to zero, and debits to credits.
struct SettledAccounts {
  double opening = 0;  // debits less credits
  double debits = 0;
  double credits = 0;
};

// Throws StoreError.
SettledAccounts settledAccounts(store::Connection& connection, const BalancePeriod& period);

}  // namespace velmo::reports
