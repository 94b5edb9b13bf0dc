#include "documents/find_sales_simple.h"

namespace velmo::documents {

frame::FindType findSalesSimple() {
  using enum frame::FindCondition;
  using enum frame::ShownAs;
  return {.screen = "FindSalesSimple",
          .title = "FIND SALE INVOICES",
          .viewRight = 94,
          .select =
              "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Text1, "
              "Transactions.TrAmount, Transactions.Received, Transactions.Balance, Transactions.Nature, "
              "Transactions.D1, Transactions.D1Date, Transactions.D2, Transactions.D2Date, Employees.EmpName, "
              "StockLocation.LocationName, Transactions.Cancel, Users.UserName AS AddedBy, Transactions.TimeAdded, "
              "Users_1.UserName AS EditedBy, Transactions.TimeEdited",
          .columns = {{"Serial No.", "Transactions.DocNo", Number, "Give serial no. to find."},
                      {"Date", "Transactions.TranDate", OnDay},
                      {"Terms of Payment", "Transactions.Nature", AsTyped, "Give terms of payment to find."},
                      {"Purchase Order No.", "Transactions.D1", AsTyped, "Give purchase order no. to find."},
                      {"Purchase Order Date", "Transactions.D1Date", AsTyped, "Give purchase order date to find."},
                      {"Delivery Challan No.", "Transactions.D2", AsTyped, "Give delivery challan no. to find."},
                      {"Delivery Challan Date", "Transactions.D2Date", AsTyped, "Give delivery challan date to find."},
                      {"Customer Name", "Transactions.Text1", Contains, "Give customer name to find."},
                      {"Amount", "Transactions.TrAmount", Number, "Give amount to find."}},
          .result = {{"DocNo", "Serial No.", Plain, 80},
                     {"TranDate", "Date", Day, 90},
                     {"Text1", "Customer Name", Plain, 220},
                     {"TrAmount", "Amount", Amount, 110},
                     {"Received", "Received", Amount, 110},
                     {"Balance", "Balance", Amount, 110},
                     {"Nature", "Terms of Payment", Plain, 130},
                     {"D1", "Purchase Order No.", Plain, 130},
                     {"D1Date", "Dated", Plain, 90},
                     {"D2", "Delivery Challan No.", Plain, 130},
                     {"D2Date", "Dated", Plain, 90},
                     {"EmpName", "Employee", Plain, 140},
                     {"LocationName", "Location", Plain, 120},
                     {"Cancel", "Cancelled", Plain, 80},
                     {"AddedBy", "Added By", Plain, 110},
                     {"TimeAdded", "Time Added", Plain, 150},
                     {"EditedBy", "Edited By", Plain, 110},
                     {"TimeEdited", "Time Edited", Plain, 150}}};
}

}  // namespace velmo::documents
