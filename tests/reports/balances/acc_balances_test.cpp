#include "reports/balances/acc_balances.h"

#include <gmock/gmock.h>

#include "reports/balances_desk.h"
#include "reports/ledgers/acc_ledgers.h"
#include "support/plain_rows.h"
#include "support/small_disk.h"
#include "text/number.h"

namespace velmo::reports {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Texts = std::vector<std::string>;

class AccBalances : public test::BalancesDesk {
 protected:
  Texts sixTotals() { return {read("OpenBalance"), read("TotalDr"), read("TotalCr"), read("CloseBalance")}; }
  Texts twoTotals() { return {read("TDr"), read("TCr")}; }
  Texts codes() {
    Texts codes = column("DetailGrid", "Acc Code");
    EXPECT_EQ(codes, column("DetailGrid2", "Acc Code"));
    return codes;
  }
  // "date debit of the inventory credit of the cost of sales"
  std::string closingStock() {
    const std::string of =
        "select TranDate, Debit, Credit from Transactions inner join SubTransactions on Transactions.TranNo = "
        "SubTransactions.TranNo where TranType=51 and AccCode=";
    const store::Recordset stock = rows(of + "13001001");
    return stock.date("TranDate").iso() + " " + stock.text("Debit") + " " + rows(of + "50001006").text("Credit");
  }
  // Ten pieces for 25.00 in October, and three of them gone in November.
  void stockUp() {
    const auto run = [&](const std::string& statement) { context->KORDconn.execute(statement); };
    run("INSERT INTO StockLevel1 (CatID, CatName) VALUES ('GDS', 'Goods')");
    run("INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('GDS01', 'Goods', 'GDS')");
    run("INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID, Status, ValuationType, ValuationCost2) VALUES "
        "('A', 'Beam', 'GDS', 'GDS01', No, Yes, 99)");
    const auto move = [&](const char* day, int tranType, const std::string& columns, const std::string& values) {
      const std::string tranNo = std::to_string(post({.day = day, .tranType = tranType, .lines = {}}));
      run("INSERT INTO StockFlow (TranNo, ItemCode, " + columns + ") VALUES (" + tranNo + ", 'A', " + values + ")");
    };
    move("10-05-2026", 22, "StockIn, ItemValue", "10, 25");
    move("11-05-2026", 32, "StockOut", "3");
  }
};

TEST_F(AccBalances, ShowsOpeningMovementAndClosingInSixColumnsOrTwo) {
  open(makeAccBalances);
  EXPECT_EQ(dialog->windowTitle(), "Trial Balance");
  EXPECT_EQ(control<forms::DatePicker>("BalDt_0").day(), context->FinancialYearStart);
  EXPECT_EQ(control<forms::DatePicker>("BalDt_1").day(), clock.today());
  EXPECT_TRUE(control<QWidget>("DetailGrid").isVisible() && control<QWidget>("LedgerTotals").isVisible());
  EXPECT_FALSE(control<QWidget>("DetailGrid2").isVisible() || control<QWidget>("LedgerTotals2").isVisible());
  setPeriod("2026-10-01", "2026-11-22");
  EXPECT_THAT(view(), ElementsAre("10001001|Cash in Hand|500.25|Debit|0.00|0.00|500.25|Debit",
                                  "11001001|City Bank|0.00|Debit|300.30|0.00|300.30|Debit",
                                  "12001002|O'Brien & Sons|0.00|Debit|1000.00|300.00|700.00|Debit",
                                  "21001002|Mills|0.00|Debit|0.00|640.10|640.10|Credit",
                                  "31001001|Owner's Capital|500.25|Credit|0.00|0.00|500.25|Credit",
                                  "40001009|Shop Sales|0.00|Debit|0.00|1000.30|1000.30|Credit",
                                  "50001002|Purchases|0.00|Debit|640.10|0.00|640.10|Debit"));
  EXPECT_THAT(sixTotals(), ElementsAre("0.00  Debit ", "1940.40", "1940.40", "0.00  Debit "));
  EXPECT_EQ(caption("TtlLbl"), "Totals Rs.");
  choose("TrialOpt_1");
  EXPECT_FALSE(control<QWidget>("DetailGrid").isVisible() || control<QWidget>("LedgerTotals").isVisible());
  EXPECT_TRUE(control<QWidget>("DetailGrid2").isVisible() && control<QWidget>("LedgerTotals2").isVisible());
  EXPECT_THAT(lines("DetailGrid2"), ElementsAre("10001001|Cash in Hand|500.25|", "11001001|City Bank|300.30|",
                                                "12001002|O'Brien & Sons|700.00|", "21001002|Mills||640.10",
                                                "31001001|Owner's Capital||500.25", "40001009|Shop Sales||1000.30",
                                                "50001002|Purchases|640.10|"));
  EXPECT_THAT(twoTotals(), ElementsAre("2140.65", "2140.65"));
  EXPECT_EQ(caption("MessageLbl"), "7 rows");
}

// Summed up again from the bare lines, account by account: opening, debits and credits of all, and of those that closed
// at zero.
TEST_F(AccBalances, TheSettledAccountsBelowTheTotalsMakeTheColumnsAgree) {
  open(makeAccBalances);
  const auto visible = [&] { return control<QWidget>("LedgerSettled").isVisible(); };
  EXPECT_FALSE(visible()) << "nothing was shown yet";
  const auto cents = [](const std::string& text) {
    const double amount = text::amountFrom(text.substr(0, text.find_last_of("0123456789") + 1));
    return std::llround(amount * 100) * (text.ends_with("Credit ") ? -1 : 1);
  };
  for (const auto& [from, to] : {std::pair("2026-10-01", "2026-11-22"), std::pair("2026-12-01", "2026-12-31"),
                                 std::pair("2026-11-22", "2026-12-01"), std::pair("2026-01-01", "2026-12-31")}) {
    SCOPED_TRACE(std::string(from) + " to " + to);
    setPeriod(from, to);
    view();
    test::PlainFile file(company.file());
    test::PlainRows lines(
        file, std::string("select sum(case when date(TranDate) < '") + from +
                  "' then ifnull(Debit, 0) - ifnull(Credit, 0) else 0 end), sum(case when date(TranDate) >= '" + from +
                  "' then ifnull(Debit, 0) else 0 end), sum(case when date(TranDate) >= '" + from +
                  "' then ifnull(Credit, 0) else 0 end) from Transactions join SubTransactions using (TranNo) where "
                  "FYID = 1 and Cancel = 0 and date(TranDate) <= '" +
                  to + "' group by AccCode");
    std::array<long long, 3> all = {};
    std::array<long long, 3> settled = {};
    while (lines.next()) {
      const std::array<long long, 3> account = {lines.cents(0), lines.cents(1), lines.cents(2)};
      for (std::size_t i = 0; i < 3; ++i) {
        all[i] += account[i];
        if (account[0] + account[1] - account[2] == 0) settled[i] += account[i];
      }
    }
    EXPECT_TRUE(visible());
    EXPECT_EQ(cents(read("SettledOpen")), settled[0]);
    EXPECT_EQ(cents(read("SettledDr")), settled[1]);
    EXPECT_EQ(cents(read("SettledCr")), settled[2]);
    EXPECT_EQ(cents(read("OpenBalance")) + cents(read("SettledOpen")), 0);
    EXPECT_EQ(cents(read("TotalDr")) + cents(read("SettledDr")), all[1]);
    EXPECT_EQ(cents(read("TotalDr")) + cents(read("SettledDr")), cents(read("TotalCr")) + cents(read("SettledCr")));
  }
  choose("TrialOpt_1");
  EXPECT_FALSE(visible());
  choose("TrialOpt_0");
  EXPECT_TRUE(visible());
  choose("SelectOpt");
  chooseEntry("Acc", 110);
  view();
  EXPECT_FALSE(visible()) << "of a selection the columns need not agree";
  choose("AllOpt");
  view();
  EXPECT_TRUE(visible());
}

TEST_F(AccBalances, ThePeriodLiesWithinTheYear) {
  open(makeAccBalances);
  setPeriod("2020-01-01", "2026-10-01");
  EXPECT_THAT(view(), ElementsAre("10001001|Cash in Hand|0.00|Debit|500.25|0.00|500.25|Debit",
                                  "12001002|O'Brien & Sons|0.00|Debit|1000.00|0.00|1000.00|Debit",
                                  "31001001|Owner's Capital|0.00|Debit|0.00|500.25|500.25|Credit",
                                  "40001009|Shop Sales|0.00|Debit|0.00|1000.00|1000.00|Credit"))
      << "nothing before the year is an opening balance";
  setPeriod("2026-12-01", "2026-12-31");
  EXPECT_THAT(view(), Not(Contains(StartsWith("21001002"))));
  EXPECT_THAT(codes(), Not(Contains("12001003"))) << "what 0.1 + 0.2 - 0.3 leaves is no balance";
  EXPECT_THAT(column("DetailGrid", "Closing Balance"), Contains("339.80"));
  setPeriod("2026-10-01", "2025-12-31");
  EXPECT_THAT(view(), IsEmpty());
  EXPECT_THAT(sixTotals(), ElementsAre("0.00  Debit ", "0.00", "0.00", "0.00  Debit "));
  EXPECT_THAT(twoTotals(), ElementsAre("0.00", "0.00"));
  EXPECT_EQ(caption("MessageLbl"), "0 rows");
}

TEST_F(AccBalances, TakesTheAccountsOfTheSelection) {
  open(makeAccBalances);
  setPeriod("2026-10-01", "2026-11-22");
  choose("SelectOpt");
  chooseEntry("Acc", 110);
  view();
  EXPECT_THAT(codes(), ElementsAre("11001001"));
  EXPECT_THAT(sixTotals(), ElementsAre("0.00  Debit ", "300.30", "0.00", "300.30  Debit "));
  choose("SubTypeOpt");
  chooseEntry("Acc", 210);
  chooseEntry("SubList", 21001);
  view();
  EXPECT_THAT(codes(), ElementsAre("21001002"));
  EXPECT_THAT(sixTotals(), ElementsAre("0.00  Debit ", "0.00", "640.10", "640.10 Credit "));
  range("12001002", "31001001");
  view();
  EXPECT_THAT(codes(), ElementsAre("12001002", "21001002", "31001001"));
  EXPECT_EQ(read("OpenBalance"), "500.25 Credit ");
  range("31001001", "12001002");
  view();
  EXPECT_THAT(codes(), IsEmpty());
  choose("AllOpt");
  view();
  EXPECT_EQ(codes().size(), 7U);
}

TEST_F(AccBalances, EachSelectionHasItsOwnInputs) {
  open(makeAccBalances);
  const auto enabled = [&] {
    Texts names;
    for (const char* name : {"Acc", "SubTypeOpt", "SubList", "CodeFrom", "CodeTo"})
      if (control<QWidget>(name).isEnabled()) names.emplace_back(name);
    return names;
  };
  EXPECT_THAT(enabled(), IsEmpty());
  choose("SelectOpt");
  EXPECT_THAT(enabled(), ElementsAre("Acc", "SubTypeOpt"));
  choose("SubTypeOpt");
  chooseEntry("Acc", 120);
  chooseEntry("SubList", 12001);
  range("12001002", "12001003");
  EXPECT_THAT(enabled(), ElementsAre("CodeFrom", "CodeTo"));
  EXPECT_EQ(control<QComboBox>("Acc").currentText() + control<QComboBox>("SubList").currentText(), "");
  choose("AllOpt");
  EXPECT_EQ(read("CodeFrom") + read("AccFrom") + read("CodeTo") + read("AccTo"), "");
}

TEST_F(AccBalances, SaysWhatIsMissingAndLeavesTheBooksAlone) {
  const std::string before = closingStock();
  open(makeAccBalances);
  const auto refuse = [&](const char* title, const std::string& text, const char* focus) {
    for (const auto& [button, verb] : {std::pair("ViewBttn", "view"), {"PrintBttn", "print"}, {"ExcelBttn", "view"}}) {
      std::string said = text;
      if (const auto at = said.find('%'); at != std::string::npos) said.replace(at, 1, verb);
      prompts.expect(title, said);
      click(button);
      EXPECT_TRUE(control<QWidget>(focus).hasFocus()) << said;
      EXPECT_TRUE(control<QWidget>(button).isEnabled());
    }
  };
  choose("SelectOpt");
  refuse("Select Main Account Type", "Select main account type to % balances.", "Acc");
  control<QComboBox>("Acc").setEditText("No such type");
  refuse("Select Main Account Type", "Select main account type to % balances.", "Acc");
  choose("SubTypeOpt");
  refuse("Select Sub Account Type", "Select sub account type to % balances.", "SubList");
  chooseEntry("Acc", 120);
  refuse("Select Sub Account Type", "Select sub account type to % balances.", "SubList");
  range("' or 1=1", "");
  refuse("Select Account Code", "Select account code to start from.", "CodeFrom");
  range("12001002", "12001999");
  refuse("Select Account Code", "Select account code to end at.", "CodeTo");
  EXPECT_EQ(closingStock(), before);
}

TEST_F(AccBalances, EveryShowingRewritesTheClosingStock) {
  stockUp();
  open(makeAccBalances);
  EXPECT_TRUE(context->Costs.areArmed());
  setPeriod("2026-01-01", "2026-10-31");
  EXPECT_THAT(view(), Contains("13001001|Closing Inventory|0.00|Debit|25.00|0.00|25.00|Debit"));
  EXPECT_EQ(closingStock(), "2026-10-31 25 25") << "at the weighted cost, not at that of before";
  setPeriod("2026-01-01", "2026-11-22");
  click("PrintBttn");
  EXPECT_THAT(printed(), Contains("17.50"));
  EXPECT_EQ(closingStock(), "2026-11-22 17.5 17.5");
  files.name = (company.folder() / "trial.xlsx").string();
  setPeriod("2026-01-01", "2026-10-04");
  prompts.expect("Spreadsheet Saved", "5 rows were saved in \"" + files.name + "\".");
  click("ExcelBttn");
  EXPECT_EQ(closingStock(), "2026-10-04 0 0");
  setPeriod("2026-01-01", "2026-12-31");
  view();
  open(makeAccLedgers);
  write("ACodeTxt", "13001001");
  click("ViewBttn");
  EXPECT_THAT(lines("LedgerGrid"), ElementsAre(StartsWith("31-12-2026|")));
  EXPECT_THAT(column("LedgerGrid", "Debit"), ElementsAre("17.50"));
}

TEST_F(AccBalances, ADoubleClickOpensTheLedger) {
  open(makeAccBalances);
  setPeriod("2026-10-01", "2026-11-22");
  view();
  doubleClick("DetailGrid", 2);
  EXPECT_EQ(screens.opened, "AccLedgers");
  EXPECT_TRUE(context->OpenLedgerFlag);
  EXPECT_EQ(context->OpenLedgerAccCode, 12001002);
  context->OpenLedgerFlag = false;
  choose("TrialOpt_1");
  context->UserID = 3;
  doubleClick("DetailGrid2", 3);
  EXPECT_EQ(context->OpenLedgerAccCode, 21001002);
  context->OpenLedgerFlag = false;
  context->KORDconn.execute("UPDATE UserRights SET operator2 = Yes WHERE RightID = 240");
  prompts.expect("Not Allowed", "You do not have access to " +
                                    rows("select RightType from userrights where rightid=240").text("RightType"));
  doubleClick("DetailGrid2", 0);
  EXPECT_EQ(screens.opened, "");
  EXPECT_FALSE(context->OpenLedgerFlag);
}

TEST_F(AccBalances, IsUsedWithTheKeyboardAlone) {
  open(makeAccBalances);
  test::focus(control<QWidget>("ViewBttn"));
  test::press(control<QWidget>("ViewBttn"), Qt::Key_Space);
  EXPECT_TRUE(control<QWidget>("ViewBttn").hasFocus()) << "the button was disabled meanwhile";
  EXPECT_EQ(column("DetailGrid", "Acc Code").size(), 7U);
  control<forms::DatePicker>("BalDt_1").setDay(text::DateTime::fromCalendar(2026, 10, 1));
  test::press(control<QWidget>("BalDt_1"), Qt::Key_Return);
  EXPECT_EQ(column("DetailGrid", "Acc Code").size(), 4U);
  auto& grid = control<QTableView>("DetailGrid");
  test::focus(grid);
  test::press(grid, Qt::Key_Return);
  EXPECT_EQ(context->OpenLedgerAccCode, 10001001);
}

TEST_F(AccBalances, AFullDiskIsToldAndLeavesTheScreenReady) {
  stockUp();
  open(makeAccBalances);
  const std::string before = closingStock();
  prompts.expect("Cannot Show",
                 "The disk that holds \"Uninstall/Uninstall.MDB\" reported an error (disk I/O error). "
                 "Nothing was saved.");
  {
    const test::SmallDisk disk(4096);
    click("ViewBttn");
  }
  EXPECT_EQ(closingStock(), before);
  EXPECT_TRUE(control<QWidget>("ViewBttn").isEnabled());
  EXPECT_THAT(view(), Contains(StartsWith("13001001")));
}

}  // namespace
}  // namespace velmo::reports
