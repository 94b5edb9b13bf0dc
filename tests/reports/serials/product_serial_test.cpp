#include "reports/serials/product_serial.h"

#include <gmock/gmock.h>

#include <QLineEdit>

#include "reports/ledger_company.h"
#include "reports/serials/serial_statements.h"
#include "support/waiting.h"

namespace velmo::reports {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProductSerial : public test::LedgerCompany {
 protected:
  std::int64_t line(const test::LedgerDocument& document, const char* serials, int lines = 1) {
    const std::int64_t tranNo = post(document);
    for (int i = 0; i < lines; ++i)
      context->KORDconn.execute("INSERT INTO StockFlow (TranNo, ItemCode, ItemName, ProductSerials) VALUES (" +
                                std::to_string(tranNo) + ", 'D1', 'Drill', " +
                                (serials ? store::quoted(serials) : "Null") + ")");
    return tranNo;
  }
  std::vector<std::string> found(const std::string& serial, SerialHits hits) {
    std::vector<std::string> all;
    store::Recordset rows(context->KORDconn, serialStatement(context->FYID, serial, hits), store::LockType::ReadOnly);
    for (; !rows.eof(); rows.moveNext()) all.push_back(rows.text("TranRefShort") + ": " + rows.text("ProductSerials"));
    return all;
  }
  void search(const char* serial) {
    control<QLineEdit>("SerialTxt").setText(serial);
    control<QPushButton>("TrackBttn").click();
  }
  std::vector<std::string> shown() { return column("DetailGrid", "Tran. No."); }
};

TEST_F(ProductSerial, FindsAPartOfATextByDateInTheYearWhateverIsReadFirst) {
  line({.day = "05-02-2026", .tranType = 32, .docNo = 1}, "PT-100, pt-101");
  line({.day = "03-01-2026", .tranType = 22, .docNo = 2}, "PT-1001", 2);
  line({.day = "06-01-2026", .tranType = 35, .cancelled = true, .docNo = 3}, "O'Brien Ä7");
  line({.day = "03-02-2026", .tranType = 32, .docNo = 4}, nullptr);
  line({.day = "03-03-2026", .tranType = 32, .docNo = 5}, "");
  const std::int64_t ofAnotherYear = line({.day = "03-04-2026", .tranType = 32, .docNo = 6}, "PT-100");
  context->KORDconn.execute("UPDATE Transactions SET FYID = 99 WHERE TranNo = " + std::to_string(ofAnotherYear));
  const std::pair<const char*, std::vector<std::string>> searches[] = {
      {"pt-100", {"PB 2: PT-1001", "PB 2: PT-1001", "SI 1: PT-100, pt-101"}},
      {"1001", {"PB 2: PT-1001", "PB 2: PT-1001"}},
      {"0,%1", {"SI 1: PT-100, pt-101"}},
      {"0_1", {"PB 2: PT-1001", "PB 2: PT-1001"}},
      {"[Ä']", {"SR 3: O'Brien Ä7"}},
      {"ä", {"SR 3: O'Brien Ä7"}},
      {"p", {"PB 2: PT-1001", "PB 2: PT-1001", "SI 1: PT-100, pt-101"}},
      {"PT 100", {}}};
  for (const auto& [serial, expected] : searches)
    for (const SerialHits hits : {SerialHits::Few, SerialHits::Many})
      EXPECT_EQ(found(serial, hits), expected) << serial;
}

TEST_F(ProductSerial, TakesAnotherWayWhereManyLinesHaveIt) {
  const std::int64_t tranNo = line({.day = "05-02-2026", .tranType = 32}, "PT-1");
  EXPECT_EQ(serialHits(context->KORDconn, "p"), SerialHits::Few);
  for (int lines = 1; lines < 4001; lines *= 2)
    context->KORDconn.execute("INSERT INTO StockFlow (TranNo, ItemCode, ProductSerials) SELECT " +
                              std::to_string(tranNo) +
                              ", 'D1', 'PT-1' FROM StockFlow WHERE TranNo = " + std::to_string(tranNo));
  EXPECT_EQ(serialHits(context->KORDconn, "p"), SerialHits::Many);
  EXPECT_EQ(serialHits(context->KORDconn, "q"), SerialHits::Few);
  open(makeProductSerial);
  search("pt");
  EXPECT_TRUE(test::waitFor([&] { return caption("TranLbl_0") == "4096 Records Found."; }));
}

TEST_F(ProductSerial, TellsHowManyAndForHowLong) {
  line({.day = "11-20-2026", .tranType = 32, .docNo = 4}, "PT-100");
  line({.day = "11-01-2026", .tranType = 22, .docNo = 8}, "PT-100 PT-101");
  open(makeProductSerial);
  EXPECT_EQ(control<QLineEdit>("SerialTxt").hasFocus(), true);
  search("");
  EXPECT_EQ(caption("TranLbl_0"), "");
  search("100");
  EXPECT_THAT(shown(), ElementsAre("PB 8", "SI 4"));
  EXPECT_THAT(column("DetailGrid", "Date"), ElementsAre("01-11-26", "20-11-26"));
  EXPECT_EQ(caption("TranLbl_0"), "2 Records Found.");
  EXPECT_EQ(caption("TranLbl_1"), "No of days Passed 21");
  search("102");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(caption("TranLbl_0"), "0 Records Found.");
  EXPECT_EQ(caption("TranLbl_1"), "");
}

TEST_F(ProductSerial, LeadsToTheDocumentWithItsRightAndIsFoundAsItWasLeft) {
  struct Way {
    int tranType, right;
    const char* screen;
  };
  constexpr Way ways[] = {
      {20, 154, "GatePassesIn"},    {22, 59, "PurchaseBillsSimple"}, {25, 62, "PurchaseReturns"},
      {30, 158, "GatePassesOut"},   {32, 94, "SaleInvoicesSimple"},  {35, 100, "SaleReturns"},
      {42, 134, "Production"},      {43, 128, "InventoryTransfers"}, {45, 144, "AddInventory"},
      {47, 144, "ReduceInventory"}, {94, 92, "DeliveryChallans"},    {11, 24, "OpeningBalancesInv"}};
  std::vector<std::int64_t> documents;
  for (const Way& way : ways) documents.push_back(line({.day = "07-01-2026", .tranType = way.tranType}, "PT-100"));
  for (std::size_t i = 0; i < std::size(ways); ++i) {
    SCOPED_TRACE(ways[i].screen);
    open(makeProductSerial);
    if (i == 0) search("pt-1");
    EXPECT_EQ(shown().size(), std::size(ways));
    auto& grid = control<QTableView>("DetailGrid");
    EXPECT_EQ(grid.currentIndex().row(), static_cast<int>(i == 0 ? 0 : i - 1));
    const QModelIndex row = grid.model()->index(static_cast<int>(i), 0);
    context->OpenTranFlag = false;
    grid.setCurrentIndex(row);
    Q_EMIT grid.doubleClicked(row);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(screens.opened, ways[i].screen);
    EXPECT_EQ(context->OpenTranFlag, ways[i].tranType != 11);
    if (ways[i].tranType != 11) {
      EXPECT_EQ(context->OpenTranNo, documents[i]);
    }
  }
  screens.opened = {};
  context->UserID = 3;
  context->KORDconn.execute("UPDATE UserRights SET operator2 = Yes WHERE RightID = 94");
  prompts.expect("Not Allowed", "You do not have access to view sale invoices.");
  open(makeProductSerial);
  auto& grid = control<QTableView>("DetailGrid");
  EXPECT_EQ(control<QLineEdit>("SerialTxt").text(), "pt-1");
  Q_EMIT grid.doubleClicked(grid.model()->index(4, 0));
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(screens.opened, "");
}

}  // namespace
}  // namespace velmo::reports
