#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "forms/recordset_model.h"
#include "store/values/value.h"

namespace velmo::spreadsheet {

// One headed column. A cell is what its value is: text stays text ("007", "=1+1"), a number is a number shown in the
// format, a date is a date, Yes/No are those words, null is an empty cell. Without a format, dates are shown as the
// screens write them.
struct SheetColumn {
  std::string caption;
  std::string format = {};  // as of text/format.h: "#,##0.00;(#,##0.00)", "dd-mm-yyyy"
  forms::ColumnAlignment alignment = forms::ColumnAlignment::Left;
  int width = 12;  // in average characters
  forms::FigureKind figures = forms::FigureKind::Money;
};

struct SheetDesign {
  std::string title;         // of the sheet and the document
  std::string company = {};  // the document's author; may be empty
  std::vector<SheetColumn> columns = {};
  std::vector<std::string> head = {};      // lines above the captions, an empty row below them
  std::vector<store::Value> opening = {};  // a row of its own under the captions
  std::vector<store::Value> totals = {};   // a row of its own behind the last

  // Rows of the sheet above the first of the list.
  std::int64_t rowsAbove() const {
    return static_cast<std::int64_t>(head.empty() ? 0 : head.size() + 1) + 1 + (opening.empty() ? 0 : 1);
  }
};

// Fills in the cells of the next row, one for each column, all null before; false behind the last row.
using RowSource = std::function<bool(std::span<store::Value> cells)>;

// Called every few milliseconds with the number of steps done; false stops the work, and nothing of it is left.
using Progress = std::function<bool(std::int64_t steps)>;

inline constexpr std::int64_t mostRows = 1048576;  // of a sheet, those above and behind the list among them
inline constexpr int mostColumns = 16384;

// Writes an .xlsx file of one sheet, in memory that does not grow with the rows, and gives the number of rows. Each row
// is two steps: it is written, and later packed with the others. The file
// appears, or takes the place of an older one, when it is complete and on the disk. Otherwise nothing is changed and
// the error is a sentence for the user; an empty one when the progress function stopped the work. Exceptions of the row
// source pass through.
tl::expected<std::int64_t, std::string> saveSheet(const std::filesystem::path& file, const SheetDesign& design,
                                                  const RowSource& rows, const Progress& progress = {});

}  // namespace velmo::spreadsheet
