#include "reports/parts/account_filters.h"

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

Selection accountTypeSelection(const std::string& name, const std::string& group, const std::string& mainList,
                               Refusal noMainType, Refusal noSubType) {
  noMainType.control = mainList;
  noSubType.control = "SubList";
  return {.box = name,
          .caption = "&Main Account Type",
          .group = group,
          .inputs = {mainTypeList(mainList)},
          .refusals = {std::move(noMainType)},
          .narrower = {{.box = "SubTypeOpt",
                        .caption = "&Sub Type",
                        .inputs = {subTypeList("SubList", mainList)},
                        .refusals = {std::move(noSubType)}}}};
}

Selection accountRangeSelection(const std::string& name, const std::string& caption, const std::string& group) {
  constexpr const char* title = "Select Account Code";
  return {.box = name,
          .caption = caption,
          .group = group,
          .inputs = {frame::ReportAccount{.code = "CodeFrom", .name = "AccFrom", .caption = "&From"},
                     frame::ReportAccount{.code = "CodeTo", .name = "AccTo", .caption = "&To"}},
          .refusals = {{"CodeFrom", title, "Select account code to start from."},
                       {"CodeTo", title, "Select account code to end at."}}};
}

frame::ReportFilterRow accountRangeRow(const std::string& name, const std::string& caption, const std::string& group) {
  return selectionRow(accountRangeSelection(name, caption, group));
}

bool checkAccountRange(frame::ReportScreen& screen) {
  Selection range = accountRangeSelection({}, {}, {});  // its option is known to be chosen
  return checkSelections(screen, frame::ReportUse::View, {std::move(range)});
}

}  // namespace velmo::reports
