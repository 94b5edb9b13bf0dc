#pragma once

#include <cstdint>
#include <string>

#include "store/connection/connection.h"

namespace velmo::frame {

// What the ledger says of a party: this year's documents that are not cancelled.
struct PartyBalance {
  std::string shown = "0.00";  // "150.00 Dr"
  double amount = 0;           // debits less credits
};

PartyBalance partyBalance(store::Connection& connection, std::int64_t accCode, int fyid);

}  // namespace velmo::frame
