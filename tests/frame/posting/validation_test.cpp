#include "frame/posting/validation.h"

#include <gtest/gtest.h>

namespace {

using namespace velmo;
using frame::DocumentValues;
using frame::SaveSituation;

const SaveSituation year2026{.addMode = true,
                             .yearStart = text::DateTime::fromCalendar(2026, 1, 1),
                             .yearEnd = text::DateTime::fromCalendar(2026, 12, 31)};

TEST(Validation, TestsDateBeforeNumberAndTakesBothEndsOfTheYear) {
  const struct {
    const char* day;
    const char* docNo;
    const char* refusal;
  } cases[] = {
      {"2026-01-01", "1", ""},
      {"2026-12-31", "999999999", ""},
      {"2025-12-31", "x", "Transaction date cannot be before starting date of financial year."},
      {"2027-01-01", "x", "Transaction date cannot be after ending date of financial year."},
      {"2026-06-01", "", "Serial number must be a numeric figure."},
      {"2026-06-01", "1e3", "Serial number must be a numeric figure."},
      {"2026-06-01", "(5)", "Serial number must be a numeric figure."},
      {"2026-06-01", "&HFF", "Serial number must be a numeric figure."},
      {"2026-06-01", "1234567890", "Serial number must be a numeric figure."},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(std::string(test.day) + " " + test.docNo);
    DocumentValues values;
    values.TrDate = *text::DateTime::fromIso(test.day);
    values.DocNo = test.docNo;
    std::string refusal;
    for (const frame::ValidationStep& step : frame::documentSteps())
      if (refusal.empty() && step.fails(values, year2026)) refusal = step.text;
    EXPECT_EQ(refusal, test.refusal);
  }
}

TEST(Validation, ListsAreMatchedOrBlankExceptTheLocation) {
  const frame::ListChoice blank{}, listed{"Store", 4, true}, unknown{"Nowhere", 0, false};
  const auto fails = [](const frame::ValidationStep& step, const frame::ListChoice& choice) {
    DocumentValues values;
    values.JobList = values.EmpList = values.LocationList = choice;
    return step.fails(values, year2026);
  };
  for (const frame::ValidationStep& step : {frame::jobIsListedOrBlank(), frame::employeeIsListedOrBlank()}) {
    EXPECT_FALSE(fails(step, blank));
    EXPECT_FALSE(fails(step, listed));
    EXPECT_TRUE(fails(step, unknown));
  }
  EXPECT_TRUE(fails(frame::locationIsListed(), blank));
  EXPECT_FALSE(fails(frame::locationIsListed(), listed));
  EXPECT_TRUE(fails(frame::locationIsListed(), unknown));
}

TEST(Validation, CreditLimitAddsTheBalanceOfANewAndTheTotalOfASavedDocument) {
  const struct {
    const char* what;
    bool addMode;
    double limit, partyBalance, storedBalance;
    const char *netTotal, *balance;
    bool asks;
  } cases[] = {
      {"no limit", true, 0, 1e6, 0, "500.00", "500.00", false},
      {"exactly the limit", true, 1000, 500, 0, "500.00", "500.00", false},
      {"a cent above", true, 1000, 500.01, 0, "500.00", "500.00", true},
      {"sums of cents are not above by their last bit", true, 300.3, 100.1, 0, "200.20", "200.20", false},
      {"new: only what stays open counts", true, 1000, 900, 0, "500.00", "100.00", false},
      {"nothing open is never asked", true, 100, 900, 0, "500.00", "0.00", false},
      {"saved: the old balance is taken out", false, 1000, 900, 500, "600.00", "600.00", false},
      {"saved: the whole total counts, not the balance", false, 1000, 900, 100, "500.00", "100.00", true},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.what);
    DocumentValues values;
    values.CreditLimit = test.limit;
    values.PartyBalance = test.partyBalance;
    values.totals.NetTotal = test.netTotal;
    values.totals.Balance = test.balance;
    SaveSituation situation = year2026;
    situation.addMode = test.addMode;
    situation.storedBalance = test.storedBalance;
    EXPECT_EQ(frame::creditLimitKept().fails(values, situation), test.asks);
  }
}

}  // namespace
