#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "desk.h"
#include "masters/accounts/modify_accounts.h"
#include "masters/accounts/modify_parties.h"
#include "masters/catalogue/inv_below_reorder.h"
#include "masters/catalogue/item_settings.h"
#include "masters/catalogue/modify_inventory.h"
#include "masters/catalogue/search_item.h"

namespace velmo::bench {
namespace {

constexpr const char* largestSubCategory = "G01";

void chooseRow(QTableView& list, const QString& code) {
  for (int row = 0; row < list.model()->rowCount(); ++row)
    if (list.model()->index(row, 0).data().toString() == code) return list.selectRow(row);
  throw std::logic_error("no row " + code.toStdString());
}

void StepsThroughALargeSubCategory(benchmark::State& state) {
  Desk desk;
  for (auto _ : state) {
    Durations open, load, down, toEnd, up;
    QWidget& dialog = desk.open(masters::makeModifyInventory, open);
    auto& list = control<QTableView>(dialog, "L3List");
    load.measure([&] {
      chooseRow(control<QTableView>(dialog, "L2List"), largestSubCategory);
      QApplication::processEvents();
    });
    list.setFocus();
    for (int step = 0; step < 500; ++step) down.measure([&] { press(list, Qt::Key_Down); });
    toEnd.measure([&] { press(list, Qt::Key_End); });
    if (list.model()->rowCount() < 50000) throw std::logic_error("the sub category is too small");
    for (int step = 0; step < 500; ++step) up.measure([&] { press(list, Qt::Key_Up); });
    reportOnce(state, "open", open);
    reportOnce(state, "load", load);
    report(state, "down", down);
    reportOnce(state, "end", toEnd);
    report(state, "up", up);
  }
}
BENCHMARK(StepsThroughALargeSubCategory)->Iterations(1)->Unit(benchmark::kMillisecond);

// Opens the picker of a dialog, types, and goes to what was picked last.
template <typename Make>
void searchIn(benchmark::State& state, Make make, const std::vector<std::string>& typed) {
  Desk desk;
  for (auto _ : state) {
    Durations open, picker, plain, wildcards, pick;
    QWidget& dialog = desk.open(make, open);
    QTimer::singleShot(0, &dialog, [&] {
      auto& search = *static_cast<QDialog*>(QApplication::activeModalWidget());
      auto& box = control<QLineEdit>(search, "SearchBox");
      QApplication::processEvents();
      for (const std::string& text : typed)
        for (std::size_t length = 1; length <= text.size(); ++length) {
          const std::string part = text.substr(0, length);
          const bool isPlain = part.find_first_of("%_[") == std::string::npos;
          (isPlain ? plain : wildcards).measure([&] {
            box.setText(QString::fromStdString(part));
            QApplication::processEvents();
          });
        }
      pick.measure([&] { press(box, Qt::Key_Return); });
    });
    control<QPushButton>(dialog, "FindBttn").click();
    // Opened once more, for the time that it takes alone.
    QTimer::singleShot(0, &dialog, [&] {
      QApplication::processEvents();
      static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
    });
    picker.measure([&] { control<QPushButton>(dialog, "FindBttn").click(); });
    reportOnce(state, "open", open);
    reportOnce(state, "picker", picker);
    report(state, "key", plain);
    report(state, "wildcard_key", wildcards);
    reportOnce(state, "pick", pick);
  }
}

void SearchForAnItem(benchmark::State& state) {
  searchIn(state, masters::makeModifyInventory,
           {"hinge", "zzzz", "a", "00", "%", "_", "b%k", "heavy%[a-c]", "goods 12", "2000001499"});
}
BENCHMARK(SearchForAnItem)->Iterations(1)->Unit(benchmark::kMillisecond);

void SearchForAnAccount(benchmark::State& state) {
  searchIn(state, masters::makeModifyAccounts, {"hinge", "zzzz", "1", "%", "_", "b%k", "12015"});
}
BENCHMARK(SearchForAnAccount)->Iterations(1)->Unit(benchmark::kMillisecond);

void OpenOtherScreens(benchmark::State& state) {
  Desk desk;
  for (auto _ : state) {
    Durations customers, prices, margin, save, searchOne, searchMany, belowReorder;
    desk.open(masters::makeModifyCustomers, customers);
    QWidget& grid = desk.open(masters::makeInvPrices, prices);
    control<QLineEdit>(grid, "ProfitTxt").setText("25");
    margin.measure([&] {
      control<QPushButton>(grid, "UpdateBttn").click();
      QApplication::processEvents();
    });
    save.measure([&] { control<QPushButton>(grid, "SaveBttn").click(); });
    desk.context().SearchText = "2000001499";
    desk.open(masters::makeSearchItem, searchOne);
    desk.context().SearchText = "1";
    desk.open(masters::makeSearchItem, searchMany);
    desk.open(masters::makeInvBelowReorder, belowReorder);
    reportOnce(state, "customers", customers);
    reportOnce(state, "prices", prices);
    reportOnce(state, "margin", margin);
    reportOnce(state, "save", save);
    reportOnce(state, "search_one", searchOne);
    reportOnce(state, "search_many", searchMany);
    reportOnce(state, "below_reorder", belowReorder);
  }
}
BENCHMARK(OpenOtherScreens)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
