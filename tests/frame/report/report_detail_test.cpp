#include "frame/report/report_detail.h"

#include "frame/report/sample_report.h"
#include "support/waiting.h"

namespace velmo::frame {
namespace {

using test::press;
using test::waitFor;

// The items, and the lines of the current one.
class ReportDetailOf : public test::SampleReport {
 protected:
  ReportDetailOf() {
    for (int i = 0; i < 60; ++i) addItem("Z" + std::to_string(100 + i), "Zinc Nail", 1);
    const auto quantity = [](const char* field) {
      return forms::TableColumn{.caption = field, .field = field, .format = "0.00"};
    };
    open({.screen = "Tracking",
          .caption = "Tracking",
          .grids = {{.name = "OrderGrid", .columns = {{.caption = "Item", .field = "ItemCode"}}}},
          .detail = {.name = "DetailGrid",
                     .caption = "Movements",
                     .columns = {quantity("StockIn"), quantity("StockOut")},
                     .statement = [this](ReportScreen& report,
                                         std::int64_t row) { return linesOf(report.model().value(row, "ItemCode")); },
                     .totalsFrame = "DetailTotals",
                     .totals = {{.name = "InTxt2", .caption = "In", .sum = "StockIn"},
                                {.name = "OutTxt2", .caption = "Out", .sum = "StockOut"}}},
          .view = {"ViewBttn", "&View"},
          .load = [](ReportScreen& report) {
            report.setRows("OrderGrid", "SELECT ItemCode FROM StockLevel3 ORDER BY ItemCode");
          }});
  }
  std::string linesOf(const store::Value& item) {
    ++asked;
    return "SELECT Transactions.TranNo, TranType, " + columns +
           " FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo Where ItemCode=" +
           store::quoted(store::textOf(item)) + " order by TranDate";
  }
  QTableView& orders() { return control<QTableView>("OrderGrid"); }
  QTableView& lines() { return control<QTableView>("DetailGrid"); }
  std::string read(const char* box) { return control<QLineEdit>(box).text().toStdString(); }

  std::string columns = "StockIn, StockOut";
  int asked = 0;
};

TEST_F(ReportDetailOf, FollowsTheCurrentRow) {
  screen->view();
  ASSERT_TRUE(waitFor([this] { return lines().model()->rowCount() == 2; }));
  EXPECT_EQ(read("InTxt2"), "10.00");
  EXPECT_EQ(read("OutTxt2"), "4.00");
  press(orders(), Qt::Key_Down);
  EXPECT_EQ(lines().model()->rowCount(), 0) << "those of the row before are gone at once";
  EXPECT_EQ(read("InTxt2"), "");
  ASSERT_TRUE(waitFor([this] { return !read("InTxt2").empty(); }));
  EXPECT_EQ(read("InTxt2") + read("OutTxt2"), "0.000.00");
  press(orders(), Qt::Key_Up);
  ASSERT_TRUE(waitFor([this] { return lines().model()->rowCount() == 2; }));
  screen->view();
  EXPECT_EQ(lines().model()->rowCount(), 0) << "the rows are others";
  ASSERT_TRUE(waitFor([this] { return lines().model()->rowCount() == 2; }));
}

TEST_F(ReportDetailOf, AsksNothingWhileAKeyIsHeldDown) {
  screen->view();
  ASSERT_TRUE(waitFor([this] { return asked == 1; }));
  for (int i = 0; i < 50; ++i) {
    press(orders(), Qt::Key_Down);
    QApplication::processEvents();
  }
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(orders().currentIndex().row(), 50);
  ASSERT_TRUE(waitFor([this] { return asked == 2; }));
  EXPECT_FALSE(waitFor([this] { return asked > 2; }, 300)) << "once is enough";
}

TEST_F(ReportDetailOf, OpensTheDocumentOfItsRow) {
  screen->view();
  ASSERT_TRUE(waitFor([this] { return lines().model()->rowCount() == 2; }));
  prompts.expect("Cannot Open", "The screen of this document, SaleInvoicesSimple, is not part of this program.");
  Q_EMIT lines().doubleClicked(lines().model()->index(1, 0));
}

TEST_F(ReportDetailOf, TellsAFailureOnceForARow) {
  columns = "NoSuchColumn";
  prompts.expect("Cannot Show", "In the SELECT part: There is no column NoSuchColumn here. See \"NoSuchColumn\".");
  screen->view();
  waitFor([this] { return asked > 1; }, 400);
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace velmo::frame
