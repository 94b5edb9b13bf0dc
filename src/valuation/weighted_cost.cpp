#include "valuation/weighted_cost.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/recordset/recordset.h"
#include "text/number.h"

namespace velmo::valuation {
namespace {

// The four kinds of receipts beside the opening stock: two of purchases, production, adjustments in.
std::string receiptsStatement(int fyid, const CostBound& bound) {
  return "SELECT StockCosts.ItemCode, Sum(StockCosts.StockIn) AS Quantity, Sum(StockCosts.ItemValue) AS ItemValues, "
         "IIF([Quantity]>0, [ItemValues]/[Quantity], 0) AS WeightedCosts FROM (SELECT StockFlow.ItemCode, "
         "StockFlow.StockIn, StockFlow.ItemValue FROM Transactions INNER JOIN (Stocklevel3 INNER JOIN StockFlow ON "
         "Stocklevel3.ItemCode = StockFlow.ItemCode) ON Transactions.TranNo = StockFlow.TranNo WHERE "
         "(((StockFlow.StockIn) Is Not Null) AND ((Stocklevel3.CatID) Not like 'Service') AND ((Transactions.FYID)=" +
         std::to_string(fyid) +
         ") AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ((Transactions.TranType)=11 Or "
         "(Transactions.TranType)=21 Or (Transactions.TranType)=22 Or (Transactions.TranType)=42 Or "
         "(Transactions.TranType)=45) AND ((Transactions.TranDate)" +
         (bound.days == CostBound::Days::UpTo ? "<=" : "<") + store::dateLiteral(bound.day) +
         "))) as StockCosts GROUP BY StockCosts.ItemCode";
}

std::string lowerCase(std::string code) {
  std::ranges::transform(code, code.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return code;
}

// The costs that are written already, as texts, by item code in lower case: a line may write the code of its item in
// other letters.
std::unordered_map<std::string, std::string> presentCosts(store::Connection& connection, const std::string& column) {
  store::Recordset items(connection, "select ItemCode, " + column + " from stocklevel3 where valuationtype=yes",
                         store::LockType::ReadOnly);
  std::unordered_map<std::string, std::string> costs;
  const std::int64_t count = items.recordCount();
  costs.reserve(static_cast<std::size_t>(count));
  for (std::int64_t row = 0; row < count; ++row)
    costs.emplace(lowerCase(store::textOf(items.valueAt(row, 0))), store::textOf(items.valueAt(row, 1)));
  return costs;
}

struct NewCost {
  std::string itemCode;
  std::string cost;  // as a number of a statement
};

std::vector<NewCost> costsThatDiffer(store::Connection& connection, const std::string& receipts,
                                     const std::string& column) {
  const store::Recordset averages(connection, receipts, store::LockType::ReadOnly);
  const auto present = presentCosts(connection, column);
  const int code = averages.fieldIndex("ItemCode");
  const int average = averages.fieldIndex("WeightedCosts");
  std::vector<NewCost> differing;
  const std::int64_t count = averages.recordCount();
  for (std::int64_t row = 0; row < count; ++row) {
    NewCost next{store::textOf(averages.valueAt(row, code)),
                 text::numberText(store::numberOf(averages.valueAt(row, average)))};
    const auto found = present.find(lowerCase(next.itemCode));
    if (found != present.end() && found->second != next.cost) differing.push_back(std::move(next));
  }
  return differing;
}

}  // namespace

void computeWeightedCosts(store::Connection& connection, int fyid, const CostBound& bound, ItemCost cost) {
  const std::string column = cost == ItemCost::AtClosing ? "valuationcost2" : "valuationcost1";
  if (connection.refusesWriting()) return;  // a damaged file is still read, with the costs that it has
  store::Connection::Transaction transaction(connection);
  for (const NewCost& item : costsThatDiffer(connection, receiptsStatement(fyid, bound), column))
    connection.execute("update stocklevel3 set stocklevel3." + column + "=" + item.cost +
                       " where stocklevel3.itemcode=" + store::quoted(item.itemCode) + " and [valuationtype]=yes");
  transaction.commit();
}

void YearEndCosts::arm() {
  armed_ = true;
  if (onArmed) onArmed();
}

void YearEndCosts::settle(store::Connection& connection, int fyid, const text::DateTime& yearEnd) {
  if (!armed_) return;
  armed_ = false;
  computeWeightedCosts(connection, fyid, {.day = yearEnd}, ItemCost::AtClosing);
}

}  // namespace velmo::valuation
