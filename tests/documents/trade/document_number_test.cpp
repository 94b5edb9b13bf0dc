#include "frame/posting/document_number.h"

#include "documents/invoice_company.h"
#include "support/rival.h"

namespace {

using namespace velmo;
using frame::GridColumn;
using test::InvoiceCompany;
using test::InvoiceScreen;
using test::Rival;
using Rows = std::vector<std::string>;

const char* const taken = "This Serial No. already exists in Sale Invoices. Saving this would create duplicate values.";
const char* const numbers = "select docno, tramount from transactions where trantype=32 order by docno, tranno";

std::string invoiceNo(int docNo) {
  return "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, TrAmount, Cancel, InvLedger, UserAdded, "
         "UserEdited) VALUES (" +
         std::to_string(docNo) + ", #11-22-2026#, 32, 1, 7, No, No, 1, 1)";
}

// Whether the other program's invoice is there for the first test, or comes between it and the writing.
enum class Comes { BeforeSave, WhileSaving };

// Presses Save, which is refused for the number.
void saveAgainst(InvoiceCompany& shop, InvoiceScreen& screen, int docNo, Comes comes) {
  shop.prompts.expect("Cannot Save", taken);
  std::optional<Rival> rival;
  if (comes == Comes::WhileSaving)
    rival.emplace(shop.context.KORDconn, Rows{invoiceNo(docNo)});
  else
    test::NewCompany::run({invoiceNo(docNo).c_str()});
  screen.find<QPushButton>("SaveBttn").setFocus();
  screen.press("SaveBttn");
  EXPECT_TRUE(screen.box("DocNo").hasFocus());
}

class DocNo : public testing::TestWithParam<Comes> {
 protected:
  void enterInvoice() {
    screen.type("PartyCodeTxt", "12001003");
    screen.line(0, "H1", "2");
  }

  InvoiceCompany shop;
  InvoiceScreen screen{shop};
};

TEST_P(DocNo, ThatTheProgramProposedGivesWayToTheNextOne) {
  enterInvoice();
  saveAgainst(shop, screen, 1, GetParam());
  EXPECT_EQ(shop.rows(numbers), Rows{"1|7"}) << "nothing of ours was written";
  EXPECT_EQ(screen.text("DocNo"), "2");
  EXPECT_EQ(screen.text("NetTotal"), "100.00") << "the sheet keeps its lines";
  EXPECT_EQ(screen.text("PartyCodeTxt"), "12001003");
  EXPECT_EQ(screen.text("TranNo"), shop.one("select tranno from transactions where trantype=32"));
  saveAgainst(shop, screen, 2, GetParam());  // it is a proposal again
  EXPECT_EQ(screen.text("DocNo"), "3");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.rows(numbers), (Rows{"1|7", "2|7", "3|100"}));
  EXPECT_EQ(shop.one("select sum(stockout) from stockflow where itemcode='H1'"), "2") << "written once";
  EXPECT_EQ(screen.text("DocNo"), "4");

  saveAgainst(shop, screen, 4, Comes::BeforeSave);
  EXPECT_EQ(screen.text("DocNo"), "5");
  for (const char* docNo : {"4", "3", "2"}) {  // what others wrote lies on the way back, the latest first
    screen.press("PrevBttn");
    EXPECT_EQ(screen.text("DocNo"), docNo);
  }
}

TEST_P(DocNo, ThatWasTypedStays) {
  for (const char* typed : {"1", "40"}) {  // the first is what stood there
    SCOPED_TRACE(typed);
    enterInvoice();
    screen.type("DocNo", typed);
    const Rows before = shop.rows(numbers);
    saveAgainst(shop, screen, std::stoi(typed), GetParam());
    EXPECT_EQ(screen.text("DocNo"), typed);
    EXPECT_EQ(shop.rows(numbers).size(), before.size() + 1);
    shop.prompts.expect("Cannot Save", taken);
    screen.press("SaveBttn");
    EXPECT_EQ(screen.text("DocNo"), typed) << "nor does the next attempt change it";
    screen.press("CancelBttn");
    EXPECT_EQ(screen.text("DocNo"), std::to_string(std::stoi(typed) + 1));
  }
}

TEST_P(DocNo, OfAShownDocumentIsNotChangedToOneThatIsTaken) {
  screen.saveInvoice("12001003");
  screen.press("RetBttn");
  screen.typeCell(0, GridColumn::Quantity, "4");
  screen.type("DocNo", "5");
  saveAgainst(shop, screen, 5, GetParam());
  EXPECT_EQ(shop.rows(numbers), (Rows{"1|100", "5|7"}));
  EXPECT_EQ(screen.text("DocNo"), "5");
  EXPECT_EQ(screen.text("NetTotal"), "200.00");
  EXPECT_EQ(screen.text("TranNo"), shop.one("select tranno from transactions where trantype=32 and docno=1"));
  screen.type("DocNo", "6");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.rows(numbers), (Rows{"5|7", "6|200"}));
}

INSTANTIATE_TEST_SUITE_P(Rivals, DocNo, testing::Values(Comes::BeforeSave, Comes::WhileSaving), [](const auto& comes) {
  return comes.param == Comes::BeforeSave ? "BeforeSave" : "WhileSaving";
});

TEST(KeptDocNo, OfAShownDocumentIsNoHindranceEvenWhereAnOldFileHasItTwice) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.saveInvoice("12001003");
  test::NewCompany::run({invoiceNo(1).c_str()});
  screen.press("RetBttn");
  screen.typeCell(0, GridColumn::Quantity, "3");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.rows(numbers), (Rows{"1|150", "1|7"}));
  EXPECT_EQ(screen.text("DocNo"), "2");
}

TEST(KeptDocNo, IsFreeInAnotherYearAndForAnotherKind) {
  InvoiceCompany shop;
  shop.run(
      "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger) VALUES "
      "(1, #11-22-2026#, 36, 1, No, No)");
  shop.run(
      "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger) VALUES "
      "(1, #11-22-2025#, 32, 2, No, No)");
  InvoiceScreen screen(shop);
  screen.saveInvoice("12001003");
  EXPECT_EQ(shop.one("select docno from transactions where trantype=32 and fyid=1"), "1");
}

}  // namespace
