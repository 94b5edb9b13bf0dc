#include "store/sql/statements.h"

namespace velmo::test {

namespace {

const std::string shortReference = "[Trantype].[short] & ' ' & [Transactions].[docno] AS TranRefShort, ";

// Sales and purchases differ in their documents, in where the party's classification comes from and in their order.
struct Side {
  std::string invoice, giveBack, from, order;
};
const std::string documents =
    R"(TranType INNER JOIN (Transactions LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID) ON TranType.TranType = Transactions.TranType)";
const Side sale{"32", "35", "(" + documents + ") INNER JOIN AccLevel3 ON Transactions.PartyCode2 = AccLevel3.AccCode",
                "Transactions.DocNo"};
const Side purchase{"22", "25", documents, "Transactions.D1"};
const std::string partyColumns = "AccLevel3.Level2ID, AccLevel3.Region1ID, AccLevel3.Region2ID, AccLevel3.SectorID, ";
const std::string period = " AND ((Transactions.TranDate)>=#07-01-2025# And (Transactions.TranDate)<=#09-30-2025#)";

std::string kinds(const Side& side) {
  return "((Transactions.TranType) = " + side.invoice + ") Or ((Transactions.TranType) = " + side.giveBack + ")";
}

std::string signedAs(const Side& side, const std::string& amount, const std::string& name, bool last = false) {
  return "IIf([Transactions].[TranType]=" + side.giveBack + ",-" + amount + "," + amount + ") AS " + name +
         (last ? "" : ", ");
}

std::string signedAmounts(const Side& side) {
  return signedAs(side, "[TrAmount]", "TotAmount") + signedAs(side, "[Carriage]", "TotCarriage") +
         signedAs(side, "([TrAmount]-[Carriage])", "TotExTax") + signedAs(side, "[Discount]", "TotDiscount") +
         signedAs(side, "([TrAmount]-[Carriage]+[Discount])", "TotGross", true);
}

std::string filtered(const Side& side, const std::string& clauses) {
  return " Where ((" + kinds(side) + ") And ((Transactions.Cancel) = No) And ((Transactions.FYID) = 2)" + clauses + ")";
}

std::string summary(const Side& side, const std::string& clauses, const std::string& printed = "") {
  return "SELECT Transactions.TranNo, Transactions.TranType, Transactions.TranDate, " + shortReference +
         "Transactions.D1, " + (printed.empty() ? "" : "Transactions.Nature, ") +
         "Transactions.Text1, Employees.EmpName, Employees.Department, " + (side.giveBack == "35" ? partyColumns : "") +
         printed + signedAmounts(side) + " FROM " + side.from + filtered(side, clauses) +
         " ORDER BY Transactions.TranDate, " + side.order;
}

std::string summaryPrint(const Side& side, const std::string& names) {
  return "SHAPE {Select TranType, IIf(TranType=" + names +
         " as TypeName from TranType Where ((TranType) = " + side.invoice + ") Or ((TranType) = " + side.giveBack +
         ") order by TranType} AS Types APPEND ({" +
         summary(
             side, "",
             R"(Transactions.TrAmount, Transactions.Carriage, Transactions.Discount, ([Transactions].[TrAmount]-[Transactions].[Carriage]) as TrExclAmount, ([Transactions].[TrAmount]-[Transactions].[Carriage]+[Transactions].[Discount]) as TrGross, )") +
         "} AS Details RELATE 'TranType' TO 'TranType') AS Details";
}

std::string byItem(const Side& side, const std::string& back, const std::string& forth, const std::string& clauses) {
  const bool sales = side.giveBack == "35";
  const std::string employees = "(Transactions LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID)";
  return "SELECT StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.Catid, Sum(IIf(Transactions.Trantype=" +
         side.giveBack + ",-[" + back + "],[" + forth +
         R"(])) AS Quantity, StockLevel3.Unit, Min(StockFlow.Rate) AS MinRate, Max(StockFlow.Rate) AS MaxRate, Avg(StockFlow.Rate) AS AvgRate, Sum(IIf([Transactions].[Trantype]=)" +
         side.giveBack + ",-[ItemValue],[ItemValue])) AS ItemValues FROM " +
         (sales ? "(" + employees + " INNER JOIN AccLevel3 ON Transactions.PartyCode2 = AccLevel3.AccCode)"
                : employees) +
         R"( INNER JOIN (StockLevel3 INNER JOIN StockFlow ON StockLevel3.ItemCode = StockFlow.ItemCode) ON Transactions.TranNo = StockFlow.TranNo)" +
         filtered(side, clauses) +
         R"( GROUP BY StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.Catid, StockLevel3.Unit ORDER BY StockLevel3.ItemCode)";
}

std::string byParty(const Side& side, const std::string& excluding, const std::string& group) {
  const auto total = [&](const std::string& amount, const std::string& name) {
    return "Sum(IIf(TranType=" + side.giveBack + ",-" + amount + "," + amount + ")) AS " + name;
  };
  return "SELECT " + group +
         R"(Transactions.PartyCode2, Transactions.Text1, Transactions.Text2, Transactions.Text4, Transactions.Text5, Count(Transactions.DocNo) AS TotInvoices, Sum(Transactions.TrAmount) AS TotIncAmount, Sum(Transactions.Carriage) AS TtlCarriage, Sum()" +
         excluding + ") AS TotExcAmount, Sum(Transactions.Discount) AS TtlDiscount, " +
         total("TrAmount", "TotTrAmount") + ", " + total("Carriage", "TotCarriage") + ", " +
         total("(TrAmount-Carriage)", "TotExTax") + ", " + total("(Discount)", "TotDiscount") + ", " +
         total("(TrAmount-Carriage+Discount)", "TotGross") +
         R"( FROM (Transactions LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID) INNER JOIN AccLevel3 ON Transactions.PartyCode2 = AccLevel3.AccCode)" +
         filtered(side, "") + " GROUP BY " + group +
         R"(Transactions.PartyCode2, Transactions.Text1, Transactions.Text2, Transactions.Text4, Transactions.Text5 ORDER BY Transactions.Text1)";
}

std::string registerOf(const Side& side, const std::string& quantity) {
  return R"(SELECT Transactions.TranNo, Transactions.TranType, Transactions.TranDate, Transactions.DocNo, Transactions.Text1, StockFlow.ItemName, )" +
         quantity + " AS TotQty, StockFlow.Rate, " + signedAs(side, "[GrossAmt]", "TotExAmt") +
         signedAs(side, "[DiscAmt]", "TotDiscount") + signedAs(side, "[ItemValue]", "TotInAmt", true) +
         R"( FROM ((Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo) LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID) INNER JOIN AccLevel3 ON Transactions.PartyCode2 = AccLevel3.AccCode Where (((Transactions.Cancel) = No) And ((Transactions.FYID) = 2) And ()" +
         kinds(side) + ")) ORDER BY Transactions.TranDate, Transactions.DocNo, StockFlow.Serial";
}

std::string moneyReport(const std::string& kinds, const std::string& clauses) {
  std::string columns =
      "SELECT Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Nature, " + shortReference;
  for (const char* column :
       {"PartyCode", "PartyCode2", "EmpID", "Text1", "Text2", "D1", "D1Date", "Text4", "Desc", "TranType", "Received",
        "Carriage", "Tax1", "Tax2", "AdditionalTax", "Discount", "TrAmount", "FYID"})
    columns += std::string("Transactions.") + column + ", ";
  return columns + "Employees.EmpName FROM " + documents + " Where ((" + kinds +
         ") And ((Transactions.Cancel) = No) And ((Transactions.FYID) = 2)" + clauses + ") ORDER BY Transactions.DocNo";
}

std::string analysis(const std::string& columns, const std::string& back, const std::string& quantity,
                     const std::string& join, const std::string& types, const std::string& order) {
  const auto amount = [&](const std::string& column, const std::string& name) {
    return "IIf([Transactions].[Trantype]=" + back + ",-[" + column + "],[" + column + "]) AS " + name;
  };
  const std::string from =
      R"(TranType INNER JOIN ((Transactions LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID) INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo) ON TranType.TranType = Transactions.TranType)";
  return "SELECT Transactions.TranNo, Transactions.TranType, " + shortReference +
         "Transactions.D1, Transactions.TranDate, Transactions.Text1, Employees.EmpName, Employees.Department, " +
         columns + "StockFlow.ItemCode, StockFlow.ItemName, " + quantity +
         " AS Quantity, StockFlow.Unit, StockFlow.Rate, " + amount("GrossAmt", "GrossAmount") + ", " +
         amount("DiscAmt", "DiscAmount") + ", " + amount("ItemValue", "AmtExclTax") + " FROM " +
         (join.empty() ? from : "(" + from + ")" + join) + " WHERE (((StockFlow.ItemCode) Like 'A-100') AND (" + types +
         ") AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=2)) ORDER BY " + order;
}

std::string profitBy(const std::string& columns, const std::string& group, const std::string& filters) {
  return "SELECT " + columns +
         R"(Sum(InvPLS.ItemValues) AS TSales, Sum(InvPLS.TCost) AS TCosts, Sum(InvPLS.PL) AS TPL FROM (SELECT Transactions.TranDate, Transactions.DocNo, )" +
         shortReference +
         R"(Transactions.PartyCode2, Transactions.Text1, Sum(IIf(Transactions.Trantype=35,-[StockIn],[StockOut])) AS Quantity, Sum(IIf(Transactions.Trantype=35,-[ItemValue],[ItemValue])) AS ItemValues, StockLevel3.ValuationCost2, [Quantity]*[valuationcost2] AS TCost, [ItemValues]-[Tcost] AS PL FROM TranType INNER JOIN (Transactions INNER JOIN (StockLevel3 INNER JOIN StockFlow ON StockLevel3.ItemCode=StockFlow.ItemCode) ON Transactions.TranNo=StockFlow.TranNo) ON TranType.TranType=Transactions.TranType WHERE (((Transactions.TranType)=31 Or (Transactions.TranType)=32 Or (Transactions.TranType)=35) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=2))" +
         filters +
         R"() GROUP BY Transactions.TranDate, Transactions.DocNo, [Trantype].[short] & ' ' & [Transactions].[docno], Transactions.PartyCode2, Transactions.Text1, StockLevel3.ValuationCost2)  AS InvPLS GROUP BY )" +
         group;
}

std::string profitByItem(const std::string& conditions, const std::string& items) {
  return R"(SELECT StockLevel3.ItemCode, StockLevel3.ItemName, IIf(IsNull([Quantity]),0,[Quantity]) AS QtySold, StockLevel3.Unit, IIf(IsNull([ItemValues]),0,[ItemValues]) AS SaleValue, StockLevel3.ValuationCost2, StockLevel3.CatID, StockLevel3.SubCatID, [ValuationCost2]*[QtySold] AS TtlCost, [SaleValue]-[TtlCost] AS Profit FROM StockLevel3 LEFT JOIN (SELECT StockFlow.ItemCode, Sum(IIf(Transactions.Trantype=35,-[StockIn],[StockOut])) AS Quantity, Sum(IIf(Transactions.Trantype=35,-[ItemValue],[ItemValue])) AS ItemValues FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE (((Transactions.TranType)=31 Or (Transactions.TranType)=32 Or (Transactions.TranType)=35) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=2))" +
         conditions +
         R"() GROUP BY StockFlow.ItemCode) as SubSale ON StockLevel3.ItemCode = SubSale.ItemCode Where ((IIf(IsNull([Quantity]),0,[Quantity]))<>0))" +
         items;
}

// Ordered lines against what was delivered for them, by the order's number as text.
struct Tracking {
  std::string orderKey, keyName, link, quantity, orderType;
  std::vector<std::string> deliveries;
  std::string reference;
};
const Tracking saleOrders{"Transactions.D1", "D1", "D1", "StockOut", "93", {"30", "31", "32", "94"}, "SO/1"};
const Tracking purchaseOrders{"CStr([DocNo])", "Doc2", "D2", "StockIn", "92", {"20", "21", "22"}, "5"};

std::string orderLines(const Tracking& t, const std::string& filter, const std::string& having) {
  const bool calculated = t.keyName != t.link;
  const std::string lines = " FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo ";
  std::string types;
  for (const auto& type : t.deliveries)
    types += (types.empty() ? "(Transactions.TranType) = " : " Or (Transactions.TranType) = ") + type;
  return "SELECT SODetail." + t.keyName +
         R"(, SODetail.TranDate, SODetail.Serial, SODetail.ItemCode, SODetail.ItemName, SODetail.PartyCode2, SODetail.Text1, IIf([OrderQty] Is Null,0,[orderqty]) AS QtyOrder, IIf([outqty] Is Null,0,[OutQty]) AS QtyOut, IIf([OrderQty] Is Null,0,[orderqty])-IIf([outqty] Is Null,0,[OutQty]) AS Bal FROM [SELECT )" +
         t.orderKey + (calculated ? " AS Doc2" : "") +
         ", StockFlow.Serial, StockFlow.ItemCode, StockFlow.ItemName, Sum(StockFlow." + t.quantity +
         ") AS OrderQty, Transactions.TranDate, Transactions.PartyCode2, Transactions.Text1" + lines +
         "Where (((Transactions.FYID) = 2" + filter +
         ") And ((Transactions.Cancel) = No) And ((Transactions.TranType) = " + t.orderType + ")) GROUP BY " +
         t.orderKey +
         R"(, StockFlow.Serial, StockFlow.ItemCode, StockFlow.ItemName, Transactions.TranDate, Transactions.PartyCode2, Transactions.Text1 )" +
         having + "]. AS SODetail LEFT JOIN [SELECT Transactions." + t.link +
         ", Transactions.PartyCode2, StockFlow.ItemCode, Sum(StockFlow." + t.quantity +
         ") AS OutQty, Transactions.InvLedger" + lines +
         "Where (((Transactions.Cancel) = No) And ((Transactions.FYID) = 2) And (" + types +
         ")) GROUP BY Transactions." + t.link +
         ", Transactions.PartyCode2, StockFlow.ItemCode, Transactions.InvLedger " + having +
         " AND ((Transactions.InvLedger)=No)]. AS SOExec ON (SODetail.ItemCode = SOExec.ItemCode) AND (SODetail." +
         t.keyName + " = SOExec." + t.link +
         ") AND (SODetail.PartyCode2 = SOExec.PartyCode2) ORDER BY SODetail.Text1, SODetail." + t.keyName +
         ", SODetail.Serial";
}

std::string deliveries(const Tracking& t) {
  std::string types;
  for (const auto& type : t.deliveries)
    types += (types.empty() ? "((Transactions.TranType)=" : " or ((Transactions.TranType)=") + type + ")";
  return "SELECT Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, " + shortReference +
         "Transactions.TranType, Transactions." + t.link +
         R"(, Transactions.PartyCode2, Transactions.FYID, Transactions.Cancel, Transactions.InvLedger, StockFlow.ItemCode, StockFlow.StockIn, StockFlow.StockOut, StockFlow.Unit, StockFlow.Rate, StockFlow.GrossAmt, StockFlow.DiscRate, StockFlow.DiscAmt, StockFlow.ItemValue FROM TranType INNER JOIN (Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo) ON TranType.TranType = Transactions.TranType WHERE (((Transactions.)" +
         t.link + ")='" + t.reference +
         R"(') AND ((Transactions.PartyCode2)=12001002) AND ((Transactions.FYID)=2) AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ()" +
         types + ") AND ((StockFlow.ItemCode) like 'A-100')) Order By Transactions.TranDate";
}

}  // namespace

Statements tradeStatements() {
  const std::string saleTypes =
      "(Transactions.TranType)=31 Or (Transactions.TranType)=32 Or (Transactions.TranType)=35";
  const std::string receipts = "((Transactions.TranType) = 38) OR ((Transactions.TranType) = 39)";
  const std::string fixedParty = "HAVING ((Transactions.PartyCode2)=12001002)",
                    anyParty = "HAVING ((Transactions.PartyCode2)>0)";
  const std::string sales = "35,-[StockIn],[StockOut])",
                    salesByPlainDate = "Transactions.TranDate, [Trantype].[short] & ' ' & [Transactions].[docno]";
  Statements all = {
      {"sub regions of no region", "SELECT * from regions2 where region1id=0 order by region2name"},
      {"sale summary", summary(sale, "")},
      {"purchase summary", summary(purchase, "")},
      {"purchase summary, filtered",
       summary(purchase,
               period + " And (left(Transactions.PartyCode2,5) = 21001) And ((Transactions.PartyCode2) = 21001002)")},
      {"print of the sale summary",
       summaryPrint(sale, "35, 'SALE RETURNS', IIF(TranType=31, 'SALES TAX INVOICES','SALES INVOICES'))")},
      {"print of the purchase summary",
       summaryPrint(purchase, "25, 'PURCHASE RETURNS', IIF(TranType=21, 'PURCHASES (SALES TAX)','PURCHASES'))")},
      {"sales by item", byItem(sale, "StockIn", "StockOut", "")},
      {"sales by item of a category",
       byItem(sale, "StockIn", "StockOut",
              " AND ((StockLevel3.CatID) Like 'GDS') AND ((StockLevel3.SubCatID) Like 'GDS01')")},
      {"purchases by item", byItem(purchase, "StockOut", "StockIn", "")},
      {"sales by party", byParty(sale, "TrAmount-Carriage", "")},
      {"print of sales by party", byParty(sale, "TrAmount-Carriage+Discount", "Transactions.TranType, ")},
      {"purchases by party", byParty(purchase, "TrAmount-Carriage", "")},
      {"sale register", registerOf(sale, "IIf([Transactions].[TranType]=35,-[StockIn],[StockOut])")},
      {"print of the sale register", registerOf(sale, "IIf([Transactions].[TranType]=35,[StockIn],[StockOut])")},
      {"purchase register", registerOf(purchase, "IIf([Transactions].[TranType]=25,-[StockOut],[StockIn])")},
      {"receipts", moneyReport(receipts, "")},
      {"receipts, filtered",
       moneyReport(
           receipts,
           R"( And ((Transactions.TranDate)>=#07-01-2025# And (Transactions.TranDate)<=#06-30-2026#) And ((Transactions.PartyCode) = 12001002) And (left(Transactions.PartyCode,5) = 12001) AND ((Transactions.Empid)=1))")},
      {"payments", moneyReport("((Transactions.TranType) = 28) OR ((Transactions.TranType) = 29)", "")},
      {"sales of an item",
       analysis("AccLevel3.Region1ID, AccLevel3.Region2ID, AccLevel3.SectorID, ", "35",
                "IIf([Transactions].[Trantype]=" + sales,
                " INNER JOIN AccLevel3 ON Transactions.PartyCode2 = AccLevel3.AccCode", saleTypes, salesByPlainDate)},
      {"purchases of an item",
       analysis("", "25", "IIf([Transactions].[Trantype]=25,-[StockOut],[StockIn])", "",
                "(Transactions.TranType)=21 Or (Transactions.TranType)=22 Or (Transactions.TranType)=25",
                salesByPlainDate)},
      {"sales of a service", analysis("", "35", "IIf([Transactions].[Trantype]=" + sales, "", saleTypes,
                                      "[Trantype].[short] & ' ' & [Transactions].[docno], Transactions.TranDate")},
      {"profit by invoice",
       profitBy(
           "InvPLS.TranDate, InvPLS.TranRefShort, InvPLS.PartyCode2, InvPLS.Text1, ",
           R"(InvPLS.TranDate, InvPLS.TranRefShort, InvPLS.PartyCode2, InvPLS.Text1 ORDER BY InvPLS.TranDate, InvPLS.TranRefShort)",
           "")},
      {"profit by party",
       profitBy("InvPLS.PartyCode2, InvPLS.Text1, ", "InvPLS.PartyCode2, InvPLS.Text1 ORDER BY InvPLS.PartyCode2",
                period + " AND ((Transactions.Empid)=1)")},
      {"profit by item", profitByItem("", "")},
      {"profit by item, filtered",
       profitByItem(period + " And ((Transactions.PartyCode2) = 12001002) AND ((Transactions.Empid)=1)",
                    " AND ((stocklevel3.CatID) like 'GDS') And ((stocklevel3.BrandID) = 2)")},
      {"print of profit by item",
       R"(SHAPE {SELECT StockLevel2.SubCatID, StockLevel2.CatID, [StockLevel1].[CatName] & ' - ' & [StockLevel2].[SubCatName] AS SCat FROM StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID Where ((StockLevel2.CatID) like 'GDS') ORDER BY [StockLevel1].[CatName] & ' - ' & [StockLevel2].[SubCatName]} AS Level1 APPEND ({)" +
           profitByItem("", "") +
           " Order By StockLevel3.ItemCode} AS Level3 RELATE 'subcatID' TO 'subcatId') AS level3"},
      {"sale orders to choose",
       R"(SELECT tranno, d1, (d1 & '  (Dated ' & TranDate & ') ' & text1) as PODesc, text1 from transactions where trantype=93 and fyid=2)"},
      {"purchase orders to choose",
       R"(SELECT tranno, docno, (docno & '  (Dated ' & TranDate & ') ' & text1) as PODesc, text1 from transactions where trantype=92 and fyid=2)"},
      {"sale order lines", orderLines(saleOrders, "", anyParty)},
      {"sale order lines, filtered",
       orderLines(saleOrders, " AND ((Transactions.D1)='SO/1') AND ((StockFlow.ItemCode)='A-100')", fixedParty)},
      {"purchase order lines", orderLines(purchaseOrders, "", anyParty)},
      {"lines of one purchase order", orderLines(purchaseOrders, " AND ((CStr([DocNo]))='5')", anyParty)},
      {"deliveries of a sale order", deliveries(saleOrders)},
      {"deliveries of a purchase order", deliveries(purchaseOrders)},
  };
  for (const auto* clause : {"((AccLevel3.Level2ID)=12001)", "((Transactions.PartyCode2) = 12001002)",
                             "((AccLevel3.Region1ID)=1)", "((AccLevel3.Region2ID)=1)", "((AccLevel3.SectorID)=1)",
                             "((Employees.Department) like 'Sales')", "((Transactions.Empid)=1)"})
    all.push_back({std::string("sale summary where ") + clause, summary(sale, std::string(" AND ") + clause)});
  return all;
}

}  // namespace velmo::test
