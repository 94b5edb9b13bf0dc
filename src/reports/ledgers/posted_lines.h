#pragma once

#include <string>

#include "frame/report/report_screen.h"

namespace velmo::reports {

// A grid of ledger lines with their accounts, whatever document they come from, and the sums of both sides.
frame::ReportGrid postedLinesGrid(const char* name);

// Reads the lines of a statement into that grid.
void loadPostedLines(frame::ReportScreen& screen, const char* grid, const std::string& statement);

// Writes the sums of the grid into the figures `TotalDr` and `TotalCr`.
void showPostedTotals(frame::ReportScreen& screen, const char* grid);

}  // namespace velmo::reports
