#pragma once

#include <string>

#include "support/dice.h"

namespace velmo::test {

// A select over the catalogue in the dialect's own forms, mostly right in the kinds of its values, with derived tables
// up to the depth.
std::string randomSelect(Dice& dice, int depth);

}  // namespace velmo::test
