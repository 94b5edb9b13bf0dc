#pragma once

#include <vector>

#include "store/checks/finding.h"
#include "store/connection/connection.h"

namespace velmo::store {

// Tables, indexes and triggers that stand in the file's list under another name, kind or table than they are declared
// with. SQLite takes them by their declaration and finds nothing wrong, but whatever then drops and makes them again
// leaves both in the file, which nobody can open from then on. Throws StoreError.
std::vector<Finding> declarationFaults(Connection& connection);

}  // namespace velmo::store
