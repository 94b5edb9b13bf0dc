#include <initializer_list>

#include "store/sql/statements.h"

namespace velmo::test {

namespace {

struct Condition {
  const char* name;
  const char* text;
};
const Condition serialNo{"serial no.", "((Transactions.DocNo) = 1)"},
    date{"date", "((Transactions.TranDate) = #09-01-2025#)"}, terms{"terms", "((Transactions.Nature) like 'Net 30%')"},
    reference{"reference", "((Transactions.D1) like 'SO/1')"},
    referenceDate{"reference date", "((Transactions.D1Date) like '%2025')"},
    secondReference{"second reference", "((Transactions.D2) like '5')"},
    secondDate{"second date", "((Transactions.D2Date) like '7/%')"},
    orderReference{"order reference", "((Transactions.d1) like '%SO%')"},
    party{"party", "((Transactions.Text1) like '%O''Brien%')"},
    bank{"cash or bank", "((Transactions.Text2) like '%cash%')"},
    vehicle{"vehicle", "((Transactions.Text7) like '%LEA%')"}, driver{"driver", "((Transactions.Text8) like '%ali%')"},
    employee{"employee", "((Employees.EmpName) like '%ahmed%')"}, login{"login", "((Users.UserName) like '%adm%')"},
    amount{"amount", "((Transactions.TrAmount) = 1500)"},
    withheld{"with-holding tax", "((Transactions.carriage) = 50)"}, salesTax{"sales tax", "((Transactions.tax1) = 0)"},
    discount{"discount", "((Transactions.discount) = 25)"},
    received{"amount received", "((Transactions.received) = 425)"},
    cheque{"cheque no.", "((Transactions.D1) like '%99%')"}, remarks{"remarks", "((Transactions.desc) like '%count%')"},
    product{"product", "((Transactions.Text1) like '%KIT%')"},
    productName{"product name", "((Transactions.Text2) like '%kit%')"};

struct FindScreen {
  const char* name;
  int type;
  const char* columns;
  const char* extra;  // a standing condition
  bool byLocation;
  std::initializer_list<Condition> conditions;
};

const char* const sale = "Nature, D1, D1Date, D2, D2Date, Text1, TrAmount";
const char* const goods = "D1, D1Date, Text1, Text7, Text8, TrAmount";
const char* const money = "Text1, Text2, Text3, D1, D1Date, carriage, tax1, discount, received, TrAmount";
const FindScreen screens[] = {
    {"sale invoices",
     32,
     sale,
     "",
     true,
     {serialNo, date, terms, reference, referenceDate, secondReference, secondDate, party, amount}},
    {"point of sale invoices",
     32,
     sale,
     " And ((Transactions.Text12) like '0')",
     true,
     {serialNo, date, party, employee, login, amount}},
    {"sale returns", 35, sale, "", true, {terms, referenceDate, amount}},
    {"sale orders", 93, sale, "", true, {orderReference, party}},
    {"delivery challans", 94, goods, "", true, {orderReference, vehicle, driver}},
    {"inward gate passes", 20, goods, "", true, {party}},
    {"purchase bills", 22, sale, "", true, {reference, secondReference, secondDate}},
    {"cash receipts", 39, money, "", false, {party, bank, withheld, salesTax, discount, received}},
    {"bank payments", 28, money, "", false, {cheque}},
    {"journal vouchers", 41, "Desc, TrAmount", "", false, {remarks, amount}},
    {"adjustments", 45, "Desc, TrAmount", "", true, {remarks, amount}},
    {"production", 42, "Text3, Desc, TrAmount", "", true, {remarks}},
    {"bills of material", 95, "Text1, Text2, Desc, TrAmount", "", false, {product, productName}},
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
         std::to_string(screen.type) + ") And ((Transactions.FYID) = 2)" + screen.extra + condition +
         ") ORDER BY Transactions.DocNo";
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
