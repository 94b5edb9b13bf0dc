#pragma once

#include "session/login_context.h"
#include "store/values/value.h"

namespace velmo::session {

// Sets the five InvLedger flags from BusinessInfo.StockMovement: tens for the inward document that moves stock, units
// for the outward one. Any other value, null too, leaves all flags down: every document then moves stock.
void applyStockMovement(LoginContext& context, const store::Value& stockMovement);

// The column InvLedger of a document of the kind: whether it leaves the stock as it is. A kind without goods says no.
bool leavesStock(int tranType, const LoginContext& context);

}  // namespace velmo::session
