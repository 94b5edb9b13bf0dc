#include "documents/find_sales_simple.h"

namespace velmo::documents {

namespace {

constexpr const char* day = "dd-mm-yyyy";
constexpr const char* money = "0.00;(0.00)";

}  // namespace

frame::FindType findSalesSimple() {
  using enum frame::FindCondition;
  using enum forms::ColumnAlignment;
  return {.screen = "FindSalesSimple",
          .title = "FIND SALE INVOICES",
          .viewRight = 94,
          .select =
              "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Text1, "
              "Transactions.TrAmount, Transactions.Received, Transactions.Balance, Transactions.Nature, "
              "Transactions.D1, Transactions.D1Date, Transactions.D2, Transactions.D2Date, Employees.EmpName, "
              "StockLocation.LocationName, iif(Transactions.Cancel=0, '', 'CANCELLED') AS CStatus, Users.UserName AS "
              "AddedBy, Transactions.TimeAdded, "
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
          .result = {{.caption = "Serial No.", .field = "DocNo", .alignment = Right, .width = 9},
                     {.caption = "Date", .field = "TranDate", .format = day, .width = 10},
                     {.caption = "Customer Name", .field = "Text1", .width = 28},
                     {.caption = "Amount", .field = "TrAmount", .format = money, .alignment = Right},
                     {.caption = "Received", .field = "Received", .format = money, .alignment = Right},
                     {.caption = "Balance", .field = "Balance", .format = money, .alignment = Right},
                     {.caption = "Terms of Payment", .field = "Nature", .width = 16},
                     {.caption = "Purchase Order No.", .field = "D1", .width = 16},
                     {.caption = "Dated", .field = "D1Date", .width = 10},
                     {.caption = "Delivery Challan No.", .field = "D2", .width = 16},
                     {.caption = "Dated", .field = "D2Date", .width = 10},
                     {.caption = "Employee", .field = "EmpName", .width = 18},
                     {.caption = "Location", .field = "LocationName", .width = 16},
                     {.caption = "Status", .field = "CStatus", .width = 10},
                     {.caption = "Added By", .field = "AddedBy", .width = 14},
                     {.caption = "Time Added", .field = "TimeAdded", .width = 19},
                     {.caption = "Edited By", .field = "EditedBy", .width = 14},
                     {.caption = "Time Edited", .field = "TimeEdited", .width = 19}}};
}

}  // namespace velmo::documents
