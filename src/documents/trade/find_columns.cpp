#include "documents/trade/find_columns.h"

namespace velmo::documents::find_columns {

using enum forms::ColumnAlignment;

std::vector<forms::TableColumn> lastColumns() {
  return {{.caption = "Employee", .field = "EmpName", .width = 18},
          {.caption = "Location", .field = "LocationName", .width = 16},
          {.caption = "Status", .field = "CStatus", .width = 10},
          {.caption = "Added By", .field = "AddedBy", .width = 14},
          {.caption = "Time Added", .field = "TimeAdded", .format = frame::momentFormat, .width = 19},
          {.caption = "Edited By", .field = "EditedBy", .width = 14},
          {.caption = "Time Edited", .field = "TimeEdited", .format = frame::momentFormat, .width = 19}};
}

}  // namespace velmo::documents::find_columns
