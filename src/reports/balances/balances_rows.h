#pragma once

#include <memory>
#include <string>
#include <vector>

#include "printing/report_data.h"

namespace velmo::reports {

// The rows of a hierarchy of balances for print, whose innermost rows, in the last of the chapters, are the accounts:
// types and sub types without accounts are left out.
std::shared_ptr<const printing::ReportData> withoutEmptyLevels(std::shared_ptr<const printing::ReportData> rows,
                                                               std::vector<std::string> chapters);

}  // namespace velmo::reports
