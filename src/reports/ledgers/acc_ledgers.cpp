#include "reports/ledgers/acc_ledgers.h"

#include <cmath>

#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "reports/ledgers/ledger_print.h"
#include "reports/ledgers/ledger_rows.h"
#include "reports/ledgers/ledger_statements.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::reports {
namespace {

using forms::ColumnAlignment;
using frame::ReportScreen;
using frame::ReportUse;

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

bool checkAccount(ReportScreen& screen, ReportUse use) {
  if (!screen.filters().text("Acc").empty()) return true;
  return screen.refuse(
      "Select Account",
      use == ReportUse::Print ? "Select a valid account to print ledger." : "Select a valid account to view ledger.",
      "ACodeTxt");
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

void showFigures(ReportScreen& screen) {
  const frame::ReportModel& lines = screen.model(grid);
  const double closing = ledger(screen).balance();
  screen.setFigure("TotalDr", text::formatNumber(lines.sum("Debit"), frame::figureFormat));
  screen.setFigure("TotalCr", text::formatNumber(lines.sum("Credit"), frame::figureFormat));
  screen.setFigure("Balance", text::formatNumber(std::fabs(closing), frame::figureFormat));
  screen.setFigure("Status", lines.ready() > 0 ? frame::sideOf(closing) : "");
}

std::string grouped(const std::string& figure) {
  return text::formatText(figure, frame::groupedFigureFormat);
}

printing::Report printOut(ReportScreen& screen) {
  const frame::ReportFilters& filters = screen.filters();
  const text::DateTime today = screen.workplace().clock.today();
  const frame::ReportPeriod period = filters.period();
  return ledgerPrint(screen.workplace().context,
                     {.account = filters.account("ACodeTxt"),
                      .accountName = filters.text("Acc"),
                      .period = filters.chosen("DateOpt") ? ledgerFromTo(period.from, period.to) : ledgerEndedOn(today),
                      .broughtForward = screen.figure("OBLbl1"),
                      .openingBalance = grouped(screen.figure("OBLbl2")),
                      .openingStatus = screen.figure("OBLbl3"),
                      .closingBalance = grouped(screen.figure("Balance")),
                      .closingStatus = screen.figure("Status")},
                     screen.model(grid).rows(), today);
}

store::Value amountIn(const std::string& figure) {
  const auto number = text::numberFrom(figure);
  return number ? store::Value(*number) : store::Value();
}

frame::ReportSheet sheetOf(ReportScreen& screen) {
  const frame::ReportFilters& filters = screen.filters();
  const frame::ReportPeriod period = filters.period();
  const std::string words =
      filters.chosen("DateOpt")
          ? "Ledger For The Period From " + frame::dayInWords(period.from) + " To " + frame::dayInWords(period.to)
          : "Ledger For The Period Ended On " + frame::dayInWords(screen.workplace().clock.today());
  const frame::ReportModel& lines = screen.model(grid);
  return {.title = "Ledger " + filters.text("Acc"),
          .head = {filters.text("Acc"), words},
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
          .filters = {{frame::ReportAccount{}}, {frame::ReportPeriodBoxes{.check = "DateOpt"}}},
          .grids = {{.name = grid, .columns = gridColumns(), .sums = {"Debit", "Credit"}}},
          .labels = {"OBLbl1", "OBLbl2", "OBLbl3"},
          .totalsFrame = "LedgerTotals",
          .totalsLabel = "Totals " + context.ccode,
          .totals = {{"TotalDr"}, {"TotalCr"}, {"Balance"}, {.name = "Status", .width = 9}},
          .view = {"ViewBttn", "&View Ledger", "Shows the ledger of the account"},
          .print = {"PrintBttn", "&Print", "Shows the ledger as it will be printed"},
          .sheet = {"ExcelBttn", "&Export to Excel", "Saves the ledger as a spreadsheet"},
          .others = {{"MultiBttn", "Print &Multiple Ledgers", "Prints the ledgers of many accounts",
                      [](ReportScreen& screen) { screen.workplace().screens.openDialog("PrintLedgers"); }}},
          .check = checkAccount,
          .load = loadLedger,
          .figures = showFigures,
          .printOut = printOut,
          .sheetOf = sheetOf,
          .opened = showWantedAccount};
}

}  // namespace

QWidget* makeAccLedgers(session::Workplace& workplace, QWidget* parent) {
  return frame::makeReportWindow(ledgersType(workplace.context), workplace, parent);
}

}  // namespace velmo::reports
