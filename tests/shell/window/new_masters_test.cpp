#include <QAbstractButton>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>

#include "documents/invoice_company.h"
#include "frame/items/item_grid.h"
#include "shell/open_shell.h"
#include "shell/window/screen_windows.h"

namespace velmo::shell {
namespace {

// The whole program on a company with an empty invoice on the screen.
class NewMasters : public testing::Test {
 protected:
  NewMasters() {
    shell_ = openShell({.clock = shop_.clock,
                        .prompts = shop_.prompts,
                        .files = shop_.files,
                        .programFolder = shop_.company.folder(),
                        .screenWidth = 1920});
    shell_->SkipBackUpPrompt = true;
    letListsBeRead();
    shell_->screens().openScreen("SaleInvoicesSimple");
    screen_ = shell_->screens().openWindow("SaleInvoicesSimple");
  }
  ~NewMasters() override { shell_->close(); }

  // The shared lists are read a second after the start and after the dialogs close.
  void letListsBeRead() {
    auto* accounts = shell_->findChild<QTimer*>(QStringLiteral("AccTimer"));
    auto* items = shell_->findChild<QTimer*>(QStringLiteral("InvTimer"));
    while (accounts->isActive() || items->isActive()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  // Clicks the command of the document and works in the dialog that it opens, which closes in the end.
  void inDialog(const char* command, const char* expected, const std::function<void(QWidget&)>& work) {
    QTimer::singleShot(0, screen_, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_TRUE(dialog);
      EXPECT_EQ(dialog->objectName(), QLatin1String(expected));
      work(*dialog);
      EXPECT_TRUE(dialog->close());
    });
    click(*screen_, command);
  }
  static void click(QWidget& window, const char* button) {
    window.findChild<QAbstractButton*>(QLatin1String(button))->click();
  }
  static void write(QWidget& window, const char* box, const char* text) {
    window.findChild<QLineEdit*>(QLatin1String(box))->setText(QString::fromUtf8(text));
  }
  std::string read(const char* box) { return screen_->findChild<QLineEdit*>(QLatin1String(box))->text().toStdString(); }

  test::InvoiceCompany shop_;
  std::unique_ptr<MainShell> shell_;
  QWidget* screen_ = nullptr;
};

TEST_F(NewMasters, AreUsedOnTheDocumentThatTheyWereMadeFrom) {
  auto& party = *screen_->findChild<QLineEdit*>(QStringLiteral("PartyCodeTxt"));
  std::string code;
  inDialog("CA", "ModifyCustomers", [&](QWidget& dialog) {
    click(dialog, "AddBttn3");
    code = dialog.findChild<QLineEdit*>(QStringLiteral("AccCode"))->text().toStdString();
    write(dialog, "AccCodeTxt", "Noor & Söhne");
    write(dialog, "AccBox_13", "Net 7");
    click(dialog, "SaveBttn3");
  });
  inDialog("CI", "ModifyInventory", [&](QWidget& dialog) {
    click(dialog, "AddBttn3");
    write(dialog, "InvTxt_0", "X-9");
    write(dialog, "InvTxt_1", "Anvil");
    write(dialog, "InvTxt_5", "12.5");
    click(dialog, "SaveBttn3");
  });
  letListsBeRead();
  EXPECT_EQ(code, "12001004");
  test::focus(party);
  test::type(party, QStringLiteral("noor"));
  EXPECT_TRUE(screen_->findChild<QWidget*>(QStringLiteral("PartyList"))->isVisible()) << "found by a part of the name";
  party.setText(QString::fromStdString(code));
  EXPECT_EQ(read("PartyNameTxt"), "Noor & Söhne");
  EXPECT_EQ(read("Terms"), "Net 7");
  auto& lines = *screen_->findChild<frame::ItemGrid*>();
  screen_->findChild<QTableView*>(QStringLiteral("Grid"))->setFocus();
  lines.setCurrentCell(0, frame::GridColumn::ItemCode);
  test::type(*QApplication::focusWidget(), QStringLiteral("X"));
  test::type(*QApplication::focusWidget(), QStringLiteral("-9"));
  lines.commitEdit();
  EXPECT_EQ(lines.sheet().plainText(0, frame::GridColumn::Description), "Anvil");
  EXPECT_EQ(lines.sheet().plainText(0, frame::GridColumn::Rate), "12.5");
}

}  // namespace
}  // namespace velmo::shell
