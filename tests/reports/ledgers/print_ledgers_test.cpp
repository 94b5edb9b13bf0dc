#include "reports/ledgers/print_ledgers.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QLabel>
#include <regex>

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "reports/ledger_company.h"
#include "support/small_disk.h"

namespace velmo::reports {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Texts = std::vector<std::string>;

class PrintLedgers : public test::LedgerCompany {
 protected:
  void trade() {
    post({.day = "10-01-2026", .lines = {{12001002, 100, 0}, {40001009, 0, 100}}});
    post({.day = "10-05-2026", .lines = {{12001002, 0, 0}, {12001002, 0, 350.5, "Paid"}, {40001009, 0.5, 0}}});
    post({.day = "10-06-2026", .lines = {{12001002, 9999, 0, "Cancelled"}}, .cancelled = true});
    post({.day = "11-22-2026", .lines = {{12001002, 1250.5, 0, "O'Brien's \"own\" =1+1"}}});
  }
  static void wait(const std::function<bool()>& until) {
    QElapsedTimer since;
    for (since.start(); !until() && since.elapsed() < 5000;)
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  }
  // Until the stored balances are right.
  void openReady() {
    open(makePrintLedgers);
    wait([&] { return control<QWidget>("LFrame").isVisible(); });
    ASSERT_TRUE(control<QWidget>("LFrame").isVisible());
  }
  void choose(const char* button, bool chosen = true) { control<QAbstractButton>(button).setChecked(chosen); }
  void chooseEntry(const char* list, int id) { control<forms::DropCombo>(list).setBoundValue(id); }
  void range(const char* from, const char* to) {
    choose("LedgerOpt_2");
    write("CodeFrom", from);
    write("CodeTo", to);
  }
  void setPeriod(const char* from, const char* to) {
    choose("PeriodOpt");
    control<forms::DatePicker>("LedgerDt_0").setDay(*text::DateTime::fromIso(from));
    control<forms::DatePicker>("LedgerDt_1").setDay(*text::DateTime::fromIso(to));
  }
  Texts print() {
    click("PrintBttn");
    return printed();
  }
  // Account codes, amounts and sides of what is printed, in the order of the pages.
  Texts printedFigures() {
    static const std::regex figure(R"(\d{8}|[\d,]+\.\d\d|Debit|Credit)");
    Texts texts = print();
    std::erase_if(texts, [](const std::string& text) { return !std::regex_match(text, figure); });
    return texts;
  }
  Texts codes() {
    Texts texts = printedFigures();
    std::erase_if(texts, [](const std::string& text) { return text.size() != 8 || text.find('.') != text.npos; });
    return texts;
  }
};

TEST_F(PrintLedgers, AsksOnlyWhenTheBalancesAreWritten) {
  trade();
  open(makePrintLedgers);
  EXPECT_EQ(dialog->windowTitle(), "Print Accounts Ledgers");
  EXPECT_EQ(caption("WaitLbl"), "Updating Ledgers, Please Wait ......");
  EXPECT_TRUE(control<QWidget>("WaitLbl").isVisible());
  EXPECT_FALSE(control<QWidget>("LFrame").isVisible());
  EXPECT_FALSE(control<QWidget>("PrintBttn").isEnabled());
  openReady();
  EXPECT_FALSE(control<QWidget>("WaitLbl").isVisible());
  EXPECT_TRUE(control<QWidget>("PrintBttn").isEnabled());
  EXPECT_TRUE(control<QAbstractButton>("LedgerOpt_0").hasFocus());
  EXPECT_EQ(rows("select balance from subtransactions where debit=1250.5").number("balance"), 1000);
}

TEST_F(PrintLedgers, AFullDiskIsToldAndClosesIt) {
  trade();
  open(makePrintLedgers);
  prompts.expect("Cannot Update Ledgers",
                 "The disk that holds \"Uninstall/Uninstall.MDB\" reported an error (disk I/O error). "
                 "Nothing was saved.");
  const test::SmallDisk disk(4096);
  wait([&] { return !dialog->isVisible(); });
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(PrintLedgers, SaysWhatIsMissing) {
  openReady();
  const auto refuse = [&](const char* title, const char* text, const char* focus) {
    prompts.expect(title, text);
    click("PrintBttn");
    EXPECT_TRUE(control<QWidget>(focus).hasFocus()) << text;
  };
  choose("LedgerOpt_1");
  refuse("Select Account Type", "Select correct main account type to print ledgers.", "MainList");
  control<QComboBox>("MainList").setEditText("No such type");
  refuse("Select Account Type", "Select correct main account type to print ledgers.", "MainList");
  choose("SubTypeOpt");
  refuse("Select Account Type", "Select correct sub account type to print ledgers.", "SubList");
  chooseEntry("MainList", 120);
  refuse("Select Account Type", "Select correct sub account type to print ledgers.", "SubList");
  range("", "");
  refuse("Select Account Code", "Select account code to start from.", "CodeFrom");
  range("12001999", "12001002");
  refuse("Select Account Code", "Select account code to start from.", "CodeFrom");
  range("12001002", "' or 1=1");
  refuse("Select Account Code", "Select account code to end at.", "CodeTo");
}

TEST_F(PrintLedgers, EachSelectionHasItsOwnInputs) {
  openReady();
  const auto enabled = [&] {
    Texts names;
    for (const char* name : {"MainList", "SubTypeOpt", "SubList", "CodeFrom", "CodeTo", "LedgerDt_0", "LedgerDt_1"})
      if (control<QWidget>(name).isEnabled()) names.emplace_back(name);
    return names;
  };
  EXPECT_THAT(enabled(), ElementsAre());
  choose("LedgerOpt_1");
  EXPECT_THAT(enabled(), ElementsAre("MainList", "SubTypeOpt"));
  choose("SubTypeOpt");
  chooseEntry("MainList", 120);
  chooseEntry("SubList", 12001);
  EXPECT_EQ(control<QComboBox>("SubList").currentText(), "Trade Customers");
  chooseEntry("MainList", 100);
  EXPECT_EQ(control<QComboBox>("SubList").currentText(), "") << "a sub type of another main type";
  range("12001002", "12001003");
  EXPECT_THAT(enabled(), ElementsAre("CodeFrom", "CodeTo"));
  EXPECT_FALSE(control<QAbstractButton>("SubTypeOpt").isChecked());
  choose("LedgerOpt_0");
  choose("PeriodOpt");
  EXPECT_THAT(enabled(), ElementsAre("LedgerDt_0", "LedgerDt_1"));
  EXPECT_EQ(read("CodeFrom") + read("AccFrom") + read("CodeTo") + read("AccTo"), "");
}

TEST_F(PrintLedgers, PrintsTheFiguresOfTheYearOrOfAPeriod) {
  trade();
  openReady();
  range("12001002", "12001003");
  const Texts ofYear{"12001002", "100.00",   "0.00", "100.00",   "Debit", "0.00",     "350.50", "250.50",
                     "Credit",   "1,250.50", "0.00", "1,000.00", "Debit", "1,350.50", "350.50", "1,000.00",
                     "Debit",    "12001003", "0.00", "0.00",     "0.00",  "Debit"};
  EXPECT_EQ(printedFigures(), ofYear);
  setPeriod("2026-10-02", "2026-10-31");
  EXPECT_THAT(printedFigures(),
              ElementsAre("12001002", "100.00", "Debit", "0.00", "350.50", "250.50", "Credit", "0.00", "350.50",
                          "250.50", "Credit", "12001003", "0.00", "Debit", "0.00", "0.00", "0.00", "Debit"));
  setPeriod("2026-10-31", "2026-10-31");
  write("CodeTo", "12001002");
  EXPECT_THAT(printedFigures(), ElementsAre("12001002", "250.50", "Credit", "0.00", "0.00", "250.50", "Credit"))
      << "without lines it closes with what was brought forward";
  setPeriod("2026-10-31", "2026-10-02");
  EXPECT_THAT(printedFigures(), ElementsAre("12001002", "250.50", "Credit", "0.00", "0.00", "250.50", "Credit"));
}

TEST_F(PrintLedgers, SaysWhatItPrints) {
  trade();
  context->CompanyName = "Harbour Timber";
  context->ccode = "USD";
  openReady();
  range("12001002", "12001002");
  const Texts ofYear = print();
  for (const char* words : {"Harbour Timber", "O'Brien & Sons", "Ledger For The Period Ended On  November 22, 2026",
                            "Debit USD", "Balance USD", "Totals  USD", "05-10-26", "O'Brien's \"own\" =1+1"})
    EXPECT_THAT(ofYear, Contains(words));
  EXPECT_THAT(ofYear, Not(Contains(testing::StartsWith("Balance Brought"))));
  EXPECT_THAT(ofYear, Not(Contains("Cancelled")));
  setPeriod("2026-10-02", "2026-10-31");
  const Texts ofPeriod = print();
  EXPECT_THAT(ofPeriod, Contains("Ledger For The Period From  October 02, 2026  To  October 31, 2026"));
  EXPECT_THAT(ofPeriod, Contains("Balance Brought Forward ..."));
}

TEST_F(PrintLedgers, TakesTheAccountsOfTheSelection) {
  openReady();
  choose("LedgerOpt_1");
  chooseEntry("MainList", 120);
  EXPECT_THAT(codes(), ElementsAre("12001001", "12001002", "12001003"));
  choose("SubTypeOpt");
  chooseEntry("SubList", 12001);
  EXPECT_THAT(codes(), ElementsAre("12001001", "12001002", "12001003"));
  range("12001003", "12001002");
  click("PrintBttn");
  EXPECT_EQ(caption("MessageLbl"), "There are no such accounts.");
  choose("LedgerOpt_0");
  const store::Recordset all = rows("select acccode from acclevel3");
  EXPECT_EQ(codes().size(), static_cast<std::size_t>(all.recordCount()));
}

TEST_F(PrintLedgers, EveryLedgerMayHaveItsOwnPage) {
  trade();
  openReady();
  range("12001001", "12001003");
  print();
  EXPECT_EQ(pages, 1);
  choose("NewPageOpt");
  print();
  EXPECT_EQ(pages, 3) << "one each, and none behind the last";
}

TEST_F(PrintLedgers, ALongLedgerIsHeadedOnEveryPage) {
  for (int i = 0; i < 120; ++i) post({.day = "10-05-2026", .lines = {{12001002, 1, 0}}});
  openReady();
  range("12001002", "12001002");
  const Texts texts = print();
  EXPECT_GT(pages, 1);
  EXPECT_EQ(std::ranges::count(texts, "O'Brien & Sons"), pages);
  EXPECT_THAT(texts, Contains("120.00").Times(3)) << "the last line's balance, the sum and the closing balance";
}

}  // namespace
}  // namespace velmo::reports
