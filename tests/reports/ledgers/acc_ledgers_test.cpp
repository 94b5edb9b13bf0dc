#include "reports/ledgers/acc_ledgers.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <fstream>

#include "forms/date_picker.h"
#include "frame/report/report_screen.h"
#include "reports/ledger_company.h"
#include "spreadsheet/sheet_reader.h"
#include "support/small_disk.h"

namespace velmo::reports {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr int customer = 12001002;

class AccLedgers : public test::LedgerCompany {
 protected:
  // A customer who buys, pays, comes to zero and below it.
  void trade() {
    post({.day = "10-01-2026", .tranType = 11, .lines = {{customer, 100, 0, "Opening"}}});
    sale_ = post({.day = "10-05-2026",
                  .tranType = 32,
                  .lines = {{customer, 250.5, 0, "=1+1"}, {40001009, 0, 250.5}},
                  .reference = "REF 7"});
    post({.day = "10-05-2026", .tranType = 38, .lines = {{customer, 0, 0, "Nothing"}, {customer, 0, 350.5, "Paid"}}});
    post({.day = "10-06-2026", .tranType = 32, .lines = {{customer, 9999, 0, "Cancelled"}}, .cancelled = true});
    post({.day = "10-07-2026", .tranType = 41, .lines = {{customer, 0, 0.25, "Too much"}}});
  }
  void view(int account) {
    write("ACodeTxt", std::to_string(account).c_str());
    click("ViewBttn");
  }
  void setPeriod(const char* from, const char* to) {
    control<QCheckBox>("DateOpt").setChecked(true);
    control<forms::DatePicker>("LedgerDt_0").setDay(*text::DateTime::fromIso(from));
    control<forms::DatePicker>("LedgerDt_1").setDay(*text::DateTime::fromIso(to));
  }
  Texts figures() { return {read("TotalDr"), read("TotalCr"), read("Balance"), read("Status")}; }
  Texts broughtForward() { return {caption("OBLbl1"), caption("OBLbl2"), caption("OBLbl3")}; }

  std::int64_t sale_ = 0;
};

TEST_F(AccLedgers, CarriesTheBalanceFromLineToLine) {
  trade();
  open(makeAccLedgers);
  EXPECT_EQ(dialog->windowTitle(), "Accounts Ledgers");
  EXPECT_FALSE(control<QWidget>("LedgerDt_0").isEnabled());
  view(customer);
  EXPECT_EQ(read("Acc"), "O'Brien & Sons");
  EXPECT_THAT(column("LedgerGrid", "Balance"), ElementsAre("100.00", "350.50", "0.00", "0.25"));
  EXPECT_THAT(column("LedgerGrid", "Status"), ElementsAre("Debit", "Debit", "Debit", "Credit"));
  EXPECT_THAT(column("LedgerGrid", "Description"), ElementsAre("Opening", "=1+1", "Paid", "Too much"));
  EXPECT_THAT(column("LedgerGrid", "Reference No."), ElementsAre("", "REF 7", "", ""));
  EXPECT_THAT(figures(), ElementsAre("350.50", "350.75", "0.25", "Credit"));
  EXPECT_THAT(broughtForward(), ElementsAre("", "", ""));
  EXPECT_EQ(caption("TtlLbl"), "Totals " + context->ccode);
  EXPECT_TRUE(rows("select * from subtransactions where not isnull(balance)").isEmpty()) << "the screen wrote";
}

TEST_F(AccLedgers, APeriodBeginsWithTheBalanceBroughtForward) {
  trade();
  open(makeAccLedgers);
  struct Case {
    const char* from;
    const char* to;
    Texts before;
    Texts balances;
    Texts figures;
  };
  for (const Case& c :
       {Case{"2026-10-05",
             "2026-10-05",
             {"Balance Brought Forward  ", "100.00", "Debit"},
             {"350.50", "0.00"},
             {"250.50", "350.50", "0.00", "Debit"}},
        Case{"2026-10-08",
             "2026-10-31",
             {"Balance Brought Forward  ", "0.25", "Credit"},
             {},
             {"0.00", "0.00", "0.25", ""}},
        Case{"2026-10-06",
             "2026-10-07",
             {"Balance Brought Forward  ", "0.00", "Debit"},
             {"0.25"},
             {"0.00", "0.25", "0.25", "Credit"}},
        Case{"2026-10-01", "2026-10-01", {"", "", ""}, {"100.00"}, {"100.00", "0.00", "100.00", "Debit"}},
        Case{"2026-10-07",
             "2026-10-01",
             {"Balance Brought Forward  ", "0.00", "Debit"},
             {},
             {"0.00", "0.00", "0.00", ""}}}) {
    SCOPED_TRACE(std::string(c.from) + " to " + c.to);
    setPeriod(c.from, c.to);
    view(customer);
    EXPECT_EQ(broughtForward(), c.before);
    EXPECT_EQ(column("LedgerGrid", "Balance"), c.balances);
    EXPECT_EQ(figures(), c.figures);
  }
  control<QCheckBox>("DateOpt").setChecked(false);
  click("ViewBttn");
  EXPECT_THAT(broughtForward(), ElementsAre("", "", ""));
}

TEST_F(AccLedgers, AnAccountMustBeChosen) {
  open(makeAccLedgers);
  const auto refuse = [&](const char* code, const char* button, const char* text) {
    write("ACodeTxt", code);
    prompts.expect("Select Account", text);
    click(button);
    EXPECT_TRUE(control<QWidget>("ACodeTxt").hasFocus());
  };
  refuse("", "ViewBttn", "Select a valid account to view ledger.");
  refuse("12001999", "ExcelBttn", "Select a valid account to view ledger.");
  refuse("' OR 1=1 --", "PrintBttn", "Select a valid account to print ledger.");
  test::focus(control<QLineEdit>("ACodeTxt"));
  test::type(control<QLineEdit>("ACodeTxt"), "O'B");
  EXPECT_TRUE(control<QWidget>("AccCodeList").isVisible());
  control<QWidget>("ViewBttn").setFocus();
  EXPECT_EQ(read("ACodeTxt"), "") << "a text that is no account's code stays behind";
  view(12001003);
  EXPECT_THAT(column("LedgerGrid", "Date"), IsEmpty());
  EXPECT_THAT(figures(), ElementsAre("0.00", "0.00", "0.00", ""));
}

TEST_F(AccLedgers, IsUsedWithTheKeyboardAlone) {
  trade();
  open(makeAccLedgers);
  test::focus(control<QLineEdit>("ACodeTxt"));
  test::type(control<QLineEdit>("ACodeTxt"), "12001002");
  test::press(control<QLineEdit>("ACodeTxt"), Qt::Key_Return);
  control<QCheckBox>("DateOpt").setChecked(true);
  control<forms::DatePicker>("LedgerDt_0").setDay(text::DateTime::fromCalendar(2026, 10, 5));
  test::press(control<QWidget>("LedgerDt_1"), Qt::Key_Return);
  EXPECT_EQ(column("LedgerGrid", "Date").size(), 3U);
  auto& grid = control<QTableView>("LedgerGrid");
  test::focus(grid);
  grid.selectRow(0);
  test::press(grid, Qt::Key_Return);
  EXPECT_EQ(context->OpenTranNo, sale_);
  Q_EMIT dynamic_cast<frame::ReportScreen&>(*dialog).closeRequested();
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(AccLedgers, AnotherScreenOpensItOnAnAccount) {
  trade();
  context->OpenLedgerFlag = true;
  context->OpenLedgerAccCode = customer;
  open(makeAccLedgers);
  EXPECT_FALSE(context->OpenLedgerFlag);
  EXPECT_EQ(read("Acc"), "O'Brien & Sons");
  EXPECT_EQ(column("LedgerGrid", "Date").size(), 4U);
  setPeriod("2026-10-05", "2026-10-05");
  click("ViewBttn");
  context->OpenLedgerFlag = true;
  context->OpenLedgerAccCode = 40001009;
  dynamic_cast<session::Reopened&>(*dialog).reopen();
  EXPECT_FALSE(control<QCheckBox>("DateOpt").isChecked());
  EXPECT_EQ(read("Acc"), "Shop Sales");
  EXPECT_THAT(broughtForward(), ElementsAre("", "", ""));
  EXPECT_THAT(column("LedgerGrid", "Balance"), ElementsAre("250.50"));
}

TEST_F(AccLedgers, PrintsTheSameFigures) {
  trade();
  context->CompanyName = "Harbour Timber";
  context->ccode = "USD";
  open(makeAccLedgers);
  write("ACodeTxt", "12001002");
  click("PrintBttn");
  const Texts whole = printed();
  for (const char* words : {"Harbour Timber", "O'Brien & Sons", "12001002", "Debit USD", "Balance USD", "350.75",
                            "Ledger For The Period Ended On  November 22, 2026", "Totals  USD", "05-10-26", "0.25"})
    EXPECT_THAT(whole, Contains(words));
  EXPECT_THAT(whole, testing::Not(Contains(testing::StartsWith("Balance Brought"))));
  EXPECT_EQ(std::ranges::count(whole, "350.50"), 3) << "a credit, a balance and a sum";
  setPeriod("2026-10-05", "2026-10-05");
  click("PrintBttn");
  const Texts ofDay = printed();
  EXPECT_THAT(ofDay, Contains("Ledger For The Period From  October 05, 2026  To  October 05, 2026"));
  const auto forward = std::ranges::find(ofDay, "Balance Brought Forward  ");
  ASSERT_GE(ofDay.end() - forward, 3) << "no balance brought forward";
  EXPECT_THAT(Texts(forward + 1, forward + 3), ElementsAre("100.00", "Debit"));
}

TEST_F(AccLedgers, SavesTheLedgerAsItIsLaidOut) {
  trade();
  open(makeAccLedgers);
  files.name = (company.folder() / "ledger.xlsx").string();
  setPeriod("2026-10-05", "2026-10-31");
  write("ACodeTxt", "12001002");
  prompts.expect("Spreadsheet Saved", "3 rows were saved in \"" + files.name + "\".");
  click("ExcelBttn");
  EXPECT_EQ(files.proposedName, "Ledger O'Brien & Sons.xlsx");
  EXPECT_FALSE(control<QWidget>("WaitPic").isVisible());
  const auto sheet = spreadsheet::readSheet(files.name);
  ASSERT_TRUE(sheet) << sheet.error();
  const auto row = [&](std::size_t number) {
    Texts cells;
    for (std::size_t column = 0; column < 8; ++column) cells.push_back(textOf(sheet->at(number - 1, column)));
    return cells;
  };
  EXPECT_EQ(row(1)[0], "O'Brien & Sons");
  EXPECT_EQ(row(2)[0], "Ledger For The Period From October 05, 2026 To October 31, 2026");
  EXPECT_THAT(row(4),
              ElementsAre("Date", "Tran No", "Reference No.", "Description", "Debit", "Credit", "Balance", "Status"));
  EXPECT_THAT(row(5), ElementsAre("", "", "", "Balance Brought Forward  ", "", "", "100", "Debit"));
  EXPECT_EQ(row(6),
            (Texts{"2026-10-05", "SI " + std::to_string(sale_), "REF 7", "=1+1", "250.5", "0", "350.5", "Debit"}));
  EXPECT_THAT(row(9), ElementsAre("", "", "", "", "250.5", "350.75", "0.25", "Credit"));
  EXPECT_EQ(sheet->rows.size(), 9U);
  EXPECT_TRUE(std::holds_alternative<text::DateTime>(sheet->at(5, 0)));
  EXPECT_TRUE(std::holds_alternative<std::string>(sheet->at(5, 3))) << "a text was taken for a formula";
  EXPECT_TRUE(std::holds_alternative<double>(sheet->at(4, 6)));
}

TEST_F(AccLedgers, SavesSeparatedValues) {
  trade();
  open(makeAccLedgers);
  files.name = (company.folder() / "ledger.csv").string();
  write("ACodeTxt", "12001002");
  prompts.expect("Spreadsheet Saved", "4 rows were saved in \"" + files.name + "\".");
  click("ExcelBttn");
  std::ifstream file(files.name);
  const std::string text((std::istreambuf_iterator<char>(file)), {});
  EXPECT_THAT(text, testing::StartsWith(
                        "\xEF\xBB\xBFO'Brien & Sons\r\n\"Ledger For The Period Ended On November 22, 2026\"\r\n"));
  EXPECT_THAT(text, testing::HasSubstr("REF 7,'=1+1,250.5,0,350.5,Debit\r\n"));
}

TEST_F(AccLedgers, ASheetThatCannotBeWrittenLeavesTheOldOne) {
  trade();
  addAccount(12001004, "A/C \"O'Neill\" =1+1");
  post({.day = "10-05-2026", .lines = {{12001004, 1, 0}}});
  context->AccountsRS.requery();
  open(makeAccLedgers);
  write("ACodeTxt", "12001004");
  const std::filesystem::path folder = company.folder();
  const auto contents = [](const std::filesystem::path& place) {
    std::ifstream file(place);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  constexpr const char* full =
      " could not be written completely, because the disk is full or a file may not grow so large. Nothing was saved.";
  for (const auto& [name, words] : {std::pair("old.xlsx", "The spreadsheet"), std::pair("old.csv", "The file")}) {
    files.name = (folder / name).string();
    std::ofstream(files.name) << "old";
    prompts.expect("Spreadsheet Not Saved", std::string(words) + full);
    {
      const test::SmallDisk disk(64);
      click("ExcelBttn");
    }
    EXPECT_EQ(contents(files.name), "old") << name;
  }
  EXPECT_EQ(files.proposedName, "Ledger A-C -O'Neill- =1+1.xlsx");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 3) << "a piece of a sheet was left";
  std::filesystem::create_directory(folder / "taken.csv");
  const std::string missing = "There is no folder \"" + (folder / "missing").string() + "\".";
  const std::string taken = "\"" + (folder / "taken.csv").string() + "\" is a folder. Give another name.";
  for (const auto& [name, words] :
       {std::pair("missing/a.xlsx", missing), {"missing/a.csv", missing}, {"taken.csv", taken}}) {
    files.name = (folder / name).string();
    prompts.expect("Spreadsheet Not Saved", words);
    click("ExcelBttn");
  }
  prompts.expect("Spreadsheet Saved", "1 row was saved in \"" + (folder / "old.csv").string() + "\".");
  files.name = (folder / "old.csv").string();
  click("ExcelBttn");
  EXPECT_THAT(contents(files.name), testing::StartsWith("\xEF\xBB\xBF\"A/C \"\"O'Neill\"\" =1+1\"\r\n"));
}

}  // namespace
}  // namespace velmo::reports
