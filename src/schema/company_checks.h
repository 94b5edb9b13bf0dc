#pragma once

#include <string>
#include <vector>

#include "store/checks/finding.h"
#include "store/connection/connection.h"

// What is looked at in a company's file beside the work. A further check is one more entry in companyChecks().
namespace velmo::schema {

// In their order; what is behind a damage is not looked at.
std::vector<store::IdleCheck> companyChecks();
// The pages and the sums of kept totals, for a file that was not seen through before the first screen.
std::vector<store::IdleCheck> startChecks();

// Documents of all years whose debits and credits differ by half a cent or more though their kind promises balance,
// cancelled ones last: TranNo, TranType, TranDate, TranRefShort, FYID, Cancel, State, Debits, Credits, Difference.
std::string unbalancedDocuments();

}  // namespace velmo::schema
