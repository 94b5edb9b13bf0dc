#pragma once

#include "spreadsheet/table_rows.h"

namespace velmo::spreadsheet {

// The same list with the numbers that its sheet is to hold: amounts of money as they are shown, other numbers with the
// 15 digits that a number is known by, so that nobody meets 204.6999999999998. The list outlives it.
TableRows withHeldFigures(const TableRows& list);

}  // namespace velmo::spreadsheet
