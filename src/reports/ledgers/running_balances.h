#pragma once

#include <cstdint>
#include <functional>

#include "store/connection/connection.h"

namespace velmo::reports {

// Called every few thousand lines with the number of lines done; false stops the work.
using LinesDone = std::function<bool(std::int64_t lines)>;

// Puts the balance behind every line of the year, account by account, into SubTransactions.Balance and Status, in one
// durable change. Cancelled documents and empty lines keep what they have. False when it was stopped: nothing is
// changed then. Throws StoreError, and changes nothing either.
bool writeRunningBalances(store::Connection& connection, int fyid, const LinesDone& progress = {});

}  // namespace velmo::reports
