#pragma once

#include <array>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "session/login_context.h"
#include "support/new_company.h"

namespace velmo::test {

// A line of the books as a test knows it.
struct BookLine {
  text::DateTime day;
  std::int64_t account = 0;
  double debit = 0;
  double credit = 0;
  bool counts = true;  // of this year, and not cancelled
};

// A company of the year 2026 with lines that the test knows: customers, vendors, cash and banks, an account whose
// balance comes back to zero, a cancelled document and one of another year.
class BalancesCompany {
 public:
  BalancesCompany() {
    context.KORDconn.open(schema::plainConnectionString);
    context.FYID = 1;
    context.FinancialYearStart = day(1, 1);
    context.FinancialYearEnd = day(12, 31);
    context.CompanyName = "Harbour Timber";
    context.ccode = "Rs.";
    context.UserName = "Ayesha";
    context.UserID = 1;
    run("INSERT INTO StockLevel1 (CatID, CatName) VALUES ('GDS', 'Goods')");
    run("INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('GDS01', 'Goods', 'GDS')");
    run("INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('SRV09', 'Work', 'SERVICE')");
    run("INSERT INTO AccLevel2 (Level2ID, L2AccName, TypeID) VALUES (12002, 'Export Customers', 120)");
    run("INSERT INTO Regions1 (Region1ID, Region1Name) VALUES (7, 'North')");
    run("INSERT INTO Regions1 (Region1ID, Region1Name) VALUES (8, 'South')");
    run("INSERT INTO Regions2 (Region2ID, Region2Name, Region1ID) VALUES (71, 'Hills', 7)");
    run("INSERT INTO Employees (EmpID, EmpName, Department, Status) VALUES (5, 'Salma', 'Sales', No)");
    run("INSERT INTO Employees (EmpID, EmpName, Department, Status) VALUES (6, 'Imran', 'Export', No)");
    addAccount(11001001, "City Bank");
    addAccount(12001002, "O'Brien & Sons", "5, 1, 7, 71");
    addAccount(12001003, "Zoe Builders", "6, 2, 8, 0");
    addAccount(12002001, "Far Trading", "6, 1, 7, 0");
    addAccount(12002002, "Nobody's", "Null, 1, 7, 0");
    addAccount(21001002, "Mills");
    document("12-31-2025", 11, {{10001001, 500.25, 0}, {12001002, 80.5, 0}, {21001002, 0, 100}, {31001001, 0, 480.75}});
    document("01-01-2026", 32, {{12001002, 1000, 0}, {40001001, 0, 1000}});
    document("03-31-2026", 22, {{50001002, 640.1, 0}, {21001002, 0, 640.1}});
    document("04-01-2026", 39, {{11001001, 300, 0}, {12001002, 0, 300}});
    document("04-15-2026", 32, {{12001003, 0.1, 0}, {12001003, 0.2, 0}, {40001001, 0, 0.3}});
    document("05-15-2026", 38, {{11001001, 0.3, 0}, {12001003, 0, 0.3}});
    document("06-30-2026", 32, {{12002001, 2000, 0}, {12002002, 55, 0}, {40001001, 0, 2055}});
    document("07-01-2026", 32, {{12002001, 9999, 0}, {40001001, 0, 9999}}, "1, Yes");
    document("07-02-2026", 32, {{12002001, 777, 0}, {40001001, 0, 777}}, "2, No");
    document("12-31-2026", 28, {{21001002, 800, 0}, {11001001, 0, 800}});
    document("01-01-2027", 29, {{60001003, 12, 0}, {10001001, 0, 12}});
  }

  static text::DateTime day(int month, int dayOfMonth, int year = 2026) {
    return text::DateTime::fromCalendar(year, month, dayOfMonth);
  }
  void run(const std::string& statement) { context.KORDconn.execute(statement); }
  void addAccount(std::int64_t code, const std::string& name, const std::string& filters = "1, 1, 1, 1") {
    run("INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, EmpID, SectorID, Region1ID, Region2ID) VALUES (" +
        std::to_string(code) + ", " + store::quoted(name) + ", " + std::to_string(code / 100000) + ", " +
        std::to_string(code / 1000) + ", " + filters + ")");
  }
  // A document of balanced lines; `flags` are its year and whether it is cancelled.
  int document(const std::string& on, int tranType, std::initializer_list<std::array<double, 3>> lines,
               const std::string& flags = "1, No") {
    const std::string tranNo = std::to_string(++lastTranNo);
    run("INSERT INTO Transactions (TranNo, DocNo, TranDate, TranType, FYID, Cancel, InvLedger) VALUES (" + tranNo +
        ", " + std::to_string(lastTranNo) + ", #" + on + "#, " + std::to_string(tranType) + ", " + flags + ", No)");
    store::Recordset dates(context.KORDconn, "select TranDate from Transactions where TranNo=" + tranNo);
    for (const auto& [account, debit, credit] : lines) {
      const auto code = static_cast<std::int64_t>(account);
      run("INSERT INTO SubTransactions (TranNo, AccCode, AccName, " + std::string(debit != 0 ? "Debit" : "Credit") +
          ") VALUES (" + tranNo + ", " + std::to_string(code) + ", 'x', " + store::textOf(debit != 0 ? debit : credit) +
          ")");
      books.push_back({dates.date("TranDate"), code, debit, credit, flags == "1, No"});
    }
    return lastTranNo;
  }
  void addStock(const std::string& code, double cost, const std::string& category = "GDS") {
    run("INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID, Status, ValuationType, ValuationCost2) VALUES "
        "(" +
        store::quoted(code) + ", 'x', '" + category + "', '" + (category == "GDS" ? "GDS01" : "SRV09") + "', No, No, " +
        store::textOf(cost) + ")");
  }
  void moveStock(const std::string& on, const std::string& code, const std::string& in, const std::string& out,
                 const std::string& flags = "1, No, No") {
    const std::string tranNo = std::to_string(++lastTranNo);
    run("INSERT INTO Transactions (TranNo, DocNo, TranDate, TranType, FYID, Cancel, InvLedger) VALUES (" + tranNo +
        ", 1, #" + on + "#, 22, " + flags + ")");
    run("INSERT INTO StockFlow (TranNo, ItemCode, StockIn, StockOut) VALUES (" + tranNo + ", " + store::quoted(code) +
        ", " + in + ", " + out + ")");
  }

  // Debits and credits of the books up to a day, by account.
  struct Moved {
    double debit = 0;
    double credit = 0;
    double balance() const { return std::round((debit - credit) * 1e6) / 1e6; }
  };
  std::map<std::int64_t, Moved> movedUpTo(const text::DateTime& last) const {
    std::map<std::int64_t, Moved> sums;
    for (const BookLine& line : books) {
      if (!line.counts || line.day > last) continue;
      sums[line.account].debit += line.debit;
      sums[line.account].credit += line.credit;
    }
    return sums;
  }

  NewCompany company;
  session::LoginContext context{schema::companyCatalog()};
  std::vector<BookLine> books;
  int lastTranNo = 7000;
};

}  // namespace velmo::test
