#include "vouchers/settlement/settlement_sheet.h"

#include <gtest/gtest.h>

#include "vouchers/settlement/pending_items.h"
#include "vouchers/settlement/settlement_company.h"
#include "vouchers/settlement/settlement_writer.h"

namespace {

using namespace velmo;
using namespace velmo::vouchers;
using namespace velmo::vouchers::settlement;

// The sheet of a new document of one kind, for one party.
class Sheet : public test::SettlementCompany {
 public:
  explicit Sheet(const SettlementKind& ofKind) : kind(ofKind), sheet(ofKind, workplace) {
    openSettlement(kind, context.KORDconn, invoices, 0);
    sheet.bind(invoices);
    choosePartyOf(isReceipt(kind) ? customer : vendor);
  }
  void choosePartyOf(std::int64_t party) {
    sheet.setPending({context.KORDconn, pendingStatement(kind, party, 1), store::LockType::ReadOnly});
  }
  // A row as it is shown, without the date.
  std::string row(int number) {
    std::string all = sheet.shownText(number, Invoice);
    for (const Column column : {Payment, WHTaxRt, WHTax, AdvAdj, Discount, TotPayment})
      all += "|" + sheet.shownText(number, column);
    return all;
  }

  const SettlementKind& kind;
  store::Recordset invoices;
  SettlementSheet sheet;
};

TEST(SettlementSheet, TakesOnlyPendingInvoicesOfTheParty) {
  Sheet receipt(cashReceipts());
  EXPECT_EQ(receipt.sheet.rowCount(), 50);
  for (const char* none : {"", "16", "7", "12 or 1=1", "'", "12*", "1e400", "\u0661\u0662"})
    EXPECT_FALSE(receipt.sheet.enter(0, Invoice, none)) << none;
  EXPECT_EQ(receipt.row(0), "||||||");
  EXPECT_TRUE(receipt.sheet.enter(0, Invoice, "15"));
  EXPECT_EQ(receipt.row(0), "15|500.50||0.00|0.00|0.00|500.50");
  EXPECT_EQ(receipt.sheet.shownText(0, Date), "12-01-2026");
  EXPECT_TRUE(receipt.sheet.enter(1, Invoice, "15")) << "nothing stands against the same invoice twice";
  EXPECT_EQ(receipt.sheet.invoiceList(), "15, 15, ");

  receipt.choosePartyOf(test::SettlementCompany::otherCustomer);
  EXPECT_TRUE(receipt.sheet.enter(2, Invoice, "16"));
  EXPECT_EQ(receipt.sheet.foreignRow(test::SettlementCompany::customer), 2);
  EXPECT_EQ(receipt.sheet.foreignRow(test::SettlementCompany::otherCustomer), 1);
  receipt.sheet.removeRow(2);
  EXPECT_EQ(receipt.sheet.foreignRow(test::SettlementCompany::customer), std::nullopt);
  EXPECT_EQ(receipt.sheet.rowCount(), 50);
}

TEST(SettlementSheet, FindsBillsByWildcardsInDateOrder) {
  Sheet payment(cashPayments());
  struct Case {
    const char* typed;
    const char* found;
  };
  for (const Case& c : {Case{"A-2", "A-2"}, Case{"A%", "A-1"}, Case{"%2", "A-2"}, Case{"a-1", "A-1"}}) {
    EXPECT_TRUE(payment.sheet.enter(0, Invoice, c.typed)) << c.typed;
    EXPECT_EQ(payment.sheet.shownText(0, Invoice), c.found) << c.typed;
  }
  EXPECT_FALSE(payment.sheet.enter(0, Invoice, "O'Brien"));
  payment.invoices.moveTo(0);
  EXPECT_EQ(payment.invoices.integer("docno"), 7) << "our own number goes along unseen";
}

TEST(SettlementSheet, KeepsTheMoneyInStepWithWhatIsDeducted) {
  struct Entry {
    Column column;
    const char* typed;
    bool accepted;
    const char* row;
  };
  const Entry entries[] = {
      {TotPayment, "1000", true, "12|1000.00||0.00|0.00|0.00|1000.00"},
      {WHTaxRt, "3.33", true, "12|967.00|3.33|33.00|0.00|0.00|1000.00"},
      {WHTaxRt, "2.5", true, "12|975.00|2.50|25.00|0.00|0.00|1000.00"},
      {WHTaxRt, "0.05", true, "12|1000.00|0.05|0.00|0.00|0.00|1000.00"},
      {WHTaxRt, "0.15", true, "12|998.00|0.15|2.00|0.00|0.00|1000.00"},
      {WHTaxRt, "100.5", false, "12|998.00|0.15|2.00|0.00|0.00|1000.00"},
      {WHTaxRt, "ten", false, "12|998.00|0.15|2.00|0.00|0.00|1000.00"},
      {WHTax, "7.25", true, "12|992.75|0.15|7.25|0.00|0.00|1000.00"},
      {WHTaxRt, "", true, "12|992.75||7.25|0.00|0.00|1000.00"},
      {TotPayment, "900", true, "12|892.75||7.25|0.00|0.00|900.00"},
      {WHTaxRt, "10", true, "12|810.00|10.00|90.00|0.00|0.00|900.00"},
      {TotPayment, "500", true, "12|450.00|10.00|50.00|0.00|0.00|500.00"},
      {AdvAdj, "400.1", true, "12|49.90|10.00|50.00|400.10|0.00|500.00"},
      {Discount, "60", true, "12|(10.10)|10.00|50.00|400.10|60.00|500.00"},
      {Discount, "(5)", true, "12|54.90|10.00|50.00|400.10|(5.00)|500.00"},
      {AdvAdj, "100000000", false, "12|54.90|10.00|50.00|400.10|(5.00)|500.00"},
      {TotPayment, "1e15", false, "12|54.90|10.00|50.00|400.10|(5.00)|500.00"},
      {TotPayment, "123456789012345", false, "12|54.90|10.00|50.00|400.10|(5.00)|500.00"},
      {Discount, "", false, "12|54.90|10.00|50.00|400.10|(5.00)|500.00"},
      {AdvAdj, "abc", false, "12|54.90|10.00|50.00|400.10|(5.00)|500.00"},
      // On receipts the size of the tax itself is not looked at.
      {WHTax, "200000000", true, "12|(199999895.10)|10.00|200000000.00|400.10|(5.00)|500.00"},
  };
  Sheet receipt(bankReceipts());
  ASSERT_TRUE(receipt.sheet.enter(0, Invoice, "12"));
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.typed);
    EXPECT_EQ(receipt.sheet.enter(0, entry.column, entry.typed), entry.accepted);
    EXPECT_EQ(receipt.row(0), entry.row);
  }
  Sheet payment(bankPayments());
  ASSERT_TRUE(payment.sheet.enter(0, Invoice, "A-1"));
  EXPECT_FALSE(payment.sheet.enter(0, WHTax, "200000000"));
}

TEST(SettlementSheet, TellsWhyACellIsClosed) {
  struct Closed {
    Column column;
    const char* title;
    const char* receipt;
    const char* payment;
  };
  const Closed cells[] = {{WHTaxRt, "Select Invoice", "Select invoice no. before entering with-holding tax rate.",
                           "Select invoice no. before entering with-holding tax rate."},
                          {WHTax, "Select Invoice", "Select invoice no. before entering with-holding tax amount.",
                           "Select invoice no. before entering with-holding tax amount."},
                          {AdvAdj, "Select Invoice", "Select invoice no. before entering flood tax rate.",
                           "Select invoice no. before entering advance adjustment."},
                          {Discount, "Select Invoice", "Select invoice no. before entering flood tax amount.",
                           "Select invoice no. before entering discount."},
                          {TotPayment, "Select Invoice", "Select invoice no. before entering amount credited to party.",
                           "Select invoice no. before entering amount debited to party."},
                          {Payment, "Cannot Modify",
                           "You can give amount in last column 'Amount Credited to Party'. This column is calculated "
                           "automatically after adjusting taxes and other deductions.",
                           "You can give amount in last column 'Amount Debited to Party'. This column is calculated "
                           "automatically after adjusting taxes and other deductions."}};
  Sheet receipt(cashReceipts());
  Sheet payment(cashPayments());
  for (const Closed& cell : cells) {
    receipt.prompts.expect(cell.title, cell.receipt);
    EXPECT_FALSE(receipt.sheet.mayEdit(0, cell.column));
    payment.prompts.expect(cell.title, cell.payment);
    EXPECT_FALSE(payment.sheet.mayEdit(0, cell.column));
  }
  EXPECT_FALSE(receipt.sheet.mayEdit(0, Date)) << "without a word";
  ASSERT_TRUE(receipt.sheet.enter(0, Invoice, "12"));
  for (const Column open : {Invoice, WHTaxRt, WHTax, AdvAdj, Discount, TotPayment})
    EXPECT_TRUE(receipt.sheet.mayEdit(0, open));
}

}  // namespace
