#include "schema/company_schema.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include "schema/new_company.h"
#include "store/sql/compile.h"
#include "store/values/error.h"

namespace velmo::schema {
namespace {

using test::NewCompany;

TEST(CompanySchema, RelatesColumnsThatExist) {
  for (const store::Table& table : companyCatalog().tables()) {
    for (const std::string& key : table.key) EXPECT_NE(nullptr, table.find(key)) << table.name << "." << key;
    for (const store::Relation& relation : table.relations) {
      EXPECT_NE(nullptr, table.find(relation.column)) << table.name << "." << relation.column;
      const store::Table* parent = companyCatalog().find(relation.parentTable);
      ASSERT_NE(nullptr, parent) << table.name;
      EXPECT_THAT(parent->key, testing::ElementsAre(relation.parentColumn)) << table.name;
    }
    for (const store::Index& index : table.indexes)
      for (const std::string& column : index.columns) EXPECT_NE(nullptr, table.find(column)) << index.name;
  }
}

TEST(CompanySchema, RemovesADocumentWithItsOwnRowsAndNoOther) {
  NewCompany company;
  const auto addRows = [&](int tranNo, int invoice) {
    const std::string no = std::to_string(tranNo), doc = std::to_string(invoice);
    company.connection.execute("insert into Transactions (TranNo, DocNo, TranType, FYID) values (" + no + "," + doc +
                               ",32,1)");
    company.connection.execute("insert into SubTransactions (TranNo, AccCode, Debit) values (" + no + ",10001001,5)");
    company.connection.execute("insert into StockFlow (TranNo, ItemCode, StockOut) values (" + no + ",'SRV001',1)");
    for (const char* table : {"AgingDr", "AgingCr"})
      company.connection.execute(std::string("insert into ") + table + " (TranNo, DocNo, TrAmount) values (" + no +
                                 "," + doc + ",5)");
  };
  addRows(101, 1);
  addRows(102, 1);  // settles document 1 under a number of its own
  EXPECT_EQ(1, company.connection.execute("delete * from transactions where TranNo=101"));
  for (const char* table : {"SubTransactions", "StockFlow", "AgingDr", "AgingCr"}) {
    EXPECT_EQ(0, company.figure(std::string("select count(*) from ") + table + " where TranNo=101")) << table;
    EXPECT_EQ(1, company.figure(std::string("select count(*) from ") + table + " where TranNo=102")) << table;
  }
}

TEST(CompanySchema, RefusesRowsThatHangOnNothing) {
  NewCompany company;
  EXPECT_THROW(company.connection.execute("insert into SubTransactions (TranNo, AccCode) values (999,10001001)"),
               store::StoreError);
  EXPECT_THROW(company.connection.execute("delete * from StockLevel1 where CatID='Service'"), store::StoreError);
  // Documents name no employee, job or location with 0 or null.
  EXPECT_EQ(1, company.connection.execute("insert into Transactions (DocNo, EmpID, JobIDFrom, LocationFrom) values "
                                          "(1, 0, null, 0)"));
}

// The steps of the statement's plan that read a table whole which grows with the business.
std::vector<std::string> scansOfBigTables(store::Connection& connection, const char* statement) {
  const auto compiled = store::sql::compile(statement, companyCatalog());
  if (!compiled) return {compiled.error().describe(statement)};
  sqlite3_stmt* plan = nullptr;
  if (sqlite3_prepare_v2(connection.handle(), ("EXPLAIN QUERY PLAN " + compiled->sql).c_str(), -1, &plan, nullptr) !=
      SQLITE_OK)
    return {sqlite3_errmsg(connection.handle())};
  std::vector<std::string> scans;
  std::vector<std::string> derived;  // tables, which may have the name of one in the file
  while (sqlite3_step(plan) == SQLITE_ROW) {
    const std::string step = reinterpret_cast<const char*>(sqlite3_column_text(plan, 3));
    for (const char* made : {"CO-ROUTINE ", "MATERIALIZE "})
      if (step.starts_with(made)) derived.push_back("SCAN " + step.substr(std::string_view(made).size()));
    if (std::ranges::find(derived, step) != derived.end()) continue;
    for (const char* big :
         {"Transactions", "SubTransactions", "StockFlow", "AgingDr", "AgingCr", "StockLevel3", "AccLevel3"})
      if ((step + " ").starts_with(std::string("SCAN ") + big + " ")) scans.push_back(step);
  }
  sqlite3_finalize(plan);
  return scans;
}

// What the screens ask while a person types or pages, and what a report asks of one account, item or party. Each must
// be answered from an index whatever the number of documents.
TEST(CompanySchema, AnswersTheScreensWithoutReadingBigTables) {
  NewCompany company;
  const char* const statements[] = {
      "SELECT * from transactions where trantype=32 and fyid = 1 order by docno",
      "Select docno from transactions where docno = 5 and trantype=32 and fyid = 1",
      "Select trandate, d1 from transactions where d1 like 'PO-7' and trantype=93 and fyid = 1 and cancel = No",
      "select * from stockflow where itemcode like 'A[[]1]'",
      "select * from stockflow where itemcode like 'Ä-1[%]'",
      "SELECT * from Stocklevel3 where itemcode like 'B[_]1' order by itemcode",
      "SELECT StockFlow.ItemCode, Sum(IIf(IsNull([stockin]),0,[stockin])) AS stocksin, "
      "Sum(IIf(IsNull([stockout]),0,[stockout])) AS stocksout, [stocksin]-[stocksout] AS Ibalance FROM Transactions "
      "INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo GROUP BY StockFlow.ItemCode, "
      "Transactions.Cancel, Transactions.InvLedger, Transactions.FYID HAVING (((StockFlow.ItemCode) Like 'É[_]1') AND "
      "((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ((Transactions.FYID)=1))",
      "select tranno, trandate from transactions where trantype=51 and fyid= 1",
      "select * from transactions where fyid=1 and trantype=11",
      "Select * from stockflow where tranno = 7 order by serial",
      "Select serial, tranno, acccode, accname, desc, debit, credit from subtransactions where tranno=7 order by "
      "serial",
      "Select * from agingdr where tranno=7",
      "Select * from agingcr where tranno=7",
      "select * from subtransactions where acccode = 12001001",
      "SELECT SubTransactions.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, "
      "Sum(IIf(IsNull([credit]),0,[credit])) AS Credits, [Debits]-[Credits] AS Dif, IIf([Dif]>0,Format(Abs([Dif]),"
      "'Fixed') & ' Dr',Format(Abs([Dif]),'Fixed') & ' Cr') AS PBalance FROM Transactions INNER JOIN SubTransactions "
      "ON "
      "Transactions.TranNo = SubTransactions.TranNo GROUP BY SubTransactions.AccCode, Transactions.Cancel, "
      "Transactions.FYID HAVING (((SubTransactions.AccCode)=12001001) AND ((Transactions.Cancel)=No) AND "
      "((Transactions.FYID)=1))",
      "SELECT StockFlow.ItemCode, Sum(IIf(IsNull([stockin]),0,[stockin])) AS stocksin, "
      "Sum(IIf(IsNull([stockout]),0,[stockout])) AS stocksout, [stocksin]-[stocksout] AS Ibalance FROM Transactions "
      "INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo GROUP BY StockFlow.ItemCode, "
      "Transactions.Cancel, Transactions.InvLedger, Transactions.FYID HAVING (((StockFlow.ItemCode) Like 'A1') AND "
      "((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ((Transactions.FYID)=1))",
      "SELECT TOP 4 Transactions.TranNo, Transactions.TranType, Transactions.docno, Transactions.D1, "
      "Transactions.TranDate, Transactions.Text1, StockFlow.ItemCode, StockFlow.StockOut, StockFlow.Unit, "
      "StockFlow.Rate, StockFlow.GrossAmt FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = "
      "StockFlow.TranNo WHERE (((StockFlow.ItemCode) Like 'A1') AND ((Transactions.partycode2)=12001001) AND "
      "((Transactions.TranType)=32) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=1)) ORDER BY "
      "Transactions.TranDate desc, Transactions.docno",
      "SELECT Sum(IIf([Transactions].[TranType]=35,-[TrAmount],[TrAmount])) AS TotSales From Transactions WHERE "
      "(((Transactions.TranType)=31 Or (Transactions.TranType)=32 Or (Transactions.TranType)=35) AND "
      "((Transactions.TranDate)=#11-22-2026#) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=1))",
      "SELECT Transactions.TranNo, SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Serial FROM "
      "TranType "
      "INNER JOIN (Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo) ON "
      "TranType.TranType = Transactions.TranType Where (((SubTransactions.AccCode) = 12001001) And "
      "(((SubTransactions.Debit)<>0) or ((SubTransactions.Credit)<>0)) AND ((Transactions.FYID) = 1) And "
      "((Transactions.Cancel) = No)) ORDER BY Transactions.TranDate, SubTransactions.Serial",
      "SELECT Transactions.TranNo, StockFlow.StockIn, StockFlow.StockOut FROM TranType INNER JOIN (Transactions INNER "
      "JOIN (StockFlow INNER JOIN StockLocation ON StockFlow.LocationID = StockLocation.LocationID) ON "
      "Transactions.TranNo = StockFlow.TranNo) ON TranType.TranType = Transactions.TranType WHERE "
      "(((Transactions.FYID)=1) AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND "
      "((StockFlow.LocationID)>0) AND ((StockFlow.ItemCode) Like 'A1')) ORDER BY Transactions.TranDate, "
      "StockFlow.FlowId",
      "select * from stockflow where itemcode like 'A1'",
      "select itemcode from stocklevel3 where itemcode like 'A1'",
      "SELECT * from Acclevel3 where level2id=12001 order by acccode",
      "SELECT * from Stocklevel3 where subcatid like 'HND01' order by itemcode",
      "delete * from transactions where trantype<>51 and fyid = 2",
  };
  for (const char* statement : statements)
    EXPECT_THAT(scansOfBigTables(company.connection, statement), testing::IsEmpty()) << statement;
  // The plan does show such a scan where there is one.
  EXPECT_THAT(scansOfBigTables(company.connection, "select * from transactions where empid = 3"), testing::SizeIs(1));
}

}  // namespace
}  // namespace velmo::schema
