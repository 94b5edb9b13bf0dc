#include "store/sql/statements.h"

namespace velmo::test {

namespace {

const std::string accountLevels =
    R"( APPEND ((SHAPE {select * from acclevel2 order by level2id} AS Level2 APPEND ({select * from acclevel3 order by acccode} AS Level3 RELATE 'level2ID' TO 'level2ID') AS level3) AS level2 RELATE 'typeID' TO 'typeID') AS level2)";
const std::string itemLevels =
    R"( APPEND ((SHAPE {select * from stocklevel2 order by subcatid} AS Level2 APPEND ({select * from stocklevel3 order by itemcode} AS Level3 RELATE 'subcatID' TO 'subcatID') AS level3) AS level2 RELATE 'catID' TO 'catID') AS level2)";
const std::string accountPicker =
    R"(SELECT AccLevel3.AccCode, [AccLevel3].[AccCode] & '  ' & [AccLevel3].[AccName] AS AccL3, AccLevel1.TypeID, [AccLevel1].[TypeID] & '  ' & [AccLevel1].[Type] AS AccL1, AccLevel2.Level2ID, [AccLevel2].[Level2ID] & '  ' & [AccLevel2].[L2AccName] AS AccL2 FROM (AccLevel1 INNER JOIN AccLevel2 ON AccLevel1.TypeID = AccLevel2.TypeID) INNER JOIN AccLevel3 ON AccLevel2.Level2ID = AccLevel3.Level2ID)";
const std::string stockOfItems =
    R"(SELECT StockLevel3.ItemCode, Sum(Q1.Bal) AS TBal, StockLevel3.ReorderLevel, StockLevel3.Unit, StockLevel3.ItemName FROM (SELECT StockFlow.ItemCode, IIf(IsNull([StockIn]),0,[StockIn]) AS StocksIn, IIf(IsNull([Stockout]),0,[Stockout]) AS Stocksout, [Stocksin]-[Stocksout] AS Bal FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE (((Transactions.FYID)=2) AND ((Transactions.Cancel)=No) AND ((Transactions.invledger)=No))) AS Q1 RIGHT JOIN StockLevel3 ON Q1.ItemCode = StockLevel3.ItemCode Where (((stocklevel3.CatID) Not like 'Service') And ((stocklevel3.Status) = No)) GROUP BY StockLevel3.ItemCode, StockLevel3.ReorderLevel, StockLevel3.Unit, StockLevel3.ItemName Having (((Sum(Q1.Bal)) <= [stocklevel3].[reorderlevel]))";

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

}  // namespace

Statements masterStatements() {
  Statements all = {
      {"account types", "SELECT typeid, type, natureid from AccLevel1 order by typeid"},
      {"statement components", "SELECT * from fsnature order by natureid"},
      {"sub types of a type", "SELECT * from Acclevel2 where typeid=120 order by level2id"},
      {"sub types of no type", "SELECT * from Acclevel2 where typeid=0"},
      {"accounts of a sub type", "SELECT * from Acclevel3 where level2id=12001 order by acccode"},
      {"accounts of no sub type", "SELECT * from Acclevel3 where level2id=0"},
      {"ledger lines of an account", "select * from subtransactions where acccode = 12001002"},
      {"chart of accounts", "SHAPE {select * from acclevel1 order by typeid} AS Level1" + accountLevels},
      {"chart of one type", "SHAPE {select * from acclevel1 where typeid = 120} AS Level1" + accountLevels},
      {"chart of one sub type",
       R"(SHAPE {select * from acclevel1 where typeid = 120} AS Level1 APPEND ((SHAPE {select * from acclevel2 where level2id = 12001} AS Level2 APPEND ({select * from acclevel3 order by acccode} AS Level3 RELATE 'level2ID' TO 'level2ID') AS level3) AS level2 RELATE 'typeID' TO 'typeID') AS level2)"},
      {"account picker", accountPicker + " ORDER BY AccLevel3.AccCode"},
      {"customer picker", accountPicker + " WHERE AccLevel1.TypeID=120 ORDER BY AccLevel3.AccCode"},
      {"account managers", "SELECT empid, empname FROM employees ORDER BY empname"},
      {"regions", "SELECT * from Regions1 where Region1ID>1 order by Region1name"},
      {"sub regions", "SELECT * from regions2 where region1id = 2 order by region2name"},
      {"customers of a sub region", "select * from acclevel3 where region2id = 2"},
      {"sectors", "select * from Bizsectors order by SectorName"},
      {"customers of a sector", "select * from acclevel3 where sectorid = 1"},
      {"goods categories", "SELECT catid, catname from Stocklevel1 where catid not like 'Service' order by catid"},
      {"service sub categories", "SELECT * from stocklevel2 where catid like 'SERVICE'"},
      {"sub categories", "SELECT * from stocklevel2 where catid like 'gds' order by subcatid"},
      {"no sub categories", "SELECT * from stocklevel2 where catid like '0X0X0X0' order by subcatid"},
      {"items of a sub category", "SELECT * from Stocklevel3 where subcatid like 'GDS01' order by itemcode"},
      {"items of no sub category", "SELECT * from Stocklevel3 where subcatid like '0X0X0X0X0' order by itemcode"},
      {"chart of inventory",
       "SHAPE {select * from stocklevel1 where catid not like 'Service' order by catid} AS Level1" + itemLevels},
      {"chart of one category", "SHAPE {select * from stocklevel1 where catid like 'GDS'} AS Level1" + itemLevels},
      {"chart of one sub category", "SHAPE {select * from stocklevel1 where catid like 'GDS'} AS Level1" +
                                        replaced(itemLevels, "{select * from stocklevel2 order by subcatid}",
                                                 "{select * from stocklevel2 where subcatid like 'GDS01'}")},
      {"price list of services",
       R"(SHAPE {select * from stocklevel2 where catid like 'Service' order by subcatid} AS Level1 APPEND ({select itemcode, itemname, sellingprice, subcatid from stocklevel3 where status = no order by itemcode} AS Level3 RELATE 'subcatID' TO 'subcatID') AS level3)"},
      {"price list of a brand",
       R"(SHAPE {select * from Brands where brandid = 2} AS Level1 APPEND ({select itemcode, itemname, sellingprice, Brandid from stocklevel3 where status = no order by itemcode} AS Level3 RELATE 'brandID' TO 'brandid') AS level3)"},
      {"bar codes",
       R"(SELECT '*' & [ItemCode] & '*' AS ItemBarCode, ItemCode, ItemName, Description, ('Rupees ' & [SellingPrice]) as SPrice FROM StockLevel3 WHERE ItemCode like 'A-100')"},
      {"category by code", "select catid from stocklevel1 where catid like 'gds'"},
      {"sub category by code", "select subcatid from stocklevel2 where subcatid like 'GDS01'"},
      {"item by code", "select itemcode from stocklevel3 where itemcode like 'a-100'"},
      {"lines of an item", "select * from stockflow where itemcode like 'A-100'"},
      {"item picker",
       R"(SELECT StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel1.CatID, StockLevel1.CatName, StockLevel2.SubCatID, StockLevel2.SubCatName, Brands.BrandName FROM ((StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID) INNER JOIN StockLevel3 ON StockLevel2.SubCatID = StockLevel3.SubCatID) INNER JOIN Brands ON StockLevel3.BrandID = Brands.BrandID WHERE StockLevel1.CatID not like 'Service' ORDER BY StockLevel3.ItemCode)"},
      {"brands", "select * from brands where brandid>1 order by BrandName"},
      {"locations", "select * from StockLocation order by LocationName"},
      {"stock by item",
       R"(SELECT StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.SellingPrice, Sum(Query1.Bal) AS SumOfBal, StockLevel3.Unit, StockLevel3.Rack, StockLevel2.SubCatName, StockLevel1.CatName FROM (SELECT StockFlow.ItemCode, IIf(IsNull([StockIn]),0,[StockIn]) AS StocksIn, IIf(IsNull([Stockout]),0,[Stockout]) AS Stocksout, [Stocksin]-[Stocksout] AS Bal FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE Transactions.FYID=2 AND Transactions.Cancel=No AND Transactions.InvLedger=No) AS Query1 RIGHT JOIN ((StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID) INNER JOIN StockLevel3 ON StockLevel2.SubCatID = StockLevel3.SubCatID) ON Query1.ItemCode = StockLevel3.ItemCode WHERE StockLevel3.ItemCode like '%100%' GROUP BY StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.SellingPrice, StockLevel3.Unit, StockLevel3.Rack, StockLevel2.SubCatName, StockLevel1.CatName)"},
      {"goods categories by name",
       "SELECT catid, catname from Stocklevel1 where catid not like 'Service' order by catname"},
      {"brands by name", "SELECT brandid, brandname FROM brands ORDER BY brandname"},
      {"items below re-order level", stockOfItems + ")"},
      {"items below a set re-order level", stockOfItems + " AND ((StockLevel3.ReorderLevel)>0))"},
      {"print of items below re-order level",
       "SHAPE {select * from stocklevel1 where catid not like 'Service' order by catid} AS Level1 APPEND ({" +
           replaced(stockOfItems, "StockLevel3.ItemName ", "StockLevel3.ItemName, StockLevel3.CatID ") +
           ")} AS Level3 RELATE 'catid' TO 'catid') AS level3"},
      {"employees", "select * from Employees order by EmpName"},
      {"jobs", "select * from jobs order by JobNo"},
      {"departments",
       "SELECT department From employees GROUP BY department Having ((department) Is Not Null) ORDER BY department"},
      {"present employees", "Select Empid, EmpName from Employees where status=no order by empname"},
      {"documents of an employee", "select * from transactions where empid = 1"},
      {"customers of an employee", "select * from acclevel3 where empid = 1"},
      {"job card", "Select * from Jobs where jobid=1"},
      {"open jobs", "select Jobid, (JobNo & ' (' & JobDesc &')') as Job from jobs where status=no order by jobno"},
      {"jobs with their ledgers",
       R"(SELECT Jobs.JobID, Jobs.JobNo, (Jobs.JobNo & ' (' & Jobs.JobDesc &')') as Job, Jobs.JobDate, Jobs.ExpDeliveryDate, Jobs.CustomerName, Jobs.EstimatedCost, Jobs.ValueofWork, Employees.EmpName, Jobs.Status, Jobs.CompletionDate FROM Jobs LEFT JOIN Employees ON Jobs.InchargeID = Employees.EmpID ORDER BY Jobs.JobNo)"},
      {"ledger lines of a job",
       R"(SELECT Transactions.TranNo, Transactions.TranDate, Transactions.TranType, [Trantype].[short] & ' ' & [Transactions].[docno] AS TranRefShort, SubTransactions.AccCode, SubTransactions.AccName, SubTransactions.Desc, SubTransactions.Debit, SubTransactions.Credit FROM TranType INNER JOIN (Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo) ON TranType.TranType = Transactions.TranType Where (((Transactions.JobIDFrom) = 1) And ((Transactions.Cancel) = No)) ORDER BY Transactions.TranDate, SubTransactions.Serial)"},
  };
  const std::pair<const char*, const char*> settings[] = {
      {"prices", "itemcode, itemname, unit, purchaseprice, sellingprice"},
      {"re-order levels", "itemcode, itemname, unit, reorderlevel"},
      {"valuation methods", "itemcode, itemname, ValuationType"}};
  for (const auto& [name, columns] : settings)
    for (const auto* filter : {"", "catid like 'GDS' and ", "brandid = 2 and "})
      all.push_back({std::string(name) + (*filter ? std::string(" with ") + filter : " of all items"),
                     std::string("SELECT ") + columns + " from stocklevel3 where " + filter +
                         "catid not like 'Service' order by itemcode"});
  return all;
}

}  // namespace velmo::test
