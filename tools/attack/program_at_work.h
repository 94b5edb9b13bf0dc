#pragma once

#include "attack/cashier.h"

namespace velmo::attack {

// Does what a day brings, at random, until it is killed or `steps` are done: sales mostly, beside them idle work,
// reports, back-ups, imports and starts of further programs. Another program in the way is waited for.
void workAsProgram(int pipe, unsigned seed, const Documents& known, Cashier::Deletes deletes, int steps);

}  // namespace velmo::attack
