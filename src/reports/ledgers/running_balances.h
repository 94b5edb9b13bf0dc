#pragma once

#include <cstdint>
#include <functional>

#include "store/connection/connection.h"

namespace velmo::reports {

// Called every few thousand lines with the number of lines done; false stops the work.
using LinesDone = std::function<bool(std::int64_t lines)>;

// Puts the balance behind every line of the year, account by account, into SubTransactions.Balance and Status.
// Cancelled documents and empty lines keep what they have. It writes in the order of the file, in durable changes of at
// most `pagesAtOnce` pages, and folds the log in behind each: nobody waits long to save, and the log stays small. What
// others write meanwhile is found and made good at the end. False when it was stopped: what was written by then stays,
// and the next pass goes on with the rest. Throws StoreError, with the same outcome.
bool writeRunningBalances(store::Connection& connection, int fyid, const LinesDone& progress = {},
                          int pagesAtOnce = 1000);

}  // namespace velmo::reports
