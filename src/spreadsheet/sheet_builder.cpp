#include "spreadsheet/sheet_builder.h"

namespace velmo::spreadsheet {
namespace {

constexpr std::int64_t mostCells = 5'000'000;
constexpr std::int64_t mostBytes = std::int64_t{1} << 29;
constexpr std::int64_t rowsBetweenReports = 512;

}  // namespace

SheetBuilder::SheetBuilder(std::string name, const Progress& progress)
    : sheet_{.name = std::move(name), .rows = {}}, progress_(progress) {}

void SheetBuilder::report(std::int64_t row) {
  if (!progress_ || row < reported_ + rowsBetweenReports) return;
  reported_ = row;
  if (!progress_(row)) throw ReadFailure({});
}

void SheetBuilder::put(std::int64_t row, std::int64_t column, Cell cell) {
  if (isEmpty(cell)) return;
  if (row < 0 || row >= mostRows || column < 0 || column >= mostColumns) throw damagedFile();
  report(row);
  const auto at = static_cast<std::size_t>(column);
  if (static_cast<std::size_t>(row) >= sheet_.rows.size()) sheet_.rows.resize(static_cast<std::size_t>(row) + 1);
  std::vector<Cell>& cells = sheet_.rows[static_cast<std::size_t>(row)];
  if (at >= cells.size()) {
    cells_ += static_cast<std::int64_t>(at + 1 - cells.size());
    if (cells_ > mostCells) throw tooLarge();
    cells.resize(at + 1);
  }
  if (const auto* words = std::get_if<std::string>(&cell)) {
    bytes_ += static_cast<std::int64_t>(words->size());
    if (bytes_ > mostBytes) throw tooLarge();
  }
  cells[at] = std::move(cell);
}

void SheetBuilder::fill(std::int64_t row, std::int64_t rows, std::int64_t column, std::int64_t columns,
                        const Cell& cell) {
  if (isEmpty(cell)) return;
  if (row + rows > mostRows || column + columns > mostColumns) throw damagedFile();
  if (rows * columns > mostCells) throw tooLarge();
  for (std::int64_t down = row; down < row + rows; ++down)
    for (std::int64_t along = column; along < column + columns; ++along) put(down, along, cell);
}

}  // namespace velmo::spreadsheet
