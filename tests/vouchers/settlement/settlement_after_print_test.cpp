#include <gtest/gtest.h>

#include <QLabel>

#include "vouchers/clerk.h"

// A receipt or payment that stays on the screen once it is printed: what is saved next is what stands there, and what
// was saved stays as it is. The rows are those that SQLite finds in the file.
namespace {

using namespace velmo;
using namespace velmo::test;
using namespace velmo::vouchers;
using Rows = std::vector<std::string>;

void printVoucher(Clerk& clerk) {
  clerk.press("PrintBill_1");
  QApplication::processEvents();
}

// What the petty lines show of a document: its ledger on the side away from the money.
Rows shownPetty(Clerk& clerk) {
  Rows all;
  for (int row = 0; !clerk.shown("Grid", row, 0).empty(); ++row)
    all.push_back(clerk.shown("Grid", row, 0) + "|" + clerk.shown("Grid", row, 3));
  return all;
}

TEST(SettlementAfterPrint, ThePettyLinesOfAPrintedSettlementAreThoseOfItsLedger) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts, noVoucher);
  clerk.settle("10001001", "12001002", {"12", "15"});
  clerk.press("SaveBttn");
  const std::string tranNo = company.tranNo(39);
  for (const char* total : {"700", "500", "600"}) {
    clerk.show(tranNo);
    clerk.cell("AgingGrid", 0, 7, total);
    printVoucher(clerk);
  }
  clerk.petty();
  EXPECT_EQ(shownPetty(clerk), Rows{"12001002|1100.50"});
  clerk.cell("Grid", 1, 0, "60001001");
  clerk.cell("Grid", 1, 3, "9.5");
  printVoucher(clerk);
  EXPECT_EQ(shownPetty(clerk), (Rows{"12001002|1100.50", "60001001|9.50"}));
  EXPECT_EQ(bareRows(company, "select AccCode, Debit, Credit from SubTransactions where TranNo = " + tranNo +
                                  " order by Serial"),
            (Rows{"12001002||1100.5", "60001001||9.5", "10001001|1110.0|"}));
  EXPECT_EQ(bareRows(company, "select TrAmount, Received from Transactions where TranNo = " + tranNo),
            Rows{"1110.0|1110.0"});
  EXPECT_EQ(bareRows(company, "select count(*) from AgingDr where TranNo = " + tranNo), Rows{"0"});

  clerk.find<QRadioButton>("RecOpt_0").click();
  EXPECT_EQ(clerk.shown("AgingGrid", 0, 0), "") << "as a petty receipt it settles nothing";
  clerk.cell("AgingGrid", 0, 0, "15");
  printVoucher(clerk);
  clerk.petty();
  EXPECT_EQ(shownPetty(clerk), Rows{"12001002|500.50"});
  clerk.press("SaveBttn");
  EXPECT_EQ(bareRows(company, "select AccCode, Debit, Credit from SubTransactions where TranNo = " + tranNo +
                                  " order by Serial"),
            (Rows{"12001002||500.5", "10001001|500.5|"}));
}

// Balances and open invoices, when they move under the screen.

void receiveBeside(SettlementCompany& company, int docNo, const char* amount) {
  company.run(
      "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES (" +
      std::to_string(docNo) + ", #11-22-2026#, 38, 1, No, No, 1, 1)");
  const std::string tranNo = company.tranNo(38, docNo);
  for (const auto& [code, side] : {std::pair("10001001", "Debit"), std::pair("12001002", "Credit")})
    company.run("INSERT INTO SubTransactions (TranNo, AccCode, AccName, " + std::string(side) + ") VALUES (" + tranNo +
                ", " + code + ", 'x', " + amount + ")");
}

TEST(SettlementAfterPrint, ADocumentShownAgainShowsTheBalancesOfThisMoment) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts, noVoucher);
  const auto balances = [&] {
    return clerk.find<QLabel>("CBBalance").text().toStdString() + ", " +
           clerk.find<QLabel>("PartyBal").text().toStdString();
  };
  clerk.settle("10001001", "12001002", {"20"});
  printVoucher(clerk);
  EXPECT_EQ(balances(), "80.00 Dr, 1500.50 Dr") << "with what was saved just now";
  clerk.show(company.tranNo(39));
  receiveBeside(company, 1, "100");
  clerk.show(company.tranNo(39));
  EXPECT_EQ(balances(), "180.00 Dr, 1400.50 Dr");
  receiveBeside(company, 2, "1");
  printVoucher(clerk);
  EXPECT_EQ(balances(), "181.00 Dr, 1399.50 Dr");
}

TEST(SettlementAfterPrint, TypedInvoiceNumbersAreThoseThatAreOpenAtThisMoment) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts, noVoucher);
  const auto takes = [&](int row, const char* number) {
    clerk.cell("AgingGrid", row, 0, number);
    return clerk.shown("AgingGrid", row, 0) == number;
  };
  clerk.settle("10001001", "12001002", {"12"});
  printVoucher(clerk);
  EXPECT_FALSE(takes(1, "12")) << "settled by what was saved just now";
  clerk.show(company.tranNo(39));
  company.invoice(30, "02-02-2026", SettlementCompany::customer, "10");
  EXPECT_FALSE(takes(1, "30")) << "the list is that of the moment at which the document was shown";
  clerk.show(company.tranNo(39));
  EXPECT_TRUE(takes(1, "30"));
}

}  // namespace
