#include "reports/ledgers/unbalanced_documents.h"

#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "schema/company_checks.h"

namespace velmo::reports {
namespace {

using frame::ReportScreen;

constexpr const char* grid = "UnbalancedGrid";

forms::TableColumn figure(const char* caption, const char* field) {
  return {.caption = caption,
          .field = field,
          .format = frame::figureFormat,
          .alignment = forms::ColumnAlignment::Right,
          .width = 16};
}

frame::ReportType unbalancedType() {
  return {.screen = "UnbalancedDocuments",
          .caption = "Unbalanced Documents",
          .grids = {{.name = grid,
                     .columns = {{.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 10},
                                 {.caption = "Tran. No.", .field = "TranRefShort", .width = 12},
                                 figure("Debits", "Debits"),
                                 figure("Credits", "Credits"),
                                 figure("Difference", "Difference"),
                                 {.caption = "State", .field = "State", .width = 24}}}},
          .view = {"ViewBttn", "&View Documents", "Looks through all documents once more"},
          .sheet = {"ExcelBttn", "&Export to Excel", "Saves the list as a spreadsheet"},
          .load = [](ReportScreen& screen) { screen.setRows(grid, schema::unbalancedDocuments()); },
          .opened = [](ReportScreen& screen) { screen.view(); }};
}

}  // namespace

QWidget* makeUnbalancedDocuments(session::Workplace& workplace, QWidget* parent) {
  return frame::makeReportWindow(unbalancedType(), workplace, parent);
}

}  // namespace velmo::reports
