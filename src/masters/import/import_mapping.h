#pragma once

#include <optional>
#include <string>
#include <vector>

#include "masters/import/import_kind.h"
#include "spreadsheet/sheet.h"

namespace velmo::masters {

enum class DecimalSign { Point, Comma };

// Where one field comes from: a column of the file, and what stands in for a cell that is empty.
struct FieldSource {
  std::optional<std::size_t> column = {};
  std::string otherwise = {};
};

// How the rows of a file become rows of the books.
struct ImportMapping {
  std::optional<std::size_t> headingRow = {};  // counted from 0; the rows behind it are brought in, all without one
  std::vector<FieldSource> sources;            // by the descriptor's fields
  DecimalSign decimalSign = DecimalSign::Point;

  std::size_t firstRow() const { return headingRow ? *headingRow + 1 : 0; }
};

// What a person would choose who reads the headings: the row among the first ones that names the most fields, the
// columns by their headings, and the decimal sign that the figures show.
ImportMapping guessMapping(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet);
// The same with the row of the headings given.
ImportMapping guessMapping(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet,
                           std::optional<std::size_t> headingRow);

// The column's heading, otherwise its letters as spreadsheets show them: "AB".
std::string columnCaption(const spreadsheet::Sheet& sheet, std::optional<std::size_t> headingRow, std::size_t column);

}  // namespace velmo::masters
