#include "schema/currencies_of_the_world.h"
#include "schema/first_rows.h"
#include "store/recordset/recordset.h"

namespace velmo::schema {
namespace {

// Until the owner chooses another under Administration, Currency.
constexpr const char* firstCountry = "United States";

// Purchase bills bring stock in, sale invoices take it out.
constexpr int stockMovement = 23;

void writeCompany(store::Connection& connection) {
  store::Recordset currency(connection, "select * from Currencies where Country='" + std::string(firstCountry) + "'");
  store::Recordset rows(connection, "select * from BusinessInfo");
  rows.addNew({
      {"Name", "My Company"},
      {"Address", ""},
      {"Telephones", ""},
      {"Fax", ""},
      {"Website", ""},
      {"EMail", ""},
      {"NTN", ""},
      {"SalesTaxReg", ""},
      {"Description", ""},
      {"Country", currency.text("Country")},
      {"CurrencyName", currency.text("Curency\xC2\xA0\xC2\xA0")},
      {"CCode", currency.text("CCode\xC2\xA0\xC2\xA0")},
      {"QF", 1},
      {"QTM", 300},
      {"POF", 1},
      {"POTM", 300},
      {"DCF", 1},
      {"DCTM", 300},
      {"SIF", 1},
      {"SITM", 200},
      {"StockLocationID", 1},
      {"StockMovement", stockMovement},
      {"CSerial", currency.integer("Serial")},
      {"TermsPO", ""},
      {"TermsQuote", ""},
      {"UserID", 1},
      {"FYID", 1},
  });
}

void writeFirstEmployee(store::Connection& connection, const text::DateTime& now) {
  store::Recordset rows(connection, "select * from Employees");
  rows.addNew({
      {"EmpName", "Head Office"},
      {"FatherName", ""},
      {"Address", ""},
      {"Telephone", ""},
      {"EMail", ""},
      {"NICNo", ""},
      {"Department", "Management"},
      {"Designation", "Manager"},
      {"Salary", 0.0},
      {"DateJoin", now.date()},
      {"Remarks", ""},
      {"Reference", ""},
      {"Status", false},
  });
}

void writeFirstService(store::Connection& connection) {
  store::Recordset categories(connection, "select * from StockLevel1");
  categories.addNew({{"CatID", "Service"}, {"CatName", "Services"}});
  store::Recordset subCategories(connection, "select * from StockLevel2");
  subCategories.addNew({{"SubCatID", "Service01"}, {"SubCatName", "General Services"}, {"CatID", "Service"}});
  store::Recordset services(connection, "select * from StockLevel3");
  services.addNew({
      {"ItemCode", "SRV001"},
      {"ItemName", "Service Charges"},
      {"Description", ""},
      {"BrandID", 1},
      {"Rack", ""},
      {"PurchasePrice", 0.0},
      {"SellingPrice", 0.0},
      {"SellingPrice2", 0.0},
      {"SellingPrice3", 0.0},
      {"PackPcs", 1.0},
      {"Unit", "Job"},
      {"ReorderLevel", 0.0},
      {"ValuationCost1", 0.0},
      {"ValuationCost2", 0.0},
      {"ValuationType", false},
      {"Status", false},
      {"CatID", "Service"},
      {"SubCatID", "Service01"},
  });
}

}  // namespace

void writeCurrencies(store::Connection& connection) {
  store::Recordset rows(connection, "select * from Currencies");
  std::int64_t serial = 0;
  for (const CountryCurrency& currency : currenciesOfTheWorld())
    rows.addNew({{"Serial", ++serial},
                 {"CCode\xC2\xA0\xC2\xA0", currency.symbol},
                 {"Curency\xC2\xA0\xC2\xA0", currency.name},
                 {"Country", currency.country}});
}

void writeStandardRows(store::Connection& connection, const text::DateTime& now) {
  store::Recordset(connection, "select * from Users")
      .addNew({{"UserID", 1}, {"UserName", "Administrator"}, {"Password", ""}, {"Notes", ""}});
  store::Recordset(connection, "select * from Regions1").addNew({{"Region1ID", 1}, {"Region1Name", "General"}});
  store::Recordset(connection, "select * from Regions2")
      .addNew({{"Region2ID", 1}, {"Region2Name", "General"}, {"Region1ID", 1}});
  store::Recordset(connection, "select * from BizSectors").addNew({{"SectorID", 1}, {"SectorName", "General"}});
  store::Recordset(connection, "select * from Brands").addNew({{"BrandName", "General"}});
  store::Recordset(connection, "select * from StockLocation").addNew({{"LocationName", "Main Store"}});
  writeFirstEmployee(connection, now);
  writeFirstService(connection);
  writeCompany(connection);
}

}  // namespace velmo::schema
