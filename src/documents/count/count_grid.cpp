#include "documents/count/count_grid.h"

#include <QTableView>

#include "frame/sheets/cell_text.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

enum Column { ItemCode, Description, Category, Unit, Book, Counted, Difference, MovedSince };

constexpr double mostCounted = 99999999;

}  // namespace

CountRows::CountRows(CountSheet& sheet) : sheet_(sheet) {
  using enum frame::CellUse;
  constexpr frame::CellKind figure = frame::CellKind::Figure;
  columns_ = {{.caption = "Item Code", .width = 15, .use = Locked},
              {.caption = "Description", .width = 0, .use = Locked},
              {.caption = "Category", .width = 14, .use = Locked},
              {.caption = "Unit", .width = 5, .use = Locked},
              {.caption = "Book Quantity", .width = 11, .kind = figure, .use = Locked},
              {.caption = "Counted", .width = 11, .kind = figure},
              {.caption = "Difference", .width = 11, .kind = figure, .use = Result},
              {.caption = "Moved Since", .width = 10, .kind = figure, .use = Locked}};
}

store::Value CountRows::valueAt(int row, int column) const {
  const CountSheet::Line& line = sheet_.line(static_cast<std::size_t>(row));
  const auto orNull = [](const std::optional<double>& figure) {
    return figure ? store::Value(*figure) : store::Value(store::Null{});
  };
  switch (column) {
    case ItemCode:
      return line.goods.code;
    case Description:
      return line.goods.name;
    case Category:
      return line.goods.category;
    case Unit:
      return line.goods.unit;
    case Book:
      return line.goods.book;
    case Counted:
      return orNull(line.counted);
    case Difference:
      return orNull(CountSheet::difference(line, notCounted_));
    default:
      return line.goods.movedSince == 0 ? store::Value(store::Null{}) : store::Value(line.goods.movedSince);
  }
}

std::string CountRows::shownText(int row, int column) const {
  return column >= Book ? frame::shownFigure(valueAt(row, column)) : plainText(row, column);
}

std::string CountRows::editText(int row, int column) const {
  return frame::editFigure(valueAt(row, column));
}

std::string CountRows::plainText(int row, int column) const {
  return store::textOf(valueAt(row, column));
}

bool CountRows::mayEdit(int, int column) {
  return column == Counted;
}

bool CountRows::enter(int row, int column, std::string_view typed) {
  if (column != Counted) return false;
  const auto number = text::numberFrom(typed);
  if (!typed.empty() && (!number || *number < 0 || *number > mostCounted)) return false;
  sheet_.setCounted(static_cast<std::size_t>(row), number);
  return true;
}

void CountRows::removeRow(int row) {
  sheet_.setCounted(static_cast<std::size_t>(row), std::nullopt);
}

CountGrid::CountGrid(CountSheet& sheet, QWidget* parent) : SheetGrid(parent), rows_(sheet) {
  build(rows_, "Grid", "Items to be counted");
}

void CountGrid::setNotCounted(NotCounted notCounted) {
  cancelEdit();
  rows_.setNotCounted(notCounted);
  showItems();
}

void CountGrid::showItems() {
  showRows();
  if (rows_.rowCount() > 0) setCurrentCell(0, Counted);
}

void CountGrid::showCount(std::size_t listed) {
  const int row = static_cast<int>(listed);
  rowChanged(row);
  setCurrentCell(row, Counted);
  table().scrollTo(current());
}

}  // namespace velmo::documents
