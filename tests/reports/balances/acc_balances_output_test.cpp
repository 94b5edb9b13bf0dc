#include <gmock/gmock.h>

#include "reports/balances/acc_balances.h"
#include "reports/balances_desk.h"
#include "spreadsheet/sheet_reader.h"

namespace velmo::reports {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Texts = std::vector<std::string>;

class AccBalancesOutput : public test::BalancesDesk {};

TEST_F(AccBalancesOutput, PrintsWhatItShows) {
  open(makeAccBalances);
  setPeriod("2026-10-01", "2026-11-22");
  const auto print = [&] {
    click("PrintBttn");
    return printed();
  };
  const Texts six = print();
  for (const char* words : {"Harbour Timber", "Trial Balance", "From  October 01, 2026  To  November 22, 2026",
                            "Customers", "Trade Customers", "O'Brien & Sons", "1,000.30", "1,940.40"})
    EXPECT_THAT(six, Contains(words));
  EXPECT_THAT(six, Not(Contains("Quiet Customer")));
  choose("TrialOpt_1");
  const Texts two = print();
  EXPECT_THAT(two, Contains("2,140.65").Times(2));
  EXPECT_THAT(two, Not(Contains("Opening Balance")));
  choose("SelectOpt");
  chooseEntry("Acc", 120);
  const Texts customers = print();
  EXPECT_THAT(customers, Contains("Accounts Balances"));
  EXPECT_THAT(customers, Contains("O'Brien & Sons"));
  EXPECT_THAT(customers, Not(Contains("Mills")));
  range("11001001", "21001002");
  const Texts twoOfRange = print();
  EXPECT_THAT(twoOfRange, Contains("1,000.30"));
  EXPECT_THAT(twoOfRange, Not(Contains("Trade Customers")));
  choose("TrialOpt_0");
  const Texts sixOfRange = print();
  for (const char* words : {"Accounts Balances", "Mills", "1,300.30", "360.20"})
    EXPECT_THAT(sixOfRange, Contains(words));
}

// Mills and the quiet customer close at zero: what they moved stands below the totals, on the page of the totals alone.
TEST_F(AccBalancesOutput, PrintsTheSettledAccountsBelowTheTotalsOfAllAccounts) {
  open(makeAccBalances);
  setPeriod("2026-12-01", "2026-12-31");
  const auto print = [&] {
    click("PrintBttn");
    return printed();
  };
  const Texts all = print();
  const auto settled = std::ranges::find(all, "Accounts settled in the period");
  ASSERT_NE(settled, all.end());
  EXPECT_THAT(Texts(settled + 1, settled + 5), ElementsAre("640.10", "Credit", "640.10", "0.00"));
  EXPECT_GT(settled, std::ranges::find(all, "Totals Rs."));
  choose("TrialOpt_1");
  EXPECT_THAT(print(), Not(Contains("Accounts settled in the period")));
  choose("TrialOpt_0");
  choose("SelectOpt");
  chooseEntry("Acc", 210);
  EXPECT_THAT(print(), Not(Contains("Accounts settled in the period")));
  range("10001001", "50001002");
  EXPECT_THAT(print(), Not(Contains("Accounts settled in the period")));
  choose("AllOpt");
  files.name = (company.folder() / "trial.xlsx").string();
  prompts.expect("Spreadsheet Saved", "6 rows were saved in \"" + files.name + "\".");
  click("ExcelBttn");
  const auto sheet = spreadsheet::readSheet(files.name);
  ASSERT_TRUE(sheet) << sheet.error();
  EXPECT_EQ(sheet->rows.size(), 4u + 6u + 1u) << "the totals are the last row";
}

TEST_F(AccBalancesOutput, SavesTheColumnsThatAreShown) {
  open(makeAccBalances);
  setPeriod("2026-10-01", "2026-11-22");
  range("11001001", "21001002");
  files.name = (company.folder() / "trial.xlsx").string();
  const auto save = [&] {
    prompts.expect("Spreadsheet Saved", "3 rows were saved in \"" + files.name + "\".");
    click("ExcelBttn");
    const auto sheet = spreadsheet::readSheet(files.name);
    EXPECT_TRUE(sheet) << sheet.error();
    Texts rows;
    for (std::size_t row = 0; row < sheet->rows.size(); ++row) {
      std::string line;
      for (std::size_t column = 0; column < sheet->rows[row].size(); ++column)
        line += (column ? "|" : "") + textOf(sheet->at(row, column));
      rows.push_back(line);
    }
    return rows;
  };
  EXPECT_THAT(save(), ElementsAre("Trial Balance", "From October 01, 2026 To November 22, 2026", "",
                                  "Acc Code|Account Name|Opening Balance|Status|Debit|Credit|Closing Balance|Status",
                                  "11001001|City Bank|0|Debit|300.3|0|300.3|Debit",
                                  "12001002|O'Brien & Sons|0|Debit|1000|300|700|Debit",
                                  "21001002|Mills|0|Debit|0|640.1|640.1|Credit",
                                  "|Totals Rs.|0|Debit|1300.3|940.1|360.2|Debit"));
  EXPECT_EQ(files.proposedName, "Trial Balance.xlsx");
  choose("TrialOpt_1");
  EXPECT_THAT(save(), ElementsAre("Trial Balance", "As On November 22, 2026", "", "Acc Code|Account Name|Debit|Credit",
                                  "11001001|City Bank|300.3", "12001002|O'Brien & Sons|700", "21001002|Mills||640.1",
                                  "|Totals Rs.|1000.3|640.1"));
}

}  // namespace
}  // namespace velmo::reports
