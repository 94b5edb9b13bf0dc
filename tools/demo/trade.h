#pragma once

#include "demo_company/dice.h"
#include "session/login_context.h"

namespace velmo::demo {

// Half a year of buying and selling, as far as it lies in the context's year, through the same pipeline as the screens:
// purchases, invoices on account, at the counter and part paid, and now and then goods that come or go back. Nothing is
// sold that is not there.
void writeTrade(session::LoginContext& context, Dice& dice, const text::DateTime& now);

}  // namespace velmo::demo
