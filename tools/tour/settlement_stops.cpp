#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

#include "guide.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

QWidget& openScreen(Guide& guide, shell::MainShell& shell, const char* screen) {
  shell.workplace().screens.openScreen(screen);
  guide.rest(50);
  return *shell.screens().openWindow(screen);
}

void fill(Guide& guide, QWidget& screen, std::initializer_list<std::pair<const char*, const char*>> fields) {
  for (const auto& [field, text] : fields) {
    guide.focus(guide.control<QLineEdit>(screen, field));
    guide.type(QString::fromLatin1(text));
  }
}

// A cheque against the oldest invoices of a customer, picked from those that are open.
void takeCheque(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "BankReceipts");
  fill(guide, screen, {{"BankCode", "11001001"}, {"PartyCode", "12001007"}, {"ChqNo", "400731"}, {"AdvTxt", "250"}});
  auto& grid = guide.control<QTableView>(screen, "AgingGrid");
  for (int row = 0; row < 3; ++row) {
    guide.focus(grid);
    grid.setCurrentIndex(grid.model()->index(row, 0));
    guide.inDialog([&] { guide.press(Qt::Key_F4); },
                   [&](QWidget& dialog) {
                     if (row == 0) guide.picture(dialog, "pending-invoices");
                     for (int down = 0; down < row; ++down) guide.press(Qt::Key_Down);
                     guide.press(Qt::Key_Return);
                   });
  }
  guide.focus(grid);
  grid.setCurrentIndex(grid.model()->index(1, 3));
  guide.type(QStringLiteral("2"));
  guide.press(Qt::Key_Return);
  guide.picture(shell, "bank-receipt");
  guide.control<QPushButton>(screen, "SaveBttn").click();
}

void spendPettyCash(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "CashPayments");
  guide.control<QRadioButton>(screen, "RecOpt_1").click();
  fill(guide, screen, {{"BankCode", "10001001"}});
  auto& grid = guide.control<QTableView>(screen, "Grid");
  guide.focus(grid);
  const std::pair<const char*, const char*> lines[] = {{"60002010", "18.50"}, {"60002009", "32"}};
  int row = 0;
  for (const auto& [account, amount] : lines) {
    grid.setCurrentIndex(grid.model()->index(row, 0));
    guide.type(QString::fromLatin1(account));
    guide.press(Qt::Key_Return);
    grid.setCurrentIndex(grid.model()->index(row++, 3));
    guide.type(QString::fromLatin1(amount));
    guide.press(Qt::Key_Return);
  }
  guide.picture(shell, "petty-payment");
  guide.control<QPushButton>(screen, "SaveBttn").click();
}

}  // namespace

void visitSettlements(Guide& guide, shell::MainShell& shell) {
  takeCheque(guide, shell);
  spendPettyCash(guide, shell);
}

}  // namespace velmo::tour
