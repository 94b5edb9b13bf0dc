#include "vouchers/settlement/pending_items.h"

#include <gtest/gtest.h>

#include <set>

#include "vouchers/settlement/settlement_company.h"

namespace velmo::vouchers {
namespace {

using Rows = std::vector<std::string>;
using test::SettlementCompany;

// A company whose open items are paid, returned and cancelled in part.
class PendingItems : public testing::Test {
 protected:
  // What a document writes against an item; amounts as the statement takes them.
  struct Against {
    int docNo = 0;
    const char* number = "";  // the vendor's own
    const char* day = "";
    std::int64_t party = SettlementCompany::customer;
    const char* amounts = "0, 0, 0, 0, 0, 0";  // Return, Payment, WHTax, AdvAdj, Discount, TotPayment
    bool cancelled = false;
    int year = 1;
  };

  void settle(const SettlementKind& kind, const Against& against) {
    const std::string type = std::to_string(kind.form.tranType);
    company_.run(
        "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES "
        "(" +
        std::to_string(++written_) + ", #05-01-2026#, " + type + ", " + std::to_string(against.year) + ", " +
        (against.cancelled ? "Yes" : "No") + ", No, 1, 1)");
    const std::string tranNo = company_.one("select tranno from transactions where trantype=" + type +
                                            " and docno=" + std::to_string(written_));
    const bool bill = !isReceipt(kind);
    company_.run(std::string("INSERT INTO ") + (bill ? "AgingCr" : "AgingDr") + " (TranNo, DocNo, DocNo2, " +
                 (bill ? "VendorInvNo, " : "") +
                 "TranDate, TranDate2, PartyCode, TranType, TrAmount, [Return], Payment, WHTax, "
                 "AdvAdj, Discount, TotPayment, FYID) VALUES (" +
                 tranNo + ", " + std::to_string(against.docNo) + ", " + std::to_string(written_) + ", " +
                 (bill ? "'" + std::string(against.number) + "', " : "") + "#" + against.day + "#, #05-01-2026#, " +
                 std::to_string(against.party) + ", " + type + ", 0, " + against.amounts + ", " +
                 std::to_string(against.year) + ")");
  }

  Rows pending(const SettlementKind& kind, std::int64_t party) {
    Rows rows;
    store::Recordset found(company_.context.KORDconn, pendingStatement(kind, party, 1), store::LockType::ReadOnly);
    for (; !found.eof(); found.moveNext()) {
      const PendingItem item = pendingItem(kind, found);
      EXPECT_EQ(item.partyCode, party);
      rows.push_back(item.key + "|" + std::to_string(item.docNo) + "|" + store::textOf(item.tranDate) + "|" +
                     store::textOf(item.balance));
    }
    return rows;
  }

  SettlementCompany company_;
  int written_ = 100;
};

TEST_F(PendingItems, AnItemIsOpenWhileSomethingOfThisYearIsLeftOfIt) {
  const SettlementKind& cash = cashReceipts();
  const Rows all = {"12|12|1/10/2026|1000", "15|15|1/12/2026|500.5", "20|20|2/1/2026|80"};
  EXPECT_EQ(pending(cash, SettlementCompany::customer), all);
  EXPECT_EQ(pending(bankReceipts(), SettlementCompany::customer), all);
  EXPECT_EQ(pending(cash, SettlementCompany::otherCustomer), Rows{"16|16|1/12/2026|300"});
  EXPECT_EQ(pending(cash, SettlementCompany::vendor), Rows());

  settle(cash, {.docNo = 12, .day = "01-10-2026", .amounts = "0, 350, 30, 20, 0, 400"});
  settle(bankReceipts(), {.docNo = 15, .day = "01-12-2026", .amounts = "0, 500.5, 0, 0, 0, 500.5"});
  settle(cash, {.docNo = 20, .day = "02-01-2026", .amounts = "0, 80, 0, 0, 0, 80", .cancelled = true});
  // Neither another customer's, nor another day's, nor another year's payment settles an invoice of the same number.
  settle(cash,
         {.docNo = 20, .day = "02-01-2026", .party = SettlementCompany::otherCustomer, .amounts = "0, 0, 0, 0, 0, 9"});
  settle(cash, {.docNo = 20, .day = "02-02-2026", .amounts = "0, 0, 0, 0, 0, 9"});
  settle(cash, {.docNo = 20, .day = "02-01-2026", .amounts = "0, 0, 0, 0, 0, 9", .year = 2});
  EXPECT_EQ(pending(cash, SettlementCompany::customer), (Rows{"12|12|1/10/2026|600", "20|20|2/1/2026|80"}));

  settle(cash, {.docNo = 12, .day = "01-10-2026", .amounts = "0, 0, 0, 0, 0, 600.01"});
  EXPECT_EQ(pending(cash, SettlementCompany::customer), Rows{"20|20|2/1/2026|80"})
      << "one that is paid too much is settled";
  company_.run("UPDATE Transactions SET Cancel = Yes WHERE TranType = 32 AND DocNo = 20");
  EXPECT_EQ(pending(cash, SettlementCompany::customer), Rows());
}

TEST_F(PendingItems, ABillIsTheVendorsNumberDayAndParty) {
  const SettlementKind& cash = cashPayments();
  const std::int64_t vendor = SettlementCompany::vendor;
  EXPECT_EQ(pending(bankPayments(), vendor), (Rows{"A-1|7|1/10/2026|1000", "A-2|8|1/11/2026|200", "|9|1/12/2026|50"}));
  settle(cash, {.docNo = 7, .number = "a-1", .day = "01-10-2026", .party = vendor, .amounts = "0, 1, 0, 0, 0, 999"});
  EXPECT_EQ(pending(cash, vendor).front(), "A-1|7|1/10/2026|1");
  // Two bills of one number and day stand for each other: each is listed with the balances of both.
  company_.bill(10, "A-2", "01-11-2026", "30");
  const Rows folded = {"A-1|7|1/10/2026|1",    "A-2|8|1/11/2026|200", "A-2|8|1/11/2026|30",
                       "A-2|10|1/11/2026|200", "A-2|10|1/11/2026|30", "|9|1/12/2026|50"};
  Rows found = pending(cash, vendor);
  EXPECT_EQ(std::multiset<std::string>(found.begin(), found.end()),
            std::multiset<std::string>(folded.begin(), folded.end()));
}

TEST_F(PendingItems, AnOpeningBalanceIsOpenAndAReturnIsNot) {
  company_.run("UPDATE AgingDr SET TranType = 11 WHERE DocNo = 12");
  company_.run("UPDATE AgingDr SET TranType = 31 WHERE DocNo = 15");
  company_.run("UPDATE AgingDr SET TranType = 35 WHERE DocNo = 20");
  EXPECT_EQ(pending(cashReceipts(), SettlementCompany::customer),
            (Rows{"12|12|1/10/2026|1000", "15|15|1/12/2026|500.5"}));
}

TEST_F(PendingItems, TheListHasTheSumsOfAllThatWasWrittenAgainstAnItem) {
  for (const SettlementKind* kind : {&cashReceipts(), &cashPayments()}) {
    SCOPED_TRACE(kind->form.screen);
    const std::int64_t party = isReceipt(*kind) ? SettlementCompany::customer : SettlementCompany::vendor;
    const Against first{.docNo = isReceipt(*kind) ? 12 : 7, .number = "A-1", .day = "01-10-2026", .party = party};
    for (const char* amounts : {"100, 0, 0, 0, 0, 100", "0, 200, 10, 20, 30, 260", "0, 5, 0.5, 0, -1, 4.5"}) {
      Against against = first;
      against.amounts = amounts;
      settle(*kind, against);
    }
    store::Recordset list(company_.context.KORDconn, pendingListStatement(*kind, party, 1));
    std::string sums;
    for (const char* column :
         {"TrAmounts", "Returns", "Payments", "WHTaxs", "AdvAdjs", "Discounts", "TotPayments", "BalAmt"})
      sums += list.text(column) + " ";
    EXPECT_EQ(sums, "1000 100 205 10.5 20 29 364.5 635.5 ");
    EXPECT_EQ(pendingItem(*kind, list).balance, 635.5);
    EXPECT_EQ(list.recordCount(), 3);
  }
}

}  // namespace
}  // namespace velmo::vouchers
