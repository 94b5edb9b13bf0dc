#pragma once

#include <deque>
#include <map>
#include <optional>
#include <vector>

#include "demo_company/dice.h"
#include "vouchers/settlement/settlement_kind.h"

namespace velmo::demo {

// The unsettled invoices, or bills, of a company that is being made.
class OpenItems {
 public:
  void add(const vouchers::PendingItem& item) {
    items_[item.partyCode].push_back(item);
    parties_.push_back(item.partyCode);
  }

  // A party by chance, the likelier the more of its items are open; nothing when none are.
  std::optional<std::int64_t> pickParty(Dice& dice) {
    while (!parties_.empty()) {
      std::swap(parties_[static_cast<std::size_t>(dice.between(0, static_cast<int>(parties_.size()) - 1))],
                parties_.back());
      const std::int64_t party = parties_.back();
      if (!items_[party].empty()) return party;
      parties_.pop_back();  // it was settled along with others
    }
    return {};
  }
  // Of a party, the oldest first.
  std::deque<vouchers::PendingItem>& of(std::int64_t party) { return items_[party]; }
  const std::map<std::int64_t, std::deque<vouchers::PendingItem>>& all() const { return items_; }

 private:
  std::map<std::int64_t, std::deque<vouchers::PendingItem>> items_;
  std::vector<std::int64_t> parties_;
};

}  // namespace velmo::demo
