#pragma once

#include "frame/report/report_screen.h"
#include "reports/balances/acc_bal_print.h"
#include "reports/balances/balances_statements.h"
#include "reports/parts/selections.h"

// What the screens of balances have in common: six columns with their sums, two days, the way to the ledger.
namespace velmo::reports {

inline constexpr const char* sixColumnGrid = "DetailGrid";

forms::TableColumn balanceColumn(const char* caption, const char* field, int width = 12);
// "Acc Code" and the name.
std::vector<forms::TableColumn> accountColumns(const char* nameCaption);
// `DetailGrid`, whose figures stand in `LedgerTotals`.
frame::ReportGrid sixColumns(const char* nameCaption, const char* shownBy = "");
// `BalDt`: the year's first day to today.
Selection balancesPeriodSelection();
BalancePeriod balancePeriod(frame::ReportScreen& screen);
frame::ReportCommand displayCommand();
frame::ReportCommand printCommand();
frame::ReportCommand exportCommand();

inline constexpr const char* totalFormat = "0.00; (0.00)";
// As the totals are written; of a balance with its side: "125.00  Debit ".
std::string totalText(double amount);
std::string totalWithSide(double balance);
void showSixTotals(frame::ReportScreen& screen);
BalancesSheet balancesSheet(frame::ReportScreen& screen, const std::string& reportLabel, const char* nameHeading);
frame::ReportSheet sixColumnSheet(frame::ReportScreen& screen, const std::string& title);

// Opens the ledger of the row's account for those who may see ledgers.
void openLedger(frame::ReportScreen& screen, std::int64_t row);

}  // namespace velmo::reports
