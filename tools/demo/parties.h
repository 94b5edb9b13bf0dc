#pragma once

#include "demo_company/dice.h"
#include "store/connection/connection.h"

namespace velmo::demo {

inline constexpr int customerCount = 60;
inline constexpr int vendorCount = 30;
inline constexpr int bankCount = 3;

// The first accounts behind the standard ones; the others follow without a gap.
inline constexpr int firstCustomer = 12001002;
inline constexpr int firstVendor = 21001002;
inline constexpr int firstBank = 11001001;

void writeParties(store::Connection& connection, Dice& dice);

}  // namespace velmo::demo
