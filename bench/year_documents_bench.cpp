#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

#include "disk_clock.h"
#include "documents/invoices/sale_invoice_type.h"
#include "frame/document/find_screen.h"
#include "kept_triggers.h"
#include "year.h"

namespace velmo::bench {
namespace {

// Codes of goods that are at the first location in plenty, the most wanted first.
std::vector<std::string> codesInStock(session::LoginContext& context, int count) {
  store::Recordset rows(context.KORDconn,
                        "SELECT TOP " + std::to_string(count) +
                            " StockFlow.ItemCode, Count(StockFlow.FlowId) AS Lines, "
                            "Sum(IIf(IsNull([StockIn]),0,[StockIn])) AS Ins, Sum(IIf(IsNull([StockOut]),0,[StockOut])) "
                            "AS Outs FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo "
                            "WHERE Transactions.FYID = " +
                            std::to_string(context.FYID) +
                            " AND StockFlow.LocationID = 1 GROUP BY StockFlow.ItemCode HAVING "
                            "Sum(IIf(IsNull([StockIn]),0,[StockIn])) > Sum(IIf(IsNull([StockOut]),0,[StockOut])) + 20 "
                            "ORDER BY Count(StockFlow.FlowId) DESC",
                        store::LockType::ReadOnly);
  std::vector<std::string> codes;
  for (; !rows.eof(); rows.moveNext()) codes.push_back(rows.text("ItemCode"));
  return codes;
}

// Milliseconds of a work without those of the disk's sync, until what it changes is painted.
template <typename Work>
double workTime(Work&& work) {
  const double disk = diskSeconds();
  Durations time;
  time.measure([&] {
    work();
    QApplication::processEvents();
  });
  return (time.mean() - (diskSeconds() - disk)) * 1e3;
}

double middle(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// What somebody at the invoice types and picks, key by key; the save is the program's part of it.
void TypingAnInvoice(benchmark::State& state) {
  Year year;
  OpenShell& shell = year.shell();
  const std::vector<std::string> codes = codesInStock(shell.context(), 20);
  for (auto _ : state) {
    QWidget& screen = shell.open("SaleInvoicesSimple");
    const auto key = [&](const char* name, const std::function<void()>& press) {
      year.tellStall(name, press, longestTypingStall);
    };
    control<QLineEdit>(screen, "PartyCodeTxt").setFocus();
    key("first key in the customer's code", [] { sendText("1"); });
    key("second key in the customer's code", [] { sendText("2"); });
    key("the rest of the customer's code", [] { sendText("002005"); });
    key("Enter behind the customer's code", [] { sendKey(Qt::Key_Return, "\r"); });
    control<QTableView>(screen, "Grid").setFocus();
    key("first key in the item cell", [] { sendText("h"); });
    key("second key in the item cell", [] { sendText("i"); });
    key("Escape from the item cell", [] { sendKey(Qt::Key_Escape); });
    control<QTableView>(screen, "Grid").setFocus();
    key("an item's code, scanned", [&] { sendText(codes[0]); });
    key("Enter behind an item's code", [] { sendKey(Qt::Key_Return, "\r"); });
    shell.closeScreens();

    QWidget& counter = shell.open("SaleInvoicesPOS");
    control<QTableView>(counter, "Grid").setFocus();
    const auto scan = [&](std::size_t item) {
      sendText(codes[item]);
      sendKey(Qt::Key_Return, "\r");
    };
    key("first scan at the counter", [&] { scan(0); });
    key("second scan at the counter", [&] { scan(1); });
    for (std::size_t item = 2; item + 1 < codes.size(); ++item) stallApplication().perform([&] { scan(item); });
    key("last of twenty scans at the counter", [&] { scan(codes.size() - 1); });
    year.tellStall("Save at the counter", [&] { control<QPushButton>(counter, "SaveBttn").click(); });
    key("a key in the payment", [] { sendText("9"); });
    sendText("99999");
    year.tellStall("Enter behind the payment, 20 items",
                   [&] { control<QLineEdit>(counter, "Received"), sendKey(Qt::Key_Return, "\r"); });
    if (control<QLineEdit>(counter, "NetTotal").text() != QStringLiteral("0.00"))
      throw std::logic_error("the sale was not saved");
    shell.closeScreens();
  }
}
BENCHMARK(TypingAnInvoice)->Iterations(1)->Unit(benchmark::kMillisecond);

// Find among the year's invoices.
void FindInTheYear(benchmark::State& state) {
  Year year;
  const frame::DocumentType& type = documents::saleInvoiceType();
  for (auto _ : state) {
    frame::FindScreen* screen = nullptr;
    year.tellStall("Find, first showing", [&] {
      screen = new frame::FindScreen(
          type.find, type.form, year.shell().workplace(), [] {}, &year.shell().window());
      screen->show();
    });
    auto& grid = control<QTableView>(*screen, "TranGrid");
    const auto sort = [&](int column) {
      return [&grid, column] { Q_EMIT grid.horizontalHeader()->sectionClicked(column); };
    };
    year.tellStall("Find, by date", sort(1));
    year.tellStall("Find, End by date", [&] { press(grid, Qt::Key_End); });
    year.tellStall("Find, by number", sort(0));
    year.tellStall("Find, End by number", [&] { press(grid, Qt::Key_End); });
    control<QComboBox>(*screen, "ColList").setCurrentText("Customer Name");
    for (const char* text : {"e", "hinge", "zzzz"})
      year.tellStall(std::string("Find, customer with ") + text, [&] {
        control<QLineEdit>(*screen, "ValueBox").setText(text);
        control<QPushButton>(*screen, "FindBttn").click();
      });
    delete screen;
  }
}
BENCHMARK(FindInTheYear)->Iterations(1)->Unit(benchmark::kMillisecond);

struct Corrections {
  double edit = 0, cancel = 0, remove = 0;  // milliseconds, medians
  double cancelLarge = 0, removeLarge = 0;  // of an invoice with many lines, in the store alone
};

// Invoices of at least ten items.
std::vector<std::int64_t> largeInvoices(store::Connection& books, int count) {
  const store::Recordset rows(
      books,
      "SELECT TOP " + std::to_string(count) +
          " Transactions.TranNo, Count(StockFlow.FlowId) AS Lines FROM Transactions INNER JOIN "
          "StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE Transactions.TranType = 32 "
          "AND Transactions.Cancel = No AND Transactions.FYID = 2 GROUP BY Transactions.TranNo "
          "HAVING Count(StockFlow.FlowId) >= 10 ORDER BY Transactions.TranNo",
      store::LockType::ReadOnly);
  std::vector<std::int64_t> numbers;
  for (std::int64_t row = 0; row < rows.recordCount(); ++row) numbers.push_back(store::integerOf(rows.valueAt(row, 0)));
  return numbers;
}

void correctLarge(store::Connection& books, Corrections& corrections) {
  std::vector<double> cancel, remove;
  for (const std::int64_t number : largeInvoices(books, 200)) {
    const std::string row = " WHERE TranNo = " + std::to_string(number);
    cancel.push_back(workTime([&] { books.execute("UPDATE Transactions SET Cancel = Yes" + row); }));
    books.execute("UPDATE Transactions SET Cancel = No" + row);
    remove.push_back(workTime([&] { books.execute("DELETE FROM Transactions" + row); }));
  }
  corrections.cancelLarge = middle(cancel);
  corrections.removeLarge = middle(remove);
}

Corrections correct(OpenShell& shell) {
  shell.prompts().answer = session::Answer::Yes;
  QWidget& screen = shell.open("SaleInvoicesSimple");
  const auto click = [&](const char* name) { control<QPushButton>(screen, name).click(); };
  std::vector<double> edit, cancel, remove;
  const auto showAnother = [&](int steps) {
    for (int step = 0; step < steps; ++step) click("PrevBttn");
    QApplication::processEvents();
  };
  for (int round = 0; round < 20; ++round) {
    showAnother(3 * round + 1);
    edit.push_back(workTime([&] {
      control<QLineEdit>(screen, "Carriage").setText("7.00");
      click("SaveBttn");
    }));
    showAnother(3 * round + 2);
    cancel.push_back(workTime([&] {
      control<QCheckBox>(screen, "CancelOption").setChecked(true);
      click("SaveBttn");
    }));
    showAnother(3 * round + 3);
    remove.push_back(workTime([&] { click("DelBttn"); }));
  }
  shell.closeScreens();
  shell.prompts().answer = session::Answer::No;
  Corrections corrections{.edit = middle(edit), .cancel = middle(cancel), .remove = middle(remove)};
  correctLarge(shell.context().KORDconn, corrections);
  return corrections;
}

// A saved invoice is changed, cancelled and deleted on its screen, beside a file that keeps no totals.
void CorrectingAnInvoice(benchmark::State& state) {
  for (auto _ : state) {
    Corrections kept, plain;
    {
      Year year;
      kept = correct(year.shell());
    }
    {
      Year year;
      dropTotals(year.shell().context().KORDconn.handle());
      plain = correct(year.shell());
    }
    const auto beside = [](const char* what, double with, double without) {
      char words[80];
      std::snprintf(words, sizeof words, "%.2f ms without kept totals", without);
      tell({.group = "A saved invoice is corrected, without the disk's sync",
            .name = what,
            .value = with,
            .goal = 2 * without,
            .remark = words});
    };
    beside("changed on its screen", kept.edit, plain.edit);
    beside("cancelled on its screen", kept.cancel, plain.cancel);
    beside("deleted on its screen", kept.remove, plain.remove);
    beside("one of ten items and more cancelled, the statement alone", kept.cancelLarge, plain.cancelLarge);
    beside("one of ten items and more deleted, the statement alone", kept.removeLarge, plain.removeLarge);
    state.counters["cancel_to_plain"] = kept.cancelLarge / plain.cancelLarge;
    state.counters["delete_to_plain"] = kept.removeLarge / plain.removeLarge;
  }
}
BENCHMARK(CorrectingAnInvoice)->Iterations(1)->Unit(benchmark::kMillisecond);

// A queue that does not end: 3,000 sales of one to five items without an idle moment.
void SalesInARow(benchmark::State& state) {
  constexpr std::size_t sales = 3000;
  constexpr std::size_t ends = 300;
  Year year;
  OpenShell& shell = year.shell();
  const std::vector<std::string> codes = codesInStock(shell.context(), 1000);
  for (auto _ : state) {
    QWidget& screen = shell.open("SaleInvoicesPOS");
    std::vector<double> scans, payments;
    std::size_t next = 0;
    for (std::size_t sale = 0; sale < sales; ++sale) {
      control<QTableView>(screen, "Grid").setFocus();
      double scanning = 0;
      for (std::size_t line = 0; line <= sale % 5; ++line)
        scanning += workTime([&] {
          sendText(codes[next++ % codes.size()]);
          sendKey(Qt::Key_Return, "\r");
        });
      scans.push_back(scanning / static_cast<double>(sale % 5 + 1));
      control<QPushButton>(screen, "SaveBttn").click();
      sendText("999999");
      payments.push_back(workTime([&] { press(control<QLineEdit>(screen, "Received"), Qt::Key_Return, "\r"); }));
      if (control<QLineEdit>(screen, "NetTotal").text() != QStringLiteral("0.00"))
        throw std::logic_error("the sale was not saved: " + shell.prompts().told);
    }
    const auto drift = [](const char* what, const std::vector<double>& times) {
      const double first = middle({times.begin(), times.begin() + ends});
      const double last = middle({times.end() - ends, times.end()});
      char words[120];
      std::snprintf(words, sizeof words, "%.2f ms among the first 300; the slowest of all %.1f ms", first,
                    *std::max_element(times.begin(), times.end()));
      tell({.group = "3,000 counter sales in a row, without the disk's sync",
            .name = std::string(what) + " among the last 300",
            .value = last,
            .goal = first * 1.1,
            .remark = words});
      return last / first;
    };
    state.counters["scan_drift"] = drift("a scan", scans);
    state.counters["pay_drift"] = drift("a payment", payments);
    shell.closeScreens();
  }
}
BENCHMARK(SalesInARow)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
