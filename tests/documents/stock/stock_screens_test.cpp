#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>

#include "documents/stock/stock_company.h"
#include "forms/date_picker.h"
#include "printing/preview_window.h"

namespace {

using namespace velmo;
using namespace velmo::test;
using frame::GridColumn;
using Rows = std::vector<std::string>;

struct Adjustment {
  int tranType;
  InvoiceScreen::Make make;
  const char* quantity;
  const char* findScreen;
  Rows ledger;  // account, name, debit and credit of 1000
};

const Adjustment adjustments[] = {
    {45,
     documents::makeAddInventory,
     "StockIn",
     "FindAddAdjustments",
     {"50001002|Purchases|1000|", "50001005|Cost of Inventory Adjusted||1000"}},
    {47,
     documents::makeReduceInventory,
     "StockOut",
     "FindReduceAdjustments",
     {"50001005|Cost of Inventory Adjusted|1000|", "50001002|Purchases||1000"}},
};

class AdjustmentScreens : public testing::TestWithParam<Adjustment> {
 protected:
  StockCompany office;
  InvoiceScreen screen{office, noVoucher, GetParam().make};
};

TEST_P(AdjustmentScreens, PostTheWholeAmountWhileADiscountLowersTheValue) {
  screen.line(0, "H1", "10");
  EXPECT_EQ(screen.find<QTableView>("Grid").model()->index(0, static_cast<int>(GridColumn::Rate)).data().toString(),
            "100.00")
      << "its cost";
  screen.typeCell(0, GridColumn::DiscountRate, "10");
  EXPECT_EQ(screen.text("TInc"), "1000.00");
  choose(screen, "JobList", 2);
  screen.find<QPlainTextEdit>("Desc").setPlainText("Found");
  screen.press("SaveBttn");
  const std::string tranNo = office.tranNo(GetParam().tranType);
  const std::string ofIt = " where tranno=" + tranNo;
  EXPECT_EQ(office.one("select TrAmount, WordsAmt, Nature, PartyCode, Text1, EmpID, JobIDFrom, JobIDTo, LocationFrom, "
                       "LocationTo, InvLedger, [Desc] from transactions" +
                       ofIt),
            "1000|one thousand and 00/100 only.||0||0|2|2|1|1|False|Found");
  EXPECT_EQ(office.one(std::string("select serial, ") + GetParam().quantity +
                       ", GrossAmt, DiscAmt, ItemValue, Packs, PackPcs, LocationID, JobID from stockflow" + ofIt),
            "1|10|1000|100|900|1|1|1|2");
  EXPECT_EQ(office.rows("select acccode, accname, debit, credit from subtransactions" + ofIt + " order by serial"),
            GetParam().ledger);
  EXPECT_EQ(office.rows("select [desc] from subtransactions" + ofIt), (Rows{"Found", "Found"}));

  screen.show(tranNo);
  screen.typeCell(0, GridColumn::Quantity, "3");
  screen.press("SaveBttn");
  EXPECT_EQ(office.rows("select accname, debit, credit from subtransactions" + ofIt + " order by serial").back(),
            GetParam().ledger.back().substr(9, GetParam().ledger.back().find('|', 9) - 9) + "||300");
}

TEST_P(AdjustmentScreens, TakeNoLinesQuantitiesOfNothingAndBelowAndLeaveABalanceBelowZero) {
  screen.press("SaveBttn");
  const std::string first = " where tranno=" + office.tranNo(GetParam().tranType);
  EXPECT_EQ(office.rows("select iif(isnull(debit), credit, debit) as a from subtransactions" + first),
            (Rows{"0", "0"}));
  screen.line(0, "H1", "0");
  screen.line(1, "H1", "-2.5");
  screen.press("SaveBttn");
  EXPECT_EQ(office.rows(std::string("select ") + GetParam().quantity +
                        " from stockflow where tranno=" + office.tranNo(GetParam().tranType, 2) + " order by serial"),
            (Rows{"0", "-2.5"}));
  screen.line(0, "H1", "10");
  screen.press("SaveBttn");
  EXPECT_EQ(office.balance("locationid=1"), GetParam().tranType == 45 ? "7.5" : "-7.5");
}

TEST_P(AdjustmentScreens, RefuseWhatIsNoItemAndFiguresOutOfBounds) {
  auto& grid = *screen.widget().findChild<frame::ItemGrid*>();
  for (const char* code : {"Service", "X9"}) {
    screen.typeCell(0, GridColumn::ItemCode, code);
    EXPECT_EQ(grid.sheet().plainText(0, GridColumn::ItemCode), "") << code;
    grid.cancelEdit();
  }
  office.prompts.expect("Select Inventory Item",
                        "Select inventory item before entering quantity. If you want to enter a service, then give "
                        "'Service' in Item Code Column.");
  EXPECT_FALSE(grid.sheet().mayEdit(0, GridColumn::Quantity));
  screen.line(0, "H1", "2");
  for (const auto& [typed, accepted] : std::vector<std::pair<const char*, bool>>{{"99999999", true},
                                                                                 {"100000000", false},
                                                                                 {"-99999999", true},
                                                                                 {"1e308", false},
                                                                                 {"-1e308", false},
                                                                                 {"", false},
                                                                                 {"two", false}})
    EXPECT_EQ(grid.sheet().enter(0, GridColumn::Quantity, typed), accepted) << typed;
}

TEST_P(AdjustmentScreens, TestInOrderThePlaceTheJobAndTheEmployee) {
  screen.find<forms::DropCombo>("LocationList").setEditText("Nowhere");
  screen.find<forms::DropCombo>("JobList").setEditText("No job");
  screen.find<forms::DropCombo>("EmpList").setEditText("Nobody");
  office.prompts.expect("Cannot Save", "Select a correct location of inventory.");
  screen.press("SaveBttn");
  choose(screen, "LocationList", 1);
  office.prompts.expect("Cannot Save",
                        "Select a correct job or leave it blank if you do not want to save a job reference.");
  screen.press("SaveBttn");
  choose(screen, "JobList", 0);
  office.prompts.expect(
      "Cannot Save", "Select a correct employee or leave it blank if you do not want to save an employee reference.");
  screen.press("SaveBttn");
}

TEST_P(AdjustmentScreens, AreFoundByTheirRemarksAndPrintWhatIsOnTheScreen) {
  for (const char* remarks : {"Found behind the shelf", "Broken"}) {
    screen.line(0, "H1", "1");
    screen.find<QPlainTextEdit>("Desc").setPlainText(remarks);
    screen.press("SaveBttn");
  }
  screen.withFind(GetParam().findScreen, [&](QDialog& find) {
    auto& columns = *find.findChild<QComboBox*>("ColList");
    EXPECT_EQ(InvoiceScreen::entries(columns), "Serial No.|Date|Remarks|Amount");
    columns.setCurrentIndex(2);
    office.prompts.expect("Cannot Find", "Give remarks to find.");
    find.findChild<QPushButton*>("FindBttn")->click();
    find.findChild<QLineEdit*>("ValueBox")->setText("shelf");
    find.findChild<QPushButton*>("FindBttn")->click();
    auto& found = *find.findChild<QTableView*>("TranGrid");
    ASSERT_EQ(found.model()->rowCount(), 1);
    press(found, Qt::Key_Return);
  });
  EXPECT_EQ(screen.find<QPlainTextEdit>("Desc").toPlainText(), "Found behind the shelf");
  screen.press("PrintBill_0");
  EXPECT_EQ(office.context.PrintKind, GetParam().tranType);
  EXPECT_EQ(office.context.PrintRS.text("itemcode"), "H1") << "the lines are what is printed";
  EXPECT_TRUE(screen.find<QPushButton>("PrintBill_1").isEnabled());
}

TEST_P(AdjustmentScreens, BringTheCostsUpToDate) {
  EXPECT_TRUE(office.context.Costs.areArmed());
}

INSTANTIATE_TEST_SUITE_P(Kinds, AdjustmentScreens, testing::ValuesIn(adjustments),
                         [](const auto& kind) { return "Type" + std::to_string(kind.param.tranType); });

class Transfers : public testing::Test {
 protected:
  Rows lines() {
    return office.rows(
        "select serial, StockOut, StockIn, Rate, LocationID, JobID, ProductSerials from stockflow where "
        "tranno=" +
        office.tranNo(43) + " order by flowid");
  }
  StockCompany office;
  InvoiceScreen screen{office, {}, documents::makeInventoryTransfers};
};

TEST_F(Transfers, WriteEachLineTwiceAndAgainAtEverySave) {
  EXPECT_FALSE(office.context.Costs.areArmed());
  EXPECT_EQ(screen.widget().findChild<QWidget*>("PrintBill_1"), nullptr) << "there is no voucher";
  screen.line(0, "H1", "5");
  screen.line(1, "N1", "2");
  screen.widget().findChild<frame::ItemGrid*>()->sheet().setProductSerials(0, "S-1, S-2");
  choose(screen, "LocationList2", 2);
  choose(screen, "JobList1", 1);
  choose(screen, "JobList2", 2);
  screen.press("SaveBttn");
  const std::string tranNo = office.tranNo(43);
  EXPECT_EQ(lines(), (Rows{"1|5||30|1|1|S-1, S-2", "2|2||0.1|1|1|", "1||5|30|2|2|S-1, S-2", "2||2|0.1|2|2|"}));
  EXPECT_EQ(office.one("select TrAmount, LocationFrom, LocationTo, JobIDFrom, JobIDTo, InvLedger from transactions "
                       "where tranno=" +
                       tranNo),
            "150.2|1|2|1|2|False");
  EXPECT_EQ(office.one("select count(*) as n from subtransactions where tranno=" + tranNo), "0");

  screen.show(tranNo);
  auto& grid = *screen.widget().findChild<frame::ItemGrid*>();
  EXPECT_EQ(grid.sheet().plainText(2, GridColumn::ItemCode), "") << "those that arrive are not shown";
  EXPECT_EQ(screen.find<forms::DropCombo>("LocationList2").currentText(), "Yard");
  EXPECT_EQ(screen.find<forms::DropCombo>("JobList2").currentText(), "8 (Barn)");
  grid.sheet().removeRow(1);
  screen.typeCell(0, GridColumn::Quantity, "7");
  screen.press("SaveBttn");
  EXPECT_EQ(lines(), (Rows{"1|7||30|1|1|S-1, S-2", "1||7|30|2|2|S-1, S-2"}));
}

TEST_F(Transfers, MoveThePlaceOrTheJobAloneAndNothingWhenCancelled) {
  screen.line(0, "H1", "5");
  choose(screen, "JobList1", 1);
  choose(screen, "JobList2", 2);
  screen.press("SaveBttn");
  EXPECT_EQ(office.balance("locationid=1"), "0") << "within one place";
  EXPECT_EQ(office.balance("jobid=1"), "-5");
  EXPECT_EQ(office.balance("jobid=2"), "5");
  screen.show(office.tranNo(43));
  screen.find<QCheckBox>("CancelOption").setChecked(true);
  screen.press("SaveBttn");
  EXPECT_EQ(office.balance("jobid=1"), "0");
  EXPECT_EQ(office.balance("jobid=2"), "0");
}

TEST_F(Transfers, TestBothPlacesAndJobsInTheirOrder) {
  for (const char* list : {"LocationList1", "LocationList2", "JobList1", "JobList2"})
    screen.find<forms::DropCombo>(list).setEditText("?");
  const std::pair<const char*, const char*> refusals[] = {
      {"LocationList1", "Select a correct location of inventory to transfer from."},
      {"LocationList2", "Select a correct location of inventory to transfer to."},
      {"JobList1",
       "Select a correct job to transfer from or leave it blank if you do not want to save a job reference."},
      {"JobList2",
       "Select a correct job to transfer to or leave it blank if you do not want to save a job reference."}};
  for (const auto& [list, text] : refusals) {
    office.prompts.expect("Cannot Save", text);
    screen.press("SaveBttn");
    choose(screen, list, std::string_view(list).starts_with("Loc") ? 1 : 0);
  }
  screen.press("SaveBttn");
  EXPECT_EQ(office.one("select LocationFrom, LocationTo from transactions where trantype=43"), "1|1");
}

}  // namespace
