#pragma once

#include "session/login_context.h"
#include "store/values/value.h"

namespace velmo::session {

// Sets the five InvLedger flags from BusinessInfo.StockMovement: tens for the inward document that moves stock, units
// for the outward one. Any other value, null too, leaves all flags down: every document then moves stock.
void applyStockMovement(LoginContext& context, const store::Value& stockMovement);

}  // namespace velmo::session
