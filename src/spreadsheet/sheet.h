#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "text/date_time.h"

namespace velmo::spreadsheet {

// A cell that shows no value of its own: a formula without a stored result, or one that failed.
struct CellProblem {
  std::string sentence;
  bool operator==(const CellProblem&) const = default;
};

using Cell = std::variant<std::monostate, bool, double, std::string, text::DateTime, CellProblem>;

inline bool isEmpty(const Cell& cell) {
  return std::holds_alternative<std::monostate>(cell);
}

// What a person reads in the cell, without any format: numbers with up to 15 digits, ISO dates, "Yes" and "No"; "" for
// a problem.
std::string textOf(const Cell& cell);

// How a file of separated values was read.
struct TextLayout {
  std::string encoding;  // an ICU name: "UTF-8", "UTF-16LE", "windows-1252"
  char separator = ',';
  bool operator==(const TextLayout&) const = default;
};

// The values of one sheet. The first row is row 0; rows and cells behind the last value are not there.
struct Sheet {
  std::string name;
  std::vector<std::vector<Cell>> rows;
  std::optional<TextLayout> layout = {};  // of a file of separated values

  const Cell& at(std::size_t row, std::size_t column) const;  // empty outside
  std::size_t columnCount() const;                            // of the longest row
};

}  // namespace velmo::spreadsheet
