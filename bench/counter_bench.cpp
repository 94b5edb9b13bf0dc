#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "desk.h"
#include "documents/trade_screens.h"

namespace velmo::bench {
namespace {

constexpr int linesOfTheSale = 100;

// Codes of items that are in stock, so that no scan ends in a question.
std::vector<std::string> itemsInStock(session::LoginContext& context) {
  context.KORDconn.execute(
      "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES (1, "
      "#01-01-2026#, 45, 1, No, No, 1, 1)");
  const std::string tranNo = store::Recordset(context.KORDconn, "select max(tranno) as t from transactions").text("t");
  std::vector<std::string> codes;
  store::Recordset items(context.KORDconn,
                         "select itemcode from stocklevel3 where catid not like 'Service' order by itemcode",
                         store::LockType::ReadOnly, store::Fetch::AsNeeded);
  for (std::int64_t i = 0; i < linesOfTheSale; ++i) {
    items.moveTo(i * 1000);
    codes.push_back(items.text("itemcode"));
    context.KORDconn.execute("INSERT INTO StockFlow (TranNo, ItemCode, StockIn) VALUES (" + tranNo + ", '" +
                             codes.back() + "', 1000)");
  }
  return codes;
}

void type(const std::string& text) {
  for (const QChar character : QString::fromStdString(text)) {
    QKeyEvent key(QEvent::KeyPress, character.toUpper().unicode(), Qt::NoModifier, QString(character));
    QApplication::sendEvent(QApplication::focusWidget(), &key);
  }
}

// From the scanner's Enter until line, totals and words are painted, and from Enter in the payment panel until the next
// sale waits; the disk's own sync is part of the latter.
void CounterSale(benchmark::State& state) {
  Desk desk;
  desk.context().ItemsRS.open(desk.context().KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode",
                              store::LockType::ReadOnly, store::Fetch::AsNeeded);
  desk.context().AccountsRS.open(desk.context().KORDconn, "SELECT * from AccLevel3 order by acccode",
                                 store::LockType::ReadOnly, store::Fetch::AsNeeded);
  const std::vector<std::string> codes = itemsInStock(desk.context());
  for (auto _ : state) {
    Durations open, scan, again, pay;
    QWidget& screen = desk.open([](session::Workplace& workplace,
                                   QWidget* parent) { return documents::makeSaleInvoicesPOS(workplace, parent); },
                                open);
    screen.resize(1366, 768);
    for (int sale = 0; sale < 5; ++sale) {
      control<QTableView>(screen, "Grid").setFocus();
      for (Durations* round : {&scan, &again})
        for (const std::string& code : codes) {
          type(code);
          round->measure([&] { press(*QApplication::focusWidget(), Qt::Key_Return, "\r"); });
        }
      if (control<QLineEdit>(screen, "NetTotal").text() == QStringLiteral("0.00"))
        throw std::logic_error("nothing was scanned");
      control<QPushButton>(screen, "SaveBttn").click();
      type("999999");
      pay.measure([&] { press(control<QLineEdit>(screen, "Received"), Qt::Key_Return, "\r"); });
      if (control<QLineEdit>(screen, "NetTotal").text() != QStringLiteral("0.00"))
        throw std::logic_error("the sale was not saved");
    }
    reportOnce(state, "open", open);
    report(state, "scan", scan);
    report(state, "scan_again", again);
    report(state, "pay", pay);
  }
}
BENCHMARK(CounterSale)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
