#include "vouchers/journal/find_journals.h"

namespace velmo::vouchers {

frame::FindType findJournals() {
  using enum frame::FindCondition;
  using enum forms::ColumnAlignment;
  return {.title = "FIND JOURNAL VOUCHERS",
          .select =
              "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Desc, "
              "Transactions.TrAmount, Employees.EmpName, iif(Transactions.Cancel=0, '', 'CANCELLED') AS "
              "CStatus, Users.UserName AS AddedBy, Transactions.TimeAdded, Users_1.UserName AS EditedBy, "
              "Transactions.TimeEdited",
          .columns = {{"Serial No.", "Transactions.DocNo", Number, "Give serial no. to find."},
                      {"Date", "Transactions.TranDate", OnDay},
                      {"Description", "Transactions.Desc", Contains, "Give remarks / description to find."},
                      {"Amount", "Transactions.TrAmount", Number, "Give amount paid to find."}},
          .result = {{.caption = "Serial No.", .field = "DocNo", .alignment = Right, .width = 9},
                     {.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 10},
                     {.caption = "Description", .field = "Desc", .width = 44},
                     {.caption = "Amount", .field = "TrAmount", .format = "0.00;(0.00)", .alignment = Right},
                     {.caption = "Employee", .field = "EmpName", .width = 18},
                     {.caption = "Status", .field = "CStatus", .width = 10},
                     {.caption = "Added By", .field = "AddedBy", .width = 14},
                     {.caption = "Time Added", .field = "TimeAdded", .format = frame::momentFormat, .width = 19},
                     {.caption = "Edited By", .field = "EditedBy", .width = 14},
                     {.caption = "Time Edited", .field = "TimeEdited", .format = frame::momentFormat, .width = 19}},
          .location = frame::FindLocation::None};
}

}  // namespace velmo::vouchers
