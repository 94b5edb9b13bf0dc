#include <initializer_list>

#include "store/sql/statements.h"

namespace velmo::test {

namespace {

struct Condition {
  const char* name;
  const char* text;
};
const Condition reference{"order reference", "((Transactions.d1) like '%SO%')"},
    party{"party", "((Transactions.Text1) like '%O''Brien%')"},
    vehicle{"vehicle", "((Transactions.Text7) like '%LEA%')"}, driver{"driver", "((Transactions.Text8) like '%ali%')"},
    amount{"amount", "((Transactions.TrAmount) = 1500)"}, remarks{"remarks", "((Transactions.desc) like '%count%')"},
    product{"product", "((Transactions.Text1) like '%KIT%')"},
    productName{"product name", "((Transactions.Text2) like '%kit%')"};

// Of the screens that the program does not have yet: the others run theirs in tests of their own.
struct FindScreen {
  const char* name;
  int type;
  const char* columns;
  bool byLocation;
  std::initializer_list<Condition> conditions;
};

const char* const sale = "Nature, D1, D1Date, D2, D2Date, Text1, TrAmount";
const char* const goods = "D1, D1Date, Text1, Text7, Text8, TrAmount";
const FindScreen screens[] = {
    {"sale orders", 93, sale, true, {reference, party}},
    {"delivery challans", 94, goods, true, {reference, vehicle, driver}},
    {"inward gate passes", 20, goods, true, {party}},
    {"adjustments", 45, "Desc, TrAmount", true, {remarks, amount}},
    {"production", 42, "Text3, Desc, TrAmount", true, {remarks}},
    {"bills of material", 95, "Text1, Text2, Desc, TrAmount", false, {product, productName}},
};

std::string statementOf(const FindScreen& screen, const std::string& condition) {
  std::string columns = "SELECT Transactions.TranNo, Transactions.DocNo, Transactions.TranDate";
  for (std::string_view rest = screen.columns; !rest.empty();) {
    const auto comma = rest.find(", ");
    columns += ", Transactions." + std::string(rest.substr(0, comma));
    rest = comma == std::string_view::npos ? std::string_view{} : rest.substr(comma + 2);
  }
  const std::string employees = "Transactions LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID";
  const std::string from =
      screen.byLocation
          ? "((" + employees + ") INNER JOIN StockLocation ON Transactions.LocationFrom = StockLocation.LocationID)"
          : "(" + employees + ")";
  return columns + ", Employees.EmpName, " + (screen.byLocation ? "StockLocation.LocationName, " : "") +
         R"(Transactions.Cancel, Users.UserName AS AddedBy, Users_1.UserName AS EditedBy, Transactions.TimeEdited FROM ()" +
         from +
         R"( INNER JOIN Users ON Transactions.UserAdded = Users.UserID) INNER JOIN Users AS Users_1 ON Transactions.UserEdited = Users_1.UserID Where (((Transactions.TranType) = )" +
         std::to_string(screen.type) + ") And ((Transactions.FYID) = 2)" + condition + ") ORDER BY Transactions.DocNo";
}

}  // namespace

Statements findStatements() {
  Statements all;
  for (const auto& screen : screens) {
    all.push_back({std::string("find ") + screen.name, statementOf(screen, "")});
    for (const auto& [name, text] : screen.conditions)
      all.push_back(
          {std::string("find ") + screen.name + " by " + name, statementOf(screen, std::string(" And ") + text)});
  }
  return all;
}

}  // namespace velmo::test
