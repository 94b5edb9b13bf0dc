#include <gtest/gtest.h>

#include "store/sql/dialect_store.h"

namespace velmo::test {
namespace {

using Rows = std::vector<std::string>;

struct RowsCase {
  const char* statement;
  Rows rows;
};

void expectRows(const std::vector<RowsCase>& cases) {
  DialectStore store;
  for (const RowsCase& sample : cases) EXPECT_EQ(store.rows(sample.statement), sample.rows) << sample.statement;
}

TEST(Bind, AliasesStandForTheirDefinitions) {
  expectRows({
      {"SELECT [Total]*2 AS Twice, Quantity+1 AS Total FROM Sales WHERE SaleNo=1", {"12.0|6.0"}},
      {"SELECT Sum(IIf(IsNull([quantity]),0,[quantity])) AS Q, Count(*) AS N, [Q]-[N] AS Diff, Abs([diff]) AS D "
       "FROM Sales",
       {"10.0|4|6.0|6.0"}},
      // The alias goes before the column of its name,
      {"SELECT Sales.Rate*10 AS Quantity, Quantity+1 AS More FROM Sales WHERE SaleNo=1", {"20.0|21.0"}},
      // except where the alias itself is made of that column.
      {"SELECT IIf(Cancel, Rate, '') AS Rate, IIf(Cancel, '', Rate) AS Other FROM Sales WHERE SaleNo=1", {"|2"}},
      {"SELECT ItemCode, Rate*-1 AS Worst FROM Sales WHERE Cancel=No ORDER BY Worst, ItemCode",
       {"B2|-10.0", "a1|-2.5", "A1|-2.0"}},
      {"SELECT Party, Count(*) AS Lines FROM Sales GROUP BY Party HAVING Lines>1", {"12001001|2"}},
  });
}

TEST(Bind, NamesTheColumnsOfTheResult) {
  const DialectStore store;
  const auto columns = store
                           .compiled(
                               "SELECT sales.itemcode, Items.ItemCode, 1+1, Sum(rate), min(SALEDATE) AS d FROM Sales "
                               "INNER JOIN Items ON Sales.ItemCode=Items.ItemCode GROUP BY Sales.ItemCode, "
                               "Items.ItemCode")
                           .columns;
  std::string names;
  for (const auto& column : columns) names += column.name + " ";
  EXPECT_EQ(names, "Sales.ItemCode Items.ItemCode Expr1000 Expr1001 d ");
  EXPECT_EQ(columns[3].type, store::ColumnType::Double);
  EXPECT_EQ(columns[4].type, store::ColumnType::Date);
  EXPECT_EQ(columns[0].table, "");

  const auto plain = store.compiled("SELECT s.[Desc], s.Cancel, s.Rate & '' AS r FROM Sales AS s").columns;
  EXPECT_EQ(plain[0].table + "/" + plain[0].tableAlias + "/" + plain[0].column, "Sales/s/Desc");
  EXPECT_EQ(plain[1].type, store::ColumnType::YesNo);
  EXPECT_EQ(plain[2].table + plain[2].column, "");
}

TEST(Bind, JoinsKeepTheirMeaningWithoutParentheses) {
  const Rows all = {"1|Anchor", "2|Anchor", "3|Bolt 100%", "4|Bolt 100%", "null|Émail"};
  expectRows({
      {"SELECT SaleNo, ItemName FROM Items LEFT JOIN Sales ON Items.ItemCode=Sales.ItemCode ORDER BY ItemName, SaleNo",
       all},
      {"SELECT SaleNo, ItemName FROM Sales RIGHT JOIN Items ON Items.ItemCode=Sales.ItemCode ORDER BY ItemName, SaleNo",
       all},
      {"SELECT SaleNo, Serial FROM Money INNER JOIN (Items LEFT JOIN Sales ON Items.ItemCode=Sales.ItemCode) ON "
       "Money.Serial=Items.Blocked+1 ORDER BY SaleNo",
       {"1|1", "2|1", "3|1", "4|1"}},
      {"SELECT ItemName, n FROM Items LEFT JOIN [SELECT ItemCode, Count(*) AS n FROM Sales WHERE Cancel=No GROUP BY "
       "ItemCode]. AS q ON Items.ItemCode=q.ItemCode ORDER BY ItemName",
       {"Anchor|2", "Bolt 100%|1", "Émail|null"}},
      {"SELECT a.SaleNo, b.SaleNo FROM (Sales AS a INNER JOIN Sales AS b ON a.SaleDate=b.SaleDate AND "
       "a.SaleNo<b.SaleNo) LEFT JOIN (Items INNER JOIN Money ON Money.Serial=1) ON Items.ItemCode=a.ItemCode",
       {"2|3"}},
      {"SELECT Count(*) FROM Items, Sales WHERE Items!ItemCode=Sales!ItemCode", {"4"}},
  });
}

TEST(Bind, GroupsIgnoreCaseAndTakeExpressions) {
  expectRows({
      {"SELECT Count(*) FROM Sales GROUP BY ItemCode ORDER BY ItemCode", {"2", "2"}},
      {"SELECT [ItemCode] & ' ' & [Party] AS Ref, Sum(Rate) FROM Sales GROUP BY [ItemCode] & ' ' & [Party] ORDER BY 1",
       {"A1 12001001|2.0", "a1 12001002|2.5", "B2 12001001|9.0", "B2 21001001|10.0"}},
      {"SELECT DISTINCT ItemCode & '' AS Code FROM Sales ORDER BY ItemCode & ''", {"A1", "B2"}},
      // A constant is no column's number.
      {"SELECT SaleNo, Yes AS y FROM Sales WHERE SaleNo<3 ORDER BY y, -Yes, -(-No), Rate DESC", {"2|-1", "1|-1"}},
      {"SELECT Sum(Party) AS s, No AS n FROM Sales WHERE SaleNo=4 GROUP BY No, -Yes, -(Party>0)", {"21001001.0|0"}},
      {"SELECT No AS n, Count(*) AS c FROM Sales WHERE SaleNo>9 GROUP BY No", {}},
      {"SELECT q.n FROM (SELECT TOP 1 -Yes AS n FROM Sales ORDER BY -Yes) AS q", {"1", "1", "1", "1"}},
      {"SELECT Sum(Quantity), Avg(Quantity), Min(Rate), Max(ItemCode), Count(Quantity) FROM Sales WHERE SaleNo>9",
       {"null|null|null|null|0"}},
  });
}

TEST(Bind, FirstAndLastFollowTheOrderOfTheRows) {
  expectRows({
      {"SELECT ItemCode, First(SaleNo), Last(Rate) FROM Sales GROUP BY ItemCode", {"A1|1|2.5", "B2|3|10.0"}},
      {"SELECT Last(q.SaleNo), First(q.SaleNo) FROM (SELECT SaleNo, Rate FROM Sales ORDER BY Rate DESC) AS q", {"1|4"}},
      {"SELECT Last(q.n) FROM (SELECT p.SaleNo AS n FROM (SELECT SaleNo FROM Sales ORDER BY Rate DESC) AS p) AS q",
       {"1"}},
      {"SELECT Items.ItemCode, Last(q.SaleNo) FROM Items LEFT JOIN (SELECT ItemCode, SaleNo FROM Sales) AS q ON "
       "Items.ItemCode=q.ItemCode GROUP BY Items.ItemCode ORDER BY Items.ItemCode",
       {"A1|2", "B2|4", "C3|null"}},
      // The rows of a join in parentheses tell their order too, as far down as they stand.
      {"SELECT Money.Serial, First(Items.ItemCode), Last(Sales.SaleNo) FROM Money LEFT JOIN (Items INNER JOIN Sales ON "
       "Items.ItemCode=Sales.ItemCode) ON Money.Serial<Sales.SaleNo GROUP BY Money.Serial",
       {"1|A1|4"}},
      {"SELECT Last(q.c) FROM (SELECT Items.ItemCode AS c FROM Money LEFT JOIN (Items LEFT JOIN (Sales INNER JOIN "
       "Items AS i ON i.ItemCode=Sales.ItemCode) ON Items.ItemCode=i.ItemCode) ON Money.Serial<5) AS q",
       {"C3"}},
  });
}

TEST(Bind, TopGivesTheTiesOfItsLastRow) {
  expectRows({
      {"SELECT TOP 2 SaleNo FROM Sales ORDER BY SaleDate DESC", {"4", "2", "3"}},
      {"SELECT TOP 1 SaleNo, Rate*2 AS r FROM Sales ORDER BY 2 DESC", {"4|20.0"}},
      {"SELECT TOP 1 ItemCode, Count(*) AS n FROM Sales GROUP BY ItemCode ORDER BY Count(*) DESC", {"A1|2", "B2|2"}},
      {"SELECT TOP 1 Serial FROM Money", {"1"}},
      {"SELECT TOP 1 Rate AS Party, Sales.Party, Rate, Rate FROM Sales ORDER BY SaleNo", {"2.0|12001001|2.0|2.0"}},
  });
}

TEST(Bind, WritesOneTable) {
  struct ChangeCase {
    const char* change;
    const char* select;
    Rows rows;
  };
  const ChangeCase cases[] = {
      {"delete * from sales where quantity is null or itemcode like 'A1'", "select saleno from sales", {"4"}},
      {"delete Sales.* from Sales inner join Items on Sales.ItemCode=Items.ItemCode where Price>5",
       "select saleno from sales order by 1",
       {"1", "2"}},
      {"delete Sales.* from Money left join (Sales inner join Items on Sales.ItemCode=Items.ItemCode) on "
       "Money.Serial=Sales.SaleNo",
       "select saleno from sales order by 1",
       {"2", "3", "4"}},
      {"update Money left join (Items inner join Sales on Sales.ItemCode=Items.ItemCode) on Sales.SaleNo=Money.Serial "
       "set Items.Price=Money.Serial+Sales.Rate",
       "select price from items where itemcode<>'C3' order by itemcode",
       {"3.0", "10.0"}},
      {"insert into Money select top 1 Rate/3, ItemCode & '  ' from Sales order by Rate desc",
       "select * from money order by 1",
       {"1|Rs", "3|B2"}},
      {"update items set items.price=7.5, blocked=5 where items.itemcode='a1' and [blocked]=no",
       "select price, blocked from items where itemcode='A1'",
       {"7.5|-1"}},
      {"update Sales inner join Items on Sales.ItemCode=Items.ItemCode set Sales.Rate=Items.Price*2, Sales.[Desc]=5 & "
       "'x '",
       "select rate, desc from sales where saleno<>2 order by saleno",
       {"5.0|5x", "20.0|5x", "20.0|5x"}},
      {"update Items set ItemName='tail  ', Price='1,250.50'",
       "select distinct itemname, price from items",
       {"tail|1250.5"}},
      {"update Sales set Party=2.5, SaleDate=#3/1/2024 2:07:09 PM#",
       "select top 1 party, saledate from sales",
       {"2|2024-03-01 14:07:09"}},
      {"insert into Sales (ItemCode, Cancel, SaleDate) values ('Q', True, Null)",
       "select itemcode, cancel, saledate from sales where saleno=5",
       {"Q|-1|null"}},
      {"insert into Money select SaleNo, [Desc] from Sales where Saleno>3",
       "select * from money order by 1",
       {"1|Rs", "4|last"}},
      {"UPDATE Money SET Money.Code\u00A0\u00A0 = '$' WHERE Money.Serial=1",
       "select [Code\u00A0\u00A0] from Money",
       {"$"}},
  };
  for (const ChangeCase& sample : cases) {
    DialectStore store;
    EXPECT_EQ(store.rowsAfter(sample.change, sample.select), sample.rows) << sample.change;
  }
}

TEST(Bind, SearchesByIndex) {
  DialectStore store;
  for (const char* statement :
       {"select saleno from Sales where itemcode like 'A1'", "select saleno from Sales where itemcode='a1  '",
        "select saleno from Sales where (((itemcode) Like 'A1') and cancel=no)",
        "select Party, Sum(rate) AS r, [r]*2 AS rr from Sales group by Party, Cancel having ((Party=12001001) and "
        "(Cancel=No))",
        "select saleno from Sales where party between 12001002 and 12001001"}) {
    EXPECT_NE(store.plan(statement).find("SEARCH Sales USING"), std::string::npos)
        << statement << store.plan(statement);
  }
}

TEST(Bind, TakesApartASelectOfOneTable) {
  const DialectStore store;
  const auto single =
      store
          .compiled("select itemcode, rate*2 as r from sales where cancel=no and rate>5 order by saledate desc, saleno")
          .singleTable;
  ASSERT_TRUE(single.has_value());
  EXPECT_EQ(single->table, "Sales");
  EXPECT_EQ(single->columnsSql, "\"Sales\".\"ItemCode\" AS \"ItemCode\", (\"Sales\".\"Rate\" * ?1) AS \"r\"");
  EXPECT_EQ(single->whereSql, "((\"Sales\".\"Cancel\" = 0) AND (\"Sales\".\"Rate\" > ?2))");
  ASSERT_EQ(single->order.size(), 2u);
  EXPECT_TRUE(single->order[0].column == "SaleDate" && single->order[0].descending);
  for (const char* statement :
       {"select count(*) from sales", "select top 2 * from sales", "select distinct rate from sales",
        "select * from sales, money", "select * from sales order by rate*2"}) {
    EXPECT_FALSE(store.compiled(statement).singleTable.has_value()) << statement;
  }
}

}  // namespace
}  // namespace velmo::test
