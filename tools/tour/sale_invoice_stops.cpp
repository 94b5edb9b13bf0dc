#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

// Takes a picture of the print-out that was opened last, saves it as PDF and closes it.
void visitPreview(Guide& guide, const std::string& name) {
  printing::PreviewWindow& preview = guide.preview();
  preview.resize(1024, 768);
  guide.picture(preview, name);
  guide.focus(preview);
  guide.press(Qt::Key_S, Qt::ControlModifier);
  preview.close();
  guide.rest(20);
}

void visitFind(Guide& guide, shell::MainShell& shell, QWidget& screen) {
  guide.inDialog([&] { guide.control<QPushButton>(screen, "EditBttn").click(); },
                 [&guide](QWidget& find) {
                   guide.picture(find, "find-sales");
                   guide.focus(guide.control<QTableView>(find, "TranGrid"));
                   guide.press(Qt::Key_Down);
                   guide.press(Qt::Key_Return);
                 });
  guide.picture(shell, "sale-invoice-shown");
}

}  // namespace

void visitSaleInvoices(Guide& guide, shell::MainShell& shell) {
  shell.workplace().screens.openScreen("SaleInvoicesSimple");
  guide.rest(50);
  QWidget& screen = *shell.screens().openWindow("SaleInvoicesSimple");
  guide.picture(shell, "sale-invoice-empty");

  auto& party = guide.control<QLineEdit>(screen, "PartyCodeTxt");
  guide.focus(party);
  guide.type("har");
  guide.picture(shell, "sale-invoice-party-list");
  guide.press(Qt::Key_Down);
  guide.press(Qt::Key_Return);

  guide.focus(guide.control<QTableView>(screen, "Grid"));
  guide.type("ham");
  guide.picture(shell, "sale-invoice-item-list");
  guide.press(Qt::Key_Down);
  guide.press(Qt::Key_Return);
  guide.press(Qt::Key_Return);
  guide.press(Qt::Key_Return);
  guide.type("3");
  guide.press(Qt::Key_Return);
  guide.picture(shell, "sale-invoice");

  guide.control<QPushButton>(screen, "PrintBill_0").click();
  visitPreview(guide, "print-invoice");
  visitFind(guide, shell, screen);
  guide.control<QPushButton>(screen, "PrintBill_1").click();
  visitPreview(guide, "print-voucher");
}

}  // namespace velmo::tour
