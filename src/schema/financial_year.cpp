#include "schema/financial_year.h"

#include "schema/document_kinds.h"
#include "store/recordset/recordset.h"
#include "text/format.h"

namespace velmo::schema {
namespace {

struct FixedDocument {
  int tranType;
  text::DateTime date;
  const char* description;
};

// Writes a document that has a header and no party, and returns its TranNo.
std::int64_t addFixedDocument(store::Connection& connection, const NewFinancialYear& year,
                              const FixedDocument& document) {
  store::Recordset headers(connection, "select * from Transactions where TranNo=0");
  headers.addNew({
      {"DocNo", 1},
      {"DocNo2", 1},
      {"TranDate", document.date.date()},
      {"Nature", ""},
      {"EmpID", 0},
      {"JobIDFrom", 0},
      {"JobIDTo", 0},
      {"Desc", document.description},
      {"TranType", document.tranType},
      {"D1", ""},
      {"D1Date", ""},
      {"D2", ""},
      {"D2Date", ""},
      {"PartyCode", 0},
      {"PartyCode2", 0},
      {"Text1", ""},
      {"Text2", ""},
      {"Text3", ""},
      {"Text4", ""},
      {"Text5", ""},
      {"Text6", ""},
      {"Text7", ""},
      {"Text8", ""},
      {"Text9", ""},
      {"Text10", ""},
      {"Text11", ""},
      {"Text12", ""},
      {"Numeric1", 0.0},
      {"Numeric2", 0.0},
      {"Discount", 0.0},
      {"Tax1", 0.0},
      {"Tax2", 0.0},
      {"AdditionalTax", 0.0},
      {"Carriage", 0.0},
      {"TrAmount", 0.0},
      {"Received", 0.0},
      {"Balance", 0.0},
      {"WordsAmt", ""},
      {"LocationFrom", 0},
      {"LocationTo", 0},
      {"FYID", year.id},
      {"UserAdded", year.user},
      {"TimeAdded", year.now},
      {"UserEdited", year.user},
      {"TimeEdited", year.now},
      {"Cancel", false},
      {"InvLedger", false},
  });
  return headers.integer("TranNo");
}

}  // namespace

std::string yearAbbreviation(const text::DateTime& start, const text::DateTime& end) {
  return text::formatDate(start, "YYYY") + "-" + text::formatDate(end, "YY");
}

void addFinancialYear(store::Connection& connection, const NewFinancialYear& year) {
  store::Recordset years(connection, "select * from FinancialYear where FYID=0");
  years.addNew({{"FYID", year.id},
                {"FinancialYearStart", year.start.date()},
                {"FinancialYearEnd", year.end.date()},
                {"Abbreviation", yearAbbreviation(year.start, year.end)}});
  addFixedDocument(
      connection, year,
      {.tranType = tran_type::OpeningBalance, .date = year.start.addDays(-1), .description = "Opening Balance"});
  const std::int64_t closing = addFixedDocument(
      connection, year, {.tranType = tran_type::ClosingInventory, .date = year.end, .description = "Closing Balance"});
  store::Recordset lines(connection, "select * from SubTransactions where TranNo=0");
  lines.addNew({{"TranNo", closing}, {"AccCode", 13001001}, {"AccName", "Closing Inventory"}, {"Debit", 0.0}});
  lines.addNew({{"TranNo", closing}, {"AccCode", 50001006}, {"AccName", "Closing Inventory"}, {"Credit", 0.0}});
}

}  // namespace velmo::schema
