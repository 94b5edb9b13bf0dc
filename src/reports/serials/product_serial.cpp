#include "reports/serials/product_serial.h"

#include "forms/table_view.h"
#include "frame/report/report_drill_down.h"
#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "reports/serials/serial_statements.h"

namespace velmo::reports {
namespace {

using frame::ReportScreen;

constexpr const char* grid = "DetailGrid";
constexpr const char* serialBox = "SerialTxt";

bool hasSerial(ReportScreen& screen, frame::ReportUse) {
  return !screen.filters().text(serialBox).empty();
}

void load(ReportScreen& screen) {
  session::LoginContext& context = screen.workplace().context;
  context.SerialText = screen.filters().text(serialBox);
  context.SerialRow = 0;
  for (const char* label : {"TranLbl_0", "TranLbl_1"}) screen.setFigure(label, {});
  const SerialHits hits = serialHits(context.KORDconn, context.SerialText);
  screen.setRows(grid, serialStatement(context.FYID, context.SerialText, hits));
}

void tellFound(ReportScreen& screen) {
  const frame::ReportModel& found = screen.model(grid);
  screen.setFigure("TranLbl_0", std::to_string(found.ready()) + " Records Found.");
  if (found.ready() == 0) return;
  const int days = screen.workplace().clock.today().day - store::dateOf(found.value(0, "TranDate")).day;
  screen.setFigure("TranLbl_1", "No of days Passed " + std::to_string(days));
}

void openDocument(ReportScreen& screen, std::int64_t row) {
  const frame::ReportModel& found = screen.model(grid);
  const store::Value tranNo = found.value(row, "TranNo");
  if (store::isBlank(tranNo)) return;
  const int tranType = static_cast<int>(store::integerOf(found.value(row, "TranType")));
  frame::openDocument(screen.workplace(), tranType, store::integerOf(tranNo), schema::LedFrom::Goods, [&] {
    screen.workplace().context.SerialRow = row;
    Q_EMIT screen.closeRequested();
  });
}

void showAsItWasLeft(ReportScreen& screen) {
  const session::LoginContext& context = screen.workplace().context;
  screen.filters().focus(serialBox);
  if (context.SerialText.empty()) return;
  const std::int64_t row = context.SerialRow;
  screen.filters().setText(serialBox, context.SerialText);
  screen.view();
  frame::ReportModel& found = screen.model(grid);
  while (found.rowCount() <= row && !found.isComplete()) found.readOn(1024);
  if (row >= found.rowCount()) return;
  screen.grid().selectRow(static_cast<int>(row));
  screen.grid().setFocus();
}

frame::ReportType trackingType() {
  return {.screen = "ProductSerial",
          .caption = "Product Serial Tracking",
          .filters = {{frame::ReportText{.name = serialBox, .caption = "&Serial No."}}},
          .grids = {{.name = grid,
                     .columns = {{.caption = "Tran. No.", .field = "TranRefShort", .width = 8},
                                 {.caption = "Date", .field = "TranDate", .format = "dd-MM-yy", .width = 8},
                                 {.caption = "Item Code", .field = "ItemCode", .width = 13},
                                 {.caption = "Item Name", .field = "ItemName", .width = 30},
                                 {.caption = "Party Name", .field = "Text1", .width = 20},
                                 {.caption = "Address", .field = "Text2", .width = 18},
                                 {.caption = "Telephone", .field = "Text3", .width = 10}}}},
          .labels = {"TranLbl_0", "TranLbl_1"},
          .view = {"TrackBttn", "Sea&rch", "Shows the documents of the year with this serial number"},
          .check = hasSerial,
          .load = load,
          .figures = tellFound,
          .drillDown = openDocument,
          .opened = showAsItWasLeft};
}

}  // namespace

QWidget* makeProductSerial(session::Workplace& workplace, QWidget* parent) {
  auto* dialog = new frame::ReportDialog(trackingType(), workplace, parent);
  dialog->resize(940, 560);
  return dialog;
}

}  // namespace velmo::reports
