#include "store/sql/statements.h"

namespace velmo::test {

namespace {

const std::string quantities =
    R"(IIf(IsNull([StockIn]),0,[StockIn]) AS StocksIn, IIf(IsNull([Stockout]),0,[Stockout]) AS Stocksout, [Stocksin]-[Stocksout] AS Bal)";
const std::string movesStock = "AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No)";
const std::string lines = "Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo";

std::string weightedCosts() {
  return R"(SELECT StockCosts.ItemCode, Sum(StockCosts.StockIn) AS Quantity, Sum(StockCosts.ItemValue) AS ItemValues, IIF([Quantity]>0, [ItemValues]/[Quantity], 0) AS WeightedCosts FROM (SELECT StockFlow.ItemCode, StockFlow.StockIn, StockFlow.ItemValue FROM Transactions INNER JOIN (Stocklevel3 INNER JOIN StockFlow ON Stocklevel3.ItemCode = StockFlow.ItemCode) ON Transactions.TranNo = StockFlow.TranNo WHERE (((StockFlow.StockIn) Is Not Null) AND ((Stocklevel3.CatID) Not like 'Service') AND ((Transactions.FYID)=2) AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ((Transactions.TranType)=11 Or (Transactions.TranType)=21 Or (Transactions.TranType)=22 Or (Transactions.TranType)=42 Or (Transactions.TranType)=45) AND ((Transactions.TranDate)<=#06-30-2026#))) as StockCosts GROUP BY StockCosts.ItemCode)";
}

std::string stockValue(const std::string& cost, const std::string& until) {
  return "SELECT stocklevel3.ItemCode, stocklevel3.valuationCost" + cost +
         R"(, stocklevel3.CatID, Sum(Query1.StocksIn) AS SumOfStocksIn, Sum(Query1.Stocksout) AS SumOfStocksout, Sum(Query1.Bal) AS SumOfBal, Sum([Query1].[Bal]*[stocklevel3].[valuationCost)" +
         cost + "]) AS BalValue FROM (SELECT StockFlow.ItemCode, " + quantities + " FROM " + lines +
         " WHERE (((Transactions.TranDate)" + until + ") AND ((Transactions.FYID)=2) " + movesStock +
         R"()) as Query1 INNER JOIN stocklevel3 ON Query1.ItemCode = stocklevel3.ItemCode GROUP BY stocklevel3.ItemCode, stocklevel3.valuationcost)" +
         cost + ", stocklevel3.CatID HAVING (((stocklevel3.CatID) Not like 'Service')) ORDER BY stocklevel3.ItemCode";
}

std::string stockCard(const std::string& location, const std::string& dates) {
  return R"(SELECT Transactions.TranNo, Transactions.TranType, Transactions.TranDate, Trantype.Name & ' No. ' & Transactions.docno AS TranRefLong, Trantype.short & ' ' & Transactions.docno AS TranRefShort, Transactions.Text1, StockFlow.StockIn, StockFlow.StockOut, StockFlow.Unit, StockFlow.Rate, StockFlow.GrossAmt, StockFlow.DiscRate, StockFlow.DiscAmt, StockFlow.ItemValue, StockFlow.Balance, StockLocation.LocationName FROM TranType INNER JOIN (Transactions INNER JOIN (StockFlow INNER JOIN StockLocation ON StockFlow.LocationID = StockLocation.LocationID) ON Transactions.TranNo = StockFlow.TranNo) ON TranType.TranType = Transactions.TranType WHERE (((Transactions.FYID)=2) )" +
         movesStock + location + dates +
         " AND ((StockFlow.ItemCode) Like 'A-100')) ORDER BY Transactions.TranDate, StockFlow.FlowId";
}

std::string manyCards(const std::string& selection, const std::string& dates) {
  const std::string inYear =
      "((Transactions.FYID) = 2) And ((Transactions.Cancel) = No) And ((Transactions.InvLedger) = No))";
  return R"(Shape {SELECT MainBal.ItemCode, MainBal.ItemName, ([MainBal].[ItemCode] & '   ' & [MainBal].[ItemName]) AS InvName, MainBal.OpBalance, Last(IIf(IsNull([Balance]),[OpBalance],[Balance])) AS ClBalance FROM (SELECT StockLevel3.ItemCode, StockLevel3.ItemName, Sum(IIf(IsNull([StockIn]),0,[StockIn])) AS StocksIn, Sum(IIf(IsNull([StockOut]),0,[StockOut])) AS StocksOut, [StocksIn]-[StocksOut] AS OpBalance FROM (SELECT Transactions.TranDate, StockFlow.ItemCode, StockFlow.StockIn, StockFlow.StockOut FROM )" +
         lines +
         R"( WHERE ((Transactions.TranDate)<#09-01-2025#) AND (Transactions.Cancel)=No AND (Transactions.InvLedger)=No AND (Transactions.FYID)=2) AS ABal RIGHT JOIN StockLevel3 ON ABal.ItemCode = StockLevel3.ItemCode GROUP BY StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.SubCatID, StockLevel3.CatID HAVING StockLevel3.CatID not like 'Service')" +
         selection +
         R"() AS MainBal LEFT JOIN (SELECT StockFlow.ItemCode, Transactions.TranDate, StockFlow.FlowId, StockFlow.Balance FROM )" +
         lines + " Where (" + dates + inYear +
         R"( GROUP BY StockFlow.ItemCode, Transactions.TranDate, StockFlow.FlowId, StockFlow.Balance ORDER BY StockFlow.ItemCode, Transactions.TranDate, StockFlow.FlowId) AS SubBal ON MainBal.ItemCode = SubBal.ItemCode GROUP BY MainBal.ItemCode, MainBal.ItemName, ([MainBal].[ItemCode] & '   ' & [MainBal].[ItemName]), MainBal.OpBalance Order By MainBal.ItemCode} as ParentCmd append ({SELECT Transactions.TranNo, Transactions.TranDate, [Trantype].[short] & ' ' & [Transactions].[docno] AS TranRefShort, Transactions.Text1, StockFlow.ItemCode, StockFlow.StockIn, StockFlow.StockOut, StockFlow.Unit, StockFlow.Rate, StockFlow.GrossAmt, StockFlow.DiscRate, StockFlow.DiscAmt, StockFlow.ItemValue, StockFlow.Balance, StockLocation.LocationName FROM (TranType INNER JOIN ()" +
         lines +
         R"() ON TranType.TranType = Transactions.TranType) INNER JOIN StockLocation ON StockFlow.LocationID = StockLocation.LocationID Where ()" +
         dates + inYear +
         " ORDER BY Transactions.TranDate, StockFlow.FlowId} as ChildCmd relate ItemCode to ItemCode) as ChildCmd";
}

std::string stockBalances(const std::string& items, const std::string& location, bool forHierarchy = false) {
  const auto moved = [&](const std::string& until) {
    return " FROM StockLevel3 LEFT JOIN (SELECT StockFlow.ItemCode, " + quantities + " FROM " + lines +
           " WHERE (((Transactions.FYID)=2)" + location + " " + movesStock + " AND ((Transactions.TranDate)" + until +
           "))) AS InvDetails ON StockLevel3.ItemCode = InvDetails.ItemCode Where (" + items +
           ") GROUP BY StockLevel3.ItemCode, StockLevel3.ItemName";
  };
  const std::string more = forHierarchy ? ", StockLevel3.CatID, StockLevel3.SubCatID" : "";
  return std::string(
             R"(SELECT OpBalances.ItemCode, OpBalances.ItemName, OpBalances.OpBal, [ClStocksIn]-[OpStocksIn] AS QtyIn, [ClStocksOut]-[OpStocksOut] AS QtyOut, ClBalances.ClBal, OpBalances.Unit, OpBalances.ValuationCost2, [ClBal]*[ValuationCost2] AS ItemValues)") +
         (forHierarchy ? ", OpBalances.CatID, OpBalances.SubCatID" : "") +
         R"( FROM (SELECT StockLevel3.ItemCode, StockLevel3.ItemName, Sum(InvDetails.StocksIn) AS OpStocksIn, Sum(InvDetails.Stocksout) AS OpStocksOut, Sum(InvDetails.Bal) AS OpBal, StockLevel3.Unit, StockLevel3.ValuationCost2)" +
         more + moved("<#09-01-2025#") + ", StockLevel3.Unit, StockLevel3.ValuationCost2" + more +
         R"() as OpBalances INNER JOIN (SELECT StockLevel3.ItemCode, StockLevel3.ItemName, Sum(InvDetails.StocksIn) AS ClStocksIn, Sum(InvDetails.Stocksout) AS ClStocksOut, Sum(InvDetails.Bal) AS ClBal)" +
         moved("<=#06-30-2026#") +
         R"() as ClBalances ON OpBalances.ItemCode = ClBalances.ItemCode WHERE ((ClBalances.ClBal)<>0) Order By OpBalances.ItemCode)";
}

std::string printOfBalances(const std::string& category, const std::string& sub, const std::string& brand) {
  return "SHAPE {select * from stocklevel1 where " + category +
         " order by catid} AS Level1 APPEND (( SHAPE {select * from stocklevel2" + sub +
         " order by subcatid} AS Level2 APPEND ({" + stockBalances("(stocklevel3.BrandID) " + brand, "", true) +
         "} AS Level3 RELATE 'subcatID' TO 'subcatID') AS level3) AS level2 RELATE 'catID' TO 'catID') AS level2";
}

}  // namespace

Statements inventoryStatements() {
  const std::string picker =
      "SELECT ItemCode, ItemName, (ItemCode & '  (' & ItemName & ')') as InvItem from Stocklevel3 Where CatId ";
  const std::string period =
      " AND ((Transactions.TranDate) >= #07-01-2025#) And ((Transactions.TranDate) <= #09-30-2025#)";
  const std::string printPeriod =
      "(((Transactions.TranDate) >= #07-01-2025#) And (Transactions.TranDate) <= #09-30-2025#) And ";
  const std::string goods = "((stocklevel3.CatID) Not like 'Service')";
  return {
      {"weighted costs of the year", weightedCosts()},
      {"closing cost of an item",
       R"(update stocklevel3 set stocklevel3.valuationcost2=175.5 where stocklevel3.itemcode='A-100' and [valuationtype]=yes)"},
      {"opening cost of an item",
       R"(update stocklevel3 set stocklevel3.valuationcost1=166.666666666667 where stocklevel3.itemcode='A-100' and [valuationtype]=yes)"},
      {"closing stock value", stockValue("2", "<=#06-30-2026#")},
      {"opening stock value", stockValue("1", "<#09-01-2025#")},
      {"lines with a serial",
       R"(SELECT Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, [Trantype].[short] & ' ' & [Transactions].[docno] AS TranRefShort, Transactions.TranType, Transactions.Text1, Transactions.Text2, Transactions.Text3, Transactions.FYID, StockFlow.ItemCode, StockFlow.ItemName, StockFlow.ProductSerials FROM TranType INNER JOIN ()" +
           lines +
           R"() ON TranType.TranType = Transactions.TranType WHERE (((Transactions.FYID)=2) AND ((StockFlow.ProductSerials) like '%SN-7%')) ORDER BY Transactions.TranDate, Transactions.TranNo)"},
      {"goods to pick", picker + "not like 'Service' order by ItemCode"},
      {"goods to pick by text",
       picker + "not like 'Service' and (ItemCode & '  (' & ItemName & ')') like '%bolt%' order by ItemCode"},
      {"services to pick", picker + "like 'Service' order by ItemCode"},
      {"sub categories to print",
       "SELECT SubCatID, SubCatName, CatID from Stocklevel2 where catid like 'GDS' order by subcatname"},
      {"quantity brought forward of an item",
       R"(SELECT StockFlow.ItemCode, Sum(IIf(IsNull([stockin]),0,[stockin])) AS SumIn, Sum(IIf(IsNull([stockout]),0,[stockout])) AS SumOut, [sumin]-[sumout] AS OBalance FROM )" +
           lines +
           R"( Where (((Transactions.TranDate) < #09-01-2025#) And ((Transactions.Cancel) = No) AND ((Transactions.InvLedger)=No) And ((Transactions.FYID) = 2) AND ((StockFlow.LocationID)=1)) GROUP BY StockFlow.ItemCode HAVING StockFlow.ItemCode='a-100')"},
      {"stock card", stockCard(" AND ((StockFlow.LocationID)>0)", "")},
      {"stock card of a location for a period", stockCard(" AND ((StockFlow.LocationID)=1)", period)},
      {"running quantities",
       R"(SELECT Transactions.TranNo, Transactions.TranDate, StockFlow.ItemCode, StockFlow.FlowId, StockFlow.StockIn, StockFlow.StockOut, StockFlow.Balance FROM )" +
           lines +
           R"( Where (((Transactions.FYID) = 2) And ((Transactions.Cancel) = No) And ((Transactions.InvLedger) = No)) ORDER BY StockFlow.ItemCode, Transactions.TranDate, StockFlow.FlowId)"},
      {"stock cards of all items", manyCards("", "")},
      {"stock cards of a category", manyCards(" AND StockLevel3.CatID like 'GDS'", "")},
      {"stock cards of a sub category for a period", manyCards(" AND StockLevel3.SubCatID like 'GDS01'", printPeriod)},
      {"stock cards of a range", manyCards(" AND StockLevel3.ItemCode>='A-100' and StockLevel3.ItemCode<='b-200'", "")},
      {"stock balances", stockBalances(goods, "")},
      {"stock balances of a location", stockBalances(goods, " AND ((StockFlow.LocationID)=1)")},
      {"stock balances of a brand's category",
       stockBalances("((stocklevel3.CatID) like 'GDS') And ((stocklevel3.BrandID) = 2)", "")},
      {"stock balances of a sub category", stockBalances("((stocklevel3.SubCatID) like 'GDS01')", "")},
      {"stock balances of a range",
       stockBalances("((stocklevel3.ItemCode) >= 'a-100') AND ((stocklevel3.ItemCode) <= 'B-200')", "")},
      {"print of stock balances", printOfBalances("CatID Not like 'Service'", "", "> 0")},
      {"print of a sub category's balances",
       printOfBalances("CatID like 'GDS'", " Where SubCatID like 'GDS01'", "= 2")},
      {"stock to carry over",
       R"(SELECT StockLevel3.ItemCode, StockLevel3.ItemName, InvDetails.LocationID, InvDetails.Bal, StockLevel3.Unit, StockLevel3.ValuationCost2, [Bal]*[ValuationCost2] AS StockValue FROM StockLevel3 INNER JOIN (SELECT StockFlow.ItemCode, Sum(IIf(IsNull([StockIn]),0,[StockIn])) AS StocksIn, Sum(IIf(IsNull([Stockout]),0,[Stockout])) AS Stocksout, [Stocksin]-[Stocksout] AS Bal, StockFlow.LocationID FROM )" +
           lines +
           R"( Where (((Transactions.FYID) = 2) And ((Transactions.Cancel) = No) And ((Transactions.InvLedger) = No)) GROUP BY StockFlow.ItemCode, StockFlow.LocationID) AS InvDetails ON StockLevel3.ItemCode = InvDetails.ItemCode WHERE (((StockLevel3.CatID) Not Like 'Service')) ORDER BY StockLevel3.ItemCode)"},
      {"opening stock to add to", "SELECT * from stockflow where TranNo=10"},
  };
}

}  // namespace velmo::test
