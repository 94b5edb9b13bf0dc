#include "documents/orders/find_orders.h"

#include "documents/trade/find_columns.h"
#include "frame/document/find_columns.h"

namespace velmo::documents {

namespace {

using namespace find_columns;
using enum frame::FindCondition;

constexpr std::string_view select =
    "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Text1, Transactions.TrAmount, "
    "Transactions.Nature, Transactions.D1, Transactions.D1Date, Transactions.D2, Transactions.D2Date, "
    "Transactions.Text7, Transactions.Text8, Employees.EmpName, StockLocation.LocationName, "
    "iif(Transactions.Cancel=0, '', 'CANCELLED') AS CStatus, Users.UserName AS AddedBy, Transactions.TimeAdded, "
    "Users_1.UserName AS EditedBy, Transactions.TimeEdited";

const frame::FindColumn vehicle{"Vehicle", "Transactions.Text7", Contains, "Give vehicle description to find."};
const frame::FindColumn driver{"Driver", "Transactions.Text8", Contains, "Give driver name to find."};

frame::FindColumn orderNo(std::string_view column) {
  return {"Purchase Order No.", column, Contains, "Give purchase order no. to find."};
}

// A reference of the paper in the list of what was found, with its date.
struct Reference {
  const char* caption;
  const char* field;
  const char* dayField;
};

std::vector<forms::TableColumn> found(const char* party, const std::vector<Reference>& references,
                                      const std::vector<forms::TableColumn>& own) {
  std::vector<forms::TableColumn> columns = {{.caption = party, .field = "Text1", .width = 28}};
  columns.insert(columns.end(), own.begin(), own.end());
  for (const Reference& reference : references) {
    columns.push_back({.caption = reference.caption, .field = reference.field, .width = 16});
    columns.push_back({.caption = "Dated", .field = reference.dayField, .width = 10});
  }
  columns.push_back({.caption = "Terms of Payment", .field = "Nature", .width = 16});
  return frame::findColumns(columns, frame::FindLocation::Joined);
}

const forms::TableColumn amountFound = frame::findAmount("Amount", "TrAmount");

// Challans and gate passes are looked for by what carried the goods, not by an amount.
frame::FindType findGatePaper(std::string_view title, const frame::FindColumn& party, const char* partyCaption,
                              std::string_view orderColumn, const std::vector<Reference>& references) {
  return {.title = title,
          .select = select,
          .columns = {serialNo, date, orderNo(orderColumn), party, vehicle, driver},
          .result = found(partyCaption, references,
                          {{.caption = "Vehicle", .field = "Text7", .width = 16},
                           {.caption = "Driver", .field = "Text8", .width = 16}})};
}

}  // namespace

frame::FindType findQuotations() {
  return {.title = "FIND QUOTATIONS",
          .select = select,
          .columns = {serialNo, date, customer, amount},
          .result = found("Customer Name", {{"Subject", "D1", "D1Date"}}, {amountFound})};
}

frame::FindType findSO() {
  return {.title = "FIND SALE ORDERS",
          .select = select,
          .columns = {serialNo,
                      date,
                      {"Customer Order Ref. No.", "Transactions.D1", Contains,
                       "Give customer order ref. no. name to find."},
                      customer,
                      amount},
          .result = found("Customer Name", {{"Customer Order Ref. No.", "D1", "D1Date"}}, {amountFound})};
}

frame::FindType findPO() {
  return {.title = "FIND PURCHASE ORDERS",
          .select = select,
          .columns = {serialNo, date, vendor, amount},
          .result = found("Vendor Name", {}, {amountFound})};
}

frame::FindType findDC() {
  return findGatePaper("FIND DELIVERY CHALLANS", customer, "Customer Name", "Transactions.D1",
                       {{"Purchase Order No.", "D1", "D1Date"}});
}

frame::FindType findOGP() {
  return findGatePaper("FIND OUTWARD GATE PASSES", customer, "Customer Name", "Transactions.D1",
                       {{"Purchase Order No.", "D1", "D1Date"}, {"Delivery Challan No.", "D2", "D2Date"}});
}

frame::FindType findIGP() {
  return findGatePaper("FIND INWARD GATE PASSES", vendor, "Vendor Name", "Transactions.D2",
                       {{"Purchase Order No.", "D2", "D2Date"}, {"Delivery Challan No.", "D1", "D1Date"}});
}

}  // namespace velmo::documents
