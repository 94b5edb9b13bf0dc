#include "spreadsheet/sheet.h"

#include "text/number.h"

namespace velmo::spreadsheet {

std::string textOf(const Cell& cell) {
  if (const auto* words = std::get_if<std::string>(&cell)) return *words;
  if (const auto* number = std::get_if<double>(&cell)) return text::numberText(*number);
  if (const auto* date = std::get_if<text::DateTime>(&cell)) {
    const std::string iso = date->iso();
    return date->day == 0 && date->second > 0 ? iso.substr(iso.find(' ') + 1) : iso;  // a time of no day
  }
  if (const auto* yes = std::get_if<bool>(&cell)) return *yes ? "Yes" : "No";
  return {};
}

const Cell& Sheet::at(std::size_t row, std::size_t column) const {
  static const Cell empty;
  return row < rows.size() && column < rows[row].size() ? rows[row][column] : empty;
}

std::size_t Sheet::columnCount() const {
  std::size_t longest = 0;
  for (const std::vector<Cell>& row : rows) longest = std::max(longest, row.size());
  return longest;
}

}  // namespace velmo::spreadsheet
