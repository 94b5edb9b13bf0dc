#include "frame/items/item_history.h"

#include "store/values/value.h"
#include "text/decimal_sum.h"

namespace velmo::frame {
namespace {

const char* const fromItems =
    " FROM (StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID) "
    "INNER JOIN StockLevel3 ON StockLevel2.SubCatID = StockLevel3.SubCatID";

// "(Transactions.TranType)=31 Or (Transactions.TranType)=32"
std::string anyOf(const std::vector<int>& tranTypes) {
  std::string condition;
  for (const int tranType : tranTypes)
    condition += (condition.empty() ? "" : " Or ") + ("(Transactions.TranType)=" + std::to_string(tranType));
  return condition;
}

}  // namespace

PickListSource itemSource() {
  return {
      .select = std::string("SELECT StockLevel3.ItemCode, (ItemCode & '  (' & ItemName & ')') AS InvItem") + fromItems,
      .condition = "(StockLevel3.Status) = No",
      .order = "StockLevel3.ItemCode",
      .displayColumn = "InvItem",
      .keyColumn = "ItemCode",
      .beforeName = "  (",
      .behindName = ")",
      .tables = {"StockLevel1", "StockLevel2", "StockLevel3"}};
}

std::optional<ListedItem> listedItem(store::Connection& connection, const ItemGridKind& kind, std::string_view code) {
  store::Recordset row(connection,
                       "SELECT StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3." + kind.priceField +
                           ", StockLevel3.Description, StockLevel3.Unit, [StockLevel1].[CatName] & ' (' & "
                           "[StockLevel2].[SubCatName] & ')' AS ItemCategory" +
                           fromItems + " Where StockLevel3.ItemCode = " + store::quoted(code),
                       store::LockType::ReadOnly);
  if (row.isEmpty()) return std::nullopt;
  return ListedItem{.code = row.text("ItemCode"),
                    .name = row.text("ItemName"),
                    .description = row.text("Description"),
                    .unit = row.text("Unit"),
                    .category = row.text("ItemCategory"),
                    .price = row.value(kind.priceField)};
}

std::optional<double> itemBalance(store::Connection& connection, std::string_view code, int FYID) {
  store::Recordset balance(
      connection,
      "SELECT StockFlow.ItemCode, Sum(IIf(IsNull([stockin]),0,[stockin])) AS stocksin, "
      "Sum(IIf(IsNull([stockout]),0,[stockout])) AS stocksout, [stocksin]-[stocksout] AS Ibalance "
      "FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo "
      "GROUP BY StockFlow.ItemCode, Transactions.Cancel, Transactions.InvLedger, Transactions.FYID "
      "HAVING (((StockFlow.ItemCode) Like " +
          store::quotedWhole(code) +
          ") AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ((Transactions.FYID)=" +
          std::to_string(FYID) + "))",
      store::LockType::ReadOnly);
  if (balance.isEmpty()) return std::nullopt;
  return balance.number("Ibalance");
}

double itemAvailable(store::Connection& connection, std::string_view code, std::int64_t flowId, int FYID) {
  const auto balance = itemBalance(connection, code, FYID);
  if (!balance) return 0;
  if (flowId == 0) return *balance;
  store::Recordset saved(connection,
                         "Select stockout from stockflow where flowid = " + std::to_string(flowId) +
                             " and itemcode = " + store::quoted(code),
                         store::LockType::ReadOnly);
  return saved.isEmpty() ? *balance : text::sumOf({*balance, saved.number("stockout")});
}

store::Recordset itemHistory(store::Connection& connection, const ItemGridKind& kind, std::string_view code,
                             std::optional<std::int64_t> partyCode, int FYID) {
  const std::string ofParty =
      partyCode ? " AND ((Transactions.partycode2)=" + std::to_string(*partyCode) + ")" : std::string();
  return store::Recordset(
      connection,
      "SELECT TOP 4 Transactions.TranNo, Transactions.TranType, Transactions.docno, Transactions.D1, "
      "Transactions.TranDate, Transactions.Text1, StockFlow.ItemCode, StockFlow." +
          kind.historyQuantityField +
          ", StockFlow.Unit, StockFlow.Rate, StockFlow.GrossAmt "
          "FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo "
          "WHERE (((StockFlow.ItemCode) Like " +
          store::quotedWhole(code) + ")" + ofParty + " AND (" + anyOf(kind.historyTranTypes) +
          ") AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=" + std::to_string(FYID) +
          ")) ORDER BY Transactions.TranDate desc, Transactions.docno",
      store::LockType::ReadOnly);
}

}  // namespace velmo::frame
