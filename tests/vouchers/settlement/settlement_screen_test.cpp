#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "frame/sheets/sheet_grid.h"
#include "support/rival.h"
#include "vouchers/clerk.h"

// Receipts and payments as the clerk makes them, and what then stands in the books.
namespace {

using namespace velmo;
using namespace velmo::test;
using namespace velmo::vouchers;
using Rows = std::vector<std::string>;

const char* const taken = "This Serial No. already exists. Saving this would create duplicate values.";

TEST(SettlementScreen, AnEmptiedAdvanceIsNought) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.type("AdvTxt", "75");
  auto& box = clerk.find<QLineEdit>("AdvTxt");
  test::focus(box);
  box.clear();
  test::focus(clerk.find<QLineEdit>("DocNo"));
  EXPECT_EQ(clerk.text("AdvTxt") + " " + clerk.text("AdvTtl") + " " + clerk.text("Amt"), "0.00 0.00 0.00");
}

TEST(SettlementScreen, APrepaymentHoldsWhatItsBoxShowsWhileTheKeyboardIsStillInIt) {
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

// Of a file that another program wrote.
TEST(SettlementScreen, AStoredAmountIsShownAndSavedAsOneOfMoney) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.settle("10001001", "12001002", {"12"});
  clerk.press("SaveBttn");
  const std::string tranNo = company.tranNo(39);
  company.run("UPDATE AgingDr SET TotPayment = 700.0049, WHTax = 33.335, Payment = 666.6699 WHERE TranNo = " + tranNo);
  clerk.show(tranNo);
  EXPECT_EQ(clerk.text("Amt"), "666.66");
  EXPECT_EQ(clerk.text("WHTax"), "33.34");
  EXPECT_EQ(clerk.text("Amt2Party"), "700.00");
  clerk.press("SaveBttn");
  EXPECT_EQ(bareRows(company, "select Payment, WHTax, TotPayment from AgingDr where TranNo = " + tranNo),
            Rows{"666.66|33.34|700.0"});
}

TEST(SettlementScreen, TakesAChequeAgainstThreeInvoicesWithTaxDiscountAndAdvance) {
  SettlementCompany company;
  Clerk clerk(company, makeBankReceipts);
  clerk.settle("11001009", "12001002", {"12", "15", "20"});
  EXPECT_EQ(clerk.text("PartyAcc"), "O'Brien & Sons");
  EXPECT_EQ(clerk.find<QLabel>("PartyBal").text().toStdString(), "1580.50 Dr");
  clerk.cell("AgingGrid", 0, 3, "3.33");
  clerk.cell("AgingGrid", 1, 7, "400");
  clerk.cell("AgingGrid", 1, 6, "10.25");
  clerk.cell("AgingGrid", 2, 5, "30");
  clerk.type("AdvTxt", "1000");
  clerk.type("ChqNo", "CH'7");
  clerk.type("ChqBank", "Their Bank");
  clerk.find<QPlainTextEdit>("Desc").setPlainText("October");
  EXPECT_EQ(clerk.shown("AgingGrid", 0, 2), "967.00");
  EXPECT_EQ(clerk.text("Amt"), "2406.75");
  EXPECT_EQ(clerk.text("Amt2Party"), "2480.00");
  EXPECT_EQ(clerk.find<QLabel>("AmtWords").text().toStdString(),
            "Rupees two thousand, four hundred eighty and 00/100 only.");
  clerk.press("SaveBttn");

  const std::string tranNo = company.tranNo(38);
  EXPECT_EQ(company.one("select nature, d1, text1, text2, text3, text4, text8, discount, additionaltax, carriage, "
                        "tramount, received, balance, partycode, partycode2 from transactions where tranno=" +
                        tranNo),
            "Customer Receipt|CH'7|O'Brien & Sons|City Bank|Cheque|Their Bank|Chq Rec Rs.2406.75, WHT Rs.33.00, Adv. "
            "Adj. Rs.30.00, Disc. Rs.10.25|10.25|30|33|2480|2406.75|1000|12001002|11001009");
  EXPECT_EQ(company.rows("select docno, docno2, payment, whtaxrt, whtax, advadj, discount, totpayment, tramount, "
                         "partycode, trantype from agingdr where tranno=" +
                         tranNo + " order by serial"),
            (Rows{"12|1|967|3.33|33|0|0|1000|0|12001002|38", "15|1|389.75||0|0|10.25|400|0|12001002|38",
                  "20|1|50||0|30|0|80|0|12001002|38"}));
  EXPECT_EQ(ledgerOf(company, tranNo), (Rows{"11001009|O'Brien & Sons - Invoices 12, 15, 20,|2406.75|",
                                             "12001002|Cheque Rcvd - Invoices 12, 15, 20,||2480",
                                             "14001001|O'Brien & Sons - Invoices 12, 15, 20,|33|",
                                             "12001002|Advance Adjusted - Invoices 12, 15, 20,|30|",
                                             "60001002|O'Brien & Sons - Invoices 12, 15, 20,|10.25|"}));
  EXPECT_EQ(pendingOf(company, bankReceipts(), SettlementCompany::customer), (Rows{"15 100.5"}));
  EXPECT_EQ(clerk.text("PartyCode"), "") << "ready for the next one";
  EXPECT_EQ(clerk.text("DocNo"), "2");
}

TEST(SettlementScreen, ReopensInvoicesWhenAReceiptIsCancelledChangedOrDeleted) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  const Rows untouched = pendingOf(company, cashReceipts(), SettlementCompany::customer);
  clerk.settle("10001001", "12001002", {"12", "15"});
  clerk.cell("AgingGrid", 1, 7, "600");
  clerk.press("SaveBttn");
  EXPECT_EQ(pendingOf(company, cashReceipts(), SettlementCompany::customer), (Rows{"20 80"})) << "one is settled over";
  const std::string tranNo = company.tranNo(39);

  clerk.show(tranNo);
  EXPECT_EQ(clerk.shown("AgingGrid", 1, 7), "600.00");
  clerk.find<QCheckBox>("CancelOption").setChecked(true);
  clerk.press("SaveBttn");
  EXPECT_EQ(pendingOf(company, cashReceipts(), SettlementCompany::customer), untouched);
  EXPECT_EQ(company.one("select count(*) from agingdr where tranno=" + tranNo), "2") << "the rows stay in place";

  clerk.show(tranNo);
  clerk.find<QCheckBox>("CancelOption").setChecked(false);
  clerk.cell("AgingGrid", 0, 7, "250");
  clerk.press("SaveBttn");
  EXPECT_EQ(pendingOf(company, cashReceipts(), SettlementCompany::customer), (Rows{"12 750", "20 80"}));

  clerk.show(tranNo);
  company.prompts.expect("Delete Confirmation",
                         "Are you sure, you want to delete this transaction, Serial No. 1? Deleting this transaction "
                         "will remove all the ledger entries in accounts relating to this transaction.",
                         session::Answer::Yes);
  clerk.press("DelBttn");
  EXPECT_EQ(pendingOf(company, cashReceipts(), SettlementCompany::customer), untouched);
  EXPECT_EQ(company.one("select count(*) from agingdr where trantype=39"), "0");
}

TEST(SettlementScreen, TurnsFromOneModeIntoTheOther) {
  SettlementCompany company;
  Clerk clerk(company, makeCashPayments);
  clerk.settle("10001001", "21001002", {"A-1"});
  clerk.press("SaveBttn");
  const std::string tranNo = company.tranNo(29);

  clerk.show(tranNo);
  clerk.petty();
  for (int row = 0; row < 2; ++row) {  // the vendor's own line came along
    if (!clerk.shown("Grid", row, 0).empty()) continue;
    clerk.cell("Grid", row, 0, "60001001");
    clerk.cell("Grid", row, 3, "75.5");
    break;
  }
  clerk.find<QPlainTextEdit>("Desc").setPlainText("Tea");
  clerk.press("SaveBttn");
  EXPECT_EQ(company.one("select nature, partycode, text1, tramount, received, text8 from transactions where tranno=" +
                        tranNo),
            "Petty Payment|0||1075.5|1075.5|");
  EXPECT_EQ(ledgerOf(company, tranNo),
            (Rows{"21001002|Cash Paid - Invoices A-1,|1000|", "60001001|Tea|75.5|", "10001001|Tea||1075.5"}));
  EXPECT_EQ(company.one("select count(*) from agingcr where tranno=" + tranNo), "0");

  clerk.show(tranNo);
  EXPECT_TRUE(clerk.find<QRadioButton>("RecOpt_1").isChecked());
  EXPECT_EQ(clerk.text("PartyCode"), "");
  clerk.find<QRadioButton>("RecOpt_0").click();
  clerk.type("PartyCode", "21001002");
  clerk.cell("AgingGrid", 0, 0, "A-2");
  clerk.press("SaveBttn");
  EXPECT_EQ(ledgerOf(company, tranNo).size(), 2u);
  EXPECT_EQ(pendingOf(company, cashPayments(), SettlementCompany::vendor), (Rows{"A-1 1000", " 50"}));
}

TEST(SettlementScreen, RefusesInTheOrderOfItsTests) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  const auto refused = [&](const char* text) {
    company.prompts.expect("Cannot Save", text);
    clerk.press("SaveBttn");
    EXPECT_EQ(company.one("select count(*) from transactions where trantype=39"), "0") << text;
  };
  clerk.find<forms::DropCombo>("JobList").setEditText("no such job");
  refused("Select a correct account from where payment has been received.");
  clerk.type("PartyCode", "12001003");
  clerk.cell("AgingGrid", 0, 0, "16");
  refused("Select correct cash account.");
  clerk.type("BankCode", "10001001");
  clerk.type("PartyCode", "12001002");
  refused("Select a correct job or leave it blank if you do not want to save a job reference.");
  clerk.find<forms::DropCombo>("JobList").setEditText("");
  refused("Sale Invoice No. 16 does not belong to O'Brien & Sons.");
  clerk.find<forms::DatePicker>("TrDate").setDay(text::DateTime::fromCalendar(2025, 12, 31));
  refused("Transaction date cannot be before starting date of financial year.");
  clerk.find<forms::DatePicker>("TrDate").setDay(text::DateTime::fromCalendar(2026, 12, 31));
  clerk.petty();
  refused("Transaction must have some value greater than 0.");
  clerk.find<QRadioButton>("RecOpt_0").click();
  clerk.type("PartyCode", "12001003");
  clerk.press("SaveBttn");
  EXPECT_EQ(company.one("select count(*) from agingdr where trantype=39"), "1");
}

TEST(SettlementScreen, SavesAPrepaymentWithoutInvoicesAndEvenNothing) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.settle("10001001", "12001002", {});
  clerk.type("AdvTxt", "1000");
  clerk.press("SaveBttn");
  EXPECT_EQ(ledgerOf(company, company.tranNo(39)),
            (Rows{"10001001|O'Brien & Sons - Invoices|1000|", "12001002|Cash Rcvd - Invoices||1000"}));
  EXPECT_EQ(company.one("select balance from transactions where trantype=39"), "1000");
  EXPECT_EQ(company.one("select count(*) from agingdr where trantype=39"), "0");
  clerk.settle("10001001", "12001002", {});
  clerk.press("SaveBttn");
  EXPECT_EQ(ledgerOf(company, company.tranNo(39, 2)).size(), 2u);
}

TEST(SettlementScreen, StaysOnWhatItPrinted) {
  SettlementCompany company;
  std::vector<std::int64_t> vouchers;
  Clerk clerk(company, makeCashReceipts,
              {.voucher = [&](session::Workplace&, std::int64_t tranNo, QWidget*) { vouchers.push_back(tranNo); }});
  clerk.settle("10001001", "12001002", {"12"});
  clerk.press("PrintBill_1");
  QApplication::processEvents();
  EXPECT_EQ(vouchers, (std::vector<std::int64_t>{std::stoll(company.tranNo(39))}));
  EXPECT_EQ(clerk.text("PartyCode"), "12001002");
  EXPECT_EQ(clerk.shown("AgingGrid", 0, 0), "12");
  for (const char* command : {"PrintBill_1", "SaveBttn", "PrintBill_0"}) {
    company.prompts.expect("Cannot Save", taken);
    clerk.press(command);
    EXPECT_EQ(clerk.text("DocNo"), "1") << "it is the receipt's own number, which no other takes the place of";
  }
  EXPECT_EQ(company.one("select count(*) from transactions where trantype=39"), "1");
  clerk.press("CancelBttn");
  EXPECT_EQ(clerk.text("DocNo"), "2");
}

TEST(SettlementScreen, KeepsItsInvoicesWhenAnotherReceiptTakesItsNumberMeanwhile) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.settle("10001001", "12001002", {"12", "15"});
  company.prompts.expect("Cannot Save", taken);
  {
    const Rival rival(company.context.KORDconn,
                      {"INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, "
                       "UserEdited) VALUES (1, #11-22-2026#, 39, 1, No, No, 1, 1)"});
    clerk.press("SaveBttn");
  }
  EXPECT_EQ(company.one("select count(*) from agingdr where trantype=39"), "0");
  EXPECT_EQ(clerk.shown("AgingGrid", 1, 0), "15");
  EXPECT_EQ(clerk.text("DocNo"), "2");
  clerk.press("SaveBttn");
  EXPECT_EQ(company.rows("select docno, docno2, totpayment from agingdr where trantype=39 order by serial"),
            (Rows{"12|2|1000", "15|2|500.5"}));
  EXPECT_EQ(ledgerOf(company, company.tranNo(39, 2)).size(), 2u);
}

TEST(SettlementScreen, LeavesRowsOfAReceiptWhoseInvoiceWasDeleted) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.settle("10001001", "12001002", {"20"});
  clerk.press("SaveBttn");
  company.run("DELETE FROM Transactions WHERE TranType=32 AND DocNo=20");
  EXPECT_EQ(company.one("select trantype, tramount, totpayment from agingdr where docno=20"), "39|0|80");
  EXPECT_EQ(pendingOf(company, cashReceipts(), SettlementCompany::customer), (Rows{"12 1000", "15 500.5"}));
}

TEST(SettlementScreen, WritesNothingWhenAnAccountIsGone) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts);
  clerk.petty();
  clerk.type("BankCode", "10001001");
  clerk.cell("Grid", 0, 0, "12001003");
  clerk.cell("Grid", 0, 3, "10");
  company.run("DELETE FROM AccLevel3 WHERE AccCode=12001003");
  company.prompts.expectTitle("Cannot Save");
  clerk.press("SaveBttn");
  EXPECT_EQ(company.one("select count(*) from transactions where trantype=39"), "0");
  EXPECT_EQ(clerk.shown("Grid", 0, 0), "12001003") << "the screen is as it was";
  EXPECT_TRUE(clerk.find<QPushButton>("SaveBttn").isEnabled());
}

TEST(SettlementScreen, HidesTheBalanceOfTheTillFromWhoHasTheRight) {
  SettlementCompany company;
  const auto hidden = [&](int user, const char* ticked) {
    company.context.UserID = user;
    company.run("UPDATE UserRights SET Operator1 = " + std::string(ticked) + " WHERE RightID = 242");
    Clerk clerk(company, makeCashReceipts);
    EXPECT_EQ(clerk.find<QLabel>("CBBalance").isHidden(), clerk.find<QLabel>("BalLbl").isHidden());
    return clerk.find<QLabel>("CBBalance").isHidden();
  };
  EXPECT_TRUE(hidden(2, "Yes"));
  EXPECT_FALSE(hidden(2, "No"));
  EXPECT_FALSE(hidden(1, "Yes"));
}

}  // namespace
