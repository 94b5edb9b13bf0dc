#include "documents/orders/order_screens.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "documents/invoice_company.h"
#include "documents/invoices/trade_screens.h"
#include "frame/items/item_history.h"

namespace {

using namespace velmo;
using namespace velmo::test;
using frame::GridColumn;
using Rows = std::vector<std::string>;

const std::set<std::string, std::less<>> allScreens = {
    "Quotations",          "SaleOrders",         "DeliveryChallans", "GatePassesOut", "PurchaseOrders", "GatePassesIn",
    "PurchaseBillsSimple", "SaleInvoicesSimple", "QuoteSettings",    "POSettings",    "DCSettings"};

class Office : public InvoiceCompany {
 public:
  Office() {
    screens.known = allScreens;
    NewCompany::run({"INSERT INTO Jobs (JobNo, JobDesc, Status) VALUES (7, 'Shed', No)",
                     "delete from Transactions where TranType=93"});
    context.stocklocationid = 1;
  }
};

struct Paper {
  int tranType;
  InvoiceScreen::Make make;
  std::vector<std::pair<const char*, const char*>> typed;
  const char* columns;  // D1, D1Date, D2, D2Date, Text6 to Text12, from the first that is filled
  const char* people;   // EmpID, JobIDFrom, InvLedger
  std::vector<const char*> absent;
  std::vector<const char*> conversions;
  Rows refusals;  // of one without a party, and without what else it must have
};

const Paper papers[] = {
    {91,
     documents::makeQuotations,
     {{"Subject", "Tools"}, {"D1Dt", "20-11-2026"}, {"PartyContact", "Ms. Fry"}, {"Conditions", "Net"}},
     "Tools|20-11-2026|||Ms. Fry||Net||||",
     "1|0|True",
     {"JobList", "LocationList", "SerialTxt", "D2"},
     {"ConvertBttn", "ConvertBttn2", "ConvertBttn4"},
     {"Select a correct customer."}},
    {93,
     documents::makeSaleOrders,
     {{"D1", "PO-1"}, {"D1Dt", "20-11-2026"}},
     "PO-1|20-11-2026|||||||||",
     "1|1|True",
     {"LocationList", "SerialTxt", "D2", "SetBttn"},
     {"ConvertBttn2", "ConvertBttn4"},
     {"Select a correct customer.", "Select a correct sale order customer reference no."}},
    {94,
     documents::makeDeliveryChallans,
     {{"SupplyTime", "9 am"}, {"D1", "PO-1"}, {"D1Dt", "20-11-2026"}, {"Vehicle", "LX-1"}, {"Driver", "Ali"}},
     "PO-1|20-11-2026|||9 am|LX-1|Ali||||",
     "0|1|True",
     {"EmpList", "D2"},
     {"ConvertBttn4", "ConvertBttn5"},
     {"Select a correct customer."}},
    {30,
     documents::makeGatePassesOut,
     {{"SupplyTime", "9 am"},
      {"D1", "PO-1"},
      {"D2", "4"},
      {"D2Dt", "21-11-2026"},
      {"Vehicle", "LX-1"},
      {"Driver", "Ali"}},
     "PO-1||4|21-11-2026|9 am|LX-1|Ali||||",
     "0|1|False",
     {"EmpList", "SetBttn"},
     {"ConvertBttn4"},
     {"Select a correct customer."}},
    {92,
     documents::makePurchaseOrders,
     {{"D1Dt", "20-11-2026"}, {"Conditions", "Net"}},
     "20-11-2026|||||Net||||",
     "1|1|True",
     {"LocationList", "SerialTxt", "D1", "D2"},
     {"ConvertBttn2", "ConvertBttn3"},
     {"Select a correct vendor."}},
    {20,
     documents::makeGatePassesIn,
     {{"SupplyTime", "9 am"},
      {"D1", "C-9"},
      {"D2", "4"},
      {"D2Dt", "21-11-2026"},
      {"Vehicle", "LX-1"},
      {"Driver", "Ali"}},
     "C-9||4|21-11-2026|9 am|LX-1|Ali||||",
     "0|1|False",
     {"EmpList", "SetBttn"},
     {"ConvertBttn4"},
     {"Select a correct vendor."}},
};

class OrderPaper : public testing::TestWithParam<Paper> {};

TEST_P(OrderPaper, IsWrittenAsItIsTypedAndPostsNothing) {
  const Paper& paper = GetParam();
  Office office;
  office.context.IGPInvLedger = office.context.OGPInvLedger = false;
  office.context.DCInvLedger = true;
  InvoiceScreen screen(office, {}, paper.make);
  for (const char* absent : {"Discount", "Carriage", "Received", "Balance", "IncomeCode", "PrintBill_1"})
    EXPECT_EQ(screen.widget().findChild<QWidget*>(absent), nullptr) << absent;
  for (const char* absent : paper.absent) EXPECT_EQ(screen.widget().findChild<QWidget*>(absent), nullptr) << absent;
  for (const char* command : paper.conversions) EXPECT_TRUE(screen.find<QPushButton>(command).isEnabled()) << command;

  office.prompts.expect("Cannot Save", paper.refusals.front());
  screen.press("SaveBttn");
  screen.type("PartyCodeTxt", "12001003");
  if (paper.refusals.size() > 1) {
    office.prompts.expect("Cannot Save", paper.refusals.back());
    screen.press("SaveBttn");
  }
  for (const auto& [box, text] : paper.typed) screen.type(box, text);
  screen.line(0, "H1", "2", "50");
  if (auto* jobs = screen.widget().findChild<QComboBox*>("JobList")) jobs->setCurrentIndex(0);
  screen.press("SaveBttn");

  const std::string tranNo = office.tranNo(paper.tranType);
  const std::string ofIt = " from transactions where tranno=" + tranNo;
  EXPECT_EQ(office.one("select D1, D1Date, D2, D2Date, Text6, Text7, Text8, Text9, Text10, Text11, Text12" + ofIt),
            paper.columns);
  EXPECT_EQ(office.one("select EmpID, JobIDFrom, InvLedger" + ofIt), paper.people);
  EXPECT_EQ(office.one("select PartyCode, PartyCode2, TrAmount, Balance, Received, LocationFrom, LocationTo, WordsAmt" +
                       ofIt),
            "12001003|12001003|100|0|0|1|1|one hundred and 00/100 only.");
  const bool inward = paper.tranType == 92 || paper.tranType == 20;
  EXPECT_EQ(office.one(std::string("select ") + (inward ? "StockIn" : "StockOut") +
                       ", ItemValue, LocationID from stockflow where tranno=" + tranNo),
            "2|100|1");
  for (const char* table : {"subtransactions", "agingdr", "agingcr"})
    EXPECT_EQ(office.one(std::string("select count(*) as n from ") + table + " where tranno=" + tranNo), "0") << table;

  screen.show(tranNo);
  for (const auto& [box, text] : paper.typed) EXPECT_EQ(screen.text(box), text) << box;
}

INSTANTIATE_TEST_SUITE_P(Papers, OrderPaper, testing::ValuesIn(papers),
                         [](const auto& paper) { return "Type" + std::to_string(paper.param.tranType); });

TEST(OrderPapers, WarnOfShortStockAndShowPricesWhereTheirKindDoes) {
  for (const Paper& paper : papers) {
    Office office;
    const bool warns = paper.tranType == 94 || paper.tranType == 30;
    InvoiceScreen screen(office, {}, paper.make);
    screen.typeCell(0, GridColumn::ItemCode, "H1");
    if (warns) office.prompts.expect("Short Item Balance", "You do not have required balance of this item in hand.");
    screen.typeCell(0, GridColumn::Quantity, "100001");
    const auto* grid = screen.find<QTableView>("Grid").model();
    EXPECT_EQ(grid->index(0, static_cast<int>(GridColumn::Rate)).data().toString(),
              paper.tranType == 92 || paper.tranType == 20 ? "30.00" : "50.00");
    EXPECT_EQ(grid->headerData(static_cast<int>(GridColumn::NetAmount), Qt::Horizontal).toString(),
              paper.tranType == 91 ? "Net Amount" : "Value Excl. Tax");
  }
}

TEST(OrderPapers, FindVehicleAndDriverInPlaceOfAnAmount) {
  Office office;
  InvoiceScreen screen(office, {}, documents::makeDeliveryChallans);
  for (const char* driver : {"Ali", "Omar"}) {
    screen.type("PartyCodeTxt", "12001003");
    screen.type("Driver", driver);
    screen.press("SaveBttn");
  }
  screen.withFind("FindDC", [&](QDialog& find) {
    auto& columns = *find.findChild<QComboBox*>("ColList");
    EXPECT_EQ(InvoiceScreen::entries(columns), "Serial No.|Date|Purchase Order No.|Customer Name|Vehicle|Driver");
    columns.setCurrentIndex(4);
    office.prompts.expect("Cannot Find", "Give vehicle description to find.");
    find.findChild<QPushButton*>("FindBttn")->click();
    columns.setCurrentIndex(5);
    find.findChild<QLineEdit*>("ValueBox")->setText("mar");
    find.findChild<QPushButton*>("FindBttn")->click();
    auto& found = *find.findChild<QTableView*>("TranGrid");
    ASSERT_EQ(found.model()->rowCount(), 1);
    press(found, Qt::Key_Return);
  });
  EXPECT_EQ(screen.text("Driver"), "Omar");
}

TEST(OrderPapers, ReferencesBringTheirDatesAndQuotationsTheSalesOfBothKinds) {
  Office office;
  NewCompany::run(
      {"INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, D1, UserAdded, UserEdited) "
       "VALUES (3, #10-05-2026#, 93, 1, No, Yes, 'PO-9', 1, 1)",
       "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES "
       "(3, #10-06-2026#, 92, 1, No, Yes, 1, 1)",
       "INSERT INTO Transactions (TranNo, DocNo, TranDate, TranType, FYID, Cancel, InvLedger) VALUES (900, 1, "
       "#10-06-2026#, 31, 1, No, No)",
       "INSERT INTO StockFlow (TranNo, ItemCode, StockOut, Rate) VALUES (900, 'H1', 1, 49)"});
  InvoiceScreen challan(office, {}, documents::makeDeliveryChallans);
  challan.type("D1", "PO-9");
  EXPECT_EQ(challan.text("D1Dt"), "05-10-2026");
  InvoiceScreen pass(office, {}, documents::makeGatePassesIn);
  pass.type("D2", "3");
  EXPECT_EQ(pass.text("D2Dt"), "06-10-2026");
  for (const std::vector<int>& types : {std::vector{31, 32}, std::vector{32}})
    EXPECT_EQ(frame::itemHistory(office.context.KORDconn, {.historyTranTypes = types}, "H1", {}, 1).recordCount(),
              types.size() - 1);
}

// Converting

class Chain : public testing::Test {
 protected:
  void typeOrder(int lines = 2) {
    order.type("PartyCodeTxt", "12001003");
    order.type("D1", "PO-1");
    for (int row = 0; row < lines; ++row) order.line(row, "H1", "2");
  }
  std::string converted(const char* command = "ConvertBttn2") {
    office.context.OpenTranFlag = false;
    office.screens.opened.clear();
    order.press(command);
    return office.screens.opened;
  }
  QAbstractButton& mark(const char* label) { return order.find<QAbstractButton>(label); }

  Office office;
  InvoiceScreen order{office, {}, documents::makeSaleOrders};
};

TEST_F(Chain, SavesTheOrderOpensTheChallanAndLeavesAMarkThatLeadsThere) {
  typeOrder();
  EXPECT_EQ(converted(), "DeliveryChallans");
  EXPECT_EQ(office.context.OpenTranNo, std::stoll(office.tranNo(94)));
  EXPECT_EQ(order.text("PartyCodeTxt"), "") << "a new order";
  InvoiceScreen challan(office, {}, documents::makeDeliveryChallans);
  EXPECT_EQ(challan.text("D1"), "PO-1");
  EXPECT_EQ(challan.text("TExc"), "200.00");
  EXPECT_EQ(challan.text("SupplyTime"), "10:30:15 AM");

  order.show(office.tranNo(93));
  EXPECT_EQ(mark("ConvLbl1").text(), "D.C. No. 1");
  EXPECT_TRUE(mark("ConvLbl2").isHidden());
  office.screens.opened.clear();
  mark("ConvLbl1").setFocus();
  press(mark("ConvLbl1"), Qt::Key_Return);
  EXPECT_EQ(office.screens.opened, "DeliveryChallans");
  EXPECT_EQ(office.context.OpenTranNo, std::stoll(office.tranNo(94)));

  office.run("update userrights set operator1=yes where rightid=92 or rightid=93");
  office.context.UserID = 2;
  const auto words = [&](const char* right) {
    return "You do not have access to " +
           office.one(std::string("select righttype from userrights where rightid=") + right);
  };
  office.prompts.expect("Not Allowed", words("92"));
  mark("ConvLbl1").click();
  office.prompts.expect("Not Allowed", words("93"));
  EXPECT_EQ(converted("ConvertBttn4"), "");
  office.context.UserID = 1;

  order.press("SaveBttn");
  office.run("delete from transactions where trantype=94");
  order.show(office.tranNo(93));
  office.prompts.expect("Record Not Found",
                        "D.C. No. 1 is not there any more. It may have been deleted, or its number changed.");
  mark("ConvLbl1").click();
}

TEST_F(Chain, ACancelledOneIsRefusedWhoeverCancelledItAndTheScreenKeepsAll) {
  const std::string refusal = "This sale order is cancelled. A cancelled sale order cannot be converted.";
  typeOrder();
  order.find<QCheckBox>("CancelOption").click();
  office.prompts.expect("Cannot Save", refusal);
  EXPECT_EQ(converted(), "");
  order.find<QCheckBox>("CancelOption").click();
  order.press("SaveBttn");

  const std::string tranNo = office.tranNo(93);
  order.show(tranNo);
  order.type("D1", "PO-2");
  NewCompany::run({"update Transactions set Cancel = Yes where TranType = 93"});
  office.prompts.expect("Cannot Save", refusal);
  EXPECT_EQ(converted(), "");
  EXPECT_EQ(order.text("D1"), "PO-2");
  EXPECT_TRUE(order.find<QPushButton>("ConvertBttn2").isEnabled());
  EXPECT_EQ(office.one("select D1, Cancel from transactions where trantype=93"), "PO-1|True");
  EXPECT_EQ(office.rows("select docno from transactions where trantype=94"), Rows{});

  order.show(tranNo);  // as it is, and set right by hand
  order.find<QCheckBox>("CancelOption").click();
  EXPECT_EQ(converted(), "DeliveryChallans");

  order.show(tranNo);
  order.type("D1", "PO-3");
  NewCompany::run({"delete from Transactions where TranType = 93"});
  office.prompts.expect("Cannot Save",
                        "This document is not there any more: it was deleted in another window. Nothing was saved.");
  EXPECT_EQ(converted(), "");
  EXPECT_EQ(order.text("D1"), "PO-3");
}

TEST_F(Chain, AFailureLeavesTheSavedOrderOnTheScreen) {
  typeOrder();
  office.prompts.expectTitle("Cannot Save");
  office.run("delete from acclevel3 where acccode=12001003");
  EXPECT_EQ(converted("ConvertBttn4"), "");
  EXPECT_EQ(order.text("D1"), "PO-1");
  EXPECT_TRUE(order.find<QPushButton>("SaveBttn").isEnabled());
  EXPECT_EQ(office.one("select text10 from transactions where trantype=93"), "");
  order.typeCell(2, GridColumn::ItemCode, "N1");  // the sheet has its blank lines
  EXPECT_EQ(converted("ConvertBttn2"), "DeliveryChallans");
  EXPECT_EQ(office.rows("select tranno from transactions where trantype=93").size(), 1u);
  EXPECT_EQ(office.one("select count(*) as n from stockflow where tranno=" + office.tranNo(94)), "3");
}

TEST_F(Chain, TakesNoLinesFullSheetsTheLastDayAndADayOutsideTheYear) {
  typeOrder(0);
  EXPECT_EQ(converted("ConvertBttn4"), "SaleInvoicesSimple");
  EXPECT_EQ(office.rows("select acccode, debit, credit from subtransactions where tranno=" + office.tranNo(32) +
                        " order by serial"),
            (Rows{"12001003|0|", "40001001||0"}));

  typeOrder(1);
  order.press("SaveBttn");
  const std::string full = office.tranNo(93, 2);
  for (int serial = 2; serial <= 500; ++serial)
    office.run("INSERT INTO StockFlow (TranNo, Serial, ItemCode, ItemName, StockOut, ItemValue) VALUES (" + full +
               ", " + std::to_string(serial) + ", 'N1', 'Nail', 1, 0.01)");
  office.clock.moment = office.context.FinancialYearEnd;
  order.show(full);
  EXPECT_EQ(converted(), "DeliveryChallans");
  EXPECT_EQ(office.one("select tramount from transactions where trantype=94"), "104.99");
  EXPECT_EQ(office.one("select count(*) as n from stockflow where tranno=" + office.tranNo(94)), "500");

  office.clock.moment = office.context.FinancialYearEnd.addDays(1);
  order.show(full);
  EXPECT_EQ(converted(), "DeliveryChallans");
  InvoiceScreen challan(office, {}, documents::makeDeliveryChallans);
  office.prompts.expect("Cannot Save", "Transaction date cannot be after ending date of financial year.");
  challan.press("SaveBttn");
  EXPECT_EQ(challan.text("TExc"), "104.99");
}

// A slip of the books that is kept: the first save of what was made asks for a reference that nobody gave.
TEST_F(Chain, OrdersOfQuotationsAndBillsOfOrdersAskForTheirReferenceFirst) {
  InvoiceScreen quotation(office, {}, documents::makeQuotations);
  quotation.type("PartyCodeTxt", "12001003");
  quotation.press("ConvertBttn");
  order.show(office.context.OpenTranNo);
  office.prompts.expect("Cannot Save", "Select a correct sale order customer reference no.");
  order.press("SaveBttn");
  InvoiceScreen purchase(office, {}, documents::makePurchaseOrders);
  purchase.type("PartyCodeTxt", "12001003");
  purchase.line(0, "H1", "1");
  purchase.press("ConvertBttn3");
  InvoiceScreen bill(office, {}, documents::makePurchaseBillsSimple);
  EXPECT_EQ(bill.text("D2"), "1");
  office.prompts.expect("Cannot Save", "Select correct vendor invoice number.");
  bill.press("SaveBttn");
  office.screens.opened.clear();
  press(bill.box("D2"), Qt::Key_Return);
  EXPECT_EQ(office.screens.opened, "PurchaseOrders");
}

TEST_F(Chain, TheChallanOfAnInvoiceIsItsSecondReference) {
  InvoiceScreen invoice(office);
  invoice.type("PartyCodeTxt", "12001003");
  invoice.line(0, "H1", "2");
  invoice.press("ConvertBttn2");
  invoice.show(office.tranNo(32));
  EXPECT_EQ(invoice.text("D2"), "1");
  EXPECT_EQ(invoice.text("D2Dt"), "22-11-2026");
  office.screens.opened.clear();
  auto& arrow = *invoice.box("D2").findChild<QAction*>("D2Link");
  EXPECT_TRUE(arrow.isVisible());
  arrow.trigger();
  EXPECT_EQ(office.screens.opened, "DeliveryChallans");
  invoice.type("D2", "17");
  EXPECT_FALSE(arrow.isVisible()) << "not in the books yet";
  office.screens.opened.clear();
  press(invoice.box("D2"), Qt::Key_Return);
  EXPECT_EQ(office.screens.opened, "");
  invoice.press("SaveBttn");
  invoice.show(office.tranNo(32));
  office.prompts.expect(
      "Record Not Found",
      "Delivery Challan No. 17 is not there any more. It may have been deleted, or its number changed.");
  arrow.trigger();
}

}  // namespace
