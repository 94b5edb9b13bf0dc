#include "attack/damaged_company.h"

#include <gtest/gtest.h>

#include "attack/cashier.h"
#include "attack/report_pipe.h"
#include "attack/risk_places.h"
#include "support/damage.h"

namespace velmo::attack {
namespace {

// Every harm there is, to a company that was closed and to others.
TEST(DamagedCompanies, AreRefusedOrToldOfOrWhatTheyWere) {
  std::mt19937 random(20261122);
  Outcome outcome;
  for (int company = 0; company < 2; ++company) {
    DamagedCompany damaged(random);
    for (const Harm& harm : harms())
      if (outcome.problems.empty()) damaged.harm(harm, random, outcome);
  }
  for (const std::string& problem : outcome.problems)
    ADD_FAILURE() << problem << "; the company lies in " << outcome.evidence;
  for (const char* told : {"refused in a sentence", "told of damage, and nothing more saved",
                           "told of documents that are not balanced", "told of totals that were set right"})
    EXPECT_GT(outcome.counts[told], 0) << told;
}

// A company with one day of sales, read by whoever knows nothing of the program.
class OtherReader : public testing::Test {
 protected:
  OtherReader() {
    startProgram();
    const ReportPipe pipe;
    Cashier cashier(pipe.end(), 7, {});
    for (int i = 0; i < 6; ++i) cashier.saveNew();
    EXPECT_EQ(seen(), "");
  }

  static std::string seen() {
    std::string kinds;
    for (const Flaw& flaw : readCopyOf(companyFile).flaws) {
      const std::string kind(1, "SRTBD"[static_cast<int>(flaw.kind)]);
      if (kinds.find(kind) == std::string::npos) kinds += kind;
    }
    return kinds;
  }

  RiskFolder folder_;
};

TEST_F(OtherReader, SeesWhatAnotherProgramDid) {
  const std::string sale = " WHERE TranNo = (SELECT min(TranNo) FROM Transactions WHERE TranType = 32 AND Cancel = 0)";
  struct Case {
    std::string sql;
    const char* seen;
  };
  const Case cases[] = {
      {"UPDATE AccountDays SET Credit = Credit + 1 WHERE Credit > 0", "T"},
      {"UPDATE AccountDays SET Credit = Credit + 0.01 WHERE Credit > 0", "T"},
      {"DELETE FROM AccountMonths", "T"},
      {"UPDATE StockAdded SET Line = Line + 1000", "T"},
      {"UPDATE SubTransactions SET Credit = Credit + 0.005" + sale + " AND AccCode = 40001001", "B"},
      {"UPDATE SubTransactions SET Credit = Credit + 0.0049" + sale + " AND AccCode = 40001001", ""},
      {"DELETE FROM SubTransactions" + sale, "D"},
      {"DELETE FROM StockFlow WHERE Serial = 1 AND TranNo IN (SELECT TranNo FROM StockFlow WHERE Serial = 2)", "D"},
      {"UPDATE AgingDr SET TrAmount = TrAmount - 1", "D"},
      {"DELETE FROM AgingDr", "D"},
      {"UPDATE Transactions SET DocNo = 1 WHERE TranType = 32", "D"},
      {"UPDATE AgingDr SET TranNo = 987654", "RD"},
      {"DELETE FROM AccLevel1", "R"},
  };
  const std::string sound = test::bytesOf(companyFile);
  for (const Case& each : cases) {
    SCOPED_TRACE(each.sql);
    test::past(companyFile, each.sql);
    EXPECT_EQ(seen(), each.seen);
    std::ofstream(companyFile, std::ios::binary) << sound;
  }
  test::spoilTable(companyFile, "Jobs");
  EXPECT_EQ(seen().substr(0, 1), "S");
}

TEST_F(OtherReader, HoldsTheFileAgainstWhatWasTold) {
  const Expected sale{true, 1, 10, false};
  using enum Report::Phase;
  const auto problemsOf = [](const std::vector<Report>& reports) {
    ToldBooks told;
    std::size_t ofNumber = 0;
    for (const std::string& problem : told.check(reports)) ofNumber += problem.find("invoice 77") != std::string::npos;
    return ofNumber;
  };
  EXPECT_GT(problemsOf({{Begun, 77, sale}, {Done, 77, sale}}), 0U) << "it was saved and is not there";
  EXPECT_EQ(problemsOf({{Begun, 77, sale}}), 0U);
  EXPECT_EQ(problemsOf({{Begun, 77, sale}, {Refused, 77, sale}}), 0U);
  EXPECT_EQ(problemsOf({{Begun, 77, sale}, {Done, 77, sale}, {Begun, 77, {}}}), 0U) << "a deletion was cut off";
  EXPECT_EQ(problemsOf({{Begun, 77, {}}, {Begun, 77, sale}, {Done, 77, sale}, {Done, 77, {}}}), 0U)
      << "either may have been the last";
  EXPECT_GT(problemsOf({{Begun, 77, sale}, {Begun, 77, sale}, {Done, 77, sale}, {Refused, 77, sale}}), 0U);
}

}  // namespace
}  // namespace velmo::attack
