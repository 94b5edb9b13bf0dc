#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>

#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

constexpr const char* product = "Garden Hose 15 m";

QWidget& openScreen(Guide& guide, shell::MainShell& shell, const char* name) {
  shell.workplace().screens.openScreen(name);
  guide.rest(200);  // the costs are brought up to date
  return *shell.screens().openWindow(name);
}

void typeLine(Guide& guide, const char* item, const char* quantity) {
  guide.type(QString::fromLatin1(item));
  guide.press(Qt::Key_Down);
  guide.press(Qt::Key_Return);
  guide.press(Qt::Key_Return);
  guide.press(Qt::Key_Return);
  guide.type(QString::fromLatin1(quantity));
  for (int cell = 0; cell < 5; ++cell) guide.press(Qt::Key_Return);
}

void findDocuments(Guide& guide, QWidget& screen, const char* picture) {
  guide.inDialog([&] { guide.control<QPushButton>(screen, "EditBttn").click(); },
                 [&](QWidget& find) { guide.picture(find, picture); });
}

void visitRecipe(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "BillofMaterial");
  guide.focus(guide.control<QLineEdit>(screen, "ICode"));
  guide.type(QStringLiteral("Garden Hose 20"));
  guide.press(Qt::Key_Down);
  guide.press(Qt::Key_Return);
  guide.focus(guide.control<QTableView>(screen, "Grid"));
  typeLine(guide, "Garden Hose 50", "0.4");
  typeLine(guide, "Hose Connector 1/2", "2");
  for (const auto& [box, amount] : {std::pair{"Labour", "0.45"}, {"FOH", "0.10"}}) {
    guide.focus(guide.control<QLineEdit>(screen, box));
    guide.type(QString::fromLatin1(amount));
  }
  guide.control<QPlainTextEdit>(screen, "Desc").setPlainText(QStringLiteral("Cut from the long roll"));
  guide.focus(guide.control<QTableView>(screen, "Grid"));
  guide.picture(shell, "bill-of-materials");
  guide.control<QPushButton>(screen, "SaveBttn").click();
  findDocuments(guide, screen, "find-bill-material");
}

void visitProduction(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "Production");
  guide.focus(guide.control<QTableView>(screen, "GridOut"));
  typeLine(guide, product, "12");
  guide.control<QPushButton>(screen, "ImportBttn").click();
  guide.control<QPlainTextEdit>(screen, "Desc").setPlainText(QStringLiteral("For the summer shelf"));
  guide.rest(50);
  guide.picture(shell, "production");
  guide.control<QPushButton>(screen, "PrintBill_0").click();
  printing::PreviewWindow& preview = guide.preview();
  guide.paper(preview.pages(), "paper-ProdAssembly");
  preview.close();
  guide.rest(20);
  findDocuments(guide, screen, "find-production");
  guide.control<QPushButton>(screen, "CancelBttn").click();
}

void visitSerials(Guide& guide, shell::MainShell& shell) {
  guide.inDialog([&] { shell.workplace().screens.openDialog("ProductSerial"); },
                 [&](QWidget& dialog) {
                   guide.focus(guide.control<QLineEdit>(dialog, "SerialTxt"));
                   guide.type(QStringLiteral("01-10"));
                   guide.press(Qt::Key_Return);
                   guide.rest(50);
                   guide.picture(dialog, "product-serial");
                 });
}

}  // namespace

void visitProductions(Guide& guide, shell::MainShell& shell) {
  visitRecipe(guide, shell);
  visitProduction(guide, shell);
  visitSerials(guide, shell);
}

}  // namespace velmo::tour
