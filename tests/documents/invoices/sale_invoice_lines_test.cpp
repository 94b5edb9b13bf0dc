#include <gtest/gtest.h>

#include <QTableView>

#include "documents/invoice_company.h"
#include "documents/invoices/purchase_bill_type.h"
#include "documents/invoices/trade_screens.h"
#include "support/plain_rows.h"

// Lines without an item, and amounts with more decimals than money has: the total is what the goods on it come to.
namespace {

using namespace velmo;
using namespace velmo::test;
using frame::GridColumn;
using Rows = std::vector<std::string>;

Rows bareRows(const InvoiceCompany& shop, const std::string& sql) {
  PlainFile file(shop.company.file());
  return plainTexts(file, sql);
}

const char* const sold =
    "select ItemCode, StockOut, ItemValue from StockFlow where StockOut is not null order by FlowID";
const char* const totals =
    "select Discount, Carriage, TrAmount, Received, Balance from Transactions where TranType = 32";

void clearCell(InvoiceScreen& screen, int row, GridColumn column) {
  screen.find<QTableView>("Grid").setFocus(Qt::TabFocusReason);
  screen.widget().findChild<frame::ItemGrid*>()->setCurrentCell(row, column);
  press(screen.find<QTableView>("Grid"), Qt::Key_Delete);
}

void typeInto(QLineEdit& box, const QString& text) {
  box.setFocus(Qt::TabFocusReason);
  box.selectAll();
  type(box, text);
}

TEST(SaleInvoiceLines, ClearingTheCodeClearsTheLine) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.type("PartyCodeTxt", "12001003");
  screen.line(0, "H1", "4");
  screen.line(1, "H1", "1");
  screen.typeCell(1, GridColumn::Packing, "Box");
  EXPECT_EQ(screen.text("NetTotal"), "250.00");
  clearCell(screen, 1, GridColumn::ItemCode);
  EXPECT_EQ(screen.text("NetTotal"), "200.00");
  const QAbstractItemModel& cells = *screen.find<QTableView>("Grid").model();
  for (int column = 0; column < cells.columnCount(); ++column)
    EXPECT_EQ(cells.index(1, column).data().toString(), "") << column;
  screen.line(2, "N1", "100");
  screen.press("SaveBttn");
  EXPECT_EQ(bareRows(shop, sold), (Rows{"H1|4.0|200.0", "N1|100.0|33.5"}));
  EXPECT_EQ(bareRows(shop, totals), Rows{"0.0|0.0|233.5|0.0|233.5"});
  EXPECT_EQ(bareRows(shop, "select TrAmount from AgingDr"), Rows{"233.5"});

  screen.press("RetBttn");
  clearCell(screen, 0, GridColumn::ItemCode);
  screen.press("SaveBttn");
  EXPECT_EQ(bareRows(shop, sold), Rows{"N1|100.0|33.5"}) << "of a document that was saved, too";
  EXPECT_EQ(bareRows(shop, "select sum(Credit) from SubTransactions where AccCode = 40001001"), Rows{"33.5"});
}

TEST(SaleInvoiceLines, AnAmountWithoutAnItemIsRefusedAfterAllOtherTests) {
  const struct {
    InvoiceScreen::Make make;
    const char* party;
  } kinds[] = {{documents::makeSaleInvoicesSimple, "12001003"}, {documents::makePurchaseBillsSimple, "12001003"}};
  for (const auto& kind : kinds) {
    InvoiceCompany shop;
    InvoiceScreen screen(shop, {}, kind.make);
    screen.line(0, "H1", "4", "50");
    const bool sale = kind.make == documents::makeSaleInvoicesSimple;
    const auto warned = [&](const std::string& cell) {
      shop.prompts.expect("Select Inventory Item",
                          "Select inventory item before entering " + cell +
                              ". If you want to enter a service, then give 'Service' in Item Code Column.");
    };
    warned("quantity");
    if (sale) shop.prompts.expect("Short Item Balance", "You do not have required balance of this item in hand.");
    screen.typeCell(2, GridColumn::Quantity, "2");
    warned("rate");
    screen.typeCell(2, GridColumn::Rate, "25");
    screen.type("D1", "V1");
    shop.prompts.expect("Cannot Save", sale ? "Select a correct customer. You may select Account Code '12001001' for a "
                                              "Walk-in (Cash) Customer."
                                            : "Select a correct vendor. You may select Account Code '21001001' for a "
                                              "Retail / Cash Purchase.");
    screen.press("SaveBttn");
    screen.type("PartyCodeTxt", kind.party);
    shop.prompts.expect("Cannot Save",
                        "Line 3 has an amount and no item. Give an item code, or Service, or clear the line.");
    screen.press("SaveBttn");
    const QTableView& grid = screen.find<QTableView>("Grid");
    EXPECT_EQ(grid.currentIndex().row(), 2);
    EXPECT_EQ(grid.currentIndex().column(), 0);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(bareRows(shop, "select count(*) from Transactions where TranType in (22, 32)"), Rows{"0"});
    screen.typeCell(2, GridColumn::ItemCode, "service");
    screen.press("SaveBttn");
    EXPECT_EQ(bareRows(shop, "select TrAmount from Transactions where TranType in (22, 32)"), Rows{"250.0"});
  }
}

TEST(SaleInvoiceLines, AnAmountHoldsWhatItsCellShowsAndAFigureEveryDigit) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.type("PartyCodeTxt", "12001003");
  for (int row = 0; row < 3; ++row) {
    screen.line(row, "H1", "1.125", "2.345");
    screen.typeCell(row, GridColumn::Discount, "0.335");
  }
  screen.line(3, "H1", "1", "100");
  screen.typeCell(3, GridColumn::DiscountRate, "12.345");
  EXPECT_EQ(screen.text("GrTot"), "107.92");
  EXPECT_EQ(screen.text("Disc"), "13.37") << "0.34 three times, and 12.35";
  EXPECT_EQ(screen.text("TExc"), "94.55");
  screen.type("Discount", "0.005");
  EXPECT_EQ(screen.text("Discount"), "0.01");
  typeInto(screen.box("Carriage"), "-1.005");
  EXPECT_EQ(screen.text("Carriage"), "-1.005");
  EXPECT_EQ(screen.text("NetTotal"), "93.53");
  screen.type("Carriage", "-1.005");
  EXPECT_EQ(screen.text("Carriage"), " (1.01)");
  typeInto(screen.box("Received"), "3.335");
  EXPECT_EQ(screen.text("Balance"), "90.19");
  EXPECT_EQ(screen.text("Received"), "3.335");
  screen.press("SaveBttn");
  EXPECT_EQ(bareRows(shop, totals), Rows{"0.01|-1.01|93.53|3.34|90.19"});
  EXPECT_EQ(bareRows(shop,
                     "select StockOut, Rate, GrossAmt, DiscRate, DiscAmt, ItemValue from StockFlow where "
                     "StockOut is not null order by FlowID"),
            (Rows{"1.125|2.345|2.64||0.34|2.3", "1.125|2.345|2.64||0.34|2.3", "1.125|2.345|2.64||0.34|2.3",
                  "1.0|100.0|100.0|12.345|12.35|87.65"}));
  EXPECT_EQ(bareRows(shop, "select Payment, TotPayment, TrAmount from AgingDr"), Rows{"3.34|3.34|93.53"});
}

TEST(SaleInvoiceLines, ASmallRestOfAWideAmountIsMoney) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.type("PartyCodeTxt", "12001003");
  screen.line(0, "Service", "1234567", "98765.43");
  screen.typeCell(0, GridColumn::Discount, "121932539936.02");
  screen.press("SaveBttn");
  EXPECT_EQ(bareRows(shop, "select GrossAmt, DiscAmt, ItemValue from StockFlow where ItemCode = 'Service'"),
            Rows{"121932540618.81|121932539936.02|682.79"});
}

TEST(SaleInvoiceLines, ASaveThatIsGivenUpShowsTheAmountThatItWouldHaveWritten) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.type("PartyCodeTxt", "12001002");
  screen.line(0, "H1", "30");
  QLineEdit& received = screen.box("Received");
  typeInto(received, "3.335");
  shop.prompts.expect("Credit Limit Increase",
                      "This will increase the balance of party from assigned credit limit. Do you want to continue?",
                      session::Answer::No);
  screen.press("SaveBttn");
  EXPECT_TRUE(received.hasFocus());
  EXPECT_EQ(received.text(), "3.34");
}

}  // namespace
