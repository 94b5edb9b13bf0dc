#pragma once

#include <array>
#include <map>
#include <vector>

#include "demo_company/open_items.h"
#include "demo_company/opening_entry.h"
#include "demo_company/skewed.h"
#include "demo_company/trade_document.h"
#include "session/login_context.h"

namespace velmo::demo {

// Who writes the documents of a shop, each in the context's year and in the caller's transaction.
class ShopClerk {
 public:
  ShopClerk(session::LoginContext& context, Dice& dice);

  // Comes into a year: with goods to begin with, or with what the year before has left.
  void open(OpeningEntry& entry);

  void sell(const text::DateTime& moment);
  void sellAtCounter(const text::DateTime& moment);
  void takeBack(const text::DateTime& moment);
  void buy(const text::DateTime& moment);
  void sendBack(const text::DateTime& moment);
  void settle(const vouchers::SettlementKind& kind, const text::DateTime& moment);
  void bookPetty(const vouchers::SettlementKind& kind, const text::DateTime& moment);
  void journal(const text::DateTime& moment);

 private:
  static constexpr int locations = 3;

  std::int64_t nextNumber(int tranType) { return numbers_[{context_.FYID, tranType}] + 1; }
  int pickLocation();
  const TradedItem& itemOf(const std::string& code) const;
  int& stockOf(const TradedItem& item, int location);
  TradeDocument begin(const frame::DocumentType& type, const documents::TradeKind& kind, const text::DateTime& moment,
                      int location);
  void sellLines(TradeDocument& document, int location);
  // As far as the goods are still at the location; those that come in may always.
  void addReturned(TradeDocument& document, const TradedLine& line, std::optional<int> from);
  // Whether it counts: a cancelled document changes nothing.
  bool save(TradeDocument& document, const frame::DocumentType& type, frame::ReceivedRule rule);
  void write(const frame::DocumentWrite& document, const std::function<void(std::int64_t)>& writeRows);
  void owe(OpenItems& items, const TradeDocument& document, const std::string& key, double amount);

  session::LoginContext& context_;
  Dice& dice_;
  std::vector<TradedItem> items_;
  std::vector<TradedParty> customers_, vendors_;
  Skewed itemsSkew_, customersSkew_, vendorsSkew_;
  std::vector<std::array<int, locations>> stock_;
  std::vector<int> low_;                                 // items of which little was left
  std::map<std::pair<int, int>, std::int64_t> numbers_;  // by year and type
  OpenItems receivables_, payables_;
  std::vector<TradedLine> sold_, bought_;  // of late
};

}  // namespace velmo::demo
