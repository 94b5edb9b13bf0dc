#pragma once

#include <string>

#include "documents/invoice_company.h"
#include "vouchers/settlement/settlement_kind.h"
#include "vouchers/settlement/settlement_sheet.h"

namespace velmo::test {

// A company whose customer O'Brien & Sons owes the invoices 12 (1,000), 15 (500.50) and 20 (80), Zoe Builders the
// invoice 16 (300), and which owes the vendor Mills the bills A-1 (1,000), A-2 (200) and one without a number (50).
class SettlementCompany : public InvoiceCompany {
 public:
  static constexpr std::int64_t customer = 12001002;
  static constexpr std::int64_t otherCustomer = 12001003;
  static constexpr std::int64_t vendor = 21001002;

  SettlementCompany() {
    run("INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (21001002, 'Mills', 210, 21001)");
    run("INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (11001009, 'City Bank', 110, 11001)");
    invoice(12, "01-10-2026", customer, "1000");
    invoice(15, "01-12-2026", customer, "500.5");
    invoice(16, "01-12-2026", otherCustomer, "300");
    invoice(20, "02-01-2026", customer, "80");
    bill(7, "A-1", "01-10-2026", "1000");
    bill(8, "A-2", "01-11-2026", "200");
    bill(9, {}, "01-12-2026", "50");
    context.AccountsRS.requery();
  }

  void invoice(int docNo, const std::string& day, std::int64_t party, const std::string& amount) {
    const std::string tranNo = document(docNo, day, 32);
    ledger(tranNo, party, "Debit", amount);
    ledger(tranNo, 40001001, "Credit", amount);
    run("INSERT INTO AgingDr (TranNo, DocNo, DocNo2, TranDate, TranDate2, PartyCode, TranType, TrAmount, [Return], "
        "Payment, WHTax, AdvAdj, Discount, TotPayment, FYID) VALUES (" +
        tranNo + ", " + std::to_string(docNo) + ", " + std::to_string(docNo) + ", #" + day + "#, #" + day + "#, " +
        std::to_string(party) + ", 32, " + amount + ", 0, 0, 0, 0, 0, 0, 1)");
  }

  void bill(int docNo, const std::string& number, const std::string& day, const std::string& amount) {
    const std::string tranNo = document(docNo, day, 22);
    ledger(tranNo, 50001002, "Debit", amount);
    ledger(tranNo, vendor, "Credit", amount);
    run("INSERT INTO AgingCr (TranNo, DocNo, DocNo2, VendorInvNo, TranDate, TranDate2, PartyCode, TranType, TrAmount, "
        "[Return], Payment, WHTax, AdvAdj, Discount, TotPayment, FYID) VALUES (" +
        tranNo + ", " + std::to_string(docNo) + ", " + std::to_string(docNo) + ", '" + number + "', #" + day + "#, #" +
        day + "#, " + std::to_string(vendor) + ", 22, " + amount + ", 0, 0, 0, 0, 0, 0, 1)");
  }

 private:
  std::string document(int docNo, const std::string& day, int tranType) {
    run("INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES "
        "(" +
        std::to_string(docNo) + ", #" + day + "#, " + std::to_string(tranType) + ", 1, No, No, 1, 1)");
    return tranNo(tranType, docNo);
  }
  void ledger(const std::string& tranNo, std::int64_t account, const char* side, const std::string& amount) {
    run("INSERT INTO SubTransactions (TranNo, AccCode, AccName, [Desc], " + std::string(side) + ") VALUES (" + tranNo +
        ", " + std::to_string(account) + ", 'x', 'x', " + amount + ")");
  }
};

}  // namespace velmo::test
