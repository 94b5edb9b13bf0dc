#include "schema/company_tables.h"

namespace velmo::schema {

using enum store::ColumnType;

namespace {

// What hangs on a document goes with it. Rows that settle a document carry the settling document's TranNo and stay.
const store::Relation ofDocument{"TranNo", "Transactions", "TranNo", true};

// The dates beside the references D1 and D2 are texts: they are kept as they were typed.
store::Table transactions() {
  return {
      .name = "Transactions",
      .columns = {{.name = "TranNo", .type = Long, .autoNumber = true},
                  {"DocNo", Long},
                  {"DocNo2", Long},
                  {"TranDate", Date},
                  {"Nature", Text},
                  {"EmpID", Integer},
                  {"JobIDFrom", Integer},
                  {"JobIDTo", Integer},
                  {"Desc", Text},
                  {"TranType", Integer},
                  {"D1", Text},
                  {"D1Date", Text},
                  {"D2", Text},
                  {"D2Date", Text},
                  {"PartyCode", Long},
                  {"PartyCode2", Long},
                  {"Text1", Text},
                  {"Text2", Text},
                  {"Text3", Text},
                  {"Text4", Text},
                  {"Text5", Text},
                  {"Text6", Text},
                  {"Text7", Text},
                  {"Text8", Text},
                  {"Text9", Text},
                  {"Text10", Text},
                  {"Text11", Text},
                  {"Text12", Text},
                  {"Numeric1", Double},
                  {"Numeric2", Double},
                  {"Discount", Double},
                  {"Tax1", Double},
                  {"Tax2", Double},
                  {"AdditionalTax", Double},
                  {"Carriage", Double},
                  {"TrAmount", Double},
                  {"Received", Double},
                  {"Balance", Double},
                  {"WordsAmt", Text},
                  {"LocationFrom", Integer},
                  {"LocationTo", Integer},
                  {"FYID", Integer},
                  {"UserAdded", Byte},
                  {"TimeAdded", Date},
                  {"UserEdited", Byte},
                  {"TimeEdited", Date},
                  {"Cancel", YesNo},
                  {"InvLedger", YesNo}},
      .key = {"TranNo"},
      // The first serves the screens, which walk one kind of document of one year by its number; the second serves
      // reports and the welcome screen, which take a period of the year. The third has all that reports on the lines of
      // some kinds ask of the documents, and the fourth all that is asked of a party's sales and purchases of a year,
      // in the order in which they are summed up. It has no day: lines that are read in the order of parties take long.
      .indexes = {{"Transactions_TranType", {"TranType", "FYID", "DocNo"}},
                  {"Transactions_TranDate", {"FYID", "TranDate"}},
                  {"Transactions_Cancel", {"TranType", "FYID", "Cancel", "DocNo", "PartyCode2", "EmpID"}},
                  {"Transactions_PartyCode2",
                   {"FYID", "PartyCode2", "Text1", "Text2", "Text4", "Text5", "TranType", "Cancel", "EmpID", "TrAmount",
                    "Carriage", "Discount", "DocNo"}}},
  };
}

store::Table subTransactions() {
  return {
      .name = "SubTransactions",
      .columns = {{.name = "Serial", .type = Long, .autoNumber = true},
                  {"TranNo", Long},
                  {"AccCode", Long},
                  {"AccName", Text},
                  {"Desc", Text},
                  {"Debit", Double},
                  {"Credit", Double},
                  {"Balance", Double},
                  {"Status", Text}},
      .key = {"Serial"},
      .relations = {ofDocument},
      .indexes = {{"SubTransactions_TranNo", {"TranNo"}}, {"SubTransactions_AccCode", {"AccCode"}}},
  };
}

store::Table stockFlow() {
  return {
      .name = "StockFlow",
      .columns = {{.name = "FlowId", .type = Long, .autoNumber = true},
                  {"TranNo", Long},
                  {"Serial", Integer},
                  {"ItemCode", Text},
                  {"ItemName", Text},
                  {"ProductSerials", Text},
                  {"Packs", Double},
                  {"PackPcs", Double},
                  {"StockIn", Double},
                  {"StockOut", Double},
                  {"Unit", Text},
                  {"Rate", Double},
                  {"GrossAmt", Double},
                  {"DiscRate", Double},
                  {"DiscAmt", Double},
                  {"ItemValue", Double},
                  {"Packing", Text},
                  {"LocationID", Integer},
                  {"JobID", Integer},
                  {"Balance", Double}},
      .key = {"FlowId"},
      .relations = {ofDocument},
      // The last has all that is shown of lines with serial numbers, which few lines have.
      .indexes = {{"StockFlow_TranNo", {"TranNo"}},
                  {"StockFlow_ItemCode", {"ItemCode"}},
                  {.name = "StockFlow_Serials",
                   .columns = {"TranNo", "ProductSerials", "ItemCode", "ItemName"},
                   .filled = "ProductSerials"}},
  };
}

// Open invoices and open bills have one form; bills also name the vendor's own number.
store::Table aging(const std::string& name, const std::vector<store::Column>& ownColumns) {
  std::vector<store::Column> columns = {
      {.name = "Serial", .type = Long, .autoNumber = true}, {"TranNo", Long}, {"DocNo", Long}, {"DocNo2", Long}};
  columns.insert(columns.end(), ownColumns.begin(), ownColumns.end());
  columns.insert(columns.end(), {{"TranDate", Date},
                                 {"TranDate2", Date},
                                 {"PartyCode", Long},
                                 {"TranType", Integer},
                                 {"TrAmount", Double},
                                 {"Return", Double},
                                 {"Payment", Double},
                                 {"WHTaxRt", Double},
                                 {"WHTax", Double},
                                 {"Discount", Double},
                                 {"AdvAdj", Double},
                                 {"TotPayment", Double},
                                 {"FYID", Integer}});
  return {
      .name = name,
      .columns = std::move(columns),
      .key = {"Serial"},
      .relations = {ofDocument},
      // Of a party all that is asked of its invoices.
      .indexes = {{name + "_TranNo", {"TranNo"}},
                  {name + "_TranDate", {"TranDate"}},
                  {name + "_PartyCode",
                   {"PartyCode", "DocNo", "TranDate", "TranDate2", "FYID", "TranNo", "TrAmount", "Return", "Payment",
                    "WHTax", "Discount", "AdvAdj", "TotPayment"}}},
  };
}

}  // namespace

store::KeptTotals accountTotals() {
  return {.name = "Account",
          .documents = "Transactions",
          .key = "TranNo",
          .group = "FYID",
          .day = "TranDate",
          .excluded = {"Cancel"},
          .lines = "SubTransactions",
          .lineKey = "Serial",
          .link = "TranNo",
          .subject = "AccCode",
          .amounts = {"Debit", "Credit"}};
}

// An invoice has many items, of which each would touch another page of the file.
store::KeptTotals stockTotals() {
  return {.name = "Stock",
          .documents = "Transactions",
          .key = "TranNo",
          .group = "FYID",
          .day = "TranDate",
          .excluded = {"Cancel", "InvLedger"},
          .lines = "StockFlow",
          .lineKey = "FlowId",
          .link = "TranNo",
          .subject = "ItemCode",
          .subjectType = store::KeptTotals::Subject::Text,
          .amounts = {"StockIn", "StockOut"},
          .adds = store::KeptTotals::Adds::Later};
}

// The balances of one place.
store::KeptTotals placeTotals() {
  store::KeptTotals totals = stockTotals();
  totals.name = "Place";
  totals.place = "LocationID";
  return totals;
}

// Sold and bought is by the kind of document, whether or not it moves stock itself.
store::KeptTotals kindTotals() {
  store::KeptTotals totals = stockTotals();
  totals.name = "Kind";
  totals.excluded = {"Cancel"};
  totals.kind = "TranType";
  totals.amounts = {"StockIn", "StockOut", "ItemValue"};
  totals.nulls = store::KeptTotals::Nulls::AreTold;
  return totals;
}

// The costs of items are the averages of what they were received for, by the kind of document.
store::KeptTotals receiptTotals() {
  return {.name = "Receipt",
          .documents = "Transactions",
          .key = "TranNo",
          .group = "FYID",
          .day = "TranDate",
          .excluded = {"Cancel", "InvLedger"},
          .kind = "TranType",
          .lines = "StockFlow",
          .lineKey = "FlowId",
          .link = "TranNo",
          .subject = "ItemCode",
          .subjectType = store::KeptTotals::Subject::Text,
          .amounts = {"StockIn", "ItemValue"},
          .counted = "StockIn",
          .adds = store::KeptTotals::Adds::Later};
}

namespace {

// What belongs to one invoice or bill, and what was paid on it.
store::KeptBalances openItems(const std::string& name, const std::string& lines, std::vector<store::Column> groups) {
  return {.name = name,
          .documents = "Transactions",
          .key = "TranNo",
          .excluded = {"Cancel"},
          .lines = lines,
          .lineKey = "Serial",
          .link = "TranNo",
          .groups = std::move(groups),
          .due = "TrAmount",
          .settled = "TotPayment"};
}

}  // namespace

store::KeptBalances openInvoices() {
  return openItems("OpenInvoices", "AgingDr",
                   {{"FYID", Integer}, {"PartyCode", Long}, {"DocNo", Long}, {"TranDate", Date}});
}

store::KeptBalances openBills() {
  return openItems(
      "OpenBills", "AgingCr",
      {{"FYID", Integer}, {"PartyCode", Long}, {"DocNo", Long}, {"VendorInvNo", Text}, {"TranDate", Date}});
}

std::vector<store::Table> documentTables() {
  return {transactions(), subTransactions(), stockFlow(), aging("AgingDr", {}),
          aging("AgingCr", {{"VendorInvNo", Text}})};
}

}  // namespace velmo::schema
