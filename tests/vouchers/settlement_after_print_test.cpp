#include <gtest/gtest.h>

#include <QLabel>
#include <QPlainTextEdit>

#include "vouchers/clerk.h"

// A receipt or payment that stays on the screen once it is printed: what is saved next is what stands there, and what
// was saved stays as it is. The rows are those that SQLite finds in the file.
namespace {

using namespace velmo;
using namespace velmo::test;
using namespace velmo::vouchers;
using Rows = std::vector<std::string>;

const frame::PrintOuts noVoucher{.voucher = [](session::Workplace&, std::int64_t, QWidget*) {}};

void printVoucher(Clerk& clerk) {
  clerk.press("PrintBill_1");
  QApplication::processEvents();
}

// Everything that a document wrote but its keys and stamps.
Rows bareDocument(const SettlementCompany& company, int tranType, int docNo) {
  const std::string of =
      " where TranNo = (select TranNo from Transactions where TranType = " + std::to_string(tranType) +
      " and DocNo = " + std::to_string(docNo) + ") order by Serial";
  Rows all = bareRows(company,
                      "select Nature, PartyCode, PartyCode2, Text1, TrAmount, Received, Balance from "
                      "Transactions where TranType = " +
                          std::to_string(tranType) + " and DocNo = " + std::to_string(docNo));
  for (const char* rows : {"select AccCode, AccName, [Desc], Debit, Credit from SubTransactions",
                           "select DocNo, DocNo2, TranDate, PartyCode, Payment, WHTaxRt, WHTax, AdvAdj, Discount, "
                           "TotPayment from AgingDr",
                           "select VendorInvNo, DocNo, DocNo2, TranDate, PartyCode, Payment, WHTaxRt, WHTax, AdvAdj, "
                           "Discount, TotPayment from AgingCr"})
    for (const std::string& row : bareRows(company, rows + of)) all.push_back(row);
  return all;
}

struct Kind {
  int tranType;
  InvoiceScreen::Make make;
  const char* money;
  const char* party;
  const char* items[2];
};

const Kind kinds[] = {{38, makeBankReceipts, "11001009", "12001002", {"12", "15"}},
                      {39, makeCashReceipts, "10001001", "12001002", {"12", "15"}},
                      {28, makeBankPayments, "11001009", "21001002", {"A-1", "A-2"}},
                      {29, makeCashPayments, "10001001", "21001002", {"A-1", "A-2"}}};

TEST(SettlementAfterPrint, AChangedNumberMakesASecondWholePettyDocument) {
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.tranType);
    SettlementCompany company;
    Clerk clerk(company, kind.make, noVoucher);
    clerk.petty();
    clerk.type("BankCode", kind.money);
    clerk.cell("Grid", 0, 0, "60001001");
    clerk.cell("Grid", 0, 3, "150");
    clerk.cell("Grid", 2, 0, "60001002");
    clerk.cell("Grid", 2, 3, "49.5");
    printVoucher(clerk);
    const Rows first = bareDocument(company, kind.tranType, 1);
    EXPECT_EQ(first.size(), 4u);
    EXPECT_EQ(clerk.text("TAmt"), "199.50");
    clerk.type("DocNo", "7");
    clerk.press("SaveBttn");
    EXPECT_EQ(bareDocument(company, kind.tranType, 1), first);
    EXPECT_EQ(bareDocument(company, kind.tranType, 7), first);
  }
}

TEST(SettlementAfterPrint, AChangedNumberMakesASecondWholeSettlement) {
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.tranType);
    SettlementCompany company;
    Clerk clerk(company, kind.make, noVoucher);
    clerk.settle(kind.money, kind.party, {kind.items[0], kind.items[1]});
    clerk.cell("AgingGrid", 1, 7, "90");
    clerk.cell("AgingGrid", 1, 3, "10");
    printVoucher(clerk);
    const Rows first = bareDocument(company, kind.tranType, 1);
    EXPECT_EQ(first.size(), 1u + 3u + 2u);
    clerk.cell("AgingGrid", 0, 7, "250.25");
    company.prompts.expect("Cannot Save", "This Serial No. already exists. Saving this would create duplicate values.");
    printVoucher(clerk);
    clerk.type("DocNo", "7");
    printVoucher(clerk);
    const Rows second = bareDocument(company, kind.tranType, 7);
    EXPECT_EQ(second.size(), first.size());
    EXPECT_EQ(bareDocument(company, kind.tranType, 1), first);
    clerk.type("DocNo", "8");
    clerk.press("SaveBttn");
    EXPECT_EQ(bareDocument(company, kind.tranType, 1), first);
    EXPECT_EQ(bareDocument(company, kind.tranType, 7), second);
    EXPECT_EQ(bareDocument(company, kind.tranType, 8).size(), first.size());
  }
}

TEST(SettlementAfterPrint, AShownDocumentWithAChangedNumberStaysTheSame) {
  SettlementCompany company;
  Clerk clerk(company, makeCashReceipts, noVoucher);
  clerk.settle("10001001", "12001002", {"12", "15"});
  clerk.press("SaveBttn");
  const std::string tranNo = tranNoOf(company, 39);
  clerk.show(tranNo);
  printVoucher(clerk);
  clerk.type("DocNo", "7");
  clerk.press("SaveBttn");
  EXPECT_EQ(bareRows(company, "select TranNo, DocNo from Transactions where TranType = 39"), Rows{tranNo + "|7"});
  EXPECT_EQ(bareRows(company, "select TranNo, DocNo, DocNo2 from AgingDr where TranType = 39 order by Serial"),
            (Rows{tranNo + "|12|7", tranNo + "|15|7"}));
  EXPECT_EQ(bareRows(company, "select count(*) from SubTransactions where TranNo = " + tranNo), Rows{"2"});
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
  const std::string tranNo = tranNoOf(company, 39);
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

TEST(SettlementAfterPrint, ANewDocumentThatChangesItsModeIsASecondOne) {
  SettlementCompany company;
  Clerk clerk(company, makeCashPayments, noVoucher);
  clerk.settle("10001001", "21001002", {"A-1"});
  printVoucher(clerk);
  const Rows first = bareDocument(company, 29, 1);
  clerk.petty();
  EXPECT_EQ(shownPetty(clerk), Rows{"21001002|1000.00"});
  clerk.type("DocNo", "2");
  printVoucher(clerk);
  const Rows second = bareDocument(company, 29, 2);
  EXPECT_EQ(second.size(), 1u + 2u);
  clerk.find<QRadioButton>("RecOpt_0").click();
  clerk.type("DocNo", "3");
  clerk.cell("AgingGrid", 0, 0, "A-2");
  clerk.press("SaveBttn");
  EXPECT_EQ(bareDocument(company, 29, 1), first);
  EXPECT_EQ(bareDocument(company, 29, 2), second);
  EXPECT_EQ(bareDocument(company, 29, 3).size(), 1u + 2u + 1u);
}

// Balances and open invoices, when they move under the screen.

void receiveBeside(SettlementCompany& company, int docNo, const char* amount) {
  company.context.KORDconn.execute(
      "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES (" +
      std::to_string(docNo) + ", #11-22-2026#, 38, 1, No, No, 1, 1)");
  const std::string tranNo = tranNoOf(company, 38, docNo);
  for (const auto& [code, side] : {std::pair("10001001", "Debit"), std::pair("12001002", "Credit")})
    company.context.KORDconn.execute("INSERT INTO SubTransactions (TranNo, AccCode, AccName, " + std::string(side) +
                                     ") VALUES (" + tranNo + ", " + code + ", 'x', " + amount + ")");
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
  clerk.show(tranNoOf(company, 39));
  receiveBeside(company, 1, "100");
  clerk.show(tranNoOf(company, 39));
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
    if (auto* open = qobject_cast<QLineEdit*>(QApplication::focusWidget())) press(*open, Qt::Key_Escape);
    return clerk.shown("AgingGrid", row, 0) == number;
  };
  clerk.settle("10001001", "12001002", {"12"});
  printVoucher(clerk);
  EXPECT_FALSE(takes(1, "12")) << "settled by what was saved just now";
  clerk.show(tranNoOf(company, 39));
  company.invoice(30, "02-02-2026", SettlementCompany::customer, "10");
  EXPECT_FALSE(takes(1, "30")) << "the list is that of the moment at which the document was shown";
  clerk.show(tranNoOf(company, 39));
  EXPECT_TRUE(takes(1, "30"));
}

}  // namespace
