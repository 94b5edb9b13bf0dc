#include "spreadsheet/held_figures.h"

#include <cmath>

#include "spreadsheet/cell_formats.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::spreadsheet {
namespace {

void hold(store::Value& value, const SheetColumn& column) {
  auto* number = std::get_if<double>(&value);
  if (!number || !std::isfinite(*number)) return;
  const bool asShown =
      column.figures == forms::FigureKind::Money && !column.format.empty() && !isDatePattern(column.format);
  const std::string text = asShown ? text::formatNumber(*number, column.format) : text::numberText(*number);
  *number = text::numberFrom(text).value_or(*number);
}

void hold(std::span<store::Value> cells, const std::vector<SheetColumn>& columns) {
  for (std::size_t i = 0; i < std::min(cells.size(), columns.size()); ++i) hold(cells[i], columns[i]);
}

}  // namespace

TableRows withHeldFigures(const TableRows& list) {
  TableRows held = list;
  hold(held.design.opening, held.design.columns);
  hold(held.design.totals, held.design.columns);
  held.rows = [&list](std::span<store::Value> cells) {
    if (!list.rows(cells)) return false;
    hold(cells, list.design.columns);
    return true;
  };
  return held;
}

}  // namespace velmo::spreadsheet
