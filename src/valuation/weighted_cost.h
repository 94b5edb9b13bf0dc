#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "store/connection/connection.h"
#include "text/date_time.h"

namespace velmo::valuation {

// Which of the two costs of an item: that at the closing day, which every report and proposed rate reads, or that at
// the opening of a reporting period.
enum class ItemCost { AtClosing, AtOpening };

// Up to which day the receipts of goods count.
struct CostBound {
  enum class Days { UpTo, Before };
  text::DateTime day = {};
  Days days = Days::UpTo;
};

// Gives every item that is valued by weighted average the one average of its year's receipts (opening stock, purchases,
// production, adjustments in): their value before tax and carriage over their quantity, 0 when that is not positive.
// Items without receipts, manual ones and services keep their cost. All or none is written; only costs that differ are.
// Throws StoreError, of kind Misuse within a transaction.
void computeWeightedCosts(store::Connection& connection, int fyid, const CostBound& bound, ItemCost cost);

// What the costs of the last run were made of: the same values mean the same costs, whoever writes.
struct CostsSeen {
  int fyid = 0;
  text::DateTime day = {};
  std::int64_t documents = 0, lines = 0, items = 0;  // generations of their tables
  bool operator==(const CostsSeen&) const = default;
};

// The run to the year's end that the opening of a screen asks for. It comes a moment later by the shell's timer, or at
// once where a screen needs its outcome before.
class YearEndCosts {
 public:
  void arm();
  bool areArmed() const { return armed_; }
  // Computes the costs up to the end of the year when they are armed and anything they depend on has changed, and
  // disarms. Throws StoreError, and is disarmed then too.
  void settle(store::Connection& connection, int fyid, const text::DateTime& yearEnd);

  std::function<void()> onArmed = {};  // the shell starts its timer

 private:
  bool armed_ = false;
  std::optional<CostsSeen> seen_;
};

}  // namespace velmo::valuation
