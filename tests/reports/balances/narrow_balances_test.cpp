#include "reports/balances/narrow_balances.h"

#include <gmock/gmock.h>

#include "reports/balances_desk.h"
#include "spreadsheet/sheet_reader.h"

namespace velmo::reports {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Texts = std::vector<std::string>;

class NarrowBalances : public test::BalancesDesk {
 protected:
  // Three customers who differ in all that one can ask for.
  NarrowBalances() {
    const auto run = [&](const std::string& statement) { context->KORDconn.execute(statement); };
    run("INSERT INTO AccLevel2 (Level2ID, L2AccName, TypeID) VALUES (12002, 'Export Customers', 120)");
    run("INSERT INTO AccLevel2 (Level2ID, L2AccName, TypeID) VALUES (21002, 'Foreign Vendors', 210)");
    run("INSERT INTO Regions1 (Region1ID, Region1Name) VALUES (7, 'North')");
    run("INSERT INTO Regions2 (Region2ID, Region2Name, Region1ID) VALUES (71, 'Hills', 7)");
    run("INSERT INTO BizSectors (SectorID, SectorName) VALUES (5, 'Builders')");
    run("INSERT INTO Employees (EmpID, EmpName, Department, Status) VALUES (5, 'Salma', 'O''Hara''s', No)");
    addAccount(12002001, "Far Trading");
    addAccount(21002001, "Far Mills");
    run("UPDATE AccLevel3 SET EmpID=1, SectorID=1, Region1ID=1, Region2ID=1 WHERE Level1ID=120");
    run("UPDATE AccLevel3 SET EmpID=5, Region1ID=7, Region2ID=71 WHERE AccCode=12002001");
    run("UPDATE AccLevel3 SET SectorID=5 WHERE AccCode=12001003");
    post({.day = "10-20-2026", .tranType = 32, .lines = {{12001003, 20, 0}, {40001009, 0, 20}}});
    post({.day = "10-21-2026", .tranType = 32, .lines = {{12002001, 3000, 0}, {40001009, 0, 3000}}});
    post({.day = "10-22-2026", .tranType = 22, .lines = {{50001002, 50, 0}, {21002001, 0, 50}}});
  }
  Texts codes() {
    click("ViewBttn");
    return column("DetailGrid", "Acc Code");
  }
  std::string closingStockDay() {
    return rows("select TranDate from Transactions where TranType=51").date("TranDate").iso();
  }
};

TEST_F(NarrowBalances, CustomersHaveSixColumnsWithoutTouchingTheStock) {
  const std::string day = closingStockDay();
  open(makeCustomerBalances);
  EXPECT_EQ(dialog->windowTitle(), "Customers' Balances");
  EXPECT_FALSE(context->Costs.areArmed());
  EXPECT_EQ(control<forms::DatePicker>("BalDt_0").day(), context->FinancialYearStart);
  setPeriod("2026-10-15", "2026-11-22");
  EXPECT_THAT(view(), ElementsAre("12001002|O'Brien & Sons|1000.00|Debit|0.00|300.00|700.00|Debit",
                                  "12001003|Quiet Customer|0.00|Debit|20.00|0.00|20.00|Debit",
                                  "12002001|Far Trading|0.00|Debit|3000.00|0.00|3000.00|Debit"))
      << "what 0.1 + 0.2 - 0.3 leaves is neither a balance nor a side";
  EXPECT_EQ(read("OpenBalance"), "1000.00  Debit ");
  EXPECT_EQ(read("TotalDr"), "3020.00");
  EXPECT_EQ(read("TotalCr"), "300.00");
  EXPECT_EQ(read("CloseBalance"), "3720.00  Debit ");
  click("PrintBttn");
  const Texts printedTexts = printed();
  for (const char* words : {"Customers' Balances", "Customer Name", "Far Trading",
                            "From  October 15, 2026  To  November 22, 2026", "3,720.00"})
    EXPECT_THAT(printedTexts, Contains(words));
  EXPECT_EQ(closingStockDay(), day);
  doubleClick("DetailGrid", 2);
  EXPECT_EQ(context->OpenLedgerAccCode, 12002001);
}

TEST_F(NarrowBalances, TickedBoxesNarrowTheCustomersTogether) {
  open(makeCustomerBalances);
  struct Case {
    const char* box;
    const char* list;
    store::Value entry;
    Texts customers;
  };
  const Texts all{"12001002", "12001003", "12002001"};
  for (const Case& c : {Case{"SelectionOpt_0", "SubList", 12002, {"12002001"}},
                        {"SelectionOpt_1", "EmployeeList", 1, {"12001002", "12001003"}},
                        {"SelectionOpt_4", "SectorList", 5, {"12001003"}},
                        {"SelectionOpt_5", "EmpDeptt", std::string("O'Hara's"), {"12002001"}},
                        {"SelectionOpt_6", "RegionList1", 7, {"12002001"}}}) {
    SCOPED_TRACE(c.box);
    EXPECT_FALSE(control<QWidget>(c.list).isEnabled());
    choose(c.box);
    EXPECT_TRUE(control<QWidget>(c.list).isEnabled());
    chooseEntry(c.list, c.entry);
    EXPECT_EQ(codes(), c.customers);
    choose(c.box, false);
    EXPECT_FALSE(control<QWidget>(c.list).isEnabled());
    EXPECT_EQ(codes(), all);
  }
  choose("SelectionOpt_6");
  chooseEntry("RegionList1", 7);
  choose("SelectionOpt_7");
  chooseEntry("RegionList2", 71);
  EXPECT_THAT(codes(), ElementsAre("12002001"));
  choose("SelectionOpt_4");
  chooseEntry("SectorList", 5);
  EXPECT_THAT(codes(), IsEmpty()) << "all at once fit nobody";
  EXPECT_EQ(read("CloseBalance"), "0.00  Debit ");
}

TEST_F(NarrowBalances, ATickedBoxWantsAChoiceFromItsList) {
  open(makeCustomerBalances);
  const auto refuse = [&](const char* title, const char* text, const char* focus) {
    for (const char* button : {"ViewBttn", "PrintBttn", "ExcelBttn"}) {
      prompts.expect(title, text);
      click(button);
      EXPECT_TRUE(control<QWidget>(focus).hasFocus()) << text;
    }
  };
  // From the last to the first: the first that is wrong is told.
  choose("SelectionOpt_7");
  refuse("Invalid Region", "Select a valid region to view report", "RegionList2");
  choose("SelectionOpt_6");
  refuse("Invalid Region", "Select a valid region to view report", "RegionList1");
  choose("SelectionOpt_5");
  control<QComboBox>("EmpDeptt").setEditText("%");
  refuse("Invalid Department", "Select a valid department to view report", "EmpDeptt");
  choose("SelectionOpt_4");
  refuse("Invalid Sector", "Select a valid sector to view report", "SectorList");
  choose("SelectionOpt_1");
  refuse("Invalid Employee", "Select a valid employee to print report", "EmployeeList");
  choose("SelectionOpt_0");
  control<QComboBox>("SubList").setEditText("No such type");
  refuse("Invalid Customer Type", "Select a valid customer type to view report", "SubList");
}

TEST_F(NarrowBalances, VendorsMayBeOfOneType) {
  open(makeVendorBalances);
  EXPECT_EQ(dialog->windowTitle(), "Vendors' Balances");
  setPeriod("2026-10-22", "2026-11-22");
  EXPECT_THAT(view(), ElementsAre("21001002|Mills|0.00|Debit|0.00|640.10|640.10|Credit",
                                  "21002001|Far Mills|0.00|Debit|0.00|50.00|50.00|Credit"));
  EXPECT_EQ(read("CloseBalance"), "690.10 Credit ");
  choose("SelectionOpt_0");
  prompts.expect("Invalid Vendor Type", "Select a valid vendor type to view report");
  click("ViewBttn");
  chooseEntry("SubList", 21002);
  EXPECT_THAT(codes(), ElementsAre("21002001"));
  click("PrintBttn");
  const Texts texts = printed();
  for (const char* words : {"Vendors' Balances", "Vendor Name", "50.00", "Credit"}) EXPECT_THAT(texts, Contains(words));
  EXPECT_THAT(texts, Not(Contains("Mills")));
}

TEST_F(NarrowBalances, CashAndBanksStandTogether) {
  open(makeCashBalances);
  EXPECT_EQ(dialog->windowTitle(), "Cash & Bank Balances");
  setPeriod("2026-10-15", "2026-12-31");
  EXPECT_THAT(view(), ElementsAre("10001001|Cash in Hand|500.25|Debit|0.00|0.00|500.25|Debit",
                                  "11001001|City Bank|0.30|Debit|300.00|640.10|339.80|Credit"));
  EXPECT_EQ(read("OpenBalance"), "500.55  Debit ");
  EXPECT_EQ(read("CloseBalance"), "160.45  Debit ");
  files.name = (company.folder() / "cash.xlsx").string();
  prompts.expect("Spreadsheet Saved", "2 rows were saved in \"" + files.name + "\".");
  click("ExcelBttn");
  const auto sheet = spreadsheet::readSheet(files.name);
  ASSERT_TRUE(sheet) << sheet.error();
  EXPECT_EQ(textOf(sheet->at(0, 0)), "Cash & Banks Balances");
  EXPECT_EQ(textOf(sheet->at(6, 6)) + textOf(sheet->at(6, 7)), "160.45Debit");
  click("PrintBttn");
  EXPECT_THAT(printed(), Contains("Cash & Banks Balances"));
}

}  // namespace
}  // namespace velmo::reports
