#include "reports/ledgers/posted_lines.h"

#include "frame/report/report_model.h"
#include "frame/report/rows_on_the_way.h"
#include "text/format.h"

namespace velmo::reports {

frame::ReportGrid postedLinesGrid(const char* name) {
  const auto figure = [](const char* caption) {
    return forms::TableColumn{.caption = caption,
                              .field = caption,
                              .format = frame::figureFormat,
                              .alignment = forms::ColumnAlignment::Right,
                              .width = 12};
  };
  return {.name = name,
          .columns = {{.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 10},
                      {.caption = "Tran. No.", .field = "TranRefShort", .width = 10},
                      {.caption = "Acc Code", .field = "AccCode", .width = 10},
                      {.caption = "Account Name", .field = "AccName", .width = 24},
                      {.caption = "Description", .field = "Desc", .width = 42},
                      figure("Debit"),
                      figure("Credit")},
          .sums = {"Debit", "Credit"}};
}

void loadPostedLines(frame::ReportScreen& screen, const char* grid, const std::string& statement) {
  screen.setRows(grid, frame::readReport(screen.workplace().context.KORDconn, statement));
}

void showPostedTotals(frame::ReportScreen& screen, const char* grid) {
  const frame::ReportModel& lines = screen.model(grid);
  screen.setFigure("TotalDr", text::formatNumber(lines.sum("Debit"), frame::figureFormat));
  screen.setFigure("TotalCr", text::formatNumber(lines.sum("Credit"), frame::figureFormat));
}

}  // namespace velmo::reports
