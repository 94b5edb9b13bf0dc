#include "reports/parts/account_filters.h"

#include "frame/report/report_screen.h"

namespace velmo::reports {
namespace {

constexpr const char* mainTypes =
    "SELECT [AccLevel1].[Type] & ' (' & [FSNature].[AccNatureTop] & ')' AS MainType, AccLevel1.TypeID FROM FSNature "
    "INNER JOIN AccLevel1 ON FSNature.NatureID = AccLevel1.NatureID ORDER BY [AccLevel1].[Type] & ' (' & "
    "[FSNature].[AccNatureTop] & ')'";

std::string subTypes(std::int64_t mainType) {
  return "SELECT Level2ID, L2AccName, TypeID from acclevel2 where typeid=" + std::to_string(mainType) +
         " order by L2AccName";
}

}  // namespace

frame::ReportList mainTypeList(const std::string& name) {
  return {.name = name, .shown = "MainType", .bound = "TypeID", .statement = [](const store::Value&) {
            return std::string(mainTypes);
          }};
}

frame::ReportList subTypeList(const std::string& name, const std::string& mainTypeList) {
  return {.name = name,
          .shown = "L2AccName",
          .bound = "Level2ID",
          .statement = [](const store::Value& mainType) { return subTypes(store::integerOf(mainType)); },
          .parent = mainTypeList};
}

frame::ReportList subTypesOf(int typeId, const std::string& name) {
  return {.name = name, .shown = "L2AccName", .bound = "Level2ID", .statement = [typeId](const store::Value&) {
            return subTypes(typeId);
          }};
}

frame::ReportFilterRow accountRangeRow(const std::string& name, const std::string& caption, const std::string& group) {
  return {frame::ReportOption{
              .name = name, .caption = caption, .group = group, .inputs = {"CodeFrom", "AccFrom", "CodeTo", "AccTo"}},
          frame::ReportAccount{.code = "CodeFrom", .name = "AccFrom", .caption = "&From"},
          frame::ReportAccount{.code = "CodeTo", .name = "AccTo", .caption = "&To"}};
}

bool checkAccountRange(frame::ReportScreen& screen) {
  if (screen.filters().text("AccFrom").empty())
    return screen.refuse("Select Account Code", "Select account code to start from.", "CodeFrom");
  if (screen.filters().text("AccTo").empty())
    return screen.refuse("Select Account Code", "Select account code to end at.", "CodeTo");
  return true;
}

}  // namespace velmo::reports
