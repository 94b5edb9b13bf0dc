#pragma once

#include "demo_company/dice.h"
#include "store/connection/connection.h"

namespace velmo::demo {

// What the company owned and owed before the year: money, goods at every location, unpaid invoices and bills. The
// owner's capital makes debits and credits equal.
void writeOpenings(store::Connection& connection, Dice& dice);

}  // namespace velmo::demo
