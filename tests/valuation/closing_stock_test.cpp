
#include "valuation/closing_stock.h"

#include <gtest/gtest.h>

#include "reports/balances_company.h"

namespace velmo::valuation {
namespace {

class ClosingStock : public testing::Test, protected test::BalancesCompany {
 protected:
  ClosingStock() {
    addStock("A", 2.5);
    addStock("B", 100);
    addStock("W", 50, "SERVICE");
    moveStock("12-31-2025", "A", "10", "Null");
    moveStock("03-01-2026", "B", "4", "Null");
    moveStock("04-01-2026", "a", "Null", "3");
    moveStock("05-01-2026", "B", "Null", "6");
    moveStock("06-01-2026", "W", "9", "Null");
    moveStock("03-01-2026", "B", "1000", "Null", "1, Yes, No");
    moveStock("03-01-2026", "B", "1000", "Null", "1, No, Yes");
    moveStock("03-01-2026", "B", "1000", "Null", "2, No, No");
  }

  // The year's entry: "date debit of the inventory credit of the cost of sales".
  std::string entry(int fyid = 1) {
    const std::string of =
        " from Transactions inner join SubTransactions on Transactions.TranNo = "
        "SubTransactions.TranNo where TranType=51 and FYID=" +
        std::to_string(fyid) + " and AccCode=";
    const store::Recordset stock(context.KORDconn, "select TranDate, Debit, Credit" + of + "13001001");
    const store::Recordset cost(context.KORDconn, "select TranDate, Debit, Credit" + of + "50001006");
    return stock.isEmpty() ? "none"
                           : stock.date("TranDate").iso() + " " + stock.text("Debit") + stock.text("Credit") + " " +
                                 cost.text("Debit") + cost.text("Credit");
  }
};

TEST_F(ClosingStock, IsThatOfTheDayAtTheCostInForce) {
  const std::pair<text::DateTime, std::string> days[] = {
      {day(12, 31, 2025), "25"}, {day(3, 1), "425"},     {day(12, 31), "-182.5"},
      {day(4, 1), "417.5"},      {day(1, 1, 2020), "0"},
  };
  for (const auto& [on, value] : days) {
    postClosingStock(context.KORDconn, 1, on);
    EXPECT_EQ(entry(), on.iso() + " " + value + " " + value);
  }
  run("update StockLevel3 set ValuationCost2=1/3 where ItemCode='A'");
  postClosingStock(context.KORDconn, 1, day(2, 1));
  EXPECT_EQ(entry(), "2026-02-01 3.33333333333333 3.33333333333333");
  run("update StockLevel3 set ValuationCost2=Null");
  postClosingStock(context.KORDconn, 1, day(2, 1));
  EXPECT_EQ(entry(), "2026-02-01 0 0");
}

TEST_F(ClosingStock, LeavesEverythingElseAsItIs) {
  EXPECT_EQ(entry(2), "none");
  postClosingStock(context.KORDconn, 2, day(3, 1));
  EXPECT_EQ(entry(2), "none") << "a year without the entry stays without it";
  const std::string before = entry();
  run("INSERT INTO SubTransactions (TranNo, AccCode, Debit) VALUES (7001, 13001001, 5)");
  {
    const store::Connection::Transaction work(context.KORDconn);
    EXPECT_THROW(postClosingStock(context.KORDconn, 1, day(3, 1)), store::StoreError);
  }
  EXPECT_EQ(entry(), before);
  postClosingStock(context.KORDconn, 1, day(3, 1));
  const store::Recordset other(context.KORDconn,
                               "select * from SubTransactions where TranNo=7001 and AccCode=13001001");
  EXPECT_EQ(other.number("Debit"), 5);
  // What is right already is not written again.
  const auto written = [this] {
    return context.KORDconn.generationOf("Transactions") + context.KORDconn.generationOf("SubTransactions");
  };
  const std::int64_t once = written();
  postClosingStock(context.KORDconn, 1, day(3, 1));
  EXPECT_EQ(written(), once);
  run("update SubTransactions set Credit=Null where AccCode=50001006");
  postClosingStock(context.KORDconn, 1, day(3, 1));
  EXPECT_EQ(written(), once + 2) << "one by hand, one by the posting";
}

}  // namespace
}  // namespace velmo::valuation
