#include "reports/ledgers/acc_ledgers.h"

#include <cmath>

#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "reports/ledgers/ledger_print.h"
#include "reports/ledgers/ledger_rows.h"
#include "reports/ledgers/ledger_statements.h"
#include "reports/parts/selections.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::reports {
namespace {

using forms::ColumnAlignment;
using frame::ReportScreen;

constexpr const char* grid = "LedgerGrid";

std::vector<forms::TableColumn> gridColumns() {
  const auto figure = [](const char* caption, const char* field) {
    return forms::TableColumn{.caption = caption,
                              .field = field,
                              .format = frame::figureFormat,
                              .alignment = ColumnAlignment::Right,
                              .width = 12};
  };
  return {{.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 10},
          {.caption = "Tran No", .field = "TranRefShort", .width = 10},
          {.caption = "Reference No.", .field = "d1", .width = 12},
          {.caption = "Description", .field = "Desc", .width = 50},
          figure("Debit", "Debit"),
          figure("Credit", "Credit"),
          figure("Balance", "Balance"),
          {.caption = "Status", .field = "Status", .width = 8}};
}

// A sheet has room for the whole description.
std::vector<forms::TableColumn> sheetColumns() {
  std::vector<forms::TableColumn> columns = gridColumns();
  columns[0].width = 12;
  return columns;
}

Selection account() {
  return {.inputs = {frame::ReportAccount{}},
          .refusals = {{.control = "ACodeTxt",
                        .title = "Select Account",
                        .text = "Select a valid account to view ledger.",
                        .onPrint = "Select a valid account to print ledger."}}};
}

Selection period() {
  return {.box = "DateOpt",
          .caption = "Peri&od From",
          .inputs = {frame::ReportPeriodBoxes{.caption = ""}},
          .words = ledgerFromToWords,
          .otherwiseWords = ledgerEndedOnWords};
}

void showBroughtForward(ReportScreen& screen, const std::optional<double>& balance) {
  screen.setFigure("OBLbl1", balance ? "Balance Brought Forward  " : "");
  screen.setFigure("OBLbl2", balance ? text::formatNumber(std::fabs(*balance), "0.00") : "");
  screen.setFigure("OBLbl3", balance ? frame::sideOf(*balance) : "");
}

void loadLedger(ReportScreen& screen) {
  session::LoginContext& context = screen.workplace().context;
  const std::int64_t account = screen.filters().account("ACodeTxt");
  const bool ofPeriod = screen.filters().chosen("DateOpt");
  const std::optional<double> before =
      ofPeriod ? broughtForward(context.KORDconn, account, context.FYID, screen.filters().day("LedgerDt_0"))
               : std::nullopt;
  showBroughtForward(screen, before);
  const LedgerChoice choice{.account = account,
                            .fyid = context.FYID,
                            .period = ofPeriod ? std::optional(screen.filters().period()) : std::nullopt};
  screen.setRows(grid, openLedger(context.KORDconn, choice, before.value_or(0)));
}

const LedgerRows& ledger(ReportScreen& screen) {
  return dynamic_cast<const LedgerRows&>(*screen.model(grid).rows());
}

void showClosingBalance(ReportScreen& screen) {
  const double closing = ledger(screen).balance();
  screen.setFigure("Balance", text::formatNumber(std::fabs(closing), frame::figureFormat));
  screen.setFigure("Status", screen.model(grid).ready() > 0 ? frame::sideOf(closing) : "");
}

std::string grouped(const std::string& figure) {
  return text::formatText(figure, frame::groupedFigureFormat);
}

printing::Report printOut(ReportScreen& screen) {
  const frame::ReportFilters& filters = screen.filters();
  return ledgerPrint(screen.workplace().context,
                     {.account = filters.account("ACodeTxt"),
                      .accountName = filters.text("Acc"),
                      .period = wordsOf(screen, period()),
                      .broughtForward = screen.figure("OBLbl1"),
                      .openingBalance = grouped(screen.figure("OBLbl2")),
                      .openingStatus = screen.figure("OBLbl3"),
                      .closingBalance = grouped(screen.figure("Balance")),
                      .closingStatus = screen.figure("Status")},
                     screen.model(grid).rows(), screen.workplace().clock.today());
}

store::Value amountIn(const std::string& figure) {
  const auto number = text::numberFrom(figure);
  return number ? store::Value(*number) : store::Value();
}

frame::ReportSheet sheetOf(ReportScreen& screen) {
  const std::string name = screen.filters().text("Acc");
  const frame::ReportModel& lines = screen.model(grid);
  return {.title = "Ledger " + name,
          .head = {name, singleSpaced(wordsOf(screen, period()))},
          .columns = sheetColumns(),
          .opening =
              {{}, {}, {}, screen.figure("OBLbl1"), {}, {}, amountIn(screen.figure("OBLbl2")), screen.figure("OBLbl3")},
          .totals = {{},
                     {},
                     {},
                     {},
                     lines.sum("Debit"),
                     lines.sum("Credit"),
                     std::fabs(ledger(screen).balance()),
                     screen.figure("Status")}};
}

// Another screen asked for an account.
void showWantedAccount(ReportScreen& screen) {
  session::LoginContext& context = screen.workplace().context;
  if (!context.OpenLedgerFlag) return;
  context.OpenLedgerFlag = false;
  screen.filters().setText("ACodeTxt", std::to_string(context.OpenLedgerAccCode));
  screen.filters().choose("DateOpt", false);
  showBroughtForward(screen, std::nullopt);
  screen.view();
}

frame::ReportType ledgersType(const session::LoginContext& context) {
  return {.screen = "AccLedgers",
          .caption = "Accounts Ledgers",
          .heading = "Account Ledgers",
          .filters = selectionRows({account(), period()}, 1),
          .grids = {{.name = grid, .columns = gridColumns()}},
          .labels = {"OBLbl1", "OBLbl2", "OBLbl3"},
          .totalsFrame = "LedgerTotals",
          .totalsLabel = "Totals " + context.ccode,
          .totals = {{.name = "TotalDr", .sum = "Debit"},
                     {.name = "TotalCr", .sum = "Credit"},
                     {"Balance"},
                     {.name = "Status", .width = 9}},
          .view = {"ViewBttn", "&View Ledger", "Shows the ledger of the account"},
          .print = {"PrintBttn", "&Print", "Shows the ledger as it will be printed"},
          .sheet = {"ExcelBttn", "&Export to Excel", "Saves the ledger as a spreadsheet"},
          .others = {{"MultiBttn", "Print &Multiple Ledgers", "Prints the ledgers of many accounts",
                      [](ReportScreen& screen) { screen.workplace().screens.openDialog("PrintLedgers"); }}},
          .check = [](ReportScreen& screen, frame::ReportUse use) { return checkSelections(screen, use, {account()}); },
          .load = loadLedger,
          .figures = showClosingBalance,
          .printOut = printOut,
          .sheetOf = sheetOf,
          .opened = showWantedAccount,
          .reopened = showWantedAccount};
}

}  // namespace

QWidget* makeAccLedgers(session::Workplace& workplace, QWidget* parent) {
  return frame::makeReportWindow(ledgersType(workplace.context), workplace, parent);
}

}  // namespace velmo::reports
