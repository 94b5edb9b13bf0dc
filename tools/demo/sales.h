#pragma once

#include "demo_company/dice.h"
#include "session/login_context.h"

namespace velmo::demo {

// Saves the sale invoices of the working days of the last five weeks that lie in the context's year, through the same
// pipeline as the screen: about seven a day, on account, at the counter and part paid.
void writeSales(session::LoginContext& context, Dice& dice, const text::DateTime& now);

}  // namespace velmo::demo
