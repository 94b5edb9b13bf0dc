#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "text/date_time.h"

// The statements of the trial balance and of the balances of customers, vendors, cash and banks. A balance is debits
// less credits of the documents of one year that are not cancelled.
namespace velmo::reports {

struct BalancePeriod {
  int fyid = 0;
  text::DateTime from;  // opening balances are those before this day
  text::DateTime to;    // closing balances include this day
};

// Which accounts a trial balance shows.
struct AllAccounts {};
struct AccountsOfType {
  std::int64_t typeId;
};
struct AccountsOfSubType {
  std::int64_t level2Id;
};
struct AccountRange {
  std::int64_t from;
  std::int64_t to;  // both ends included
};
using AccountChoice = std::variant<AllAccounts, AccountsOfType, AccountsOfSubType, AccountRange>;

// Opening balance, movement and closing balance: AccCode, AccName, ODiff, OBalance, OStatus, Debits, Credits, CDiff,
// CBalance, CStatus, Level1ID, Level2ID, of accounts whose closing balance is not zero.
std::string sixColumnBalances(const BalancePeriod& period, const AccountChoice& choice);
// The same columns of all accounts, whatever their closing balance.
std::string sixColumnsOfAll(const BalancePeriod& period);
// Closing balances on their side: AccCode, AccName, Debit1, Credit1, Diff, Debits and Credits, of which one is null.
std::string twoColumnBalances(const BalancePeriod& period, const AccountChoice& choice);

// The hierarchies behind the print-outs: types with TBalance and TStatus, their sub types in the chapter `level2`, the
// accounts of these in `level3`; the two columns have Debits2 and Credits2 besides, 0 on the other side. Of all
// accounts, a type or a sub type.
std::string sixColumnHierarchy(const BalancePeriod& period, const AccountChoice& choice);
std::string twoColumnHierarchy(const BalancePeriod& period, const AccountChoice& choice);
// The two columns of a range with Debits2 and Credits2; its six columns are those of the screen.
std::string twoColumnRangePrint(const BalancePeriod& period, const AccountRange& range);

// The six columns of the accounts that fulfil a condition on OBQry, which is the opening half: its AccCode, Level1ID
// and Level2ID. That of the customers has EmpID, Department, SectorID, Region1ID and Region2ID as well.
std::string narrowBalances(const BalancePeriod& period, const std::string& accounts);
std::string customerBalances(const BalancePeriod& period, const std::string& accounts);

}  // namespace velmo::reports
