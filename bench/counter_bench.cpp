#include <sqlite3.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "desk.h"
#include "documents/invoices/trade_screens.h"

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

// The rows of the document saved last, written once more by bare SQL in a transaction of their own: what the disk and
// the indexes take of a sale. They do not stay.
class BareCommit {
 public:
  explicit BareCommit(store::Connection& connection) : connection_(connection) {}

  void measure(Durations& durations) {
    const std::int64_t last = store::Recordset(connection_, "select max(tranno) as t from transactions").integer("t");
    const std::string original = std::to_string(last), copy = std::to_string(last + 1);
    std::vector<sqlite3_stmt*> steps = {prepared("BEGIN IMMEDIATE")};
    for (const char* table : {"Transactions", "StockFlow", "SubTransactions", "AgingDr"})
      steps.push_back(prepared(copyOf(table, original, copy)));
    steps.push_back(prepared("COMMIT"));
    durations.measure([&] {
      for (sqlite3_stmt* step : steps)
        if (sqlite3_step(step) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(connection_.handle()));
    });
    for (sqlite3_stmt* step : steps) sqlite3_finalize(step);
    run("DELETE FROM Transactions WHERE TranNo = " + copy + "; UPDATE sqlite_sequence SET seq = " + original +
        " WHERE name = 'Transactions'");
  }

 private:
  std::string copyOf(const std::string& table, const std::string& original, const std::string& copy) const {
    std::string names, values;
    for (const store::Column& column : connection_.catalog().find(table)->columns) {
      const bool isLink = column.name == "TranNo";
      if (column.autoNumber && !isLink) continue;
      names += (names.empty() ? "\"" : ", \"") + column.name + "\"";
      values += (values.empty() ? "" : ", ") + (isLink ? copy : "\"" + column.name + "\"");
    }
    return "INSERT INTO " + table + " (" + names + ") SELECT " + values + " FROM " + table +
           " WHERE TranNo = " + original + "; ";
  }
  sqlite3_stmt* prepared(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection_.handle(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(connection_.handle()));
    return statement;
  }
  void run(const std::string& sql) {
    if (sqlite3_exec(connection_.handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(connection_.handle()));
  }

  store::Connection& connection_;
};

// From the scanner's Enter until line, totals and words are painted, and from Enter in the payment panel until the next
// sale waits; the disk's own sync is part of the latter. Scans stand beside a bare repaint of the screen, payments
// beside a bare commit of the same rows.
void CounterSale(benchmark::State& state) {
  Desk desk;
  desk.context().ItemsRS.open(desk.context().KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode",
                              store::LockType::ReadOnly, store::Fetch::AsNeeded);
  desk.context().AccountsRS.open(desk.context().KORDconn, "SELECT * from AccLevel3 order by acccode",
                                 store::LockType::ReadOnly, store::Fetch::AsNeeded);
  const std::vector<std::string> codes = itemsInStock(desk.context());
  for (auto _ : state) {
    Durations open, scan, again, pay, repaint, commit;
    BareCommit bare(desk.context().KORDconn);
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
      bare.measure(commit);
      repaint.measure([&] { screen.repaint(); });
    }
    reportOnce(state, "open", open);
    report(state, "scan", scan);
    report(state, "scan_again", again);
    state.counters["pay_ms"] = pay.percentile(0.5) * 1e3;
    state.counters["pay_max_ms"] = pay.percentile(1) * 1e3;  // of five
    state.counters["scan_to_repaint"] = scan.percentile(0.5) / repaint.percentile(0.5);
    state.counters["pay_to_commit"] = pay.percentile(0.5) / commit.percentile(0.5);
    state.counters["pay_beyond_commit_ms"] = (pay.percentile(0.5) - commit.percentile(0.5)) * 1e3;
  }
}
BENCHMARK(CounterSale)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
