#include "valuation/item_costs.h"

#include <algorithm>
#include <limits>

#include "store/recordset/forward_reader.h"

namespace velmo::valuation {
namespace {

using Cost = std::pair<std::string, double>;

std::string lowerCase(std::string_view code) {
  std::string lower(code);
  for (char& letter : lower)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return lower;
}

}  // namespace

ItemCosts::ItemCosts(store::Connection& connection, const std::string& column, Of goods) {
  store::ForwardReader items(connection,
                             "select ItemCode, " + column + " from stocklevel3 where catid not like 'Service'" +
                                 (goods == Of::WeightedGoods ? " and valuationtype=yes" : "") + " order by ItemCode");
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  while (items.next()) costs_.emplace_back(lowerCase(items.text(0)), items.isNull(1) ? none : items.number(1));
  if (!std::ranges::is_sorted(costs_, {}, &Cost::first)) std::ranges::sort(costs_, {}, &Cost::first);
}

const double* ItemCosts::find(std::string_view itemCode) {
  const std::string code = lowerCase(itemCode);
  if (next_ >= costs_.size() || costs_[next_].first != code)
    next_ = static_cast<std::size_t>(std::ranges::lower_bound(costs_, code, {}, &Cost::first) - costs_.begin());
  if (next_ >= costs_.size() || costs_[next_].first != code) return nullptr;
  return &costs_[next_++].second;
}

}  // namespace velmo::valuation
