#include "valuation/closing_stock.h"

#include <string>

#include "store/recordset/forward_reader.h"
#include "store/recordset/recordset.h"
#include "text/decimal_sum.h"
#include "text/number.h"

namespace velmo::valuation {
namespace {

constexpr std::int64_t inventory = 13001001;
constexpr std::int64_t closingInventory = 50001006;  // among the cost of sales

std::string stockStatement(int fyid, const text::DateTime& day) {
  return "SELECT stocklevel3.ItemCode, stocklevel3.valuationCost2, stocklevel3.CatID, Sum(Query1.StocksIn) AS "
         "SumOfStocksIn, Sum(Query1.Stocksout) AS SumOfStocksout, Sum(Query1.Bal) AS SumOfBal, "
         "Sum([Query1].[Bal]*[stocklevel3].[valuationCost2]) AS BalValue FROM (SELECT StockFlow.ItemCode, "
         "IIf(IsNull([StockIn]),0,[StockIn]) AS StocksIn, IIf(IsNull([Stockout]),0,[Stockout]) AS Stocksout, "
         "[Stocksin]-[Stocksout] AS Bal FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = "
         "StockFlow.TranNo WHERE (((Transactions.TranDate)<=" +
         store::dateLiteral(day) + ") AND ((Transactions.FYID)=" + std::to_string(fyid) +
         ") AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No))) as Query1 INNER JOIN stocklevel3 ON "
         "Query1.ItemCode = stocklevel3.ItemCode GROUP BY stocklevel3.ItemCode, stocklevel3.valuationcost2, "
         "stocklevel3.CatID HAVING (((stocklevel3.CatID) Not like 'Service')) ORDER BY stocklevel3.ItemCode";
}

void writeAmount(store::Connection& connection, const std::string& tranNo, const char* side, double amount,
                 std::int64_t account) {
  connection.execute(std::string("UPDATE SubTransactions SET SubTransactions.") + side + " = " +
                     text::numberText(amount) + " WHERE (((SubTransactions.TranNo)=" + tranNo +
                     ") AND ((SubTransactions.AccCode)=" + std::to_string(account) + "))");
}

}  // namespace

double closingStockValue(store::Connection& connection, int fyid, const text::DateTime& day) {
  store::ForwardReader items(connection, stockStatement(fyid, day));
  const int value = items.field("BalValue");
  text::DecimalSum sum;
  while (items.next()) sum += items.number(value);
  return sum.value();
}

void postClosingStock(store::Connection& connection, int fyid, const text::DateTime& day) {
  if (connection.refusesWriting()) return;  // a damaged file is still read, with the entry that it has
  store::Connection::Transaction transaction(connection);
  store::Recordset entry(
      connection, "select tranno, trandate from transactions where trantype=51 and fyid= " + std::to_string(fyid));
  if (entry.isEmpty()) return;
  entry.update({{"trandate", day.date()}});
  const double value = closingStockValue(connection, fyid, day);
  const std::string tranNo = entry.text("tranno");
  writeAmount(connection, tranNo, "Debit", value, inventory);
  writeAmount(connection, tranNo, "Credit", value, closingInventory);
  transaction.commit();
}

}  // namespace velmo::valuation
