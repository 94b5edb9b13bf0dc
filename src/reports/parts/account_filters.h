#pragma once

#include <string>

#include "frame/report/report_type.h"
#include "reports/parts/selections.h"

// What several reports ask for: a type of accounts, or a range of them.
namespace velmo::reports {

// A list of the main types with their natures, and one of the sub types of what is chosen in it.
frame::ReportList mainTypeList(const std::string& name);
frame::ReportList subTypeList(const std::string& name, const std::string& mainTypeList);
// The sub types of one main type.
frame::ReportList subTypesOf(int typeId, const std::string& name);

// "Main Account Type": an option with a list of the main types and the box `SubTypeOpt` with a list of sub types,
// `SubList`. What is said when nothing is chosen in one of the lists; its control is filled in.
Selection accountTypeSelection(const std::string& name, const std::string& group, const std::string& mainList,
                               Refusal noMainType, Refusal noSubType);

// An option with the two ends of a range: `CodeFrom`, `AccFrom`, `CodeTo`, `AccTo`.
Selection accountRangeSelection(const std::string& name, const std::string& caption, const std::string& group);
frame::ReportFilterRow accountRangeRow(const std::string& name, const std::string& caption, const std::string& group);
// Whether both ends are accounts, of the range that is chosen; tells which is not.
bool checkAccountRange(frame::ReportScreen& screen);

}  // namespace velmo::reports
