#pragma once

#include <string_view>

#include "documents/trade/trade_kind.h"

// What quotations, orders, challans and gate passes have in common: papers of goods for a party, without ledger lines.
// What their lines come to is all they are about.
namespace velmo::documents {

// A paper of the screen with all that it shares; what is its own is still to be said.
frame::DocumentType orderPaper(std::string_view screen, std::string_view title, TradeKind kind);

// Papers of sales and of purchases: the party is known by name.
TradeKind salePaper(frame::ItemGridKind lines);
TradeKind purchasePaper(frame::ItemGridKind lines);

// The column of net amounts as orders, challans and gate passes call it.
inline constexpr const char* valueExclTax = "Value Excl. Tax";

}  // namespace velmo::documents
