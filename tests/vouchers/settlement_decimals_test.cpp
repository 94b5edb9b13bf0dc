#include <gtest/gtest.h>

#include "vouchers/clerk.h"
#include "vouchers/general_journal_type.h"

// Amounts that are typed with more decimals than money has: what is added up is what the screen shows.
namespace {

using namespace velmo;
using namespace velmo::test;
using namespace velmo::vouchers;
using Rows = std::vector<std::string>;

const char* const ledger = "select AccCode, Debit, Credit from SubTransactions where TranNo = ";

TEST(SettlementDecimals, AnAmountHoldsWhatItsCellShows) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.settle("10001001", "12001002", {"12", "15", "20"});
  clerk.cell("AgingGrid", 0, 7, "350.004");
  clerk.cell("AgingGrid", 0, 4, "0.005");
  clerk.cell("AgingGrid", 1, 7, "350.004");
  clerk.cell("AgingGrid", 1, 6, "10.015");
  clerk.cell("AgingGrid", 1, 3, "3.335");
  clerk.cell("AgingGrid", 2, 5, "1.115");
  EXPECT_EQ(clerk.shown("AgingGrid", 1, 4), "12.00");
  EXPECT_EQ(clerk.text("Amt2Party"), "780.00");
  EXPECT_EQ(clerk.text("Amt"), "756.85") << "349.99 + 327.98 + 78.88";
  clerk.press("SaveBttn");
  const std::string tranNo = tranNoOf(company, 39);
  EXPECT_EQ(bareRows(company,
                     "select Payment, WHTaxRt, WHTax, AdvAdj, Discount, TotPayment from AgingDr where "
                     "TranNo = " +
                         tranNo + " order by Serial"),
            (Rows{"349.99||0.01|0.0|0.0|350.0", "327.98|3.335|12.0|0.0|10.02|350.0", "78.88||0.0|1.12|0.0|80.0"}));
  EXPECT_EQ(bareRows(company, ledger + tranNo + " order by Serial"),
            (Rows{"10001001|756.85|", "12001002||780.0", "14001001|12.01|", "12001002|1.12|", "60001002|10.02|"}));
}

TEST(SettlementDecimals, APrepaymentHoldsWhatItsBoxShowsWhileTheKeyboardIsStillInIt) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.settle("10001001", "12001002", {"12"});
  clerk.cell("AgingGrid", 0, 7, "99.994");
  QLineEdit& advance = clerk.box("AdvTxt");
  advance.setFocus(Qt::TabFocusReason);
  advance.selectAll();
  test::type(advance, "0.015");
  EXPECT_EQ(advance.text(), "0.015") << "nobody's typing is interrupted";
  EXPECT_EQ(clerk.text("AdvTtl"), "0.02");
  EXPECT_EQ(clerk.text("Amt"), "100.01");
  company.prompts.expect("Cannot Save", "Select correct cash account.");
  clerk.box("BankCode").clear();
  clerk.press("SaveBttn");
  EXPECT_EQ(advance.text(), "0.02") << "as it would have been saved";
  clerk.box("BankCode").setText("10001001");
  clerk.press("SaveBttn");
  EXPECT_EQ(bareRows(company, "select TrAmount, Received, Balance from Transactions where TranType = 39"),
            Rows{"100.01|100.01|0.02"});
}

TEST(SettlementDecimals, PettyAmountsHoldWhatTheirCellsShow) {
  SettlementCompany company;
  using Kind = std::pair<int, InvoiceScreen::Make>;
  for (const auto& [tranType, make] : {Kind(39, makeCashReceipts), Kind(29, makeCashPayments)}) {
    Clerk clerk(company, make);
    clerk.petty();
    clerk.type("BankCode", "10001001");
    for (int row = 0; row < 3; ++row) {
      clerk.cell("Grid", row, 0, "60001001");
      clerk.cell("Grid", row, 3, "33.335");
    }
    EXPECT_EQ(clerk.text("TAmt"), "100.02");
    clerk.press("SaveBttn");
    EXPECT_EQ(bareRows(company, "select coalesce(Debit, 0) + coalesce(Credit, 0) from SubTransactions where TranNo = " +
                                    tranNoOf(company, tranType) + " order by Serial"),
              (Rows{"33.34", "33.34", "33.34", "100.02"}));
  }
}

// Of a file that another program wrote.
TEST(SettlementDecimals, AStoredAmountIsShownAndSavedAsOneOfMoney) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.settle("10001001", "12001002", {"12"});
  clerk.press("SaveBttn");
  const std::string tranNo = tranNoOf(company, 39);
  company.context.KORDconn.execute(
      "UPDATE AgingDr SET TotPayment = 700.0049, WHTax = 33.335, Payment = 666.6699 WHERE "
      "TranNo = " +
      tranNo);
  clerk.show(tranNo);
  EXPECT_EQ(clerk.text("Amt"), "666.66");
  EXPECT_EQ(clerk.text("WHTax"), "33.34");
  EXPECT_EQ(clerk.text("Amt2Party"), "700.00");
  clerk.press("SaveBttn");
  EXPECT_EQ(bareRows(company, "select Payment, WHTax, TotPayment from AgingDr where TranNo = " + tranNo),
            Rows{"666.66|33.34|700.0"});
}

TEST(SettlementDecimals, AJournalKeepsEveryDigitThatWasTyped) {
  SettlementCompany company;
  Clerk clerk(company, makeGeneralJournal);
  clerk.cell("Grid", 0, 0, "10001001");
  clerk.cell("Grid", 0, 3, "100.004");
  clerk.cell("Grid", 1, 0, "60001001");
  clerk.cell("Grid", 1, 4, "100");
  clerk.press("SaveBttn");
  EXPECT_EQ(bareRows(company, ledger + tranNoOf(company, 41) + " order by Serial"),
            (Rows{"10001001|100.004|", "60001001||100.0"}));
}

}  // namespace
