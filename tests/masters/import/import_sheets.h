#pragma once

#include <gmock/gmock.h>

#include "masters/import/import_mapping.h"
#include "masters/import/import_plan.h"
#include "spreadsheet/sheet.h"

namespace velmo::test {

using Cells = std::vector<spreadsheet::Cell>;

// A sheet as a file would give it, and what comes of it when the headings are left to the program.
inline spreadsheet::Sheet sheetOf(std::vector<Cells> rows) {
  return {.name = "List", .rows = std::move(rows)};
}

// "5 12001004 Name @12001  Trade Customers" for a row that can be written, "5 !problem" for one that cannot.
inline std::vector<std::string> shownPlan(const masters::ImportPlan& plan) {
  std::vector<std::string> lines;
  for (const masters::PlannedRow& row : plan.rows) {
    const std::string line = std::to_string(row.line) + " ";
    lines.push_back(row.problem.empty() ? line + row.code + " " + row.name + " @" + row.place
                                        : line + "!" + row.problem);
  }
  return lines;
}

// The value of a column of a planned row as text.
inline std::string valueOf(const masters::ImportPlan& plan, std::size_t row, const std::string& column) {
  const std::vector<std::string>& columns = masters::writtenColumns(plan.kind);
  const auto at = static_cast<std::size_t>(std::ranges::find(columns, column) - columns.begin());
  return store::textOf(plan.rows.at(row).values.at(at));
}

}  // namespace velmo::test
