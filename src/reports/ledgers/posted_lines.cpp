#include "reports/ledgers/posted_lines.h"

namespace velmo::reports {

frame::ReportGrid postedLinesGrid(const char* name) {
  const auto figure = [](const char* caption) {
    return forms::TableColumn{.caption = caption,
                              .field = caption,
                              .format = frame::figureFormat,
                              .alignment = forms::ColumnAlignment::Right,
                              .width = 12};
  };
  return {.name = name,
          .columns = {{.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 10},
                      {.caption = "Tran. No.", .field = "TranRefShort", .width = 10},
                      {.caption = "Acc Code", .field = "AccCode", .width = 10},
                      {.caption = "Account Name", .field = "AccName", .width = 24},
                      {.caption = "Description", .field = "Desc", .width = 42},
                      figure("Debit"),
                      figure("Credit")}};
}

}  // namespace velmo::reports
