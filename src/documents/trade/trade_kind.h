#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/document/document_type.h"
#include "frame/items/item_grid_kind.h"
#include "frame/posting/document_totals.h"

namespace velmo::documents {

struct PartyRules {
  std::string_view caption;   // of the frame: "Customer"
  std::string listCondition;  // on acclevel3
  frame::MasterCommand newParty;
  // The account of parties that are not known by name: its name is written on each document.
  std::optional<std::int64_t> cashCode = {};
  frame::ReceivedRule cashRule = frame::ReceivedRule::AsTyped;  // of a document to that account
};

// The second account of a document: income or expense.
struct HeadRules {
  std::string_view caption;
  std::string listCondition;
  std::int64_t initialCode = 0;
};

// A document that is paid in full as it is saved: saving first takes the money, in a panel over the document, and the
// ledger's debit goes to an account that the user may choose. The party and the second account are given.
struct CounterRules {
  std::string_view caption;  // of the debit account
  std::string listCondition;
  std::int64_t debitCode = 0;
  std::int64_t partyCode = 0;
  std::string_view termsWithoutParty;  // when the party's account is not there
};

// Which figures stand below the lines.
enum class TradeFigures {
  ToBalance,   // from the sums of the lines to what is paid and what stays open
  OfLinesOnly  // the sums of the lines, and the last of them is what the document is about
};

// In what documents of goods and services for one party differ from each other.
struct TradeKind {
  PartyRules party;
  std::optional<HeadRules> head = {};
  std::optional<CounterRules> counter = {};
  frame::ItemGridKind lines = {};
  TradeFigures figures = TradeFigures::ToBalance;
  std::string_view receivedCaption = "Amount Received ";  // of what is paid with the document
};

}  // namespace velmo::documents
