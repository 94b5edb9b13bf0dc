#include <gtest/gtest.h>

#include <QLineEdit>

#include "printing/preview_window.h"
#include "windows/person.h"

namespace velmo::test {
namespace {

// What a cash receipt wrote but for its keys and stamps: header, ledger, settled invoices.
std::string receiptInFile(Person& person, int docNo) {
  const std::string receipt = "FROM Transactions WHERE TranType = 39 AND DocNo = " + std::to_string(docNo);
  const std::string rows = "WHERE TranNo = " + person.inFile(("SELECT TranNo " + receipt).c_str()) + " ORDER BY Serial";
  std::string all;
  for (const std::string& statement :
       {"SELECT Nature & '|' & PartyCode & '|' & PartyCode2 & '|' & TrAmount & '|' & Received & '|' & Balance " +
            receipt,
        "SELECT AccCode & '|' & AccName & '|' & Desc & '|' & Debit & '|' & Credit FROM SubTransactions " + rows,
        "SELECT DocNo & '|' & TranDate & '|' & PartyCode & '|' & Payment & '|' & WHTax & '|' & TotPayment FROM "
        "AgingDr " +
            rows}) {
    for (int row = 0; person.inFile(statement.c_str(), row) != "no row"; ++row)
      all += person.inFile(statement.c_str(), row) + "\n";
    all += "\n";
  }
  return all;
}

void goBackTo(Person& person, const char* control) {
  for (int stops = 0; person.focus() != control; ++stops) {
    if (stops == 20) throw std::runtime_error(std::string("no way by Tab to ") + control);
    person.press("shift+Tab");
  }
}

TEST(ReceiptsThatArePrinted, AreASecondDocumentWithAnotherNumber) {
  withTheProgram([](Person& person) {
    const char* open =
        "SELECT PartyCode & ' ' & Max(DocNo) FROM AgingDr WHERE PartyCode > 12001001 GROUP BY PartyCode, DocNo "
        "HAVING Sum(TrAmount) - Sum(TotPayment) > 50 ORDER BY PartyCode";
    const std::string customerAndInvoice = person.inFile(open);
    const std::size_t blank = customerAndInvoice.find(' ');
    person.openScreen("CashReceipts");
    person.waitUntil("the cash account", [] { return Person::control("BankCode").hasFocus(); });
    person.type("10001001\n" + customerAndInvoice.substr(0, blank) + "\n");
    person.waitUntil("the invoices",
                     [] { return Person::control("AgingGrid").isAncestorOf(QApplication::focusWidget()); });
    person.type(customerAndInvoice.substr(blank + 1) + "\n\n1.235\n");
    const int first = person.look([] { return Person::control<QLineEdit>("DocNo").text().toInt(); });
    person.press("ctrl+p");
    person.waitUntil("the preview in front",
                     [] { return qobject_cast<printing::PreviewWindow*>(QApplication::activeWindow()) != nullptr; });
    const std::string printed = receiptInFile(person, first);
    EXPECT_NE(printed.find("|1.24|"), std::string::npos) << printed;
    person.press("Escape");
    person.waitUntil("the receipt in front",
                     [] { return Person::control("CashReceipts").isAncestorOf(QApplication::focusWidget()); });
    person.press("F6");
    goBackTo(person, "DocNo");
    person.press("ctrl+a");
    person.type(std::to_string(first + 7));
    person.press("ctrl+s");
    person.waitUntil("the next receipt", [] { return Person::control<QLineEdit>("Amt").text() == "0.00"; });
    EXPECT_EQ(receiptInFile(person, first), printed);
    EXPECT_EQ(receiptInFile(person, first + 7), printed);
  });
}

}  // namespace
}  // namespace velmo::test
