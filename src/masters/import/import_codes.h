#pragma once

#include <map>
#include <string>

#include "masters/import/import_plan.h"
#include "store/connection/connection.h"

namespace velmo::masters {

// Codes that another program took between the plan and its writing: by the planned code the one that is free now. A
// family - the accounts of a sub type, the sub categories of a category - moves as a whole, behind the codes that stand
// in the file. Only within a transaction do they stay free. Throws StoreError when a family has no codes left, and when
// a code that was given in the import's file, which moves nowhere, is taken.
std::map<std::string, std::string> movedCodes(store::Connection& connection, const ImportPlan& plan);

}  // namespace velmo::masters
