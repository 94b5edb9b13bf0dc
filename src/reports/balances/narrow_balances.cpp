#include "reports/balances/narrow_balances.h"

#include "frame/report/report_model.h"
#include "reports/balances/balances_screen.h"
#include "reports/parts/common_selections.h"

namespace velmo::reports {
namespace {

using frame::ReportScreen;

// What tells one screen from the others.
struct Kind {
  const char* screen;
  const char* caption;
  const char* reportLabel;
  const char* nameHeading;
  std::vector<Selection> selections;
  const char* accounts;  // the condition that the clauses of the selections follow
  std::string (*statement)(const BalancePeriod& period, const std::string& accounts) = narrowBalances;
};

std::vector<Selection> customerSelections() {
  return {partyTypeSelection(
              PartyKind::Customers,
              {.box = "SelectionOpt_0", .clause = "((OBQry.level2id) = ?)", .otherwise = "((OBQry.Level1ID) = 120)"}),
          employeeSelection({.box = "SelectionOpt_1", .clause = " AND ((OBQry.Empid)=?)", .to = "to print report"}),
          sectorSelection({.box = "SelectionOpt_4", .clause = " AND ((OBQry.sectorid)=?)"}),
          departmentSelection({.box = "SelectionOpt_5", .clause = " AND ((OBQry.Department) like ?)"}),
          mainRegionSelection({.box = "SelectionOpt_6", .clause = " AND ((OBQry.region1id)=?)"}),
          subRegionSelection({.box = "SelectionOpt_7", .clause = " AND ((OBQry.region2id)=?)"})};
}

Selection vendorTypeSelection() {
  return partyTypeSelection(
      PartyKind::Vendors,
      {.box = "SelectionOpt_0", .clause = "((OBQry.level2id) = ?)", .otherwise = "((OBQry.Level1ID) = 210)"});
}

// Two selections in a row, and the period below them.
std::vector<frame::ReportFilterRow> filterRows(const std::vector<Selection>& selections) {
  std::vector<frame::ReportFilterRow> rows = selectionRows(selections, 2);
  rows.push_back(selectionRow(balancesPeriodSelection()));
  return rows;
}

void load(ReportScreen& screen, const Kind& kind) {
  const std::string accounts = kind.accounts + clausesOf(screen.filters(), kind.selections);
  screen.setRows(sixColumnGrid, kind.statement(balancePeriod(screen), accounts));
}

printing::Report printOut(ReportScreen& screen, const Kind& kind) {
  return accBalRptRange(screen.workplace().context, balancesSheet(screen, kind.reportLabel, kind.nameHeading),
                        std::make_shared<frame::ReportRowsData>(screen.model(sixColumnGrid).rows()));
}

frame::ReportType typeOf(const Kind& kind, const session::LoginContext& context) {
  return {.screen = kind.screen,
          .caption = kind.caption,
          .filters = filterRows(kind.selections),
          .grids = {sixColumns(kind.nameHeading)},
          .totalsLabel = "Totals " + context.ccode,
          .view = displayCommand(),
          .print = printCommand(),
          .sheet = exportCommand(),
          .runs = frame::ReportRuns::OneByOne,
          .check = [selections = kind.selections](
                       ReportScreen& screen, frame::ReportUse use) { return checkSelections(screen, use, selections); },
          .load = [kind](ReportScreen& screen) { load(screen, kind); },
          .figures = showSixTotals,
          .printOut = [kind](ReportScreen& screen) { return printOut(screen, kind); },
          .sheetOf = [label = kind.reportLabel](ReportScreen& screen) { return sixColumnSheet(screen, label); },
          .drillDown = openLedger};
}

}  // namespace

QWidget* makeCustomerBalances(session::Workplace& workplace, QWidget* parent) {
  const Kind kind{.screen = "CustomerBalances",
                  .caption = "Customers' Balances",
                  .reportLabel = "Customers' Balances",
                  .nameHeading = "Customer Name",
                  .selections = customerSelections(),
                  .accounts = "",
                  .statement = customerBalances};
  return frame::makeReportWindow(typeOf(kind, workplace.context), workplace, parent);
}

QWidget* makeVendorBalances(session::Workplace& workplace, QWidget* parent) {
  const Kind kind{.screen = "VendorBalances",
                  .caption = "Vendors' Balances",
                  .reportLabel = "Vendors' Balances",
                  .nameHeading = "Vendor Name",
                  .selections = {vendorTypeSelection()},
                  .accounts = ""};
  return frame::makeReportWindow(typeOf(kind, workplace.context), workplace, parent);
}

QWidget* makeCashBalances(session::Workplace& workplace, QWidget* parent) {
  const Kind kind{.screen = "CashBalances",
                  .caption = "Cash & Bank Balances",
                  .reportLabel = "Cash & Banks Balances",
                  .nameHeading = "Account Name",
                  .selections = {},
                  .accounts = "(((OBQry.Level1ID) = 100) Or ((OBQry.Level1ID) = 110))"};
  return frame::makeReportWindow(typeOf(kind, workplace.context), workplace, parent);
}

}  // namespace velmo::reports
