#include "reports/daily_journal.h"

#include "frame/report_model.h"
#include "frame/report_screen.h"
#include "reports/journal_print.h"
#include "reports/ledger_statements.h"
#include "text/format.h"

namespace velmo::reports {
namespace {

using forms::ColumnAlignment;
using frame::ReportScreen;

constexpr const char* grid = "GJGrid";

std::vector<forms::TableColumn> gridColumns() {
  const auto figure = [](const char* caption) {
    return forms::TableColumn{.caption = caption,
                              .field = caption,
                              .format = frame::figureFormat,
                              .alignment = ColumnAlignment::Right,
                              .width = 12};
  };
  return {{.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 10},
          {.caption = "Tran. No.", .field = "TranRefShort", .width = 10},
          {.caption = "Acc Code", .field = "AccCode", .width = 10},
          {.caption = "Account Name", .field = "AccName", .width = 24},
          {.caption = "Description", .field = "Desc", .width = 42},
          figure("Debit"),
          figure("Credit")};
}

void loadDayBook(ReportScreen& screen) {
  session::LoginContext& context = screen.workplace().context;
  screen.setRows(grid, std::make_shared<frame::RecordsetRows>(
                           store::Recordset(context.KORDconn, dayBookStatement(context.FYID, screen.filters().period()),
                                            store::LockType::ReadOnly)));
}

void showTotals(ReportScreen& screen) {
  const frame::ReportModel& lines = screen.model(grid);
  screen.setFigure("TotalDr", text::formatNumber(lines.sum("Debit"), frame::figureFormat));
  screen.setFigure("TotalCr", text::formatNumber(lines.sum("Credit"), frame::figureFormat));
}

printing::Report printOut(ReportScreen& screen) {
  return journalPrint(screen.workplace().context, screen.filters().period(), screen.model(grid).rows(),
                      screen.workplace().clock.today());
}

frame::ReportType journalType(const session::LoginContext& context) {
  return {.screen = "DailyJournal",
          .caption = "Journal Report",
          .filters = {{frame::ReportPeriodBoxes{.caption = "For the Peri&od From"}}},
          .grids = {{.name = grid, .columns = gridColumns(), .sums = {"Debit", "Credit"}}},
          .totalsLabel = "Totals " + context.ccode,
          .totals = {{"TotalDr"}, {"TotalCr"}},
          .view = {"ViewBttn", "&View Journal", "Shows the lines of the period"},
          .print = {"PrintBttn", "&Print", "Shows the journal as it will be printed"},
          .sheet = {"ExcelBttn", "&Export to Excel", "Saves the journal as a spreadsheet"},
          .load = loadDayBook,
          .figures = showTotals,
          .printOut = printOut};
}

}  // namespace

QWidget* makeDailyJournal(session::Workplace& workplace, QWidget* parent) {
  return frame::makeReportWindow(journalType(workplace.context), workplace, parent);
}

}  // namespace velmo::reports
