#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "demo_company/dice.h"

namespace velmo::demo {

// Chance among `count` things of which few come often and most hardly ever, as goods are sold and customers buy: the
// one of rank n falls in proportion to n to the power of -0.8. Neighbours are of no like rank.
class Skewed {
 public:
  explicit Skewed(int count) : count_(count) {
    double sum = 0;
    for (int rank = 1; rank <= count; ++rank) upTo_.push_back(sum += std::pow(rank, -0.8));
  }

  int pick(Dice& dice) const {
    constexpr int steps = 1 << 30;
    const double place = upTo_.back() * dice.between(0, steps - 1) / steps;
    const auto rank = std::upper_bound(upTo_.begin(), upTo_.end(), place) - upTo_.begin();
    constexpr std::int64_t stride = 7919;  // a prime
    return static_cast<int>(std::min<std::int64_t>(rank, count_ - 1) * stride % count_);
  }

 private:
  int count_;
  std::vector<double> upTo_;
};

}  // namespace velmo::demo
