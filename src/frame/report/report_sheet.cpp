#include "frame/report/report_sheet.h"

#include "forms/table_view.h"
#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "spreadsheet/save_as_spreadsheet.h"

namespace velmo::frame {
namespace {

// The grid as it is, and its sums behind the last row.
ReportSheet plainSheet(ReportScreen& screen) {
  ReportModel& model = screen.model();
  ReportSheet sheet{.title = screen.windowTitle().toStdString(), .columns = model.columns()};
  const auto& grids = screen.type().grids;
  const std::string shown = screen.grid().objectName().toStdString();
  const auto grid = std::ranges::find(grids, shown, &ReportGrid::name);
  if (grid == grids.end()) return sheet;
  const std::vector<std::string> summed = summedFields(screen.type(), *grid);
  if (summed.empty()) return sheet;
  for (const forms::TableColumn& column : sheet.columns) {
    store::Value& total = sheet.totals.emplace_back();
    if (std::ranges::find(summed, column.field) != summed.end()) total = model.sum(column.field);
  }
  return sheet;
}

spreadsheet::TableRows rowsOf(const ReportSheet& sheet, const std::string& company, ReportModel& model) {
  spreadsheet::TableRows result;
  result.design = {
      .title = sheet.title, .company = company, .head = sheet.head, .opening = sheet.opening, .totals = sheet.totals};
  std::vector<int> fields;
  for (const forms::TableColumn& column : sheet.columns) {
    result.design.columns.push_back({.caption = column.caption,
                                     .format = column.format,
                                     .alignment = column.alignment,
                                     .width = column.width,
                                     .figures = column.figures});
    fields.push_back(model.rows() ? model.rows()->field(column.field) : -1);
  }
  result.count = model.ready();
  result.rows = [rows = model.rows(), fields, count = result.count,
                 row = std::int64_t{0}](std::span<store::Value> cells) mutable {
    if (row >= count) return false;
    for (std::size_t i = 0; i < fields.size(); ++i)
      if (fields[i] >= 0) cells[i] = rows->value(row, fields[i]);
    ++row;
    return true;
  };
  return result;
}

}  // namespace

void saveReportSheet(ReportScreen& screen) {
  const ReportSheet sheet = screen.type().sheetOf ? screen.type().sheetOf(screen) : plainSheet(screen);
  session::Workplace& workplace = screen.workplace();
  spreadsheet::saveAsSpreadsheet(rowsOf(sheet, workplace.context.CompanyName, screen.model()), screen.window(),
                                 workplace.files, workplace.prompts);
}

}  // namespace velmo::frame
