#include "valuation/weighted_cost.h"

#include <cmath>
#include <string>
#include <vector>

#include "store/recordset/forward_reader.h"
#include "text/number.h"
#include "valuation/item_costs.h"

namespace velmo::valuation {
namespace {

// The four kinds of receipts beside the opening stock: two of purchases, production, adjustments in.
std::string receiptsStatement(int fyid, const CostBound& bound) {
  return "SELECT StockFlow.ItemCode, Sum(StockFlow.StockIn) AS Quantity, Sum(StockFlow.ItemValue) AS ItemValues FROM "
         "Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE (((StockFlow.ItemCode) Is "
         "Not Null) AND ((StockFlow.StockIn) Is Not Null) AND ((Transactions.FYID)=" +
         std::to_string(fyid) +
         ") AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ((Transactions.TranType)=11 Or "
         "(Transactions.TranType)=21 Or (Transactions.TranType)=22 Or (Transactions.TranType)=42 Or "
         "(Transactions.TranType)=45) AND ((Transactions.TranDate)" +
         (bound.days == CostBound::Days::UpTo ? "<=" : "<") + store::dateLiteral(bound.day) +
         ")) GROUP BY StockFlow.ItemCode";
}

struct NewCost {
  std::string itemCode;
  std::string cost;  // as a number of a statement
};

std::vector<NewCost> costsThatDiffer(store::Connection& connection, const std::string& receipts,
                                     const std::string& column) {
  ItemCosts present(connection, column, ItemCosts::Of::WeightedGoods);
  store::ForwardReader averages(connection, receipts);
  const int code = averages.field("ItemCode");
  const int quantity = averages.field("Quantity");
  const int value = averages.field("ItemValues");
  std::vector<NewCost> differing;
  while (averages.next()) {
    const double* found = present.find(averages.text(code));
    const double average = averages.number(quantity) > 0 ? averages.number(value) / averages.number(quantity) : 0;
    if (found == nullptr || *found == average) continue;
    std::string cost = text::numberText(average);
    if (std::isnan(*found) || text::numberText(*found) != cost)
      differing.push_back({std::string(averages.text(code)), std::move(cost)});
  }
  return differing;
}

// What the costs depend on; the rows of StockLevel3 hold them, too.
CostsSeen seen(store::Connection& connection, int fyid, const CostBound& bound) {
  return {.fyid = fyid,
          .day = bound.day,
          .documents = connection.generationOf("Transactions"),
          .lines = connection.generationOf("StockFlow"),
          .items = connection.generationOf("StockLevel3")};
}

// What was there when the costs were written, by which a later run sees that nothing has changed.
CostsSeen writeCosts(store::Connection& connection, int fyid, const CostBound& bound, ItemCost cost) {
  const std::string column = cost == ItemCost::AtClosing ? "valuationcost2" : "valuationcost1";
  store::Connection::Transaction transaction(connection);
  for (const NewCost& item : costsThatDiffer(connection, receiptsStatement(fyid, bound), column))
    connection.execute("update stocklevel3 set stocklevel3." + column + "=" + item.cost +
                       " where stocklevel3.itemcode=" + store::quoted(item.itemCode) + " and [valuationtype]=yes");
  const CostsSeen after = seen(connection, fyid, bound);
  transaction.commit();
  return after;
}

}  // namespace

void computeWeightedCosts(store::Connection& connection, int fyid, const CostBound& bound, ItemCost cost) {
  // A damaged file is still read, with the costs that it has.
  if (!connection.refusesWriting()) writeCosts(connection, fyid, bound, cost);
}

void YearEndCosts::arm() {
  armed_ = true;
  if (onArmed) onArmed();
}

void YearEndCosts::settle(store::Connection& connection, int fyid, const text::DateTime& yearEnd) {
  if (!armed_) return;
  armed_ = false;
  if (connection.refusesWriting()) return;
  const CostBound bound{.day = yearEnd};
  if (seen_ != seen(connection, fyid, bound)) seen_ = writeCosts(connection, fyid, bound, ItemCost::AtClosing);
}

}  // namespace velmo::valuation
