#include "store/sqlite/kept_totals.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include "schema/random_books.h"
#include "store/sql/compile.h"
#include "store/upkeep/database_file.h"

namespace velmo::schema {
namespace {

bool readsTotals(const std::string& statement) {
  const auto compiled = store::sql::compile(statement, companyCatalog());
  EXPECT_TRUE(compiled.has_value()) << statement << "\n" << compiled.error().describe(statement);
  return compiled &&
         std::ranges::any_of(
             std::array{"AccountDays", "AccountMonths", "StockDays", "StockMonths", "StockYears", "ReceiptYears"},
             [&](const char* table) { return compiled->sql.find(table) != std::string::npos; });
}

class KeptTotals : public RandomBooks {};

const std::string debits = "Sum(IIf(IsNull([debit]),0,[debit]))";
const std::string credits = "Sum(IIf(IsNull([credit]),0,[credit]))";
const std::string joined =
    " FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo=SubTransactions.TranNo ";
const std::string inChart =
    " FROM Transactions INNER JOIN (AccLevel3 INNER JOIN SubTransactions ON AccLevel3.AccCode = "
    "SubTransactions.AccCode) ON Transactions.TranNo = SubTransactions.TranNo ";

std::string derived(const std::string& where) {
  return "[SELECT Transactions.TranDate, SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Credit" +
         joined + "WHERE " + where + "]. AS ABal";
}

std::string ofChart(const std::string& where) {
  return "SELECT AccLevel3.AccCode, AccLevel3.AccName, " + debits + " AS Dr, " + credits +
         " AS Cr, [Dr]-[Cr] AS Diff, Abs([Diff]) AS Bal, IIf([Diff]<0,'Credit','Debit') AS Side FROM AccLevel3 LEFT "
         "JOIN " +
         derived(where) +
         " ON AccLevel3.AccCode = ABal.AccCode GROUP BY AccLevel3.AccCode, AccLevel3.AccName ORDER BY "
         "AccLevel3.AccCode";
}

TEST_F(KeptTotals, AnswerAsTheLinesDo) {
  const std::string year = "(Transactions.FYID)=1 And (Transactions.Cancel)=No";
  const std::vector<std::string> statements = {
      ofChart("((Transactions.TranDate)<#03-15-2026#) And " + year),
      ofChart("((Transactions.TranDate)<=#03-15-2026#) And " + year),
      ofChart("((Transactions.TranDate)<#03-01-2026#) And (Transactions.FYID)=2 And (Transactions.Cancel)=0"),
      ofChart("((Transactions.TranDate)<=#03-31-2026#) And " + year),
      ofChart("((Transactions.TranDate)>=#02-10-2026#) And ((Transactions.TranDate)<=#02-20-2026#) And " + year),
      ofChart("((Transactions.TranDate)>#02-10-2026#) And ((Transactions.TranDate)<#05-20-2026#) And " + year),
      ofChart("((Transactions.TranDate)>#02-10-2026#) And " + year),
      ofChart(year),
      "SELECT AccLevel1.TypeID, " + debits + " AS Dr FROM AccLevel1 INNER JOIN (AccLevel3 LEFT JOIN " +
          derived("((Transactions.TranDate)<=#04-04-2026#) And " + year) +
          " ON AccLevel3.AccCode = ABal.AccCode) ON AccLevel1.TypeID = AccLevel3.Level1ID GROUP BY AccLevel1.TypeID",
      "SELECT SubTransactions.AccCode, AccLevel3.AccName, " + debits + " AS Dr, " + credits + " AS Cr" + inChart +
          "WHERE (((AccLevel3.Level1ID) > 0) AND ((Transactions.TranDate) <= #04-20-2026#) And ((Transactions.FYID) = "
          "1) And ((Transactions.Cancel) = No)) GROUP BY SubTransactions.AccCode, AccLevel3.AccName Having (" +
          debits + "<> " + credits + ")",
      "SELECT AccLevel3.Level1ID, " + credits + " AS Cr" + inChart + "WHERE " + year +
          " and (transactions.trandate >= #02-01-2026# and transactions.trandate <= #06-30-2026#) GROUP BY "
          "AccLevel3.Level1ID",
      "SELECT SubTransactions.AccCode, " + debits + " AS Dr, " + credits + " AS Cr, [Dr]-[Cr] AS Dif" + joined +
          "GROUP BY SubTransactions.AccCode, Transactions.Cancel, Transactions.FYID HAVING "
          "(((SubTransactions.AccCode)=12001103) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=1))",
      "SELECT SubTransactions.AccCode, " + debits + " AS Dr" + joined +
          "Where (((Transactions.TranDate) < #05-11-2026#) And ((Transactions.Cancel) = No) And ((Transactions.FYID) = "
          "1)) GROUP BY SubTransactions.AccCode HAVING SubTransactions.AccCode=12001104",
  };
  for (const bool withLarge : {false, true}) {
    large = withLarge;
    makeBooks();
    for (const std::string& statement : statements) {
      EXPECT_TRUE(readsTotals(statement)) << statement;
      expectSameAsOfLines(statement);
    }
  }
}

const std::string stockIn = "IIf(IsNull([StockIn]),0,[StockIn])";
const std::string stockOut = "IIf(IsNull([StockOut]),0,[StockOut])";
const std::string ofItems =
    "(SELECT StockFlow.ItemCode, " + stockIn + " AS StocksIn, " + stockOut +
    " AS StocksOut, [StocksIn]-[StocksOut] AS Bal FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = "
    "StockFlow.TranNo WHERE ((Transactions.FYID)=1) AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No)";

TEST_F(KeptTotals, AnswerForItemsAsTheLinesDo) {
  limitOfSmall = 1;  // of products of more digits than are shown, the last depends on where they are rounded
  run("INSERT INTO StockLevel1 (CatID, CatName) VALUES ('GDS', 'Goods'); INSERT INTO StockLevel2 (SubCatID, "
      "SubCatName, CatID) VALUES ('GDS01', 'Goods', 'GDS'); INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, "
      "SubCatID, ValuationCost2) VALUES ('A1', 'Anchor', 'GDS', 'GDS01', 2.5), ('B2', 'Bolt', 'GDS', 'GDS01', NULL), "
      "('Ö9', 'Oil', 'GDS', 'GDS01', 0.15), ('D4', 'None', 'GDS', 'GDS01', 1)");
  makeBooks();
  const std::vector<std::string> statements = {
      "SELECT StockLevel3.ItemCode, Sum(Q.StocksIn) AS Ins, Sum(Q.StocksOut) AS Outs, Sum(Q.Bal) AS Bals, "
      "Sum([Q].[Bal]*[StockLevel3].[ValuationCost2]) AS BalValue FROM " +
          ofItems +
          " AND ((Transactions.TranDate)<=#04-20-2026#)) AS Q INNER JOIN StockLevel3 ON Q.ItemCode = "
          "StockLevel3.ItemCode GROUP BY StockLevel3.ItemCode ORDER BY StockLevel3.ItemCode",
      "SELECT StockLevel3.ItemCode, Sum(Q.Bal) AS Bals FROM " + ofItems +
          " AND StockFlow.ItemCode like '%1%') AS Q RIGHT JOIN StockLevel3 ON Q.ItemCode = StockLevel3.ItemCode GROUP "
          "BY StockLevel3.ItemCode Having Sum(Q.Bal) <= 1e9 ORDER BY StockLevel3.ItemCode",
      "SELECT StockFlow.ItemCode, Sum(" + stockIn + ") AS Ins, Sum(" + stockOut +
          ") AS Outs, [Ins]-[Outs] AS Bal FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = "
          "StockFlow.TranNo GROUP BY StockFlow.ItemCode, Transactions.Cancel, Transactions.InvLedger, "
          "Transactions.FYID HAVING (((StockFlow.ItemCode) Like 'a1') AND ((Transactions.Cancel)=No) AND "
          "((Transactions.InvLedger)=No) AND ((Transactions.FYID)=1))",
  };
  for (const std::string& statement : statements) {
    EXPECT_TRUE(readsTotals(statement)) << statement;
    expectSameAsOfLines(statement);
  }
  const std::string fromItems =
      " FROM " + ofItems +
      ") AS Q INNER JOIN StockLevel3 ON Q.ItemCode = StockLevel3.ItemCode GROUP BY StockLevel3.ItemCode";
  for (const char* items : {"Sum(Q.Bal*Q.Bal)", "Sum(Q.Bal+1)", "Sum(Abs(Q.Bal))", "Max(Q.Bal)", "Count(Q.Bal)",
                            "Sum(Q.Bal)/Count(*)", "Sum(StockLevel3.ValuationCost2)"}) {
    const std::string statement = "SELECT StockLevel3.ItemCode, " + std::string(items) + " AS Figure" + fromItems;
    EXPECT_FALSE(readsTotals(statement)) << statement;
    expectSameAsOfLines(statement);
  }
  const std::string alone = "SELECT StockFlow.ItemCode, Sum(" + stockIn +
                            ") AS Ins FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo "
                            "WHERE StockFlow.ItemCode = 'A1' AND Transactions.FYID = 1 AND Transactions.Cancel = No";
  EXPECT_FALSE(readsTotals(alone + " GROUP BY StockFlow.ItemCode"));
  expectSameAsOfLines(alone + " GROUP BY StockFlow.ItemCode");
  EXPECT_FALSE(
      readsTotals(alone + " AND Transactions.InvLedger = No AND StockFlow.LocationID = 1 GROUP BY StockFlow.ItemCode"));
}

// Up to any day, beside what was cancelled, moved and deleted since.
TEST_F(KeptTotals, AnswerForReceiptsAsTheLinesDo) {
  run("INSERT INTO StockLevel1 (CatID, CatName) VALUES ('GDS', 'Goods'); INSERT INTO StockLevel2 (SubCatID, "
      "SubCatName, CatID) VALUES ('GDS01', 'Goods', 'GDS'); INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, "
      "SubCatID, ValuationCost2) VALUES ('A1', 'Anchor', 'GDS', 'GDS01', 2.5), ('B2', 'Bolt', 'GDS', 'GDS01', 3), "
      "('C3', 'Care', 'SERVICE', 'GDS01', 1)");
  const auto receipts = [](const std::string& types, const std::string& more) {
    return "SELECT StockCosts.ItemCode, Sum(StockCosts.StockIn) AS Quantity, Sum(StockCosts.ItemValue) AS ItemValues, "
           "IIF([Quantity]>0, [ItemValues]/[Quantity], 0) AS WeightedCosts FROM (SELECT StockFlow.ItemCode, "
           "StockFlow.StockIn, StockFlow.ItemValue FROM Transactions INNER JOIN (Stocklevel3 INNER JOIN StockFlow ON "
           "Stocklevel3.ItemCode = StockFlow.ItemCode) ON Transactions.TranNo = StockFlow.TranNo WHERE "
           "(((Stocklevel3.CatID) Not like 'Service') AND ((Transactions.FYID)=1) AND ((Transactions.Cancel)=No) AND "
           "((Transactions.InvLedger)=No) AND (" +
           types + ")" + more + ")) as StockCosts GROUP BY StockCosts.ItemCode";
  };
  const std::string received = " AND ((StockFlow.StockIn) Is Not Null)";
  const std::string types = "(Transactions.TranType)=11 Or (Transactions.TranType)=22";
  const std::string closing = "SELECT StockLevel3.ItemCode, Sum(Q.StocksIn) AS Ins, Sum(Q.StocksOut) AS Outs FROM " +
                              ofItems +
                              " AND ((Transactions.TranDate)<=#DAY#)) AS Q INNER JOIN StockLevel3 ON Q.ItemCode = "
                              "StockLevel3.ItemCode GROUP BY StockLevel3.ItemCode ORDER BY StockLevel3.ItemCode";
  for (const bool withLarge : {false, true}) {
    large = withLarge;
    makeBooks();
    for (int change = 0; change < 30; ++change) changeAnything();
    for (const char* day : {"12-31-2026", "07-15-2026", "07-10-2026", "04-20-2026"}) {
      for (const char* end : {"<=", "<"}) {
        const std::string upTo = " AND ((Transactions.TranDate)" + std::string(end) + "#" + day + "#)";
        EXPECT_TRUE(readsTotals(receipts(types, received + upTo)));
        expectSameAsOfLines(receipts(types, received + upTo));
      }
      std::string ofDay = closing;
      expectSameAsOfLines(ofDay.replace(ofDay.find("DAY"), 3, day));
    }
    expectSameAsOfLines(receipts(types, received));
    for (const std::string& other : {receipts(types, ""), receipts("(Transactions.TranType)>11", received),
                                     receipts(types + " Or (Transactions.DocNo)=5", received)}) {
      EXPECT_FALSE(readsTotals(other)) << other;
      expectSameAsOfLines(other);
    }
  }
}

// What the totals cannot tell is told by the lines.
TEST_F(KeptTotals, AreNotAskedForMoreThanTheyKeep) {
  makeBooks();
  const auto grouped = [](const std::string& items, const std::string& where, const std::string& groups) {
    return "SELECT " + items + inChart + "WHERE " + where + " GROUP BY " + groups;
  };
  const std::string year = "(Transactions.FYID)=1 And (Transactions.Cancel)=No";
  const std::string account = "SubTransactions.AccCode";
  ASSERT_TRUE(readsTotals(grouped(account + ", " + debits + " AS Dr", year, account)));
  const std::vector<std::string> statements = {
      grouped(account + ", Count(*) AS Lines", year, account),
      grouped(account + ", Sum([debit]) AS Dr", year, account),
      grouped(account + ", Sum(IIf(IsNull([debit]),1,[debit])) AS Dr", year, account),
      grouped(account + ", Sum(IIf(IsNull([debit]),0,[credit])) AS Dr", year, account),
      grouped(account + ", Max([debit]) AS Dr", year, account),
      grouped(account + ", Sum(AccLevel3.Level1ID) AS Ids, " + debits + " AS Dr", year, account),
      grouped(account + ", Transactions.TranDate, " + debits + " AS Dr", year, account + ", Transactions.TranDate"),
      grouped(account + ", Transactions.FYID, " + debits + " AS Dr", year, account + ", Transactions.FYID"),
      grouped("Transactions.FYID, " + debits + " AS Dr", year, "Transactions.FYID"),
      grouped(account + ", " + debits + " AS Dr", year + " And SubTransactions.Debit > 0.1", account),
      grouped(account + ", " + debits + " AS Dr", year + " And Transactions.TranType = 32", account),
      grouped(account + ", " + debits + " AS Dr", "Transactions.FYID = 1", account),
      grouped(account + ", " + debits + " AS Dr", "Transactions.FYID = 1 And Transactions.Cancel = Yes", account),
      grouped(account + ", " + debits + " AS Dr", "Transactions.FYID = 1 And Transactions.Cancel = -1", account),
      grouped(account + ", " + debits + " AS Dr", "Transactions.FYID > 0 And Transactions.Cancel = No", account),
      grouped(account + ", " + debits + " AS Dr", year + " And Not Transactions.TranDate < #04-01-2026#", account),
      grouped(account + ", " + debits + " AS Dr", year + " And Transactions.TranDate <> #04-01-2026#", account),
      "SELECT SubTransactions.AccCode, " + debits + " AS Dr" + joined + "WHERE " + year +
          " GROUP BY SubTransactions.AccCode",
      "SELECT " + debits + " AS Dr, Count(ABal.AccCode) AS Lines FROM AccLevel3 LEFT JOIN " + derived(year) +
          " ON AccLevel3.AccCode = ABal.AccCode GROUP BY AccLevel3.AccCode",
      "SELECT AccLevel3.AccCode, " + debits + " AS Dr FROM AccLevel3 LEFT JOIN " + derived(year) +
          " ON AccLevel3.AccCode = ABal.AccCode GROUP BY AccLevel3.AccCode, ABal.TranDate",
      "SELECT AccLevel3.AccCode, ABal.Debit FROM AccLevel3 LEFT JOIN " + derived(year) +
          " ON AccLevel3.AccCode = ABal.AccCode ORDER BY AccLevel3.AccCode, ABal.Debit",
  };
  for (const std::string& statement : statements) {
    EXPECT_FALSE(readsTotals(statement)) << statement;
    expectSameAsOfLines(statement);
  }
}

// The same form with another literal must not be taken for the one that was compiled before.
TEST_F(KeptTotals, TellANoughtFromOtherNumbers) {
  makeBooks();
  for (const char* inPlaceOfNull : {"0", "5", "0"})
    expectSameAsOfLines("SELECT AccLevel3.AccCode, Sum(IIf(IsNull([debit])," + std::string(inPlaceOfNull) +
                        ",[debit])) AS Dr" + inChart +
                        "WHERE Transactions.FYID = 1 And Transactions.Cancel = 0 GROUP BY AccLevel3.AccCode");
  for (const char* cancelled : {"0", "-1", "0"})
    expectSameAsOfLines("SELECT AccLevel3.AccCode, " + debits + " AS Dr" + inChart +
                        "WHERE Transactions.FYID = 1 And Transactions.Cancel = " + cancelled +
                        " GROUP BY AccLevel3.AccCode");
}

TEST_F(KeptTotals, FollowWhateverIsWritten) {
  large = true;
  makeBooks();
  ASSERT_TRUE(areRight());
  for (int round = 0; round < 60; ++round) {
    for (int change = 0; change < 15; ++change) changeAnything();
    if (between(0, 3) == 0) addLater(between(1, 9));
    ASSERT_TRUE(areRight()) << "round " << round;
    ASSERT_TRUE(areKept()) << "round " << round;
  }
  run("BEGIN; DELETE FROM Transactions; ROLLBACK");
  EXPECT_TRUE(areRight());
  EXPECT_GT(company.figure("SELECT Count(*) AS Lines FROM SubTransactions"), 50);
  run("DELETE FROM Transactions");
  EXPECT_TRUE(areRight());
}

// However many other lines there are.
TEST_F(KeptTotals, FindTheLinesThatStandApart) {
  const std::string all = "SELECT AccLevel3.AccCode, " + debits + " AS Dr" + inChart +
                          "WHERE Transactions.FYID = 1 And Transactions.Cancel = No";
  const std::string items = "SELECT StockLevel3.ItemCode, Sum(Q.Bal) AS Bals FROM " + ofItems +
                            ") AS Q INNER JOIN StockLevel3 ON Q.ItemCode = StockLevel3.ItemCode";
  const std::array<std::pair<std::string, std::string>, 4> statements{
      {{all + " GROUP BY AccLevel3.AccCode", "SubTransactions"},
       {all + " And SubTransactions.AccCode = 12001101 GROUP BY AccLevel3.AccCode", "SubTransactions"},
       {items + " GROUP BY StockLevel3.ItemCode", "StockFlow"},
       {items + " WHERE Q.ItemCode = 'A1' GROUP BY StockLevel3.ItemCode", "StockFlow"}}};
  for (const auto& [statement, lines] : statements) {
    EXPECT_THAT(planOf(statement), testing::HasSubstr(lines + " USING COVERING INDEX " + lines + "_Apart"))
        << statement;
  }
}

TEST_F(KeptTotals, AreSetRightWhenTheFileIsPrepared) {
  makeBooks();
  const std::string latest = "(SELECT max(TranDate) FROM AccountDays WHERE FYID = 1 AND TranDate < '9')";
  const std::vector<std::string> damages = {
      "DROP TRIGGER AccountTotalsSubTransactionsAdded; INSERT INTO SubTransactions (TranNo, AccCode, Debit) SELECT "
      "max(TranNo), 12001101, 5 FROM Transactions",
      "DROP TABLE AccountMonths",
      "UPDATE AccountMonths SET Debit = Debit + 0.01 WHERE Month = (SELECT min(Month) FROM AccountMonths)",
      "DELETE FROM AccountDays WHERE TranDate = " + latest,
      "UPDATE AccountDays SET Lines = Lines + 1; UPDATE AccountMonths SET Lines = Lines + 1",
      "DROP INDEX AccountDays_AccCode",
      "DROP TABLE StockAdded",
      "UPDATE StockMonths SET StockOut = 7 WHERE ItemCode = 'B2'",
      "UPDATE OpenInvoices SET TrAmount = TrAmount + 1",
      "DROP TRIGGER OpenBillsLineAdded",
      "DROP INDEX OpenInvoices_Open",
  };
  for (const std::string& damage : damages) {
    run(damage);
    EXPECT_FALSE(areKept()) << damage;
    company.connection.close();
    prepareCompanyFile(connectionStringFor(company.file()), text::DateTime::fromCalendar(2026, 11, 23));
    company.connection.open(connectionStringFor(company.file()));
    EXPECT_TRUE(areRight()) << damage;
  }
}

// As version 3 kept them: sums of doubles, that a corrected amount of fourteen digits had left something in.
TEST_F(KeptTotals, OfAnOlderFileAreRightAgain) {
  makeBooks();
  run("DROP INDEX SubTransactions_Apart; DROP INDEX StockFlow_Apart; DROP TABLE AccountMonths; CREATE TABLE "
      "AccountMonths (FYID INTEGER NOT NULL, Month TEXT COLLATE NOCASE NOT NULL, AccCode INTEGER NOT NULL, Lines "
      "INTEGER NOT NULL, Debit REAL NOT NULL, Credit REAL NOT NULL, PRIMARY KEY (FYID, AccCode, Month)) WITHOUT ROWID; "
      "INSERT INTO AccountMonths SELECT FYID, substr(TranDate, 1, 7), AccCode, sum(Lines), sum(Debit) / 10000.0 + "
      "0.005, sum(Credit) / 10000.0 FROM AccountDays GROUP BY 1, 2, 3; PRAGMA user_version = 3");
  company.connection.close();
  prepareCompanyFile(connectionStringFor(company.file()), text::DateTime::fromCalendar(2026, 11, 23));
  company.connection.open(connectionStringFor(company.file()));
  EXPECT_TRUE(areRight());
  EXPECT_TRUE(areKept());
}

// More than whole numbers of SQLite hold is summed up as doubles are, and keeps nobody from the file.
TEST_F(KeptTotals, SurviveWhatOutgrowsThem) {
  run("INSERT INTO Transactions (TranNo, TranType, TranDate, FYID, Cancel) VALUES (9000, 32, '2026-11-22', 1, 0); "
      "INSERT INTO SubTransactions (TranNo, AccCode, Debit) SELECT 9000, 12001101, 99999999999.99 FROM (WITH RECURSIVE "
      "n(value) AS (SELECT 1 UNION ALL SELECT value + 1 FROM n WHERE value < 10000) SELECT * FROM n)");
  const std::string balance = "SELECT " + debits + " AS Dr" + joined +
                              "WHERE Transactions.FYID = 1 And Transactions.Cancel = No And SubTransactions.AccCode = "
                              "12001101 GROUP BY SubTransactions.AccCode";
  ASSERT_TRUE(readsTotals(balance));
  EXPECT_NEAR(company.figure(balance), 999999999999900, 100);
  company.connection.close();
  prepareCompanyFile(connectionStringFor(company.file()), text::DateTime::fromCalendar(2026, 11, 23));
  company.connection.open(connectionStringFor(company.file()));
  store::mendKeptTotals(company.connection, store::TotalsCheck::All);
  EXPECT_NEAR(company.figure(balance), 999999999999900, 100);
  run("DELETE FROM SubTransactions WHERE Serial % 2 = 0; DELETE FROM Transactions WHERE TranNo = 9000");
  EXPECT_TRUE(areRight());
}

TEST_F(KeptTotals, TellWhenTheyCannotBeSetRight) {
  makeBooks();
  const std::string target = connectionStringFor(company.file());
  const auto now = text::DateTime::fromCalendar(2026, 11, 23);
  const auto isSound = [&] {
    company.connection.open(target);
    const bool sound = areKept() && areRight();
    company.connection.close();
    return sound;
  };
  sqlite3* other = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(company.file().c_str(), &other));
  const auto inOther = [&](const char* sql) { return sqlite3_exec(other, sql, nullptr, nullptr, nullptr); };
  company.connection.close();
  ASSERT_EQ(SQLITE_OK, inOther("BEGIN IMMEDIATE"));
  EXPECT_NO_THROW(prepareCompanyFile(target, now)) << "nothing is to be written";
  ASSERT_EQ(SQLITE_OK, inOther("UPDATE AccountMonths SET Debit = Debit + 1; COMMIT; BEGIN IMMEDIATE"));
  try {
    prepareCompanyFile(target, now);
    ADD_FAILURE() << "another program writes";
  } catch (const store::StoreError& error) {
    EXPECT_EQ(error.kind(), store::ErrorKind::Busy) << error.what();
  }
  EXPECT_FALSE(isSound());
  ASSERT_EQ(SQLITE_OK, inOther("COMMIT"));
  prepareCompanyFile(target, now);
  EXPECT_TRUE(isSound());
  sqlite3_close(other);
}

TEST_F(KeptTotals, TakeInManyLinesInAMomentWithoutWork) {
  const auto later = [this] {
    return store::laterLines(company.connection.handle(), companyCatalog().keptTotals()[1]);
  };
  while (later() < 499) addLines("(SELECT max(TranNo) FROM Transactions)");
  company.connection.checkpoint();
  EXPECT_EQ(later(), 499) << "a few are left for another time";
  addDocument();
  addLines("(SELECT max(TranNo) FROM Transactions)");
  {
    const store::Recordset reading(company.connection, "SELECT * FROM StockFlow", store::LockType::ReadOnly);
    company.connection.checkpoint();
    EXPECT_GE(later(), 500) << "rows are being read";
    EXPECT_GE(reading.recordCount(), 500);
  }
  company.connection.checkpoint();
  EXPECT_EQ(later(), 0);
  EXPECT_TRUE(areRight());
  run("BEGIN");
  while (later() < 900) addLines("(SELECT max(TranNo) FROM Transactions)");
  run("COMMIT");
  int portions = 0;
  for (; company.connection.addLaterLines(0.01); ++portions) {
    EXPECT_TRUE(areRight());
    if (portions == 3) run("DELETE FROM StockFlow WHERE FlowId % 7 = 0");
    if (portions == 5) run("UPDATE Transactions SET Cancel = -1 - Cancel");
  }
  EXPECT_GT(portions, 8);
  EXPECT_EQ(later(), 0);
  EXPECT_TRUE(areRight());
}

}  // namespace
}  // namespace velmo::schema
