#include "reports/parts/common_selections.h"

#include "reports/parts/account_filters.h"

namespace velmo::reports {
namespace {

frame::ReportList listOf(const char* name, const char* shown, const char* bound, const char* statement) {
  return {.name = name, .shown = shown, .bound = bound, .statement = [statement](const store::Value&) {
            return std::string(statement);
          }};
}

// A box with one list. The words are those of its messages: "Invalid Sector", "Select a valid sector ...".
Selection ofList(const std::string& caption, frame::ReportList list, const std::string& title, const std::string& word,
                 const SelectionUse& use) {
  const std::string demand = "Select a valid " + word + " ";
  return {.box = use.box,
          .caption = caption,
          .inputs = {list},
          .refusals = {{.control = list.name,
                        .title = "Invalid " + title,
                        .text = demand + use.to,
                        .onPrint = use.toPrint.empty() ? std::string() : demand + use.toPrint}},
          .clause = use.clause,
          .otherwise = use.otherwise};
}

}  // namespace

Selection partyTypeSelection(PartyKind kind, const SelectionUse& use) {
  constexpr int customers = 120;
  constexpr int vendors = 210;
  return kind == PartyKind::Customers
             ? ofList("Customer &Type", subTypesOf(customers, "SubList"), "Customer Type", "customer type", use)
             : ofList("Vendor &Type", subTypesOf(vendors, "SubList"), "Vendor Type", "vendor type", use);
}

Selection employeeSelection(const SelectionUse& use) {
  return ofList("E&mployee",
                listOf("EmployeeList", "EmpName", "Empid", "Select Empid, EmpName from Employees order by empname"),
                "Employee", "employee", use);
}

Selection sectorSelection(const SelectionUse& use) {
  return ofList("&Business Sector",
                listOf("SectorList", "SectorName", "SectorID", "Select * from bizsectors order by sectorname"),
                "Sector", "sector", use);
}

Selection departmentSelection(const SelectionUse& use) {
  return ofList("De&partment",
                listOf("EmpDeptt", "department", "department",
                       "SELECT department From employees GROUP BY department Having ((department) Is Not Null) ORDER "
                       "BY department"),
                "Department", "department", use);
}

Selection mainRegionSelection(const SelectionUse& use) {
  return ofList("Main &Region",
                listOf("RegionList1", "Region1Name", "Region1ID", "Select * from regions1 order by region1name"),
                "Region", "region", use);
}

Selection subRegionSelection(const SelectionUse& use) {
  const frame::ReportList regions{.name = "RegionList2",
                                  .shown = "Region2Name",
                                  .bound = "Region2ID",
                                  .statement =
                                      [](const store::Value& region) {
                                        return "SELECT * from regions2 where region1id=" +
                                               std::to_string(store::integerOf(region)) + " order by region2name";
                                      },
                                  .parent = "RegionList1"};
  return ofList("&Sub Region", regions, "Region", "region", use);
}

}  // namespace velmo::reports
