#include "masters/people/employees.h"

#include "frame/master/master_dialog.h"
#include "text/number.h"

namespace velmo::masters {
namespace {

using frame::BoxKind;
using frame::MasterEntry;

std::vector<frame::MasterField> employeeFields() {
  return {{.name = "EmpID", .caption = "No.", .column = "EmpID", .use = frame::BoxUse::ShownOnly},
          {.name = "StatusOpt", .caption = "Job Left", .column = "Status", .kind = BoxKind::Check},
          {.name = "EmpTxt_0", .caption = "Name", .column = "EmpName"},
          {.name = "EmpTxt_1", .caption = "Father's name", .column = "FatherName"},
          {.name = "EmpTxt_2", .caption = "Address", .column = "Address", .span = 2},
          {.name = "EmpTxt_3", .caption = "Telephone", .column = "Telephone"},
          {.name = "EmpTxt_4", .caption = "E-mail", .column = "EMail"},
          {.name = "DoB", .caption = "Date of birth", .column = "DateOfBirth", .kind = BoxKind::Day},
          {.name = "EmpTxt_5", .caption = "Identity card no.", .column = "NICNo"},
          {.name = "EmpDeptt",
           .caption = "Department",
           .column = "Department",
           .kind = BoxKind::Suggestion,
           .choices = {.statement = "SELECT department From employees GROUP BY department Having ((department) Is Not "
                                    "Null) ORDER BY department",
                       .shownColumn = "department"}},
          {.name = "EmpTxt_6", .caption = "Designation", .column = "Designation"},
          {.name = "EmpTxt_7", .caption = "Salary", .column = "Salary", .kind = BoxKind::Amount},
          {.name = "EmpTxt_9", .caption = "Reference", .column = "Reference"},
          {.name = "JDt", .caption = "Date of joining", .column = "DateJoin", .kind = BoxKind::Day},
          {.name = "LDt", .caption = "Date of leaving", .column = "DateLeft", .kind = BoxKind::Day},
          {.name = "EmpTxt_8", .caption = "Remarks", .column = "Remarks", .span = 2}};
}

std::vector<frame::WrittenColumn> employeeColumns() {
  const auto salary = [](const MasterEntry& entry) -> store::Value {
    return text::amountFrom(store::textOf(entry.value("Salary")));
  };
  return {{"EmpName"},     {"FatherName"}, {"Address"},    {"Telephone"},   {"EMail"},
          {"DateOfBirth"}, {"NICNo"},      {"Department"}, {"Designation"}, {"Salary", salary},
          {"DateJoin"},    {"DateLeft"},   {"Remarks"},    {"Reference"},   {"Status"}};
}

std::optional<std::string> lastOne(const MasterEntry& entry) {
  return entry.rows.recordCount() == 1 ? std::optional<std::string>("You cannot delete the last employee in record.")
                                       : std::nullopt;
}

std::function<std::optional<std::string>(const MasterEntry&)> referredTo(const char* select, const char* words) {
  return frame::hasRows(
      select, [](const MasterEntry& entry) { return entry.stored("EmpID"); },
      [words](const MasterEntry&) { return std::string(words); });
}

}  // namespace

QWidget* makeEmployees(session::Workplace& workplace, QWidget* parent) {
  frame::MasterLevel level = {
      .frame = "ListFrame",
      .list = "EmpList",
      .suffix = "",
      .heading = "Employees",
      .key = "EmpID",
      .statement = [](const std::string&) { return std::string("select * from Employees order by EmpName"); },
      .columns = {{.caption = "Name", .field = "EmpName", .width = 30},
                  {.caption = "Designation", .field = "Designation", .width = 18},
                  {.caption = "Department", .field = "Department", .width = 16},
                  {.caption = "Telephone", .field = "Telephone", .width = 16}},
      .fields = employeeFields(),
      .written = employeeColumns(),
      .tests = {{frame::emptyText("EmpName", "Give employee name to save record."), "EmpName"}},
      .deletion =
          frame::MasterDeletion{
              .none = {"Cannot Delete", "You cannot delete the last employee in record."},
              .refusals = {lastOne,
                           referredTo("select * from transactions where empid = ",
                                      "There have been transactions recorded for the selected employee."),
                           referredTo("select * from acclevel3 where empid = ",
                                      "There have been customers linked with the selected employee.")},
              .question =
                  [](const MasterEntry&) { return std::string("Are you sure, you want to delete this employee?"); }},
      .firstColumn = "EmpName",
      .formColumns = 2};
  std::vector<frame::MasterLevel> levels;
  levels.push_back(std::move(level));
  return new frame::MasterDialog({.screen = "Employees", .title = "Employees", .levels = std::move(levels)}, workplace,
                                 parent);
}

}  // namespace velmo::masters
