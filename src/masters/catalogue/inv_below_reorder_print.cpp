#include "masters/catalogue/inv_below_reorder_print.h"

#include "printing/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

namespace {

// `category` stands among the columns where the items are grouped by it.
std::string statement(int fyid, ReorderChoice choice, const std::string& category) {
  std::string having = "((Sum(Q1.Bal)) <= [stocklevel3].[reorderlevel])";
  if (choice == ReorderChoice::NonZero) having += " AND ((StockLevel3.ReorderLevel)>0)";
  return "SELECT StockLevel3.ItemCode, Sum(Q1.Bal) AS TBal, StockLevel3.ReorderLevel, StockLevel3.Unit, "
         "StockLevel3.ItemName" +
         category +
         " FROM (SELECT StockFlow.ItemCode, IIf(IsNull([StockIn]),0,[StockIn]) AS StocksIn, "
         "IIf(IsNull([Stockout]),0,[Stockout]) AS Stocksout, [Stocksin]-[Stocksout] AS Bal FROM Transactions INNER "
         "JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE (((Transactions.FYID)=" +
         std::to_string(fyid) +
         ") AND ((Transactions.Cancel)=No) AND ((Transactions.invledger)=No))) AS Q1 RIGHT JOIN StockLevel3 ON "
         "Q1.ItemCode = StockLevel3.ItemCode Where (((stocklevel3.CatID) Not like 'Service') And "
         "((stocklevel3.Status) = No)) GROUP BY StockLevel3.ItemCode, StockLevel3.ReorderLevel, StockLevel3.Unit, "
         "StockLevel3.ItemName" +
         category + " Having (" + having + ")";
}

}  // namespace

std::string belowReorderStatement(int fyid, ReorderChoice choice) {
  return statement(fyid, choice, "");
}

std::string belowReorderHierarchy(int fyid, ReorderChoice choice) {
  return "SHAPE {select * from stocklevel1 where catid not like 'Service' order by catid} AS Level1 APPEND ({" +
         statement(fyid, choice, ", StockLevel3.CatID") + "} AS Level3 RELATE 'catID' TO 'catID') AS Level3";
}

printing::Report invBelowReorderPrint(const session::LoginContext& context, const store::Recordset& rows,
                                      text::DateTime today) {
  using printing::Align;
  using printing::mm;
  constexpr const char* Quantity = "#,##0.00;(#,##0.00)";
  const printing::ListSheet sheet{
      .title = "Inventory Below Re-Order Level",
      .levels = {{"Level1", "catid", "catname"}},
      .dataMember = "Level3",
      .columns =
          {printing::codeColumn("Item Code", "itemcode"),
           {.heading = "Item Name", .dataField = "itemname"},
           {.heading = "Unit", .dataField = "unit", .width = mm(18)},
           {.heading = "In Stock", .dataField = "tbal", .width = mm(28), .align = Align::Right, .format = Quantity},
           {.heading = "Re-Order Level",
            .dataField = "reorderlevel",
            .width = mm(28),
            .align = Align::Right,
            .format = Quantity}},
      .counted = "Items"};
  return printing::listReport(
      context, sheet, printing::withoutEmptyGroups(std::make_shared<printing::RecordsetData>(rows), "Level3"), today);
}

}  // namespace velmo::masters
