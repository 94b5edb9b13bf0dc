
#include "valuation/weighted_cost.h"

#include <sqlite3.h>

#include <map>

#include "session/login_context.h"
#include "support/new_company.h"

namespace velmo::valuation {
namespace {

using text::DateTime;

const DateTime yearEnd = DateTime::fromCalendar(2026, 12, 31);

// A company with items by weighted average, one of manual cost, and services.
class WeightedCost : public testing::Test {
 protected:
  static constexpr double typed = 77;  // the cost that every item has before

  WeightedCost() {
    context.KORDconn.open(schema::plainConnectionString);
    context.FYID = 1;
    context.FinancialYearEnd = yearEnd;
    run("INSERT INTO StockLevel1 (CatID, CatName) VALUES ('GDS', 'Goods')");
    run("INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('GDS01', 'Goods', 'GDS')");
    run("INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('SRV09', 'Work', 'SERVICE')");
    for (const char* item : {"A", "B", "O''Ring"}) addItem(item, "GDS", "GDS01", "Yes");
    addItem("Manual", "GDS", "GDS01", "No");
    addItem("Work", "SERVICE", "SRV09", "Yes");
  }

  void run(const std::string& statement) { context.KORDconn.execute(statement); }
  void addItem(const std::string& code, const std::string& category, const std::string& subCategory,
               const std::string& weighted) {
    run("INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID, Status, ValuationType, ValuationCost1, "
        "ValuationCost2) VALUES ('" +
        code + "', 'x', '" + category + "', '" + subCategory + "', No, " + weighted + ", 77, 77)");
  }

  struct Line {
    int tranType = 22;
    const char* day = "03-01-2026";
    const char* code = "A";
    const char* in = "Null";
    const char* value = "Null";
    const char* flags = "1, No, No";  // FYID, Cancel, InvLedger
    const char* out = "Null";
  };
  int add(const Line& line) {
    const std::string tranNo = std::to_string(++last);
    run("INSERT INTO Transactions (TranNo, DocNo, TranDate, TranType, FYID, Cancel, InvLedger) VALUES (" + tranNo +
        ", 1, #" + line.day + "#, " + std::to_string(line.tranType) + ", " + line.flags + ")");
    run("INSERT INTO StockFlow (TranNo, ItemCode, StockIn, StockOut, ItemValue) VALUES (" + tranNo + ", '" + line.code +
        "', " + line.in + ", " + line.out + ", " + line.value + ")");
    return last;
  }
  double cost(const std::string& code, const char* column = "ValuationCost2") {
    const store::Recordset item(context.KORDconn, "select * from StockLevel3 where ItemCode='" + code + "'");
    return item.number(column);
  }
  void compute() { computeWeightedCosts(context.KORDconn, 1, {.day = yearEnd}, ItemCost::AtClosing); }

  int last = 5000;
  test::NewCompany company;
  session::LoginContext context{schema::companyCatalog()};
};

TEST_F(WeightedCost, AveragesTheReceiptsOfTheYear) {
  struct Case {
    const char* what;
    std::vector<Line> lines;
    double expected;
    const char* code = "A";
  };
  const std::vector<Line> bought = {{.in = "10", .value = "1000"}, {.in = "30", .value = "6000"}};
  const auto boughtAnd = [&bought](Line line) {
    std::vector<Line> lines = bought;
    lines.push_back(line);
    return lines;
  };
  const Case cases[] = {
      {"two purchases", bought, 175},
      {"a sale", boughtAnd({.tranType = 32, .value = "900", .out = "5"}), 175},
      {"a purchase return", boughtAnd({.tranType = 25, .value = "1000", .out = "10"}), 175},
      {"a sale return", boughtAnd({.tranType = 35, .in = "5", .value = "5000"}), 175},
      {"a transfer into a location", boughtAnd({.tranType = 43, .in = "40", .value = "40"}), 175},
      {"a gate pass", boughtAnd({.tranType = 20, .in = "40", .value = "40"}), 175},
      {"a cancelled bill", boughtAnd({.in = "40", .value = "40", .flags = "1, Yes, No"}), 175},
      {"a bill whose gate pass moved the goods", boughtAnd({.in = "40", .value = "40", .flags = "1, No, Yes"}), 175},
      {"a bill of another year", boughtAnd({.in = "40", .value = "40", .flags = "2, No, No"}), 175},
      {"a bill after the year", boughtAnd({.day = "01-01-2027", .in = "40", .value = "40"}), 175},
      {"a bill on the last day", boughtAnd({.day = "12-31-2026", .in = "40", .value = "1000"}), 100},
      {"opening stock", boughtAnd({.tranType = 11, .day = "12-31-2025", .in = "40", .value = "1000"}), 100},
      {"the other kind of purchase", boughtAnd({.tranType = 21, .in = "40", .value = "1000"}), 100},
      {"production", boughtAnd({.tranType = 42, .in = "40", .value = "1000"}), 100},
      {"an adjustment", boughtAnd({.tranType = 45, .in = "40", .value = "1000"}), 100},
      {"material of production", boughtAnd({.tranType = 42, .value = "1000", .out = "40"}), 175},
      {"a code in other letters", boughtAnd({.code = "a", .in = "40", .value = "1000"}), 100},
      {"a quantity of nothing", {{.in = "0", .value = "50"}}, 0},
      {"a quantity below nothing", {{.in = "-3", .value = "50"}}, 0},
      {"no values", {{.in = "3"}}, 0},
      {"a third", {{.in = "3", .value = "1"}}, 0.333333333333333},
      {"next to nothing", {{.in = "1000000", .value = "1"}}, 0.000001},
      {"very much", {{.in = "1", .value = "1234567890123456789"}}, 1.23456789012346e18},
      {"less than nothing", {{.in = "4", .value = "-10"}}, -2.5},
      {"no receipts", {{.tranType = 32, .value = "5", .out = "1"}}, typed},
      {"manual cost", {{.code = "Manual", .in = "2", .value = "10"}}, typed, "Manual"},
      {"a service", {{.code = "Work", .in = "2", .value = "10"}}, typed, "Work"},
      {"an apostrophe", {{.code = "O''Ring", .in = "2", .value = "10"}}, 5, "O''Ring"},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.what);
    run("delete * from Transactions where TranNo>5000");
    run("update StockLevel3 set ValuationCost2=77");
    for (const Line& line : one.lines) add(line);
    compute();
    EXPECT_EQ(cost(one.code), one.expected);
    EXPECT_EQ(cost("B"), typed) << "an item that no line names";
    EXPECT_EQ(cost(one.code, "ValuationCost1"), typed);
  }
}

TEST_F(WeightedCost, IsThatOfTheDayUntilTheYearEndIsComputedAgain) {
  add({.day = "03-01-2026", .in = "10", .value = "1000"});
  add({.day = "09-01-2026", .in = "30", .value = "6000"});
  const auto costUpTo = [this](const CostBound& bound, ItemCost which) {
    computeWeightedCosts(context.KORDconn, 1, bound, which);
    return cost("A", which == ItemCost::AtClosing ? "ValuationCost2" : "ValuationCost1");
  };
  using enum CostBound::Days;
  const DateTime second = DateTime::fromCalendar(2026, 9, 1);
  EXPECT_EQ(costUpTo({second, UpTo}, ItemCost::AtClosing), 175);
  EXPECT_EQ(costUpTo({second, Before}, ItemCost::AtClosing), 100);
  EXPECT_EQ(costUpTo({second, Before}, ItemCost::AtOpening), 100);
  EXPECT_EQ(costUpTo({DateTime::fromCalendar(2026, 2, 1), Before}, ItemCost::AtOpening), 100)
      << "before the first receipt the old cost stays";
  EXPECT_EQ(cost("A"), 100);
  context.Costs.settle(context.KORDconn, context.FYID, context.FinancialYearEnd);
  EXPECT_EQ(cost("A"), 100) << "nobody asked for it";
  context.Costs.arm();
  context.Costs.settle(context.KORDconn, context.FYID, context.FinancialYearEnd);
  EXPECT_EQ(cost("A"), 175);
  EXPECT_FALSE(context.Costs.areArmed());
}

TEST_F(WeightedCost, FollowsACancelledBillAtTheNextRun) {
  add({.in = "10", .value = "1000"});
  const int second = add({.in = "30", .value = "6000"});
  compute();
  run("update Transactions set Cancel=Yes where TranNo=" + std::to_string(second));
  EXPECT_EQ(cost("A"), 175);
  compute();
  EXPECT_EQ(cost("A"), 100);
}

// Screens that show items need not read them again when the run changes nothing.
TEST_F(WeightedCost, WritesOnlyWhatDiffersAndAllOrNothing) {
  add({.in = "3", .value = "1"});
  add({.code = "B", .in = "3", .value = "2"});
  compute();
  const std::int64_t written = context.KORDconn.generationOf("StockLevel3");
  compute();
  EXPECT_EQ(context.KORDconn.generationOf("StockLevel3"), written);
  run("update StockLevel3 set ValuationCost2=77 where ItemCode='B'");
  const std::int64_t one = context.KORDconn.generationOf("StockLevel3");
  compute();
  EXPECT_EQ(context.KORDconn.generationOf("StockLevel3"), one + 1);

  store::Connection::Transaction another(context.KORDconn);
  EXPECT_THROW(compute(), store::StoreError);
  context.Costs.arm();
  EXPECT_THROW(context.Costs.settle(context.KORDconn, context.FYID, context.FinancialYearEnd), store::StoreError);
  EXPECT_FALSE(context.Costs.areArmed()) << "a failed run does not come back with every screen";
}

// By whomever it was changed. A program that holds the file would make a run wait.
TEST_F(WeightedCost, AreComputedAgainOnlyWhenSomethingChanged) {
  sqlite3* other = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open("Uninstall/Uninstall.MDB", &other));
  const auto inOther = [other](const char* sql) { return sqlite3_exec(other, sql, nullptr, nullptr, nullptr); };
  const auto settle = [this] {
    context.Costs.arm();
    context.Costs.settle(context.KORDconn, context.FYID, context.FinancialYearEnd);
  };
  add({.in = "10", .value = "1000"});
  settle();
  EXPECT_EQ(cost("A"), 100);
  ASSERT_EQ(SQLITE_OK, inOther("BEGIN IMMEDIATE"));
  EXPECT_NO_THROW(settle()) << "nothing changed";
  ASSERT_EQ(SQLITE_OK, inOther("UPDATE StockLevel3 SET ValuationCost2 = 5 WHERE ItemCode = 'A'; COMMIT"));
  settle();
  EXPECT_EQ(cost("A"), 100);
  const int second = add({.in = "30", .value = "6000"});
  settle();
  EXPECT_EQ(cost("A"), 175);
  run("update Transactions set TranType=35 where TranNo=" + std::to_string(second));
  settle();
  EXPECT_EQ(cost("A"), 100);
  computeWeightedCosts(context.KORDconn, 1, {.day = DateTime::fromCalendar(2026, 1, 1)}, ItemCost::AtClosing);
  run("update StockFlow set ItemValue=500 where TranNo=" + std::to_string(second - 1));
  {
    store::Connection::Transaction undone(context.KORDconn);
    run("update StockFlow set ItemValue=700 where TranNo=" + std::to_string(second - 1));
  }
  settle();
  EXPECT_EQ(cost("A"), 50);
  run("update StockLevel3 set ValuationType=No, ValuationCost2=9 where ItemCode='A'");
  settle();
  EXPECT_EQ(cost("A"), 9);
  run("update StockLevel3 set ValuationType=Yes where ItemCode='A'");
  settle();
  EXPECT_EQ(cost("A"), 50);
  context.FinancialYearEnd = DateTime::fromCalendar(2026, 2, 1);
  run("update StockLevel3 set ValuationCost2=9 where ItemCode='A'");
  settle();
  EXPECT_EQ(cost("A"), 9) << "no receipts by then";
  context.FinancialYearEnd = yearEnd;
  settle();
  EXPECT_EQ(cost("A"), 50) << "another year's end";
  sqlite3_close(other);
}

}  // namespace
}  // namespace velmo::valuation
