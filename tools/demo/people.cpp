#include "demo_company/people.h"

#include <vector>

#include "store/recordset/recordset.h"

namespace velmo::demo {
namespace {

struct RightRange {
  int first, last;
};

struct Operator {
  int userId;
  const char* name;
  const char* notes;
  const char* column;               // of UserRights
  std::vector<RightRange> allowed;  // everything else is not
};

const std::vector<Operator>& operators() {
  static const std::vector<Operator> list = {
      {2,
       "Rosa (Counter)",
       "Ask for an order number on account sales.",
       "Operator1",
       {{2, 2}, {82, 108}, {188, 188}, {212, 212}, {232, 236}}},
      {3,
       "Daniel (Store)",
       "Stock count every last Friday of the month.",
       "Operator2",
       {{2, 2}, {22, 38}, {52, 54}, {90, 92}, {126, 158}, {186, 191}, {232, 236}}},
      {4,
       "Priya (Accounts)",
       "Bank statements arrive on the 3rd.",
       "Operator3",
       {{2, 14}, {41, 44}, {54, 70}, {84, 84}, {88, 88}, {92, 92}, {94, 94}, {97, 124}, {180, 254}}},
  };
  return list;
}

void writeUsers(store::Connection& connection) {
  store::Recordset users(connection, "select * from Users order by userid");
  for (const Operator& person : operators())
    users.addNew({{"UserID", person.userId}, {"UserName", person.name}, {"Password", ""}, {"Notes", person.notes}});
  store::Recordset rights(connection, "SELECT * from userrights order by rightid", store::LockType::BatchOptimistic);
  for (; !rights.eof(); rights.moveNext()) {
    const std::int64_t right = rights.integer("RightID");
    for (const Operator& person : operators()) {
      bool allowed = false;
      for (const RightRange& range : person.allowed) allowed = allowed || (right >= range.first && right <= range.last);
      rights.set(person.column, !allowed);
    }
  }
  rights.updateBatch();
}

struct Person {
  const char* name;
  const char* department;
  const char* designation;
  double salary;
  int joined;  // year
};

constexpr Person people[] = {
    {"Helen Marsh", "Management", "General Manager", 4800, 2014},
    {"Rosa Delgado", "Sales", "Counter Sales", 2350, 2019},
    {"Tom Whitaker", "Sales", "Sales Representative", 2900, 2016},
    {"Daniel Osei", "Store", "Store Keeper", 2250, 2018},
    {"Priya Nair", "Accounts", "Accountant", 3100, 2017},
    {"Marek Nowak", "Delivery", "Driver", 2050, 2021},
};
static_assert(std::size(people) == employeeCount);

void writeEmployees(store::Connection& connection) {
  store::Recordset employees(connection, "select * from Employees order by EmpID");
  int number = 0;
  for (const Person& person : people) {
    ++number;
    const std::vector<store::FieldValue> values = {
        {"EmpName", person.name},
        {"FatherName", ""},
        {"Address", std::to_string(10 + 7 * number) + " Orchard Lane, Port Ellis"},
        {"Telephone", "555-01" + std::to_string(40 + number)},
        {"EMail", ""},
        {"DateOfBirth", text::DateTime::fromCalendar(1974 + 3 * number, number, 4 * number)},
        {"NICNo", ""},
        {"Department", person.department},
        {"Designation", person.designation},
        {"Salary", person.salary},
        {"DateJoin", text::DateTime::fromCalendar(person.joined, 3, 1)},
        {"Remarks", ""},
        {"Reference", ""},
        {"Status", false},
    };
    if (number == 1)
      employees.update(values);
    else
      employees.addNew(values);
  }
}

void writeClassification(store::Connection& connection) {
  constexpr const char* regions[] = {"North Coast", "South Coast", "Valley", "Highlands"};
  const char* const towns[][2] = {{"Port Ellis", "Cape Rowan"},
                                  {"Sandhaven", "Mill Bay"},
                                  {"Greenford", "Ashbridge"},
                                  {"Stonecroft", "Kings Fell"}};
  static_assert(std::size(regions) + 1 == regionCount);
  store::Recordset regionRows(connection, "select * from Regions1");
  store::Recordset townRows(connection, "select * from Regions2");
  for (int index = 0; index < regionCount - 1; ++index) {
    regionRows.addNew({{"Region1ID", index + 2}, {"Region1Name", regions[index]}});
    for (int town = 0; town < 2; ++town)
      townRows.addNew(
          {{"Region2ID", index * 2 + town + 2}, {"Region2Name", towns[index][town]}, {"Region1ID", index + 2}});
  }
  const char* const sectors[] = {"Building Contractors", "Retail Hardware", "Plumbing", "Electrical", "Maintenance"};
  static_assert(std::size(sectors) + 1 == sectorCount);
  store::Recordset sectorRows(connection, "select * from BizSectors");
  for (int index = 0; index < sectorCount - 1; ++index)
    sectorRows.addNew({{"SectorID", index + 2}, {"SectorName", sectors[index]}});
  const char* const brands[] = {"Anvil",   "Bluefin", "Corvus",   "Dovetail", "Eastgate",
                                "Fenwick", "Granite", "Holloway", "Ironside", "Juniper"};
  static_assert(std::size(brands) + 1 == brandCount);
  store::Recordset brandRows(connection, "select * from Brands");
  for (const char* brand : brands) brandRows.addNew({{"BrandName", brand}});
  store::Recordset locations(connection, "select * from StockLocation");
  locations.addNew({{"LocationName", "Harbour Warehouse"}});
  locations.addNew({{"LocationName", "Yard"}});
}

void writeCompany(store::Connection& connection) {
  store::Recordset company(connection, "select * from businessinfo");
  company.update({{"Name", "Harbour Hardware Wholesale"},
                  {"Address", "14 Dock Road, Port Ellis"},
                  {"Telephones", "555-0140, 555-0141"},
                  {"Fax", "555-0149"},
                  {"Website", "www.harbour-hardware.example"},
                  {"EMail", "orders@harbour-hardware.example"},
                  {"NTN", "48-1700236"},
                  {"SalesTaxReg", "17-00-4471-002"},
                  {"Description", "Tools, fasteners, plumbing, electrical and building supplies"},
                  {"TermsPO", "Deliver to Harbour Warehouse, weekdays 7:30 to 15:00. Quote our order number."},
                  {"TermsQuote", "Prices hold for 14 days. Delivery within Port Ellis is free above $250."}});
}

}  // namespace

void writePeople(store::Connection& connection) {
  writeCompany(connection);
  writeUsers(connection);
  writeEmployees(connection);
  writeClassification(connection);
}

}  // namespace velmo::demo
