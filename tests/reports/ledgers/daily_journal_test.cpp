#include "reports/ledgers/daily_journal.h"

#include <gmock/gmock.h>

#include <QLabel>

#include "forms/date_picker.h"
#include "reports/ledger_company.h"

namespace velmo::reports {
namespace {

using testing::Contains;
using testing::ElementsAre;

class DailyJournal : public test::LedgerCompany {
 protected:
  void trade() {
    sale_ = post({.day = "11-22-2026",
                  .tranType = 32,
                  .lines = {{40001009, 0, 90}, {12001002, 60, 0, "By card"}, {12001003, 40, 0}, {40001009, 0, 10}},
                  .docNo = 5});
    post({.day = "11-22-2026",
          .tranType = 22,
          .lines = {{12001002, 7, 0}, {12001003, 0, 7}},
          .cancelled = true,
          .docNo = 9});
    opening_ = post({.day = "11-21-2026", .tranType = 11, .lines = {{12001002, 3, 0}, {12001003, 0, 0}}, .docNo = 1});
    post({.day = "11-22-2026", .tranType = 99, .lines = {{12001002, 1000, 0}}, .docNo = 2});
  }
  void setPeriod(const char* from, const char* to) {
    control<forms::DatePicker>("LedgerDt_0").setDay(*text::DateTime::fromIso(from));
    control<forms::DatePicker>("LedgerDt_1").setDay(*text::DateTime::fromIso(to));
  }

  std::int64_t sale_ = 0;
  std::int64_t opening_ = 0;
};

TEST_F(DailyJournal, ListsDebitsBeforeCreditsAndCancelledDocumentsToo) {
  trade();
  open(makeDailyJournal);
  EXPECT_EQ(control<forms::DatePicker>("LedgerDt_0").day(), clock.today());
  click("ViewBttn");
  EXPECT_THAT(column("GJGrid", "Tran. No."), ElementsAre("PB 9", "PB 9", "SI 5", "SI 5", "SI 5", "SI 5"));
  EXPECT_THAT(column("GJGrid", "Debit"), ElementsAre("7.00", "0.00", "60.00", "40.00", "0.00", "0.00"));
  EXPECT_THAT(column("GJGrid", "Credit"), ElementsAre("0.00", "7.00", "0.00", "0.00", "90.00", "10.00"));
  EXPECT_EQ(read("TotalDr"), "107.00");
  EXPECT_EQ(read("TotalCr"), "107.00");
  setPeriod("2026-11-22", "2026-11-20");
  click("ViewBttn");
  EXPECT_THAT(column("GJGrid", "Debit"), testing::IsEmpty());
  EXPECT_EQ(read("TotalDr"), "0.00");
  setPeriod("2026-11-20", "2026-11-22");
  context->ccode = "USD";
  click("PrintBttn");
  const auto texts = printed();
  for (const char* words : {"Journal Report", "For The Period From  November 20, 2026  To  November 22, 2026", "110.00",
                            "By card", "21-11-26"})
    EXPECT_THAT(texts, Contains(words));
}

// What a double click does is the same on every report.
TEST_F(DailyJournal, ADoubleClickOpensTheDocument) {
  trade();
  screens.known = {"SaleInvoicesSimple", "OpeningBalancesAcc"};
  open(makeDailyJournal);
  setPeriod("2026-11-21", "2026-11-22");
  click("ViewBttn");
  auto& journal = control<QTableView>("GJGrid");
  const auto openRow = [&](int row) {
    context->OpenTranNo = 0;
    context->OpenTranFlag = false;
    screens.opened.clear();
    Q_EMIT journal.doubleClicked(journal.model()->index(row, 0));
  };
  openRow(3);
  EXPECT_EQ(screens.opened, "SaleInvoicesSimple");
  EXPECT_EQ(context->OpenTranNo, sale_);
  EXPECT_TRUE(context->OpenTranFlag);
  openRow(0);
  EXPECT_EQ(screens.opened, "OpeningBalancesAcc");
  EXPECT_FALSE(context->OpenTranFlag) << "opening balances have no number";
  prompts.expect("Cannot Open", "The screen of this document, PurchaseBillsSimple, is not part of this program.");
  openRow(1);
  EXPECT_EQ(screens.opened, "");
  context->UserID = 3;
  context->KORDconn.execute("UPDATE UserRights SET operator2 = Yes WHERE RightID = 94");
  const store::Recordset right = rows("select RightType from userrights where rightid=94");
  prompts.expect("Not Allowed", "You do not have access to " + right.text("RightType"));
  openRow(3);
  EXPECT_EQ(screens.opened, "");
  EXPECT_FALSE(context->OpenTranFlag);
}

}  // namespace
}  // namespace velmo::reports
