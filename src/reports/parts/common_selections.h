#pragma once

#include "reports/parts/selections.h"

// The selections that many reports offer. What differs from report to report is in SelectionUse.
namespace velmo::reports {

struct SelectionUse {
  std::string box;
  std::string clause;                 // " AND ((OBQry.Empid)=?)"
  std::string otherwise = {};         // the clause while the box is not ticked
  std::string to = "to view report";  // the end of what is said: "Select a valid employee to view report"
  std::string toPrint = {};           // none: `to` as well
};

enum class PartyKind { Customers, Vendors };

// "Customer Type" or "Vendor Type", `SubList`.
Selection partyTypeSelection(PartyKind kind, const SelectionUse& use);
// `EmployeeList`, `SectorList`, `EmpDeptt` (the departments of employees), `RegionList1`, and `RegionList2`, the sub
// regions of the main region that is chosen there.
Selection employeeSelection(const SelectionUse& use);
Selection sectorSelection(const SelectionUse& use);
Selection departmentSelection(const SelectionUse& use);
Selection mainRegionSelection(const SelectionUse& use);
Selection subRegionSelection(const SelectionUse& use);

}  // namespace velmo::reports
