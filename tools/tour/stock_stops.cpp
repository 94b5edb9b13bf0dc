#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>

#include "forms/drop_combo.h"
#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

struct StockStop {
  const char* screen;
  const char* picture;
  const char* paper;
  const char* findScreen;
  const char* remarks;
};

const StockStop stockStops[] = {
    {"InventoryTransfers", "inventory-transfer", "paper-InvTransfer", "find-transfers", "For the site at the harbour"},
    {"AddInventory", "add-inventory", "paper-AddInvAdjustment", "find-add-adjustments", "Found behind the shelf"},
    {"ReduceInventory", "reduce-inventory", "paper-RedInvAdjustment", "find-reduce-adjustments", "Broken in the store"},
};

void typeLine(Guide& guide, const char* item, const char* quantity) {
  guide.type(QString::fromLatin1(item));
  guide.press(Qt::Key_Down);
  guide.press(Qt::Key_Return);
  guide.press(Qt::Key_Return);
  guide.press(Qt::Key_Return);
  guide.type(QString::fromLatin1(quantity));
  for (int cell = 0; cell < 5; ++cell) guide.press(Qt::Key_Return);
}

QWidget& openScreen(Guide& guide, shell::MainShell& shell, const char* name) {
  shell.workplace().screens.openScreen(name);
  guide.rest(200);  // the costs are brought up to date
  return *shell.screens().openWindow(name);
}

void print(Guide& guide, QPushButton& command, const char* name) {
  command.click();
  printing::PreviewWindow& preview = guide.preview();
  guide.paper(preview.pages(), name);
  preview.close();
  guide.rest(20);
}

void visitDocument(Guide& guide, shell::MainShell& shell, const StockStop& stop) {
  QWidget& screen = openScreen(guide, shell, stop.screen);
  if (auto* to = screen.findChild<forms::DropCombo*>("LocationList2")) to->setBoundValue(std::int64_t{2});
  guide.control<QPlainTextEdit>(screen, "Desc").setPlainText(QString::fromLatin1(stop.remarks));
  guide.focus(guide.control<QTableView>(screen, "Grid"));
  guide.type(QStringLiteral("ham"));
  guide.rest(150);
  guide.picture(shell, std::string(stop.picture) + "-items");
  for (int back = 0; back < 3; ++back) guide.press(Qt::Key_Backspace);
  typeLine(guide, "hammer", "12");
  typeLine(guide, "wire", "2.5");
  guide.picture(shell, stop.picture);
  print(guide, guide.control<QPushButton>(screen, "PrintBill_0"), stop.paper);
  guide.inDialog([&] { guide.control<QPushButton>(screen, "EditBttn").click(); },
                 [&](QWidget& find) { guide.picture(find, stop.findScreen); });
}

void visitCount(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "CountSheet");
  auto& grid = guide.control<QTableView>(screen, "Grid");
  guide.focus(grid);
  for (const char* counted : {"120", "64", "18"}) {
    guide.type(QString::fromLatin1(counted));
    guide.press(Qt::Key_Return);
  }
  auto& code = guide.control<QLineEdit>(screen, "CodeTxt");
  code.setText(grid.model()->index(5, 0).data().toString());
  guide.focus(code);
  guide.press(Qt::Key_Return);
  guide.picture(shell, "count-sheet");
  print(guide, guide.control<QPushButton>(screen, "PrintBttn"), "paper-CountSheet");
  guide.inDialog([&] { guide.control<QPushButton>(screen, "DiffBttn").click(); },
                 [&](QWidget& differences) {
                   guide.picture(differences, "count-differences");
                   guide.control<QPushButton>(differences, "CancelBttn").click();
                 });
}

}  // namespace

void visitStockMoves(Guide& guide, shell::MainShell& shell) {
  for (const StockStop& stop : stockStops) visitDocument(guide, shell, stop);
  visitCount(guide, shell);
}

}  // namespace velmo::tour
