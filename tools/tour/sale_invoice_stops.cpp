#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "guide.h"
#include "printing/preview_window.h"
#include "shell/screen_windows.h"

namespace velmo::tour {

namespace {

// Takes a picture of the print-out that was opened last, saves it as PDF and closes it.
void visitPreview(Guide& guide, const std::string& name) {
  guide.rest(300);
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* preview = qobject_cast<printing::PreviewWindow*>(window);
    if (!preview || !preview->isVisible()) continue;
    preview->resize(1024, 768);
    guide.picture(*preview, name);
    guide.focus(*preview);
    guide.press(Qt::Key_S, Qt::ControlModifier);
    preview->close();
    guide.rest(20);
    return;
  }
  throw std::logic_error("no print-out was opened");
}

// The modal Find screen holds the program until it closes, so its visit is begun before it opens.
void visitFind(Guide& guide, QWidget& screen) {
  QTimer::singleShot(200, [&guide] {
    QWidget* find = QApplication::activeModalWidget();
    if (!find) return;
    guide.picture(*find, "find-sales");
    guide.focus(guide.control<QTableView>(*find, "TranGrid"));
    guide.press(Qt::Key_Down);
    guide.press(Qt::Key_Return);
    if (find->isVisible()) find->close();
  });
  guide.control<QPushButton>(screen, "EditBttn").click();
  guide.rest(50);
  guide.picture(*screen.window(), "sale-invoice-shown");
}

}  // namespace

void visitSaleInvoices(Guide& guide, shell::Parent& shell) {
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
  visitFind(guide, screen);
  guide.control<QPushButton>(screen, "PrintBill_1").click();
  visitPreview(guide, "print-voucher");
}

}  // namespace velmo::tour
