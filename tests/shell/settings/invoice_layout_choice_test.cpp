#include <QAbstractButton>
#include <QLineEdit>
#include <QTimer>

#include "documents/invoice_company.h"
#include "printing/preview_window.h"
#include "shell/open_shell.h"
#include "shell/window/screen_windows.h"

namespace velmo::shell {
namespace {

using printing::PreviewWindow;

// A saved invoice on the program's own screen, in the whole program.
class InvoiceLayoutChoice : public testing::Test {
 protected:
  InvoiceLayoutChoice() {
    {
      test::InvoiceScreen screen(shop_);
      screen.saveInvoice("12001002");
    }
    shell_ = openShell({.clock = shop_.clock,
                        .prompts = shop_.prompts,
                        .files = shop_.files,
                        .programFolder = shop_.company.folder(),
                        .screenWidth = 1920});
    shell_->SkipBackUpPrompt = true;
    showInvoice();
    screen_ = shell_->screens().openWindow("SaleInvoicesSimple");
  }
  ~InvoiceLayoutChoice() override { shell_->close(); }

  static QAbstractButton& button(QWidget& window, const std::string& name) {
    auto* found = window.findChild<QAbstractButton*>(QString::fromStdString(name));
    if (!found) throw std::logic_error("no button " + name);
    return *found;
  }

  // `SetBttn` and then, in the dialog that it opens, the choices and Enter.
  void choose(const std::vector<std::string>& choices, const QString& margin) {
    QString dialogName;
    QTimer::singleShot(0, screen_, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_TRUE(dialog);
      dialogName = dialog->objectName();
      for (const std::string& choice : choices) button(*dialog, choice).click();
      dialog->findChild<QLineEdit*>(QStringLiteral("TM"))->setText(margin);
      test::press(*dialog, Qt::Key_Return);
      EXPECT_FALSE(dialog->isVisible());
    });
    button(*screen_, "SetBttn").click();
    EXPECT_EQ(dialogName, QStringLiteral("InvoiceSettings"));
  }

  void showInvoice() {
    session::LoginContext& context = shell_->workplace().context;
    context.OpenTranFlag = true;
    context.OpenTranNo = std::stoll(shop_.one("select tranno from transactions where trantype=32"));
    shell_->screens().openScreen("SaleInvoicesSimple");
  }

  // What the next print-out is made of.
  printing::Report printed() {
    showInvoice();
    button(*screen_, "PrintBill_0").click();
    QApplication::processEvents();
    for (QWidget* window : QApplication::topLevelWidgets())
      if (auto* preview = qobject_cast<PreviewWindow*>(window)) {
        printing::Report report = preview->pages().report();
        delete preview;
        return report;
      }
    throw std::logic_error("nothing was printed");
  }

  test::InvoiceCompany shop_;
  std::unique_ptr<MainShell> shell_;
  QWidget* screen_ = nullptr;
};

// The letterhead option stays on from one choice to the next, as it was saved.
TEST_F(InvoiceLayoutChoice, TheNextPrintOutHasTheLayoutWithoutANewLogin) {
  const struct {
    std::vector<std::string> choices;
    printing::Paper paper;
    std::string discount;    // caption of the discount among the totals: with a discount column or without
    printing::Twips margin;  // 0: the layout's own
  } cases[] = {
      {{"InvSize_3"}, printing::A5Landscape, "Additional Discount  $", 0},
      {{"InvSize_4"}, printing::A5, "Additional Discount  $", 0},
      {{"InvSize_2", "InvType_2"}, printing::Roll80, "Discount  $", 0},
      {{"InvSize_1"}, printing::A4, "Discount  $", 0},
      {{"HeadCheck"}, printing::A4, "Discount  $", 2345},
      {{"InvSize_1", "InvType_1"}, printing::A4, "Additional Discount  $", 2345},
      {{"InvSize_2"}, printing::Roll80, "Discount  $", 2345},
      {{"HeadCheck", "InvSize_1"}, printing::A4, "Additional Discount  $", 0},
  };
  for (const auto& [choices, paper, discount, margin] : cases) {
    SCOPED_TRACE(choices.back());
    choose(choices, QStringLiteral("2345"));
    const printing::Report report = printed();
    EXPECT_EQ(report.design.paper.width, paper.width);
    EXPECT_EQ(report.design.paper.height, paper.height);
    EXPECT_EQ(report.variables.at("Tlbl1"), discount);
    EXPECT_EQ(report.design.margins.top == 2345, margin == 2345);
    EXPECT_EQ(report.variables.contains("CoName"), margin == 0) << "the company heads its own paper";
  }
}

TEST_F(InvoiceLayoutChoice, AFormatWithoutALayoutPrintsNothingAndSaysSoInTheStatusLine) {
  auto& note = button(*shell_, "Panel_3");
  shell_->workplace().context.sif = 5;
  EXPECT_THROW(printed(), std::logic_error);
  EXPECT_EQ(note.text(), QStringLiteral("The document is saved, but not printed: print format 5 has no layout. Choose "
                                        "another one under Print Settings."));
  shell_->workplace().context.sif = 1;
  printed();
  EXPECT_EQ(note.text(), QString());
}

}  // namespace
}  // namespace velmo::shell
