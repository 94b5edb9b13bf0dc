#include "reports/balances/acc_balances.h"

#include "forms/wait_cursor.h"
#include "frame/report/report_model.h"
#include "frame/report/rows_on_the_way.h"
#include "printing/recordset_data.h"
#include "reports/balances/balances_rows.h"
#include "reports/balances/balances_screen.h"
#include "reports/parts/account_filters.h"
#include "valuation/closing_stock.h"

namespace velmo::reports {
namespace {

using frame::ReportOption;
using frame::ReportScreen;

constexpr const char* twoColumnGrid = "DetailGrid2";

std::vector<Selection> accountSelections() {
  constexpr const char* group = "AccountOpt";
  return {{.box = "AllOpt", .caption = "&All Accounts", .group = group},
          accountTypeSelection("SelectOpt", group, "Acc",
                               {.title = "Select Main Account Type",
                                .text = "Select main account type to view balances.",
                                .onPrint = "Select main account type to print balances."},
                               {.title = "Select Sub Account Type",
                                .text = "Select sub account type to view balances.",
                                .onPrint = "Select sub account type to print balances."}),
          accountRangeSelection("RangeOpt", "&Range", group)};
}

AccountChoice choiceOf(const frame::ReportFilters& filters) {
  if (filters.chosen("SelectOpt")) {
    if (filters.chosen("SubTypeOpt")) return AccountsOfSubType{store::integerOf(filters.bound("SubList"))};
    return AccountsOfType{store::integerOf(filters.bound("Acc"))};
  }
  if (filters.chosen("RangeOpt")) return AccountRange{filters.account("CodeFrom"), filters.account("CodeTo")};
  return AllAccounts();
}

// Of the last run; nothing unless all accounts were chosen.
using Settled = std::shared_ptr<std::optional<SettledAccounts>>;

void loadBalances(ReportScreen& screen, const Settled& settled) {
  session::LoginContext& context = screen.workplace().context;
  const BalancePeriod period = balancePeriod(screen);
  context.Costs.settle(context.KORDconn, context.FYID, context.FinancialYearEnd);
  ReportScreen::breathe();
  valuation::postClosingStock(context.KORDconn, context.FYID, period.to);
  ReportScreen::breathe();
  const AccountChoice choice = choiceOf(screen.filters());
  settled->reset();
  if (std::holds_alternative<AllAccounts>(choice)) *settled = settledAccounts(context.KORDconn, period);
  ReportScreen::breathe();
  screen.setRows(sixColumnGrid, sixColumnBalances(period, choice));
  screen.setRows(twoColumnGrid, twoColumnBalances(period, choice));
}

void showTotals(ReportScreen& screen, const Settled& settled) {
  showSixTotals(screen);
  screen.showFurtherTotals(sixColumnGrid, settled->has_value());
  if (*settled) {
    screen.setFigure("SettledOpen", totalWithSide((*settled)->opening));
    screen.setFigure("SettledDr", totalText((*settled)->debits));
    screen.setFigure("SettledCr", totalText((*settled)->credits));
  }
}

BalancesData hierarchy(ReportScreen& screen, const std::string& statement) {
  const forms::WaitCursor wait;
  store::Recordset types;
  types.openShape(screen.workplace().context.KORDconn, statement);
  return withoutEmptyLevels(std::make_shared<printing::RecordsetData>(types), {"level2", "level3"});
}

printing::Report printRange(ReportScreen& screen, const BalancesSheet& sheet, const AccountRange& range) {
  const session::LoginContext& context = screen.workplace().context;
  if (screen.filters().chosen("TrialOpt_0"))
    return accBalRptRange(context, sheet, std::make_shared<frame::ReportRowsData>(screen.model(sixColumnGrid).rows()));
  return accBalRptRange2(context, sheet,
                         std::make_shared<frame::ReportRowsData>(frame::rowsOf(
                             screen.workplace().context.KORDconn, twoColumnRangePrint(balancePeriod(screen), range))));
}

printing::Report printOut(ReportScreen& screen, const Settled& settled) {
  const session::LoginContext& context = screen.workplace().context;
  const bool ofAll = screen.filters().chosen("AllOpt");
  BalancesSheet sheet = balancesSheet(screen, ofAll ? "Trial Balance" : "Accounts Balances", "Account Name");
  sheet.settled = *settled;
  const AccountChoice choice = choiceOf(screen.filters());
  if (const auto* range = std::get_if<AccountRange>(&choice)) return printRange(screen, sheet, *range);
  const BalancePeriod period = balancePeriod(screen);
  return screen.filters().chosen("TrialOpt_0")
             ? accBalRpt(context, sheet, hierarchy(screen, sixColumnHierarchy(period, choice)))
             : accBalRpt2(context, sheet, hierarchy(screen, twoColumnHierarchy(period, choice)));
}

frame::ReportSheet sheetOf(ReportScreen& screen) {
  constexpr const char* title = "Trial Balance";
  if (screen.filters().chosen("TrialOpt_0")) return sixColumnSheet(screen, title);
  const frame::ReportModel& rows = screen.model(twoColumnGrid);
  return {.title = title,
          .head = {title, "As On " + frame::dayInWords(balancePeriod(screen).to)},
          .columns = rows.columns(),
          .totals = {{}, screen.type().totalsLabel, rows.sum("Debits"), rows.sum("Credits")}};
}

frame::ReportGrid sixColumnsOfAccounts() {
  frame::ReportGrid grid = sixColumns("Account Name", "TrialOpt_0");
  grid.further = {.frame = "LedgerSettled",
                  .caption = settledCaption,
                  .figures = {{"SettledOpen", "Opening", 23},
                              {"SettledDr", "Debit", 17},
                              {"SettledCr", "Credit", 17},
                              {{}, "Closing", 20}}};
  return grid;
}

frame::ReportGrid twoColumns() {
  std::vector<forms::TableColumn> columns = accountColumns("Account Name");
  columns.insert(columns.end(), {balanceColumn("Debit", "Debits"), balanceColumn("Credit", "Credits")});
  return {.name = twoColumnGrid,
          .columns = std::move(columns),
          .shownBy = "TrialOpt_1",
          .totalsFrame = "LedgerTotals2",
          .totals = {{.name = "TDr", .caption = "Debit", .sum = "Debits", .format = totalFormat},
                     {.name = "TCr", .caption = "Credit", .sum = "Credits", .format = totalFormat}}};
}

std::vector<frame::ReportFilterRow> filterRows() {
  std::vector<frame::ReportFilterRow> rows = selectionRows(accountSelections(), 1);
  rows.push_back(selectionRow(balancesPeriodSelection()));
  rows.back().emplace_back(ReportOption{.name = "TrialOpt_0", .caption = "&6 Column", .group = "TrialOpt"});
  rows.back().emplace_back(ReportOption{.name = "TrialOpt_1", .caption = "&2 Column", .group = "TrialOpt"});
  return rows;
}

frame::ReportType balancesType(const session::LoginContext& context) {
  const auto settled = std::make_shared<std::optional<SettledAccounts>>();
  return {.screen = "AccBalances",
          .caption = "Trial Balance",
          .filters = filterRows(),
          .grids = {sixColumnsOfAccounts(), twoColumns()},
          .totalsLabel = "Totals " + context.ccode,
          .view = displayCommand(),
          .print = printCommand(),
          .sheet = exportCommand(),
          .runs = frame::ReportRuns::OneByOne,
          .check = [](ReportScreen& screen,
                      frame::ReportUse use) { return checkSelections(screen, use, accountSelections()); },
          .load = [settled](ReportScreen& screen) { loadBalances(screen, settled); },
          .figures = [settled](ReportScreen& screen) { showTotals(screen, settled); },
          .printOut = [settled](ReportScreen& screen) { return printOut(screen, settled); },
          .sheetOf = sheetOf,
          .drillDown = openLedger,
          .opened = [](ReportScreen& screen) { screen.workplace().context.Costs.arm(); }};
}

}  // namespace

QWidget* makeAccBalances(session::Workplace& workplace, QWidget* parent) {
  return frame::makeReportWindow(balancesType(workplace.context), workplace, parent);
}

}  // namespace velmo::reports
