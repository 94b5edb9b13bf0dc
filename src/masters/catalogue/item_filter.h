#pragma once

#include <string>

class QHBoxLayout;

namespace velmo::frame {
class GridEditor;
}

namespace velmo::masters {

// `ItemOpt`, `CatList` and `BrandList` above the grid, which shows the columns of the goods that they choose.
void addItemFilter(frame::GridEditor& editor, QHBoxLayout& row, const std::string& columns);

// The statement of a choice: which is the index of `ItemOpt`, chosen the category or brand, null for none.
std::string filteredItems(const std::string& columns, int which, const std::string& chosen);

}  // namespace velmo::masters
