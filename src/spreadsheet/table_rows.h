#pragma once

#include "spreadsheet/sheet_writer.h"

class QTableView;

namespace velmo::spreadsheet {

// What a table shows, column by column from left to right without those that are hidden, and row by row in its present
// order: captions, formats and values. Rows that the table has not asked for yet are among them.
struct TableRows {
  SheetDesign design = {};
  std::int64_t count = 0;
  RowSource rows = {};  // as long as the table and its model live unchanged
};

TableRows rowsOf(const QTableView& table, const std::string& title);

}  // namespace velmo::spreadsheet
