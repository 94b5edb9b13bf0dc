#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "desk.h"
#include "documents/invoices/sale_invoice_type.h"
#include "frame/document/find_screen.h"

namespace velmo::bench {
namespace {

void clickHeader(QTableView& grid, int column) {
  Q_EMIT grid.horizontalHeader()->sectionClicked(column);
}

// Find over a year of 200,000 invoices, each step until the list is painted: all of them, in the order of their dates
// and back in that of their numbers, those of a text that all have, the last of them, and those of a text that few
// have.
void FindAmongInvoices(benchmark::State& state) {
  Desk desk;
  const frame::DocumentType& type = documents::saleInvoiceType();
  for (auto _ : state) {
    Durations open, contains, few, byDate, bySerial, toEnd;
    for (int round = 0; round < 3; ++round) {
      QWidget& screen = desk.open(
          [&](session::Workplace& workplace, QWidget* parent) {
            return new frame::FindScreen(
                type.find, type.form, workplace, [] {}, parent);
          },
          open);
      auto& grid = control<QTableView>(screen, "TranGrid");
      const auto measure = [&](Durations& durations, auto action) {
        durations.measure([&] {
          action();
          QApplication::processEvents();
          screen.repaint();
        });
        if (grid.model()->rowCount() == 0) throw std::logic_error("nothing was found");
      };
      measure(byDate, [&] { clickHeader(grid, 1); });
      measure(bySerial, [&] { clickHeader(grid, 0); });
      control<QComboBox>(screen, "ColList").setCurrentText("Customer Name");
      const auto find = [&](const char* text) {
        control<QLineEdit>(screen, "ValueBox").setText(text);
        control<QPushButton>(screen, "FindBttn").click();
      };
      measure(contains, [&] { find("e"); });
      grid.setFocus();
      measure(toEnd, [&] {
        press(grid, Qt::Key_End);
        while (grid.model()->canFetchMore({})) QApplication::processEvents();
      });
      measure(few, [&] { find("99"); });
    }
    reportOnce(state, "open", open);
    reportOnce(state, "contains", contains);
    reportOnce(state, "few", few);
    reportOnce(state, "by_date", byDate);
    reportOnce(state, "by_serial", bySerial);
    reportOnce(state, "end", toEnd);
  }
}
BENCHMARK(FindAmongInvoices)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
