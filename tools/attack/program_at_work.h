#pragma once

#include <string>

#include "attack/cashier.h"

namespace velmo::attack {

// What is wrong with a trial balance at this moment, while others save: its debits are not its credits, or it is not
// that of the lines. "" when it is well. Throws store::StoreError.
std::string flawOfReport(store::Connection& books);

// Does what a day brings, at random, until it is killed or `steps` are done: sales mostly, beside them idle work,
// reports, back-ups, imports, logins, balance passes and starts of further programs. Another program in the way is
// waited for.
void workAsProgram(int pipe, unsigned seed, const Documents& known, int steps);

}  // namespace velmo::attack
