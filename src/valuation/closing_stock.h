#pragma once

#include "store/connection/connection.h"
#include "text/date_time.h"

namespace velmo::valuation {

// What the goods that were there at the end of a day of the year are worth, at the items' closing cost. Services are no
// goods. Throws StoreError.
double closingStockValue(store::Connection& connection, int fyid, const text::DateTime& day);

// Rewrites the year's one entry of closing stock, type 51, for the day: its date, the inventory that the balance sheet
// shows and the cost of sales that it lowers. All of it or none. A year without the entry stays without it. Throws
// StoreError, of kind Misuse within a transaction.
void postClosingStock(store::Connection& connection, int fyid, const text::DateTime& day);

}  // namespace velmo::valuation
