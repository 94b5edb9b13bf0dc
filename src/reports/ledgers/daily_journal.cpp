#include "reports/ledgers/daily_journal.h"

#include "frame/report/report_model.h"
#include "reports/ledgers/journal_print.h"
#include "reports/ledgers/ledger_statements.h"
#include "reports/ledgers/posted_lines.h"
#include "reports/parts/selections.h"

namespace velmo::reports {
namespace {

using frame::ReportScreen;

constexpr const char* grid = "GJGrid";

Selection period() {
  return {.inputs = {frame::ReportPeriodBoxes{.caption = "For the Peri&od From"}},
          .words = "For The Period From  ?  To  ?"};
}

void loadDayBook(ReportScreen& screen) {
  screen.setRows(grid, dayBookStatement(screen.workplace().context.FYID, screen.filters().period()));
}

printing::Report printOut(ReportScreen& screen) {
  return journalPrint(screen.workplace().context, wordsOf(screen, period()), screen.model(grid).rows(),
                      screen.workplace().clock.today());
}

frame::ReportType journalType(const session::LoginContext& context) {
  return {.screen = "DailyJournal",
          .caption = "Journal Report",
          .filters = {selectionRow(period())},
          .grids = {postedLinesGrid(grid)},
          .totalsLabel = "Totals " + context.ccode,
          .totals = {{.name = "TotalDr", .sum = "Debit"}, {.name = "TotalCr", .sum = "Credit"}},
          .view = {"ViewBttn", "&View Journal", "Shows the lines of the period"},
          .print = {"PrintBttn", "&Print", "Shows the journal as it will be printed"},
          .sheet = {"ExcelBttn", "&Export to Excel", "Saves the journal as a spreadsheet"},
          .load = loadDayBook,
          .printOut = printOut};
}

}  // namespace

QWidget* makeDailyJournal(session::Workplace& workplace, QWidget* parent) {
  return frame::makeReportWindow(journalType(workplace.context), workplace, parent);
}

}  // namespace velmo::reports
