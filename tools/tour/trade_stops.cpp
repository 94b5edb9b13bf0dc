#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

// A document that is typed, and saved by printing it.
struct TradeStop {
  const char* screen;
  const char* picture;
  const char* party;
  std::vector<std::pair<const char*, const char*>> fields;
};

const TradeStop tradeStops[] = {
    {"PurchaseBillsSimple", "purchase", "21001002", {{"D1", "V-2291"}, {"D1Dt", "18-11-2026"}}},
    {"SaleReturns", "sale-return", "12001003", {{"D1", "4"}}},
    {"PurchaseReturns", "purchase-return", "21001002", {{"D1", "V-2291"}, {"D2", "1"}}},
};

void visitTrade(Guide& guide, shell::MainShell& shell, const TradeStop& stop) {
  shell.workplace().screens.openScreen(stop.screen);
  guide.rest(50);
  QWidget& screen = *shell.screens().openWindow(stop.screen);
  guide.focus(guide.control<QLineEdit>(screen, "PartyCodeTxt"));
  guide.type(QString::fromLatin1(stop.party));
  for (const auto& [field, text] : stop.fields) {
    guide.focus(guide.control<QLineEdit>(screen, field));
    guide.type(QString::fromLatin1(text));
  }
  guide.focus(guide.control<QTableView>(screen, "Grid"));
  for (const char* item : {"hammer", "wire"}) {
    guide.type(QString::fromLatin1(item));
    guide.press(Qt::Key_Down);
    guide.press(Qt::Key_Return);
    guide.press(Qt::Key_Return);
    guide.press(Qt::Key_Return);
    guide.type(QStringLiteral("4"));
    for (int cell = 0; cell < 5; ++cell) guide.press(Qt::Key_Return);
  }
  guide.picture(shell, stop.picture);
  guide.control<QPushButton>(screen, "PrintBill_0").click();
  printing::PreviewWindow& preview = guide.preview();
  preview.resize(1024, 768);
  guide.picture(preview, std::string("print-") + stop.picture);
  preview.close();
  guide.rest(20);
}

}  // namespace

namespace {

// A sale at the counter: scanned, paid, printed on a slip.
void visitCounter(Guide& guide, shell::MainShell& shell) {
  shell.workplace().screens.openScreen("SaleInvoicesPOS");
  guide.rest(50);
  QWidget& screen = *shell.screens().openWindow("SaleInvoicesPOS");
  guide.focus(guide.control<QTableView>(screen, "Grid"));
  for (const char* code : {"2000000010014", "2000000010014", "2000000012018", "2000000013015", "2000000011110"}) {
    guide.type(QString::fromLatin1(code));
    guide.press(Qt::Key_Return);
  }
  guide.picture(shell, "counter");
  guide.press(Qt::Key_S, Qt::ControlModifier);
  guide.type(QStringLiteral("50"));
  guide.picture(shell, "counter-payment");
  guide.press(Qt::Key_Return);
  if (screen.findChild<QWidget*>("BalPic")->isVisible()) throw std::logic_error("the counter sale was not saved");
}

}  // namespace

void visitTradeDocuments(Guide& guide, shell::MainShell& shell) {
  visitCounter(guide, shell);
  for (const TradeStop& stop : tradeStops) visitTrade(guide, shell, stop);
}

}  // namespace velmo::tour
