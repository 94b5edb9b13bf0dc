#include <gmock/gmock.h>

#include <map>
#include <set>

#include "schema/random_books.h"
#include "store/sql/statements.h"

// What the reports ask, word for word: from what the file keeps, and from the bare lines.
namespace velmo::schema {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string sqlOf(const std::string& statement) {
  const auto compiled = store::sql::compile(statement, companyCatalog());
  EXPECT_TRUE(compiled.has_value()) << statement << "\n" << compiled.error().describe(statement);
  return compiled ? compiled->sql : std::string();
}

// Of the year, the days, the items and the parties that the random books have.
std::string ofTheseBooks(std::string statement) {
  for (const auto& [theirs, ours] : {std::pair{"FYID=2", "FYID=1"},
                                     {"FYID)=2", "FYID)=1"},
                                     {"FYID) = 2", "FYID) = 1"},
                                     {"FYID) =2", "FYID) =1"},
                                     {"07-01-2025", "02-10-2026"},
                                     {"09-01-2025", "03-15-2026"},
                                     {"09-30-2025", "05-20-2026"},
                                     {"06-30-2026", "06-11-2026"},
                                     {"11-22-2025", "03-22-2026"},
                                     {"'A-100'", "'A1'"},
                                     {"'a-100'", "'a1'"},
                                     {"'B-200'", "'C3'"},
                                     {"'b-200'", "'c3'"},
                                     {"12001002", "12001102"},
                                     {"21001002", "12001103"},
                                     {"21001)", "12001)"}})
    for (std::size_t at = 0; (at = statement.find(theirs, at)) != std::string::npos;)
      statement.replace(at, std::string(theirs).size(), ours);
  return statement;
}

class KeptReports : public RandomBooks {
 protected:
  KeptReports() {
    limitOfSmall = 1;  // of products of more digits than are shown, the last depends on where they are rounded
    run("UPDATE AccLevel3 SET EmpID = 1 WHERE AccCode % 2 = 0; INSERT INTO StockLevel1 (CatID, CatName) VALUES ('GDS', "
        "'Goods'); INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('GDS01', 'Goods', 'GDS'); INSERT INTO "
        "StockLevel3 (ItemCode, ItemName, CatID, SubCatID, BrandID, ValuationCost1, ValuationCost2) VALUES ('A1', "
        "'Anchor', 'GDS', 'GDS01', 2, 2, 2.5), ('B2', 'Bolt', 'GDS', 'GDS01', 2, NULL, NULL), ('C3', 'Care', "
        "'Service', 'GDS01', 1, 1, 1), ('Ö9', 'Oil', 'GDS', 'GDS01', 1, 3, 0.15), ('D4', 'None', 'GDS', 'GDS01', 1, 1, "
        "1)");
  }

  // The order of what an order leaves open is nobody's.
  void expectSameRowsAsOfLines(const std::string& name, const std::string& statement) {
    store::Connection lines{plainCatalog};
    lines.open(connectionStringFor(company.file()));
    Rows ofLines = rowsOf(lines, statement), found = rowsOf(company.connection, statement);
    std::ranges::sort(ofLines);
    std::ranges::sort(found);
    EXPECT_EQ(found, ofLines) << name << ": " << statement << "\n" << sqlOf(statement);
    rows += static_cast<int>(found.size());
  }
  std::size_t rows = 0;
};

// Which of what is kept answers a report; of the others the lines.
const std::map<std::string, std::string> answeredBy = {
    {"pending invoices of a customer", "OpenInvoices"},
    {"invoices to carry over", "OpenInvoices"},
    {"bills to carry over", "OpenBills"},
    {"aged receivables", "OpenInvoices"},
    {"aged receivables of a customer", "OpenInvoices"},
    {"aged receivables of an employee", "OpenInvoices"},
    {"aged payables", "OpenBills"},
    {"aged payables of a vendor", "OpenBills"},
    {"weighted costs of the year", "ReceiptYears"},
    {"closing stock value", "StockYears"},
    {"opening stock value", "StockYears"},
    {"quantity brought forward of an item", "PlaceYears"},
    {"stock balances", "StockYears"},
    {"stock balances of a location", "PlaceYears"},
    {"stock balances of a brand's category", "StockYears"},
    {"stock balances of a sub category", "StockYears"},
    {"stock balances of a range", "StockYears"},
    {"profit by item", "KindYears"},
};

test::Statements reports() {
  test::Statements all;
  for (const auto& some : {test::settlementStatements(), test::inventoryStatements(), test::tradeStatements()})
    for (const test::NamedStatement& each : some) {
      const std::string begin = each.text.substr(0, 6);
      if (begin == "SELECT" || begin == "Select" || begin == "select")
        all.push_back({each.name, ofTheseBooks(each.text)});
    }
  return all;
}

// A source that is read from what is kept has the name of its table, as has a scan of it.
int times(const std::string& plan, const std::string& words) {
  int count = 0;
  for (std::size_t at = 0; (at = plan.find(words, at)) != std::string::npos; ++at) ++count;
  return count;
}

TEST_F(KeptReports, AreAnsweredAsTheLinesWould) {
  makeBooks();
  for (int round = 0; round < 3; ++round) {
    for (int change = 0; change < 40; ++change) changeAnything();
    for (const auto& [name, statement] : reports()) expectSameRowsAsOfLines(name, statement);
  }
  EXPECT_GT(rows, 1000U);
}

// However many documents there are: no table of them is read through, and of open items not even the settled ones.
TEST_F(KeptReports, ReadWhatIsKept) {
  std::set<std::string> seen;
  for (const auto& [name, statement] : reports()) {
    const std::string sql = sqlOf(statement);
    const auto answer = answeredBy.find(name);
    if (answer == answeredBy.end()) {
      for (const char* kept : {"\"Open", "Years\"", "Days\"", "Months\""})
        EXPECT_THAT(sql, Not(HasSubstr(kept))) << name << ": " << statement;
      continue;
    }
    seen.insert(name);
    EXPECT_THAT(sql, HasSubstr('"' + answer->second + '"')) << name << ": " << statement;
    const std::string plan = planOf(statement);
    for (const char* table :
         {"Transactions", "StockFlow", "AgingDr", "AgingCr", "OpenInvoices", "OpenBills", "document"})
      EXPECT_LE(times(plan, "SCAN " + std::string(table)), times(plan, "MATERIALIZE " + std::string(table) + "\n") +
                                                               times(plan, "CO-ROUTINE " + std::string(table) + "\n") +
                                                               times(plan, "_Groupless\n") +
                                                               times(plan, std::string(table) + "_Apart"))
          << name << "\n"
          << plan;
    if (answer->second.starts_with("Open")) {
      EXPECT_THAT(plan, HasSubstr("_Open (FYID=?")) << name << "\n" << plan;
      EXPECT_THAT(plan, HasSubstr("_Apart (Apart>?)")) << name << "\n" << plan;
      EXPECT_EQ(times(plan, "_Groupless\n"), 1) << name << "\n" << plan;
    }
  }
  EXPECT_EQ(seen.size(), answeredBy.size());
}

std::string openOf(const std::string& items, const std::string& where = "Transactions.Cancel=No",
                   const std::string& groups = "AgingDr.DocNo, AgingDr.TranDate, AgingDr.PartyCode, AgingDr.FYID") {
  return "SELECT S.Figure, S.PartyCode FROM [SELECT AgingDr.PartyCode, " + items +
         " AS Figure FROM Transactions INNER JOIN AgingDr ON Transactions.TranNo = AgingDr.TranNo WHERE " + where +
         " GROUP BY " + groups + "]. AS S ORDER BY S.Figure, S.PartyCode";
}

std::string soldOf(const std::string& items, const std::string& more = "", const std::string& join = "=") {
  return "SELECT StockLevel3.ItemCode, Q.Figure FROM StockLevel3 INNER JOIN (SELECT StockFlow.ItemCode, " + items +
         " AS Figure FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE "
         "(Transactions.TranType=32 Or Transactions.TranType=35 Or Transactions.TranType=22) AND "
         "Transactions.Cancel=No AND Transactions.FYID=1" +
         more + " GROUP BY StockFlow.ItemCode) AS Q ON StockLevel3.ItemCode " + join + " Q.ItemCode";
}

TEST_F(KeptReports, AreNotAnsweredByWhatIsNotKept) {
  large = true;
  makeBooks();
  large = false;
  const std::string open = "Sum(AgingDr.TrAmount)-Sum(AgingDr.TotPayment)";
  const std::string signedOut = "Sum(IIf(Transactions.TranType=35,-[StockIn],[StockOut]))";
  const std::string sums = "\"OpenInvoices\"", kinds = "\"KindYears\"";
  for (const auto& [statement, kept] :
       {std::pair{openOf(open), sums},
        {openOf("Sum(AgingDr.TotPayment)*2+AgingDr.DocNo"), sums},
        {openOf("IIf(" + open + ">5,1,'')"), sums},
        {openOf(open, "Transactions.Cancel=0 And AgingDr.PartyCode > 12001102 And AgingDr.DocNo Is Null"), sums}}) {
    EXPECT_THAT(sqlOf(statement), HasSubstr(kept)) << statement;
    expectSameRowsAsOfLines("", statement);
  }
  for (const std::string& statement :
       {openOf("Sum(AgingDr.Payment)"), openOf("Count(*)"), openOf("Max(AgingDr.TrAmount)"),
        openOf("Sum(AgingDr.TrAmount*2)"), openOf("Avg(AgingDr.TrAmount)"), openOf(open, "Transactions.Cancel=Yes"),
        openOf(open, "Transactions.Cancel=No And AgingDr.TranType=32"),
        openOf(open, "Transactions.Cancel=No And Transactions.TranType=32"),
        openOf(open, "Transactions.Cancel=No", "AgingDr.DocNo, AgingDr.TranDate, AgingDr.PartyCode"),
        openOf(open, "Transactions.Cancel=No",
               "AgingDr.DocNo, AgingDr.TranDate, AgingDr.PartyCode, AgingDr.FYID, AgingDr.TranType"),
        // The order of rows is that of the lines.
        "SELECT Last(S.Figure) AS Figure FROM [" + openOf(open) + "]. AS S"}) {
    EXPECT_THAT(sqlOf(statement), Not(HasSubstr("\"Open"))) << statement;
    expectSameRowsAsOfLines("", statement);
  }
}

TEST_F(KeptReports, TellNothingFromNulls) {
  makeBooks();
  run("INSERT INTO StockFlow (TranNo, ItemCode, StockIn) SELECT TranNo, 'D4', 3 FROM Transactions WHERE TranType IN "
      "(22, 32)");
  for (int change = 0; change < 60; ++change) changeAnything();
  const std::string signedOut = "Sum(IIf(Transactions.TranType=35,-[StockIn],[StockOut]))";
  const std::string day = " AND Transactions.TranDate";
  for (const std::string& period :
       {std::string(), day + "<=#04-20-2026#", day + "<#03-01-2026#", day + ">=#01-15-2026#" + day + "<=#06-20-2026#",
        day + ">#02-01-2026#", day + ">=#02-10-2026#" + day + "<#02-20-2026#"}) {
    for (const std::string& answered :
         {soldOf(signedOut, period), soldOf("Sum(StockFlow.ItemValue)", period),
          soldOf("Sum([StockOut])*3-" + signedOut, period),
          soldOf("Sum(IIf(Transactions.TranType=22 Or Transactions.TranType>32,0,[StockOut]))", period),
          soldOf("Sum(IIf(IsNull([StockIn]),0,[StockIn]))-" + signedOut, period)}) {
      EXPECT_THAT(sqlOf(answered), HasSubstr("\"KindPending\"")) << answered;
      expectSameRowsAsOfLines(period, answered);
    }
  }
  for (const std::string& other :
       {soldOf("Count([StockOut])"), soldOf("Sum(IIf([StockIn]>1,[StockOut],0))"), soldOf("Sum([StockIn]-[StockOut])"),
        soldOf("Sum(IIf(Transactions.TranType=35,1,[StockOut]))"), soldOf("Max([StockOut])"),
        soldOf("Sum([StockOut])", " AND Transactions.PartyCode2=12001101"),
        soldOf("Sum([StockOut])", " AND StockFlow.LocationID=1"), soldOf("Sum([StockOut])", "", ">="),
        soldOf("Sum(StockFlow.Rate)")}) {
    const std::string sql = sqlOf(other);
    if (other.find(">= Q.") == std::string::npos) {
      EXPECT_THAT(sql, Not(HasSubstr("\"KindPending\""))) << other;
    }
    expectSameRowsAsOfLines("", other);
  }
}

// Days at both ends and whole months between them.
TEST_F(KeptReports, SumUpLongPeriods) {
  makeBooks();
  for (int change = 0; change < 40; ++change) changeAnything();
  const std::string lines =
      "SELECT AccLevel3.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS Dr FROM Transactions INNER JOIN (AccLevel3 "
      "INNER JOIN SubTransactions ON AccLevel3.AccCode = SubTransactions.AccCode) ON Transactions.TranNo = "
      "SubTransactions.TranNo WHERE Transactions.Cancel=No AND Transactions.FYID=1 AND ";
  const std::string goods =
      "SELECT StockLevel3.ItemCode, Sum(Q.I) AS Ins FROM (SELECT StockFlow.ItemCode, "
      "IIf(IsNull([StockIn]),0,[StockIn]) AS I FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = "
      "StockFlow.TranNo WHERE StockFlow.LocationID=1 AND Transactions.Cancel=No AND Transactions.InvLedger=No AND "
      "Transactions.FYID=1 AND ";
  for (const char* from : {">=#12-29-2025#", ">#01-01-2026#", ">=#01-31-2026#", ">=#02-28-2026#", ">#03-01-2026#"})
    for (const char* to : {"", "<=#06-30-2026#", "<#07-01-2026#", "<=#07-01-2026#", "<#06-15-2026#", "<=#01-31-2026#",
                           "<=#12-31-2026#"}) {
      const std::string period =
          "Transactions.TranDate" + std::string(from) + (*to ? " AND Transactions.TranDate" : "") + to;
      expectSameRowsAsOfLines("", lines + period + " GROUP BY AccLevel3.AccCode");
      expectSameRowsAsOfLines(
          "", goods + period +
                  ") AS Q INNER JOIN StockLevel3 ON Q.ItemCode = StockLevel3.ItemCode GROUP BY StockLevel3.ItemCode");
    }
  EXPECT_THAT(sqlOf(lines + "Transactions.TranDate>=#01-02-2026# GROUP BY AccLevel3.AccCode"),
              HasSubstr("\"AccountMonths\""));
}

}  // namespace
}  // namespace velmo::schema
