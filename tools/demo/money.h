#pragma once

#include "demo_company/dice.h"
#include "session/login_context.h"
#include "text/date_time.h"

namespace velmo::demo {

// What comes in and goes out beside the trade of one day, up to a moment: customers' receipts, payments to vendors and
// small expenses. Settles what is open when it is called.
void moveMoney(session::LoginContext& context, Dice& dice, const text::DateTime& day, const text::DateTime& now);

}  // namespace velmo::demo
