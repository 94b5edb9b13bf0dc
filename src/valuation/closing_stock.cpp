#include "valuation/closing_stock.h"

#include <cmath>
#include <string>

#include "store/recordset/forward_reader.h"
#include "store/recordset/recordset.h"
#include "text/decimal_sum.h"
#include "text/number.h"
#include "valuation/item_costs.h"

namespace velmo::valuation {
namespace {

constexpr std::int64_t inventory = 13001001;
constexpr std::int64_t closingInventory = 50001006;  // among the cost of sales

std::string stockStatement(int fyid, const text::DateTime& day) {
  return "SELECT StockFlow.ItemCode, Sum(IIf(IsNull([StockIn]),0,[StockIn])) AS StocksIn, "
         "Sum(IIf(IsNull([Stockout]),0,[Stockout])) AS Stocksout, [Stocksin]-[Stocksout] AS Bal FROM Transactions "
         "INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE (((StockFlow.ItemCode) Is Not Null) AND "
         "((Transactions.TranDate)<=" +
         store::dateLiteral(day) + ") AND ((Transactions.FYID)=" + std::to_string(fyid) +
         ") AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No)) GROUP BY StockFlow.ItemCode";
}

// An entry that is right already is not written: whoever looks at a report again changes no books.
void writeAmount(store::Connection& connection, const std::string& tranNo, const char* side, double amount,
                 std::int64_t account) {
  const std::string ofEntry = "WHERE (((SubTransactions.TranNo)=" + tranNo +
                              ") AND ((SubTransactions.AccCode)=" + std::to_string(account) + "))";
  const std::string column = std::string("SubTransactions.") + side;
  const std::string number = text::numberText(amount);
  store::ForwardReader lines(connection, "SELECT " + column + " FROM SubTransactions " + ofEntry);
  bool stands = true;
  while (lines.next()) stands = stands && !lines.isNull(0) && text::numberText(lines.number(0)) == number;
  if (!stands) connection.execute("UPDATE SubTransactions SET " + column + " = " + number + " " + ofEntry);
}

}  // namespace

double closingStockValue(store::Connection& connection, int fyid, const text::DateTime& day) {
  ItemCosts costs(connection, "valuationCost2", ItemCosts::Of::AllGoods);
  store::ForwardReader stocks(connection, stockStatement(fyid, day));
  const int code = stocks.field("ItemCode");
  const int balance = stocks.field("Bal");
  text::DecimalSum sum;
  while (stocks.next()) {
    const double* cost = costs.find(stocks.text(code));
    if (cost != nullptr && !std::isnan(*cost)) sum += stocks.number(balance) * *cost;
  }
  return sum.value();
}

void postClosingStock(store::Connection& connection, int fyid, const text::DateTime& day) {
  if (connection.refusesWriting()) return;  // a damaged file is still read, with the entry that it has
  store::Connection::Transaction transaction(connection);
  store::Recordset entry(
      connection, "select tranno, trandate from transactions where trantype=51 and fyid= " + std::to_string(fyid));
  if (entry.isEmpty()) return;
  if (entry.value("trandate") != store::Value(day.date())) entry.update({{"trandate", day.date()}});
  const double value = closingStockValue(connection, fyid, day);
  const std::string tranNo = entry.text("tranno");
  writeAmount(connection, tranNo, "Debit", value, inventory);
  writeAmount(connection, tranNo, "Credit", value, closingInventory);
  transaction.commit();
}

}  // namespace velmo::valuation
