#include "books_of_the_year.h"

// Everything that the reports on accounts say of the demonstration company, to the cent, against books that are kept
// from the bare documents.
namespace velmo::reports {
namespace {

using testing::IsEmpty;

TEST_F(BooksOfTheYear, AreWhatTheDocumentsSay) {
  EXPECT_THAT(own.oddities, IsEmpty());
  EXPECT_THAT(everywhere(), IsEmpty());
  // What the figures rest on.
  const std::pair<const char*, int> kinds[] = {{"11", 1},
                                               {"22", 50},
                                               {"25", 5},
                                               {"28 Vendor Payment", 50},
                                               {"29 Vendor Payment", 5},
                                               {"29 Petty Payment", 20},
                                               {"32", 300},
                                               {"32 counter", 300},
                                               {"35", 10},
                                               {"38 Customer Receipt", 50},
                                               {"38 Petty Receipt", 20},
                                               {"39 Customer Receipt", 20},
                                               {"51", 1}};
  for (const auto& [kind, least] : kinds) EXPECT_GE(own.counts[kind], least) << "documents " << kind;
  EXPECT_GT(own.ledgers.size(), 60U);
  EXPECT_GT(own.ledgers.at(10001001).size(), 500U);
  EXPECT_GT(2 * own.ledgers.at(40001001).size(), own.documents.size()) << "no ledger is read day by day";
  EXPECT_GT(own.balance(13001001, day(2027, 1, 1).day), 100000'00);
}

// Journals are written, and documents cancelled, deleted and dated otherwise.
TEST_F(BooksOfTheYear, FollowLaterChanges) {
  writeJournals();
  EXPECT_THAT(everywhere(), IsEmpty());
  const auto documentOf = [this](int type, const std::string& more) {
    return one("SELECT TranNo FROM Transactions WHERE TranType = " + std::to_string(type) + " AND " + more +
               " ORDER BY DocNo LIMIT 1 OFFSET 5");
  };
  const std::string cancelled = documentOf(32, "Balance > 0 AND Received > 0");
  for (const std::string& tranNo : {cancelled, documentOf(22, "Carriage > 0"), documentOf(38, "Discount > 0")})
    connection.execute("UPDATE Transactions SET Cancel = Yes WHERE TranNo = " + tranNo);
  for (const std::string& tranNo : {documentOf(28, "Carriage > 0"), documentOf(32, "Text12 = '0'")})
    connection.execute("DELETE FROM Transactions WHERE TranNo = " + tranNo);
  connection.execute("UPDATE Transactions SET TranDate = #07-16-2026# WHERE TranNo = " +
                     documentOf(39, "Nature = 'Customer Receipt'"));
  EXPECT_THAT(everywhere(), IsEmpty());
  connection.execute("UPDATE Transactions SET Cancel = No WHERE TranNo = " + cancelled);
  EXPECT_THAT(everywhere(), IsEmpty());
}

// One ledger line is made another one; each of the comparisons must notice.
TEST_F(BooksOfTheYear, DifferInOneLine) {
  const std::string serial = one(
      "SELECT Serial FROM SubTransactions WHERE AccCode = 40001001 AND Credit > 1 ORDER BY Serial LIMIT 1 OFFSET 200");
  struct Damage {
    const char* made;
    const char* undone;
    bool inClosingBalances = true;
  };
  const Damage damages[] = {{"Credit = Credit + 0.01", "Credit = Credit - 0.01"},
                            {"AccCode = 40001002", "AccCode = 40001001"},
                            {"Debit = Credit, Credit = NULL", "Credit = Debit, Debit = NULL"},
                            {"TranNo = TranNo + 1", "TranNo = TranNo - 1", false}};
  const BalancePeriod period{year, day(2026, 1, 1), day(2026, 12, 31)};
  EXPECT_THAT(inTrialBalance(period), IsEmpty());
  for (const Damage& damage : damages) {
    SCOPED_TRACE(damage.made);
    const auto set = [&](const std::string& what) {
      plain->run("UPDATE SubTransactions SET " + what + " WHERE Serial = " + serial);
      writeRunningBalances(connection, year);
    };
    set(damage.made);
    EXPECT_FALSE(inDocuments().empty());
    EXPECT_FALSE(inLedgers().empty());
    EXPECT_FALSE(inStoredBalances().empty());
    EXPECT_FALSE(inLedgersOnPaper({period.from, period.to}).empty());
    EXPECT_EQ(inTrialBalance(period).empty(), !damage.inClosingBalances);
    set(damage.undone);
    EXPECT_THAT(inTrialBalance(period), IsEmpty());
  }
  EXPECT_THAT(inStoredBalances(), IsEmpty());
  plain->run("UPDATE SubTransactions SET Balance = Balance + 0.01 WHERE Serial = " + serial);
  EXPECT_EQ(inStoredBalances().size(), 1U);
}

}  // namespace
}  // namespace velmo::reports
