#include "demo/books_of_the_year.h"

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

}  // namespace
}  // namespace velmo::reports
