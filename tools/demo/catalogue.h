#pragma once

#include "demo_company/dice.h"
#include "store/connection/connection.h"

namespace velmo::demo {

// Categories, sub categories, items and services. Item codes are article numbers that a scanner reads.
void writeCatalogue(store::Connection& connection, Dice& dice);

}  // namespace velmo::demo
