#pragma once

#include <string>

#include "frame/report/report_type.h"

// What several reports ask for: a type of accounts, or a range of them.
namespace velmo::reports {

// A list of the main types with their natures, and one of the sub types of what is chosen in it.
frame::ReportList mainTypeList(const std::string& name);
frame::ReportList subTypeList(const std::string& name, const std::string& mainTypeList);
// The sub types of one main type.
frame::ReportList subTypesOf(int typeId, const std::string& name);

// An option with the two ends of a range: `CodeFrom`, `AccFrom`, `CodeTo`, `AccTo`.
frame::ReportFilterRow accountRangeRow(const std::string& name, const std::string& caption, const std::string& group);
// Whether both ends are accounts; tells which is not.
bool checkAccountRange(frame::ReportScreen& screen);

}  // namespace velmo::reports
