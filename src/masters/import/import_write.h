#pragma once

#include "masters/import/import_plan.h"
#include "store/connection/connection.h"

namespace velmo::masters {

// Writes the rows of a plan that have no problem, and the brands and sub categories that they need, in one transaction:
// all of them or none. Codes that the plan gave and others took since are replaced by free ones. False, and nothing
// written, when the progress function stopped the work. Throws StoreError, also where a given code was taken.
bool writeImport(store::Connection& connection, const ImportPlan& plan, const ImportProgress& progress = {});

}  // namespace velmo::masters
