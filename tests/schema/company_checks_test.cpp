#include "schema/company_checks.h"

#include <gmock/gmock.h>

#include "schema/company_tables.h"
#include "schema/open_company.h"
#include "store/checks/check_round.h"
#include "store/sqlite/kept_totals.h"
#include "store/upkeep/database_file.h"
#include "support/damage.h"

namespace velmo::schema {
namespace {

using store::Finding;
using testing::ElementsAre;
using testing::IsEmpty;

// A company with a balanced document 900, as other programs can leave it.
class CompanyChecks : public testing::Test {
 protected:
  CompanyChecks() {
    post(900, 32, 0, {{100, 0}, {0, 60.1}, {0, 39.9}});
    company.connection.execute("INSERT INTO StockFlow (TranNo, ItemCode, StockIn) VALUES (900, 'A', 5)");
    EXPECT_THAT(found(), IsEmpty()) << "a sound company";
  }

  struct Line {
    double debit;
    double credit;
  };
  void post(int tranNo, int type, int cancel, const std::vector<Line>& lines) {
    const std::string number = std::to_string(tranNo);
    company.connection.execute("INSERT INTO Transactions (TranNo, DocNo, TranType, TranDate, FYID, Cancel) VALUES (" +
                               number + ", " + number + ", " + std::to_string(type) + ", #11-22-2026#, 1, " +
                               (cancel != 0 ? "Yes" : "No") + ")");
    for (const Line& line : lines)
      company.connection.execute("INSERT INTO SubTransactions (TranNo, AccCode, Debit, Credit) VALUES (" + number +
                                 ", 10001001, " + std::to_string(line.debit) + ", " + std::to_string(line.credit) +
                                 ")");
  }
  // Each as "D words", "T words" or "B words", the last with a mark behind it when the document is cancelled.
  std::vector<std::string> found(const std::vector<store::IdleCheck>& checks = companyChecks()) {
    std::vector<std::string> all;
    store::CheckRound round(company.connection.snapshot(), checks);
    const auto findings = round.run();
    for (const Finding& each : *findings)
      all.push_back(std::string(1, "DTB"[static_cast<int>(each.kind)]) + " " + each.words +
                    (each.cancelled ? " cancelled" : ""));
    return all;
  }

  test::OpenCompany company;
};

TEST_F(CompanyChecks, FindAnIndexThatIsNotOfItsTable) {
  company.connection.close();
  test::changeBesideIndex(company.file(), "Transactions_TranDate",
                          "DELETE FROM AccountDays WHERE 0; "
                          "UPDATE Transactions SET TranDate = '2026-11-23' WHERE TranNo = 900");
  company.connection.open(connectionStringFor(company.file()));
  const auto damage = found();
  ASSERT_EQ(damage.size(), 1U);
  EXPECT_THAT(damage.front(), testing::StartsWith("D the table \"Transactions\" ("));
  EXPECT_THAT(damage.front(), testing::HasSubstr("Transactions_TranDate"));
}

// To SQLite all is well with them; made again, a trigger of the totals would then stand twice in the file.
TEST_F(CompanyChecks, FindWhatIsListedOtherwiseThanDeclared) {
  for (const auto& [change, listed] :
       {std::pair{"name = 'StoCkTotalsStockFlowAdded' WHERE name = 'StockTotalsStockFlowAdded'", "as \"StoCk"},
        {"type = 'Trigger' WHERE name = 'AccountTotalsSubTransactionsAdded'", "as \"AccountTotals"},
        {"tbl_name = 'AccountDayz' WHERE name = 'AccountDays'", "as \"AccountDays"},
        {"tbl_name = 'Transaction' WHERE name = 'Transactions_TranDate'", "as \"Transactions_TranDate"}}) {
    test::OpenCompany spoilt;
    spoilt.connection.close();
    test::past(spoilt.file(), "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET " + std::string(change) +
                                  "; PRAGMA wal_checkpoint(TRUNCATE)");
    const std::string before = test::bytesOf(spoilt.file());
    try {
      prepareCompanyFile(connectionStringFor(spoilt.file()), text::DateTime::fromCalendar(2026, 11, 24));
    } catch (const store::StoreError& refusal) {
      EXPECT_EQ(refusal.kind(), store::ErrorKind::Damaged) << change << ": " << refusal.what();
      EXPECT_TRUE(test::bytesOf(spoilt.file()) == before) << change;
      continue;
    }
    spoilt.connection.open(connectionStringFor(spoilt.file()));
    store::CheckRound round(spoilt.connection.snapshot(), companyChecks());
    const auto findings = *round.run();
    ASSERT_EQ(findings.size(), 1U) << change;
    EXPECT_EQ(findings.front().kind, Finding::Kind::Damage) << change;
    EXPECT_THAT(findings.front().words, testing::HasSubstr(listed)) << change;
  }
}

TEST_F(CompanyChecks, FindRecordsWithoutWhatTheyReferTo) {
  test::past(company.file(), "INSERT INTO SubTransactions (TranNo, AccCode, Debit) VALUES (12345, 10001001, 5)");
  EXPECT_THAT(found(), ElementsAre("D the table \"SubTransactions\" (1 record refers to what is not there in "
                                   "\"Transactions\")"));
}

TEST_F(CompanyChecks, FindTotalsThatAreNotTheirLinesAndMendThem) {
  for (const auto& [sql, total] :
       {std::pair{"UPDATE AccountDays SET Debit = Debit + 1", "T the totals of \"SubTransactions\""},
        {"UPDATE AccountMonths SET Debit = Debit + 1", "T the totals of \"SubTransactions\""},
        {"UPDATE StockAdded SET Line = 99; DELETE FROM StockDays; INSERT INTO StockDays VALUES (1, '2026-11-22', 'A', "
         "1, 4, 0)",
         "T the totals of \"StockFlow\""}}) {
    test::past(company.file(), sql);
    EXPECT_THAT(found(), ElementsAre(total)) << sql;
    store::mendKeptTotals(company.connection, store::TotalsCheck::All);
    EXPECT_THAT(found(), IsEmpty()) << sql;
  }
}

// What a comparison of the latest days and of the whole sums does not see.
TEST_F(CompanyChecks, FindOldTotalsThatMakeUpForEachOther) {
  post(901, 32, 0, {{7, 0}, {0, 7}});
  test::past(company.file(), "UPDATE Transactions SET TranDate = '2026-10-01' WHERE TranNo = 901");
  store::addLaterLines(company.connection.handle(), accountTotals(), 1000);
  test::past(company.file(),
             "INSERT INTO Transactions (TranNo, TranDate, FYID) VALUES (902, '2026-11-23', 1), (903, '2026-11-24', 1),"
             "(904, '2026-11-25', 1);"
             "UPDATE AccountDays SET Debit = Debit + iif(TranDate < '2026-11-01', 1, -1) WHERE Debit > 0");
  store::mendKeptTotals(company.connection);
  EXPECT_THAT(found(), ElementsAre("T the totals of \"SubTransactions\""));
  store::mendKeptTotals(company.connection, store::TotalsCheck::All);
  EXPECT_THAT(found(), IsEmpty());
}

TEST_F(CompanyChecks, CompareSumsLaterWhereTheStartHadNoTime) {
  test::past(company.file(), "UPDATE AccountMonths SET Debit = Debit + 1");
  EXPECT_FALSE(store::mendKeptTotals(company.connection, store::TotalsCheck::Latest, std::chrono::steady_clock::now()));
  EXPECT_THAT(found(startChecks()), ElementsAre("T the totals of \"SubTransactions\""));
  EXPECT_TRUE(store::mendKeptTotals(company.connection));
  EXPECT_THAT(found(startChecks()), IsEmpty());
}

TEST_F(CompanyChecks, ListDocumentsThatPromiseBalanceAndHaveNone) {
  post(910, 32, 0, {{100, 0}, {0, 99.995}});   // half a cent
  post(911, 41, 0, {{100, 0}, {0, 99.9951}});  // less
  post(912, 22, -1, {{0, 3}});
  post(913, 77, 0, {{1, 0}});  // of a kind that nobody knows
  int next = 920;
  for (const int type : {20, 30, 43, 91, 92, 93, 94, 95}) post(next++, type, 0, {{5, 0}});
  post(930, 41, 0, std::vector<Line>(30, {0.1, 0.1}));
  company.connection.execute("UPDATE SubTransactions SET Credit = Null WHERE TranNo = 913");
  EXPECT_THAT(found(), ElementsAre("B SI 910", "B  913", "B PB 912 cancelled"));
  const store::Recordset list = company.rows(unbalancedDocuments());
  EXPECT_EQ(list.integer("TranNo"), 910);
  EXPECT_EQ(list.integer("TranType"), 32);
  EXPECT_EQ(list.number("Difference"), 0.005);
}

}  // namespace
}  // namespace velmo::schema
