#include "schema/company_tables.h"

namespace velmo::schema {

using enum store::ColumnType;

namespace {

store::Table businessInfo() {
  return {
      .name = "BusinessInfo",
      .columns = {{"Name", Text},
                  {"Address", Text},
                  {"Telephones", Text},
                  {"Fax", Text},
                  {"Website", Text},
                  {"EMail", Text},
                  {"NTN", Text},
                  {"SalesTaxReg", Text},
                  {"Description", Text},
                  {"Country", Text},
                  {"CurrencyName", Text},
                  {"CCode", Text},
                  {"QF", Byte},
                  {"QTM", Integer},
                  {"POF", Byte},
                  {"POTM", Integer},
                  {"DCF", Byte},
                  {"DCTM", Integer},
                  {"SIF", Byte},
                  {"SITM", Integer},
                  {"StockLocationID", Integer},
                  {"StockMovement", Integer},
                  {"CSerial", Byte},
                  {"TermsPO", Memo},
                  {"TermsQuote", Memo},
                  {"UserID", Byte},
                  {"FYID", Integer}},
      // One row; every settings screen reads its name, which makes the row writable there.
      .key = {"Name"},
  };
}

}  // namespace

std::vector<store::Table> settingTables() {
  return {
      businessInfo(),
      {.name = "FinancialYear",
       .columns = {{"FYID", Integer},
                   {"FinancialYearStart", Date},
                   {"FinancialYearEnd", Date},
                   {"Abbreviation", Text},
                   {"YY", Text}},
       .key = {"FYID"}},
      // How this company works at its screens: the printer of the counter and the like, by names of the program's own.
      {.name = "Settings", .columns = {{"SettingName", Text}, {"SettingValue", Text}}, .key = {"SettingName"}},
      // The names of two columns end in two no-break spaces; every statement that names them writes those too.
      {.name = "Currencies",
       .columns =
           {{"Serial", Integer}, {"CCode\xC2\xA0\xC2\xA0", Text}, {"Curency\xC2\xA0\xC2\xA0", Text}, {"Country", Text}},
       .key = {"Serial"}},
      {.name = "TranType", .columns = {{"TranType", Integer}, {"Name", Text}, {"short", Text}}, .key = {"TranType"}},
      {.name = "HelpIndex", .columns = {{"ID", Integer}, {"Heading", Text}, {"Matter", Memo}}, .key = {"ID"}},
  };
}

}  // namespace velmo::schema
