#include "shell/idle/idle_work.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>

#include "session/settings.h"
#include "shell/idle/status_note.h"
#include "shell/login/login_form.h"
#include "shell/open_shell.h"
#include "shell/window/screen_windows.h"
#include "support/damage.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/small_disk.h"
#include "support/waiting.h"

namespace velmo::shell {
namespace {

namespace fs = std::filesystem;
using session::settings::LastRound;
using test::waitFor;

class IdleShell : public testing::Test {
 protected:
  IdleShell() { clock_.moment = text::DateTime::fromCalendar(2026, 11, 22, 9, 30); }
  ~IdleShell() override { shell_.reset(); }

  void open(const schema::FileState& state = {}, int userId = 1) {
    shell_ = openShell({.clock = clock_,
                        .prompts = prompts_,
                        .files = files_,
                        .programFolder = company_.folder(),
                        .screenWidth = 1920,
                        .file = state},
                       userId);
  }
  bool close() {
    shell_->SkipBackUpPrompt = true;
    return shell_->close();
  }

  template <typename Control>
  Control& child(const char* name) {
    return *shell_->findChild<Control*>(QLatin1String(name));
  }
  IdleChecker& checker() { return *shell_->findChild<IdleChecker*>(); }
  store::Connection& books() { return shell_->workplace().context.KORDconn; }
  std::string note() { return child<QAbstractButton>("Panel_3").text().toStdString(); }
  // Nobody works for a while.
  void rest() { Q_EMIT child<QTimer>("IdleTimer").timeout({}); }
  void restUntilChecked() {
    rest();
    ASSERT_TRUE(checker().isRunning());
    ASSERT_TRUE(waitFor([this] { return !checker().isRunning(); }));
    QApplication::processEvents();
  }
  std::int64_t post(int type, bool cancelled, double debit) {
    const std::string number = std::to_string(++lastTranNo_);
    books().execute("INSERT INTO Transactions (TranNo, DocNo, TranType, TranDate, FYID, Cancel) VALUES (" + number +
                    ", " + number + ", " + std::to_string(type) + ", #11-22-2026#, 1, " + (cancelled ? "Yes" : "No") +
                    ")");
    books().execute("INSERT INTO SubTransactions (TranNo, AccCode, Debit) VALUES (" + number + ", 10001001, " +
                    std::to_string(debit) + ")");
    return lastTranNo_;
  }

  test::NewCompany company_;
  const fs::path file_ = company_.file();
  test::QueuedPrompts prompts_;
  test::SetClock clock_;
  test::NamedFile files_;
  std::unique_ptr<MainShell> shell_;
  std::int64_t lastTranNo_ = 900;
};

// The words that follow what is damaged.
std::string damageTold(const std::string& what, const fs::path& copy, const std::string& backUp) {
  return "The company's file is damaged: " + what +
         ". So that it gets no worse, nothing more is saved into it; you can go on reading and printing.\n\nThe file "
         "was copied as it is to \"" +
         copy.string() + "\".\n\nRestore it from a back-up copy" + backUp;
}

TEST_F(IdleShell, TellsOfAFullDiskInTheStatusBarUntilThereIsRoom) {
  open();
  shell_->resize(1024, 700);
  QApplication::processEvents();
  for (int i = 0; i < 300; ++i)
    books().execute("INSERT INTO BizSectors (SectorID, SectorName) VALUES (" + std::to_string(1000 + i) + ", '" +
                    std::string(1000, 'x') + "')");
  {
    const test::SmallDisk disk(fs::file_size(file_));
    rest();
    EXPECT_EQ(note(), "Saved, but the disk is full: make room, so that the log can be folded into the company's file.");
    EXPECT_TRUE(child<QTimer>("IdleTimer").isActive()) << "it is tried again though nobody touches a key";
    checker();
    ASSERT_TRUE(waitFor([this] { return !checker().isRunning(); }));
  }
  QApplication::processEvents();
  auto& bar = child<QStatusBar>("KORDStatusBar");
  EXPECT_EQ(shell_->width(), 1024);
  for (const char* panel : {"Panel_1", "Panel_2"})
    EXPECT_GE(child<QLabel>(panel).width(), child<QLabel>(panel).sizeHint().width()) << panel;
  EXPECT_GT(child<QAbstractButton>("Panel_3").width(), 200);
  EXPECT_LE(child<QAbstractButton>("Panel_3").geometry().right(), bar.width());
  rest();
  EXPECT_EQ(note(), "");
  EXPECT_EQ(test::past(file_, "SELECT count(*) FROM BizSectors WHERE SectorID >= 1000"), "300");
}

TEST_F(IdleShell, TellsOfDamageOnceAndSavesNothingMore) {
  open();
  post(91, false, 1);
  session::saveSetting(books(), session::settings::BackUpPlace, "/media/stick/KORD Back-Up");
  session::saveSetting(books(), session::settings::BackUpTime, "2026-11-21 18:05:00");
  ASSERT_TRUE(close());
  shell_.reset();
  test::changeBesideIndex(file_, "Transactions_TranDate", "UPDATE Transactions SET TranDate = '2026-11-21'");
  open();
  const fs::path copy = file_.string() + " damaged 2026-11-22 09-30-00";
  prompts_.expect("Company File Damaged",
                  damageTold("the table \"Transactions\" (row 1 missing from index Transactions_TranDate)", copy,
                             ": the last one was saved on 21-11-2026 06:05 pm in \"/media/stick/KORD Back-Up\"."));
  restUntilChecked();
  EXPECT_EQ(note(), "The company's file is damaged: nothing is saved into it any more.");
  EXPECT_EQ(test::past(copy, "SELECT count(*) FROM SubTransactions WHERE TranNo > 900"), "1");
  for (const char* statement : {"UPDATE BusinessInfo SET Fax = '1'", "DELETE FROM Transactions"}) {
    try {
      books().execute(statement);
      ADD_FAILURE() << statement;
    } catch (const store::StoreError& failure) {
      EXPECT_EQ(failure.kind(), store::ErrorKind::Damaged);
      EXPECT_THAT(failure.what(),
                  testing::EndsWith("Nothing is saved into it any more. Restore it from a back-up copy."));
    }
  }
  const std::string before = test::bytesOf(file_);
  const std::string logBefore = test::bytesOf(file_.string() + "-wal");
  clock_.moment = clock_.moment.addDays(1);
  rest();
  EXPECT_FALSE(checker().isRunning()) << "it is known";
  shell_->workplace().context.Costs.arm();
  ASSERT_TRUE(waitFor([this] { return !child<QTimer>("CostTimer").isActive(); }));
  EXPECT_TRUE(shell_->screens().openScreen("AccBalances"));
  shell_->screens().openWindow("AccBalances")->findChild<QAbstractButton*>(QStringLiteral("ViewBttn"))->click();
  ASSERT_TRUE(close());
  EXPECT_EQ(test::bytesOf(file_), before);
  EXPECT_EQ(test::bytesOf(file_.string() + "-wal"), logBefore);
}

TEST_F(IdleShell, OpensADamagedFileForReadingAlone) {
  test::NewCompany::run({"INSERT INTO AccLevel2 (Level2ID, L2AccName) VALUES (99999, 'half written')"});
  test::spoilTable(file_, "Jobs");
  const std::string before = test::bytesOf(file_);
  const schema::FileState state = schema::prepareCompanyFile(schema::plainConnectionString, clock_.now());
  ASSERT_EQ(state.damage.size(), 1U);
  prompts_.expect("Company File Damaged",
                  damageTold(state.damage.front().words, file_.string() + " damaged 2026-11-22 09-30-00",
                             "; the file does not tell where the last one was saved."));
  tellDamageAtStart(prompts_, clock_, schema::plainConnectionString, state);
  { const LoginForm login(schema::companyCatalog(), schema::plainConnectionString, prompts_, state); }
  open(state);
  EXPECT_EQ(note(), "The company's file is damaged: nothing is saved into it any more.");
  EXPECT_EQ(store::Recordset(books(), "SELECT * FROM AccLevel2 WHERE Level2ID = 99999").recordCount(), 1)
      << "nothing was tidied up";
  rest();
  EXPECT_FALSE(checker().isRunning());
  ASSERT_TRUE(close());
  EXPECT_EQ(test::bytesOf(file_), before);
}

TEST_F(IdleShell, SetsTotalsRightAndSaysSo) {
  open();
  post(91, false, 10);
  const auto total = [this] { return test::past(file_, "SELECT Debit FROM AccountDays"); };
  test::past(file_, "UPDATE AccountDays SET Debit = 11");
  restUntilChecked();
  EXPECT_EQ(total(), "100000") << "in ten-thousandths";
  EXPECT_EQ(note(), "Totals that the file keeps were not those of their documents; they have been set right.");
}

TEST_F(IdleShell, SaysThatTotalsWereSetRightBeforeTheFirstScreen) {
  open();
  post(91, false, 10);
  ASSERT_TRUE(close());
  shell_.reset();
  test::past(file_, "UPDATE AccountDays SET Debit = 11");
  const schema::FileState state = schema::prepareCompanyFile(schema::plainConnectionString, clock_.now());
  EXPECT_TRUE(state.totalsMended);
  EXPECT_FALSE(schema::prepareCompanyFile(schema::plainConnectionString, clock_.now()).totalsMended);
  open(state);
  EXPECT_EQ(note(), "Totals that the file keeps were not those of their documents; they have been set right.");
}

TEST_F(IdleShell, AddsToTheTotalsAndGivesUpWhenAKeyComes) {
  test::past(file_,
             "INSERT INTO Transactions (TranNo, DocNo, TranType, TranDate, FYID, Cancel, InvLedger) VALUES (901, "
             "901, 22, '2026-11-22', 1, 0, 0)");
  test::past(file_,
             "WITH RECURSIVE n(v) AS (SELECT 1 UNION ALL SELECT v + 1 FROM n WHERE v < 20000) INSERT INTO "
             "StockFlow (TranNo, ItemCode, StockIn) SELECT 901, printf('I%05d', v), 1 FROM n");
  open();
  const auto added = [this] { return test::past(file_, "SELECT count(*) FROM StockDays"); };
  rest();
  QApplication::processEvents();
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
  QApplication::sendEvent(shell_.get(), &key);
  const std::string some = added();
  EXPECT_THAT(some, testing::AllOf(testing::Ne("0"), testing::Ne("20000")));
  for (int i = 0; i < 20; ++i) QApplication::processEvents();
  EXPECT_EQ(added(), some);
  rest();
  EXPECT_TRUE(waitFor([&] { return added() == "20000"; }));
}

TEST_F(IdleShell, LooksOnceADayAndAfterABackUp) {
  open();
  restUntilChecked();
  EXPECT_EQ(session::setting(books(), LastRound), "2026-11-22 09:30:00");
  rest();
  EXPECT_FALSE(checker().isRunning());
  clock_.moment = text::DateTime::fromCalendar(2026, 11, 22, 17, 0);
  session::saveSetting(books(), session::settings::BackUpTime, clock_.moment.iso());
  clock_.moment = text::DateTime::fromCalendar(2026, 11, 22, 17, 1);
  restUntilChecked();
  rest();
  EXPECT_FALSE(checker().isRunning());
  clock_.moment = text::DateTime::fromCalendar(2026, 11, 23, 8, 0);
  session::saveSetting(books(), LastRound, "2026-11-23 07:00:00");  // by another till
  rest();
  EXPECT_FALSE(checker().isRunning());
  clock_.moment = clock_.moment.addDays(1);
  restUntilChecked();
  ASSERT_TRUE(close());
  open({.seenThrough = false, .damage = {}});
  restUntilChecked();  // the pages, which the check before the first screen had no time for
  rest();
  EXPECT_FALSE(checker().isRunning());
}

TEST_F(IdleShell, ListsUnbalancedDocumentsAndOpensThem) {
  open();
  post(41, true, 3);
  post(91, false, 3);
  restUntilChecked();
  EXPECT_EQ(note(), "") << "cancelled documents are no alarm";
  auto& panel = child<StatusNote>("Panel_3");
  panel.click();
  EXPECT_FALSE(shell_->screens().openWindow("UnbalancedDocuments"));

  const std::int64_t voucher = post(41, false, 3);
  clock_.moment = clock_.moment.addDays(1);
  restUntilChecked();
  EXPECT_EQ(note(), "1 document is not balanced: click here to see it.");
  panel.click();
  QWidget* list = shell_->screens().openWindow("UnbalancedDocuments");
  ASSERT_TRUE(list);
  auto* grid = list->findChild<QTableView*>(QStringLiteral("UnbalancedGrid"));
  ASSERT_TRUE(waitFor([&] { return grid->model()->rowCount() == 2; }));
  const auto state = [&](int row) { return grid->model()->index(row, 5).data().toString(); };
  EXPECT_EQ(state(0), QString());
  EXPECT_EQ(state(1), QStringLiteral("Cancelled"));
  Q_EMIT grid->doubleClicked(grid->model()->index(0, 0));
  QWidget* journal = shell_->screens().openWindow("GeneralJournal");
  ASSERT_TRUE(journal);
  EXPECT_EQ(shell_->workplace().context.OpenTranNo, voucher);

  books().execute("INSERT INTO SubTransactions (TranNo, AccCode, Credit) VALUES (" + std::to_string(voucher) +
                  ", 10001001, 3)");
  list->window()->findChild<ScreenWindows*>()->closeAllSubWindows();
  ASSERT_FALSE(shell_->screens().openWindow("UnbalancedDocuments"));
  restUntilChecked();
  EXPECT_EQ(note(), "") << "looked at again when the list was closed";
}

TEST_F(IdleShell, ShowsTheListToThoseAloneWhoMaySeeTheJournal) {
  test::NewCompany::run({"UPDATE UserRights SET Operator1 = Yes WHERE RightID = 180"});
  open({}, 2);
  post(41, false, 3);
  restUntilChecked();
  const store::Recordset right(books(), "SELECT RightType FROM UserRights WHERE RightID = 180");
  prompts_.expect("Not Allowed", "You do not have access to " + right.text("RightType"));
  child<StatusNote>("Panel_3").click();
  EXPECT_FALSE(shell_->screens().openWindow("UnbalancedDocuments"));
}

TEST_F(IdleShell, ClosesAtOnceWhileTheFileIsLookedThrough) {
  test::past(file_,
             "WITH RECURSIVE n(v) AS (SELECT 1000 UNION ALL SELECT v + 1 FROM n WHERE v < 200000) INSERT INTO "
             "BizSectors (SectorID, SectorName) SELECT v, printf('%0400d', v) FROM n");
  open();
  rest();
  QApplication::processEvents();
  ASSERT_TRUE(checker().isRunning()) << "too small a file for this test";
  books().execute("UPDATE BusinessInfo SET Fax = '1'");  // who works need not wait for it
  QElapsedTimer clock;
  clock.start();
  ASSERT_TRUE(close());
  EXPECT_FALSE(checker().isRunning());
  EXPECT_LT(clock.elapsed(), 1500);
  EXPECT_FALSE(fs::exists(file_.string() + "-wal")) << "nobody has the file open";
  open();
  EXPECT_EQ(session::setting(books(), LastRound), "") << "what was broken off does not count";
}

}  // namespace
}  // namespace velmo::shell
