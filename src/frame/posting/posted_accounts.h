#pragma once

#include <vector>

#include "frame/posting/posting_table.h"
#include "store/connection/connection.h"

namespace velmo::frame {

// Throws StoreError, with a sentence that names it, when a line's account is not in the chart of accounts: it may have
// been deleted since it was chosen.
void demandAccounts(store::Connection& connection, const std::vector<LedgerLine>& lines);

// The same of the ledger lines that a document has in the store.
void demandAccounts(store::Connection& connection, std::int64_t tranNo);

}  // namespace velmo::frame
