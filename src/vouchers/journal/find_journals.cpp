#include "vouchers/journal/find_journals.h"

#include "frame/document/find_columns.h"

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
          .result = frame::findColumns(
              {{.caption = "Description", .field = "Desc", .width = 44}, frame::findAmount("Amount", "TrAmount")}),
          .location = frame::FindLocation::None};
}

}  // namespace velmo::vouchers
