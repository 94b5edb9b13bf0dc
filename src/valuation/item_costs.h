#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/connection/connection.h"

namespace velmo::valuation {

// One of the costs of goods by item, services left out.
class ItemCosts {
 public:
  enum class Of { AllGoods, WeightedGoods };
  // `column` of StockLevel3. Throws StoreError.
  ItemCosts(store::Connection& connection, const std::string& column, Of goods);

  // nullptr of what is no such item; no number of an item without a cost. Letters of either case name an item. Quickest
  // where items are asked for in the order of their codes.
  const double* find(std::string_view itemCode);

 private:
  std::vector<std::pair<std::string, double>> costs_;  // by code in lower case
  std::size_t next_ = 0;
};

}  // namespace velmo::valuation
