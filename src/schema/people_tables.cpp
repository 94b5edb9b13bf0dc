#include "schema/company_tables.h"

namespace velmo::schema {

using enum store::ColumnType;

namespace {

store::Table employees() {
  return {
      .name = "Employees",
      .columns = {{.name = "EmpID", .type = Integer, .autoNumber = true},
                  {"EmpName", Text},
                  {"FatherName", Text},
                  {"Address", Text},
                  {"Telephone", Text},
                  {"EMail", Text},
                  {"DateOfBirth", Date},
                  {"NICNo", Text},
                  {"Department", Text},
                  {"Designation", Text},
                  {"Salary", Double},
                  {"DateJoin", Date},
                  {"DateLeft", Date},
                  {"Remarks", Text},
                  {"Reference", Text},
                  {"Status", YesNo}},
      .key = {"EmpID"},
  };
}

store::Table jobs() {
  return {
      .name = "Jobs",
      .columns = {{.name = "JobID", .type = Long, .autoNumber = true},
                  {"JobNo", Long},
                  {"JobDate", Date},
                  {"JobDesc", Text},
                  {"OrderRefDate", Text},
                  {"ExpDeliveryDate", Text},
                  {"CustomerCode", Long},
                  {"CustomerName", Text},
                  {"Address", Text},
                  {"Telephone", Text},
                  {"Contact", Text},
                  {"EstimatedCost", Double},
                  {"ValueofWork", Double},
                  {"InchargeID", Integer},
                  {"CompletionDate", Text},
                  {"Status", YesNo},
                  {"DeliveryRefDate", Text},
                  {"Remarks", Text}},
      .key = {"JobID"},
  };
}

store::Table userRights() {
  store::Table table{.name = "UserRights", .columns = {{"RightID", Integer}, {"RightType", Text}}, .key = {"RightID"}};
  for (char operatorDigit = '1'; operatorDigit <= '9'; ++operatorDigit)
    table.columns.push_back({std::string("Operator") + operatorDigit, YesNo});
  return table;
}

}  // namespace

std::vector<store::Table> peopleTables() {
  return {
      {.name = "Regions1", .columns = {{"Region1ID", Integer}, {"Region1Name", Text}}, .key = {"Region1ID"}},
      {.name = "Regions2",
       .columns = {{"Region2ID", Integer}, {"Region2Name", Text}, {"Region1ID", Integer}},
       .key = {"Region2ID"},
       .relations = {{"Region1ID", "Regions1", "Region1ID"}}},
      {.name = "BizSectors", .columns = {{"SectorID", Integer}, {"SectorName", Text}}, .key = {"SectorID"}},
      employees(),
      jobs(),
      {.name = "Users",
       .columns = {{"UserID", Byte}, {"UserName", Text}, {"Password", Text}, {"Notes", Text}},
       .key = {"UserID"}},
      userRights(),
  };
}

}  // namespace velmo::schema
