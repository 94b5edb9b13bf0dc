#pragma once

#include "frame/report/report_type.h"

namespace velmo::reports {

// A grid of ledger lines with their accounts, whatever document they come from.
frame::ReportGrid postedLinesGrid(const char* name);

}  // namespace velmo::reports
