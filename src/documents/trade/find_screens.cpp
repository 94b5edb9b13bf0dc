#include "documents/trade/find_screens.h"

#include "documents/trade/find_columns.h"
#include "frame/document/find_columns.h"

namespace velmo::documents {

namespace {

using namespace find_columns;
using enum frame::FindCondition;

constexpr std::string_view select =
    "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Text1, Transactions.TrAmount, "
    "Transactions.Received, Transactions.Balance, Transactions.Nature, Transactions.D1, Transactions.D1Date, "
    "Transactions.D2, Transactions.D2Date, Employees.EmpName, StockLocation.LocationName, iif(Transactions.Cancel=0, "
    "'', 'CANCELLED') AS CStatus, Users.UserName AS AddedBy, Transactions.TimeAdded, Users_1.UserName AS EditedBy, "
    "Transactions.TimeEdited";

const frame::FindColumn terms{"Terms of Payment", "Transactions.Nature", AsTyped, "Give terms of payment to find."};

// What the two references of a kind of document are called in the list of what was found.
struct References {
  const char* first;
  const char* second = nullptr;
};

std::vector<forms::TableColumn> resultColumns(const char* party, const char* paid, References references) {
  std::vector<forms::TableColumn> columns = {{.caption = party, .field = "Text1", .width = 28},
                                             frame::findAmount("Amount", "TrAmount"),
                                             frame::findAmount(paid, "Received"),
                                             frame::findAmount("Balance", "Balance"),
                                             {.caption = "Terms of Payment", .field = "Nature", .width = 16},
                                             {.caption = references.first, .field = "D1", .width = 16},
                                             {.caption = "Dated", .field = "D1Date", .width = 10}};
  if (references.second) {
    columns.push_back({.caption = references.second, .field = "D2", .width = 16});
    columns.push_back({.caption = "Dated", .field = "D2Date", .width = 10});
  }
  return frame::findColumns(columns, frame::FindLocation::Joined);
}

}  // namespace

frame::FindType findSalesSimple() {
  return {.title = "FIND SALE INVOICES",
          .select = select,
          .columns = {serialNo,
                      date,
                      terms,
                      {"Purchase Order No.", "Transactions.D1", AsTyped, "Give purchase order no. to find."},
                      {"Purchase Order Date", "Transactions.D1Date", DayText, "Give purchase order date to find."},
                      {"Delivery Challan No.", "Transactions.D2", AsTyped, "Give delivery challan no. to find."},
                      {"Delivery Challan Date", "Transactions.D2Date", DayText, "Give delivery challan date to find."},
                      customer,
                      amount},
          .result = resultColumns("Customer Name", "Received", {"Purchase Order No.", "Delivery Challan No."})};
}

frame::FindType findSalesPOS() {
  return {.title = "FIND POINT OF SALE INVOICES",
          .select = select,
          .columns = {serialNo,
                      date,
                      customer,
                      {"Employee", "Employees.EmpName", Contains, "Give employee name to find."},
                      {"User Login", "Users.UserName", Contains, "Give user login to find."},
                      amount},
          .result = resultColumns("Customer Name", "Received", {"Purchase Order No.", "Delivery Challan No."})};
}

frame::FindType findSReturns() {
  return {.title = "FIND SALE RETURNS",
          .select = select,
          .columns = {serialNo,
                      date,
                      terms,
                      {"Invoice No.", "Transactions.D1", AsTyped, "Give invoice no. to find."},
                      {"Invoice Date", "Transactions.D1Date", DayText, "Give invoice date to find."},
                      customer,
                      amount},
          .result = resultColumns("Customer Name", "Paid", {"Invoice No."}),
          .pickedDays = {"D1Date"}};
}

frame::FindType findPurchasesSimple() {
  return {.title = "FIND PURCHASES",
          .select = select,
          .columns = {serialNo,
                      date,
                      terms,
                      {"Vendor Invoice No.", "Transactions.D1", AsTyped, "Give vendor invoice no. to find."},
                      {"Vendor Invoice Date", "Transactions.D1Date", DayText, "Give vendor invoice date to find."},
                      {"Purchase Order No.", "Transactions.D2", AsTyped, "Give purchase order no. to find."},
                      {"Purchase Order Date", "Transactions.D2Date", DayText, "Give purchase order date to find."},
                      vendor,
                      amount},
          .result = resultColumns("Vendor Name", "Paid", {"Vendor Invoice No.", "Purchase Order No."})};
}

frame::FindType findPReturns() {
  return {.title = "FIND PURCHASE RETURNS",
          .select = select,
          .columns = {serialNo,
                      date,
                      terms,
                      {"Purchase No.", "Transactions.D2", AsTyped, "Give purchase no. to find."},
                      {"Purchase Date", "Transactions.D2Date", DayText, "Give purchase date to find."},
                      vendor,
                      amount},
          .result = resultColumns("Vendor Name", "Received", {"Vendor Invoice No.", "Purchase No."}),
          .pickedDays = {"D2Date"}};
}

}  // namespace velmo::documents
