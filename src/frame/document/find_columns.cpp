#include "frame/document/find_columns.h"

namespace velmo::frame {

namespace {

constexpr const char* moment = "dd-mm-yyyy hh:nn:ss";

}  // namespace

std::vector<forms::TableColumn> findColumns(const std::vector<forms::TableColumn>& own, FindLocation location,
                                            FindStatus status) {
  std::vector<forms::TableColumn> columns = {
      {.caption = "Serial No.", .field = "DocNo", .alignment = forms::ColumnAlignment::Right, .width = 9},
      {.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 10}};
  const auto add = [&columns](const forms::TableColumn& column) { columns.push_back(column); };
  for (const forms::TableColumn& column : own) add(column);
  add({.caption = "Employee", .field = "EmpName", .width = 18});
  if (location == FindLocation::Joined) add({.caption = "Location", .field = "LocationName", .width = 16});
  if (status == FindStatus::Shown) add({.caption = "Status", .field = "CStatus", .width = 10});
  add({.caption = "Added By", .field = "AddedBy", .width = 14});
  add({.caption = "Time Added", .field = "TimeAdded", .format = moment, .width = 19});
  add({.caption = "Edited By", .field = "EditedBy", .width = 14});
  add({.caption = "Time Edited", .field = "TimeEdited", .format = moment, .width = 19});
  return columns;
}

forms::TableColumn findAmount(const std::string& caption, const std::string& field) {
  return {.caption = caption, .field = field, .format = "0.00;(0.00)", .alignment = forms::ColumnAlignment::Right};
}

}  // namespace velmo::frame
