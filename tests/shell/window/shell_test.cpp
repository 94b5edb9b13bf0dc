#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <fstream>

#include "forms/message_prompts.h"
#include "session/open_screen.h"
#include "shell/open_shell.h"
#include "shell/welcome/navigation.h"
#include "shell/window/screen_windows.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/typing.h"
#include "support/waiting.h"

namespace velmo::shell {
namespace {

using session::Answer;
using test::waitFor;

// A screen that counts what it is told, and one that refuses to close.
class CountingScreen : public QWidget, public session::Reopened {
  Q_OBJECT

 public:
  static inline int made = 0;
  static inline int shown = 0;
  static inline bool refusesToClose = false;

  explicit CountingScreen(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("Cash & Credit"));
    ++made;
  }

  void reopen() override { ++shown; }

 protected:
  void closeEvent(QCloseEvent* event) override { event->setAccepted(!refusesToClose); }
};

QWidget* makeCounting(session::Workplace&, QWidget* parent) {
  return new CountingScreen(parent);
}

// Closes itself as soon as it shows.
QWidget* makeBriefDialog(session::Workplace&, QWidget* parent) {
  auto* dialog = new QDialog(parent);
  QTimer::singleShot(0, dialog, &QDialog::accept);
  return dialog;
}

constexpr ScreenEntry testScreens[] = {
    {"Navigation", ScreenKind::ChildWindow, makeNavigation},
    {"SaleInvoicesSimple", ScreenKind::ChildWindow, makeCounting},
    {"CompanyInfo", ScreenKind::Dialog, makeBriefDialog},
    {"ModifyInventory", ScreenKind::Dialog, makeBriefDialog},
    {"ModifyBanks", ScreenKind::Dialog, makeBriefDialog},
};

class Shell : public testing::Test {
 protected:
  Shell() {
    CountingScreen::made = CountingScreen::shown = 0;
    CountingScreen::refusesToClose = false;
    test::NewCompany::run({"delete * from userrights where rightid=2 or rightid=93",
                           "insert into userrights (RightID, RightType, Operator1) values (2, 'welcome screen.', no)",
                           "insert into userrights (RightID, RightType, Operator1) values (93, 'sale invoices.', no)",
                           "update businessinfo set [Name]='Hardware & Sons'"});
  }

  void open(int userId = 1, int screenWidth = 1920, std::span<const ScreenEntry> catalogue = testScreens) {
    shell_ = openShell({.clock = clock_,
                        .prompts = prompts_,
                        .files = files_,
                        .programFolder = company_.folder(),
                        .screenWidth = screenWidth,
                        .catalogue = catalogue},
                       userId);
  }

  void openWithAllScreens(int userId = 1) { open(userId, 1920, screenCatalogue()); }
  QWidget& screen(const char* name) {
    shell_->screens().openScreen(name);
    return *shell_->screens().openWindow(name);
  }
  // The heading of the help that F1 opens there.
  std::string helpOn(QWidget& focus) {
    std::string heading = "no help";
    QTimer::singleShot(0, shell_.get(), [&heading] {
      QWidget* help = QApplication::activeModalWidget();
      if (!help || help->objectName() != QStringLiteral("HelpForm")) return;
      test::press(*help, Qt::Key_F1);  // no help on help
      heading = help->findChild<QLabel*>(QStringLiteral("Heading"))->text().toStdString();
      help->close();
    });
    test::press(focus, Qt::Key_F1);
    QApplication::processEvents();
    return heading;
  }
  void expectDropQuestion(const std::string& title, Answer answer) {
    prompts_.expect("Not Saved", "What you have typed in " + title + " is not saved. Do you want to drop it?", answer);
  }

  QAction& action(const char* name) { return *shell_->findChild<QAction*>(QLatin1String(name)); }
  session::LoginContext& context() { return shell_->workplace().context; }
  bool isOpen(std::string_view screen) { return shell_->screens().openWindow(screen) != nullptr; }
  void expectBackUpQuestion(Answer answer) {
    prompts_.expect("Back-Up Confirmation", "Do you want to save back-up of your data?", answer);
  }

  test::NewCompany company_;
  test::QueuedPrompts prompts_;
  test::SetClock clock_;
  test::NamedFile files_;
  std::unique_ptr<MainShell> shell_;
};

TEST_F(Shell, NamesTheCompanyTheYearAndTheUser) {
  open();
  EXPECT_EQ(shell_->windowTitle(), QStringLiteral("Velmo Point of Sale - Hardware & Sons"));
  auto* bar = shell_->findChild<QStatusBar*>(QStringLiteral("KORDStatusBar"));
  ASSERT_TRUE(bar);
  EXPECT_TRUE(bar->findChild<QLabel*>(QStringLiteral("Panel_2"))
                  ->text()
                  .startsWith(QStringLiteral("Financial Year Starting From  ")));
  EXPECT_EQ(shell_->screens().openWindow("Navigation")->windowTitle(), QStringLiteral("Welcome Zoe"));
  EXPECT_TRUE(context().KORDconn.isOpen());
}

TEST_F(Shell, ReadsTheSharedListsOnceAfterASecond) {
  open();
  EXPECT_FALSE(context().ItemsRS.isOpen());
  ASSERT_TRUE(waitFor([this] { return context().ItemsRS.isOpen() && context().AccountsRS.isOpen(); }));
  auto* items = shell_->findChild<QTimer*>(QStringLiteral("InvTimer"));
  auto* accounts = shell_->findChild<QTimer*>(QStringLiteral("AccTimer"));
  EXPECT_FALSE(items->isActive());
  EXPECT_FALSE(accounts->isActive());

  const std::string code = store::Recordset(context().KORDconn, "select * from acclevel3").text("AccCode");
  EXPECT_TRUE(context().AccountsRS.find("AccCode = " + code));

  // Closing a master screen reads its own list afresh, and no other.
  shell_->screens().openDialog("ModifyBanks");
  EXPECT_TRUE(accounts->isActive());
  EXPECT_FALSE(items->isActive());
  shell_->screens().openDialog("ModifyInventory");
  EXPECT_TRUE(items->isActive());
  company_.run(context().KORDconn, {"insert into acclevel3 (AccCode, AccName, Level1ID, Level2ID) select 99999001, "
                                    "'New bank', Level1ID, Level2ID from acclevel3 where acccode=12001001"});
  ASSERT_TRUE(waitFor([&] { return !accounts->isActive(); }));
  context().AccountsRS.moveFirst();
  EXPECT_TRUE(context().AccountsRS.find("AccCode = 99999001"));
}

TEST_F(Shell, ComputesTheCostsAMomentAfterAScreenAsksForThem) {
  open();
  company_.run(context().KORDconn,
               {"insert into stocklevel1 (CatID, CatName) values ('GDS', 'Goods')",
                "insert into stocklevel2 (SubCatID, SubCatName, CatID) values ('GDS01', 'Goods', 'GDS')",
                "insert into stocklevel3 (ItemCode, CatID, SubCatID, ValuationType) values ('A', 'GDS', 'GDS01', yes)",
                "insert into transactions (TranNo, TranDate, TranType, FYID, Cancel, InvLedger) values (900, "
                "#05-01-2026#, 22, 1, no, no)",
                "insert into stockflow (TranNo, ItemCode, StockIn, ItemValue) values (900, 'A', 4, 10)"});
  auto* timer = shell_->findChild<QTimer*>(QStringLiteral("CostTimer"));
  ASSERT_TRUE(timer);
  EXPECT_FALSE(timer->isActive()) << "nobody asked";
  const auto cost = [this] {
    return store::Recordset(context().KORDconn, "select * from stocklevel3 where itemcode='A'")
        .number("ValuationCost2");
  };
  {
    const store::Connection::Transaction work(context().KORDconn);
    context().Costs.arm();
    EXPECT_FALSE(waitFor([&] { return !timer->isActive(); }, 300)) << "within other work it is put off";
  }
  EXPECT_TRUE(waitFor([&] { return !timer->isActive(); }));
  EXPECT_EQ(cost(), 2.5);

  company_.run(context().KORDconn, {"update stockflow set ItemValue=20 where TranNo=900"});
  context().Costs.arm();
  context().Costs.settle(context().KORDconn, context().FYID, context().FinancialYearEnd);
  EXPECT_EQ(cost(), 5) << "a report does not wait";
}

TEST_F(Shell, ReadsTheSharedListsForAScreenThatIsOpenedBeforeThat) {
  open();
  action("SaleMod_55").trigger();
  EXPECT_TRUE(context().ItemsRS.isOpen() && context().AccountsRS.isOpen());
  for (const char* timer : {"InvTimer", "AccTimer"})
    EXPECT_FALSE(shell_->findChild<QTimer*>(QLatin1String(timer))->isActive()) << timer;
}

// The screens' area is a filter of the whole application.
TEST_F(Shell, LetsMessageBoxesAndDialogsEndAsTheyWereAnswered) {
  open();
  for (const auto& [button, answer] : {std::pair{QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}}) {
    QTimer::singleShot(0, shell_.get(), [button = button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_TRUE(box);
      box->button(button)->click();
    });
    forms::MessagePrompts prompts;
    EXPECT_EQ(prompts.ask({.title = "Delete", .text = "Sure?", .buttons = session::Buttons::YesNo}), answer);
  }
  QDialog dialog(shell_.get());
  QTimer::singleShot(0, &dialog, &QDialog::accept);
  EXPECT_EQ(dialog.exec(), QDialog::Accepted);
}

TEST_F(Shell, OpensAScreenOnceAndBringsItForward) {
  open();
  action("SaleMod_55").trigger();
  action("General_10").trigger();
  EXPECT_EQ(shell_->screens().activeSubWindow()->widget(), shell_->screens().openWindow("Navigation"));
  EXPECT_EQ(CountingScreen::shown, 0);
  action("SaleMod_55").trigger();
  EXPECT_EQ(CountingScreen::made, 1);
  EXPECT_EQ(CountingScreen::shown, 1) << "a screen that stands open hears that it was asked for again";
  EXPECT_EQ(shell_->screens().activeSubWindow()->widget(), shell_->screens().openWindow("SaleInvoicesSimple"));

  shell_->screens().activeSubWindow()->close();
  EXPECT_FALSE(isOpen("SaleInvoicesSimple"));
  action("SaleMod_55").trigger();
  EXPECT_EQ(CountingScreen::made, 2);
  const auto* tabs = shell_->screens().findChild<QTabBar*>();
  ASSERT_NE(tabs, nullptr);
  EXPECT_EQ(tabs->tabText(tabs->currentIndex()), QStringLiteral("Cash && Credit")) << "no sign of an access key";
  EXPECT_FALSE(shell_->screens().openScreen("NoSuchScreen"));
  EXPECT_FALSE(shell_->screens().openScreen("CompanyInfo")) << "a dialog is no child window";
}

TEST_F(Shell, DisablesWhatIsNotThere) {
  open();
  EXPECT_TRUE(action("SaleMod_55").isEnabled());
  EXPECT_FALSE(action("SaleMod_57").isEnabled());
  EXPECT_FALSE(action("PurReports_10").isEnabled());
  EXPECT_FALSE(action("General_50").isEnabled());
  EXPECT_TRUE(action("General_140").isEnabled());
  auto* navigation = shell_->screens().openWindow("Navigation");
  EXPECT_TRUE(navigation->findChild<QPushButton*>(QStringLiteral("RecordNew_10"))->isEnabled());
  EXPECT_FALSE(navigation->findChild<QPushButton*>(QStringLiteral("RecordNew_0"))->isEnabled());
}

TEST_F(Shell, ReachesEveryMenuByItsOwnKey) {
  open();
  QStringList keys;
  for (QAction* menu : shell_->menuBar()->actions()) keys << QKeySequence::mnemonic(menu->text()).toString();
  EXPECT_FALSE(keys.contains(QString()));
  EXPECT_EQ(keys.removeDuplicates(), 0);
}

TEST_F(Shell, OpensNothingWithoutTheRight) {
  test::NewCompany::run({"update userrights set operator1=yes where rightid=93"});
  open(2);
  prompts_.expect("Not Allowed", "You do not have access to sale invoices.");
  action("SaleMod_55").trigger();
  prompts_.expect("Not Allowed", "You do not have access to sale invoices.");
  shell_->screens().openWindow("Navigation")->findChild<QPushButton*>(QStringLiteral("RecordNew_10"))->click();
  EXPECT_EQ(CountingScreen::made, 0);

  prompts_.expect("Not Allowed", "You do not have access to edit business details.");
  action("General_20").trigger();
}

TEST_F(Shell, LetsTheAdministratorDoEverything) {
  test::NewCompany::run({"update userrights set operator1=yes"});
  open(1);
  action("SaleMod_55").trigger();
  EXPECT_TRUE(isOpen("SaleInvoicesSimple"));
  action("General_20").trigger();
}

TEST_F(Shell, HidesTheWelcomeScreenFromThoseWithoutTheRight) {
  test::NewCompany::run({"update userrights set operator1=yes where rightid=2"});
  open(2);
  EXPECT_FALSE(shell_->WelcomeAllowed);
  EXPECT_FALSE(isOpen("Navigation"));
  prompts_.expect("Not Allowed", "You do not have access to welcome screen.");
  action("General_10").trigger();
  EXPECT_FALSE(isOpen("Navigation"));
}

TEST_F(Shell, AsksForABackUpBeforeItCloses) {
  std::ofstream(company_.folder() / "Back-Up Utility.exe") << "#!/bin/sh\ntouch started\n";
  std::filesystem::permissions(company_.folder() / "Back-Up Utility.exe", std::filesystem::perms::owner_all);
  const auto started = [this] { return std::filesystem::exists(company_.folder() / "started"); };

  open();
  expectBackUpQuestion(Answer::Cancel);
  EXPECT_FALSE(shell_->close());
  EXPECT_TRUE(shell_->isVisible());
  EXPECT_TRUE(context().KORDconn.isOpen());
  EXPECT_TRUE(isOpen("Navigation"));

  expectBackUpQuestion(Answer::No);
  EXPECT_TRUE(shell_->close());
  EXPECT_FALSE(context().KORDconn.isOpen());
  EXPECT_FALSE(context().ItemsRS.isOpen());
  EXPECT_FALSE(started());

  open();
  expectBackUpQuestion(Answer::Yes);
  action("General_140").trigger();
  EXPECT_FALSE(shell_->isVisible());
  EXPECT_TRUE(waitFor(started));
}

TEST_F(Shell, ClosesForTheBackUpUtilityWithoutAQuestion) {
  open();
  action("General_120").trigger();  // there is no utility: that is no reason to stay
  EXPECT_FALSE(shell_->isVisible());
  EXPECT_TRUE(shell_->SkipBackUpPrompt);
}

TEST_F(Shell, StaysWhenAScreenRefusesToClose) {
  open();
  action("SaleMod_55").trigger();
  CountingScreen::refusesToClose = true;
  expectBackUpQuestion(Answer::No);
  EXPECT_FALSE(shell_->close());
  EXPECT_TRUE(context().KORDconn.isOpen());
  EXPECT_TRUE(isOpen("SaleInvoicesSimple"));
  CountingScreen::refusesToClose = false;
  expectBackUpQuestion(Answer::No);
  EXPECT_TRUE(shell_->close());
}

TEST_F(Shell, OpensTheHelpThatFitsByF1) {
  openWithAllScreens();
  const std::string steps = "What are the steps to be followed to start working in this software?";
  const std::string keys = "How to move focus within controls of a form?";
  EXPECT_EQ(helpOn(screen("Navigation")), steps);
  EXPECT_EQ(helpOn(*screen("SaleInvoicesPOS").findChild<QWidget*>("Grid")), keys);
  EXPECT_EQ(helpOn(*shell_->menuBar()), keys) << "of the screen in front";
  EXPECT_TRUE(QString::fromStdString(helpOn(screen("AccBalances"))).contains("Report width is larger"));

  std::string onDialog, onMessage;
  QTimer::singleShot(0, shell_.get(), [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    onDialog = helpOn(*dialog->findChild<QLineEdit*>());
    QTimer::singleShot(0, shell_.get(), [&] {
      QWidget* message = QApplication::activeModalWidget();
      onMessage = helpOn(*message);
      message->close();
    });
    forms::MessagePrompts().tell("Cannot Save", "Transaction date cannot be after ending date of financial year.");
    dialog->close();
  });
  shell_->screens().openDialog("CompanyInfo");
  EXPECT_EQ(onDialog, steps);
  EXPECT_TRUE(QString::fromStdString(onMessage).startsWith("When I try to save a transaction")) << onMessage;
}

TEST_F(Shell, AsksBeforeDroppingWhatIsTypedForThoseWhoWantIt) {
  openWithAllScreens();
  QAction& ask = action("General_75");
  EXPECT_FALSE(ask.isChecked());
  screen("GeneralJournal").findChild<QPlainTextEdit*>("Desc")->setPlainText("typed");
  shell_->screens().activeSubWindow()->close();
  EXPECT_FALSE(isOpen("GeneralJournal")) << "nobody asked for questions";

  ask.trigger();
  screen("CashPayments");
  screen("GeneralJournal").findChild<QPlainTextEdit*>("Desc")->setPlainText("typed");
  expectDropQuestion("GENERAL JOURNAL", Answer::No);
  shell_->screens().activeSubWindow()->close();
  screen("CashPayments").findChild<QPlainTextEdit*>("Desc")->setPlainText("typed, too");
  expectDropQuestion("CASH PAYMENTS", Answer::Yes);
  expectDropQuestion("GENERAL JOURNAL", Answer::No);
  EXPECT_FALSE(shell_->close());
  EXPECT_TRUE(isOpen("Navigation") && isOpen("CashPayments")) << "all of it stays";
  EXPECT_EQ(shell_->screens().activeSubWindow()->widget(), shell_->screens().openWindow("GeneralJournal"));
  for (const Answer backUp : {Answer::Cancel, Answer::No}) {
    expectDropQuestion("CASH PAYMENTS", Answer::Yes);
    expectDropQuestion("GENERAL JOURNAL", Answer::Yes);
    expectBackUpQuestion(backUp);
    EXPECT_EQ(shell_->close(), backUp == Answer::No);
  }

  openWithAllScreens(2);
  EXPECT_FALSE(action("General_75").isChecked()) << "another user";
  openWithAllScreens();
  EXPECT_TRUE(action("General_75").isChecked());
}

TEST_F(Shell, WarnsOfANarrowScreenAndGoesOn) {
  const char* const sentence =
      "It has been detected that your screen resolution has been set lesser than the minimum requirement for Velmo "
      "Point of Sale. The minimum screen display settings requirement for this software is 1024 X 768 . Kindly reset "
      "your display settings for proper visibility.";
  prompts_.expect("Screen Display Resolution", sentence);
  open(1, 999);
  EXPECT_TRUE(shell_->isVisible());
  open(1, 1000);
}

}  // namespace
}  // namespace velmo::shell

#include "shell_test.moc"
