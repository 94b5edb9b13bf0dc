#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "desk.h"
#include "documents/production/production_screens.h"
#include "frame/items/item_grid.h"
#include "reports/serials/product_serial.h"

namespace velmo::bench {
namespace {

// Half a million lines, a tenth of which carry the serial numbers of one to three tools.
void addLines(store::Connection& books) {
  store::Connection::Transaction transaction(books);
  books.execute("DELETE FROM StockFlow");
  books.execute("UPDATE Transactions SET TranType = 32, FYID = 1 WHERE TranType <> 32");
  const store::Recordset documents(books, "SELECT Min(TranNo) AS First, Max(TranNo) AS Last FROM Transactions",
                                   store::LockType::ReadOnly);
  const std::int64_t first = documents.integer("First");
  const std::int64_t count = documents.integer("Last") - first + 1;
  for (std::int64_t i = 0; i < 500000; ++i) {
    std::string serials;
    for (std::int64_t tool = 0; i % 10 == 0 && tool <= i / 10 % 3; ++tool)
      serials += (tool == 0 ? "PT" : " PT") + std::to_string(1000000 + (i * 7919 + tool * 104729) % 9000000);
    books.execute(
        "INSERT INTO StockFlow (TranNo, Serial, ItemCode, ItemName, StockOut, ItemValue, ProductSerials) VALUES "
        "(" +
        std::to_string(first + i * 2 / 5 % count) + ", 1, 'IT000001', 'Power Tool', 1, 1, " +
        (serials.empty() ? "Null" : store::quoted(serials)) + ")");
  }
  transaction.commit();
}

// Serial numbers searched until the first rows are painted: one that a single line has, a part that some have, and one
// letter that all of them have; and one that nothing has.
void SerialSearch(benchmark::State& state) {
  Desk desk;
  addLines(desk.context().KORDconn);
  for (auto _ : state) {
    Durations open, one, some, all, none;
    QWidget& screen = desk.open(reports::makeProductSerial, open);
    auto& grid = control<QTableView>(screen, "DetailGrid");
    const auto search = [&](Durations& durations, const char* serial, bool found) {
      for (int round = 0; round < 20; ++round) {
        control<QLineEdit>(screen, "SerialTxt").setText(serial);
        durations.measure([&] {
          control<QPushButton>(screen, "TrackBttn").click();
          const auto& told = control<QLabel>(screen, "TranLbl_0");
          for (int event = 0; event < 10000 && grid.model()->rowCount() == 0 && told.text().isEmpty(); ++event)
            QApplication::processEvents();
          grid.viewport()->repaint();
        });
        if ((grid.model()->rowCount() > 0) != found) throw std::logic_error(serial);
      }
    };
    search(one, "PT1000000", true);
    search(some, "99", true);
    search(all, "t", true);
    search(none, "no such number", false);
    reportOnce(state, "one", one);
    reportOnce(state, "some", some);
    reportOnce(state, "all", all);
    reportOnce(state, "none", none);
  }
}
BENCHMARK(SerialSearch)->Iterations(1)->Unit(benchmark::kMillisecond);

// A recipe of 100 components imported into a production, until the grid is painted.
void ImportRecipe(benchmark::State& state) {
  Desk desk;
  store::Connection& books = desk.context().KORDconn;
  desk.context().ItemsRS.open(books, "SELECT * FROM StockLevel3 ORDER BY ItemCode", store::LockType::ReadOnly);
  const std::string item = desk.context().ItemsRS.text("ItemCode");
  store::Recordset recipe(books, "SELECT * FROM Transactions WHERE TranNo = 0");
  recipe.addNew({{"DocNo", std::int64_t{1}},
                 {"TranType", std::int64_t{95}},
                 {"FYID", std::int64_t{1}},
                 {"Text1", item},
                 {"Cancel", true},
                 {"InvLedger", true}});
  store::Recordset lines(books, "SELECT * FROM StockFlow WHERE TranNo = 0");
  for (std::int64_t serial = 1; serial <= 100; ++serial)
    lines.addNew({{"TranNo", recipe.integer("TranNo")},
                  {"Serial", serial},
                  {"ItemCode", item},
                  {"ItemName", "Component"},
                  {"StockOut", 2.0},
                  {"Rate", 1.5},
                  {"GrossAmt", 3.0}});
  for (auto _ : state) {
    Durations open, import;
    QWidget& screen = desk.open(
        [](session::Workplace& workplace, QWidget* parent) { return documents::makeProduction(workplace, parent); },
        open);
    auto& product = control<QTableView>(screen, "GridOut");
    auto& grid = *static_cast<frame::ItemGrid*>(product.parentWidget());
    grid.sheet().enter(0, frame::GridColumn::ItemCode, item);
    grid.sheet().enter(0, frame::GridColumn::Quantity, "4");
    auto& inputs = control<QTableView>(screen, "GridIn");
    for (int round = 0; round < 40; ++round)
      import.measure([&] {
        control<QPushButton>(screen, "ImportBttn").click();
    inputs.viewport()->repaint();
  });
  reportOnce(state, "open", open);
  reportOnce(state, "import", import);
}
}  // namespace
BENCHMARK(ImportRecipe)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace velmo::bench
}  // namespace velmo::bench
