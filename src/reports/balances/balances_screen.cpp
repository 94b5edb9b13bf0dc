#include "reports/balances/balances_screen.h"

#include <cmath>

#include "frame/report/report_model.h"
#include "text/format.h"

namespace velmo::reports {
namespace {

using frame::ReportScreen;

constexpr int ledgersRight = 240;

}  // namespace

forms::TableColumn balanceColumn(const char* caption, const char* field, int width) {
  return {.caption = caption,
          .field = field,
          .format = frame::figureFormat,
          .alignment = forms::ColumnAlignment::Right,
          .width = width};
}

std::vector<forms::TableColumn> accountColumns(const char* nameCaption) {
  return {{.caption = "Acc Code", .field = "AccCode", .width = 10},
          {.caption = nameCaption, .field = "AccName", .width = 40}};
}

frame::ReportGrid sixColumns(const char* nameCaption, const char* shownBy) {
  std::vector<forms::TableColumn> columns = accountColumns(nameCaption);
  const auto side = [](const char* field) {
    return forms::TableColumn{.caption = "Status", .field = field, .width = 8};
  };
  columns.insert(columns.end(), {balanceColumn("Opening Balance", "OBalance", 16), side("OStatus"),
                                 balanceColumn("Debit", "Debits"), balanceColumn("Credit", "Credits"),
                                 balanceColumn("Closing Balance", "CBalance", 16), side("CStatus")});
  return {.name = sixColumnGrid,
          .columns = std::move(columns),
          .sums = {"ODiff", "CDiff"},
          .shownBy = shownBy,
          .totalsFrame = "LedgerTotals",
          .totals = {{"OpenBalance", "Opening", 23},
                     {"TotalDr", "Debit", 17, "Debits", totalFormat},
                     {"TotalCr", "Credit", 17, "Credits", totalFormat},
                     {"CloseBalance", "Closing", 20}}};
}

Selection balancesPeriodSelection() {
  return {
      .inputs = {frame::ReportPeriodBoxes{
          .caption = "For Peri&od From", .from = "BalDt_0", .to = "BalDt_1", .start = frame::PeriodStart::YearsStart}},
      .words = "From  ?  To  ?"};
}

BalancePeriod balancePeriod(ReportScreen& screen) {
  const frame::ReportPeriod period = screen.filters().period("BalDt_0", "BalDt_1");
  return {.fyid = screen.workplace().context.FYID, .from = period.from, .to = period.to};
}

frame::ReportCommand displayCommand() {
  return {"ViewBttn", "&Display", "Shows the balances"};
}

frame::ReportCommand printCommand() {
  return {"PrintBttn", "&Print", "Shows the balances as they will be printed"};
}

frame::ReportCommand exportCommand() {
  return {"ExcelBttn", "&Export to Excel", "Saves the balances as a spreadsheet"};
}

std::string totalText(double amount) {
  return text::formatNumber(amount, totalFormat);
}

std::string totalWithSide(double balance) {
  return totalText(std::fabs(balance)) + (balance < 0 ? " Credit " : "  Debit ");
}

void showSixTotals(ReportScreen& screen) {
  const frame::ReportModel& rows = screen.model(sixColumnGrid);
  screen.setFigure("OpenBalance", totalWithSide(rows.sum("ODiff")));
  screen.setFigure("CloseBalance", totalWithSide(rows.sum("CDiff")));
}

BalancesSheet balancesSheet(ReportScreen& screen, const std::string& reportLabel, const char* nameHeading) {
  return {.reportLabel = reportLabel,
          .nameHeading = nameHeading,
          .dateLine = wordsOf(screen, balancesPeriodSelection()),
          .opening = screen.model(sixColumnGrid).sum("ODiff"),
          .closing = screen.model(sixColumnGrid).sum("CDiff"),
          .today = screen.workplace().clock.today()};
}

frame::ReportSheet sixColumnSheet(ReportScreen& screen, const std::string& title) {
  const frame::ReportModel& rows = screen.model(sixColumnGrid);
  std::vector<forms::TableColumn> columns = rows.columns();
  for (forms::TableColumn& column : columns)
    if (!column.format.empty()) column.width = 12;
  const double opening = rows.sum("ODiff");
  const double closing = rows.sum("CDiff");
  return {.title = title,
          .head = {title, singleSpaced(wordsOf(screen, balancesPeriodSelection()))},
          .columns = std::move(columns),
          .totals = {{},
                     screen.type().totalsLabel,
                     std::fabs(opening),
                     frame::sideOf(opening),
                     rows.sum("Debits"),
                     rows.sum("Credits"),
                     std::fabs(closing),
                     frame::sideOf(closing)}};
}

void openLedger(ReportScreen& screen, std::int64_t row) {
  const store::Value account = screen.model().value(row, "AccCode");
  session::Workplace& workplace = screen.workplace();
  if (store::isBlank(account) || !workplace.rights().demand(ledgersRight)) return;
  workplace.context.OpenLedgerAccCode = store::integerOf(account);
  workplace.context.OpenLedgerFlag = true;
  if (!workplace.screens.openScreen("AccLedgers")) workplace.context.OpenLedgerFlag = false;
}

}  // namespace velmo::reports
