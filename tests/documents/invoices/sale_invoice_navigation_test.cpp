#include <QComboBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QTableView>
#include <QTimer>

#include "documents/invoice_company.h"
#include "printing/preview_window.h"
#include "support/waiting.h"

namespace {

using namespace velmo;
using test::InvoiceCompany;
using test::InvoiceScreen;
using Rows = std::vector<std::string>;

// Invoice number `docNo`: so many lines of that quantity at 50, as it stands in the books.
void post(InvoiceCompany& shop, int docNo, const std::string& customer, int quantity, int lines = 1) {
  const std::string no = std::to_string(docNo), key = std::to_string(7000 + docNo),
                    each = std::to_string(50 * quantity), total = std::to_string(50 * quantity * lines),
                    name = store::quoted(customer), day = "#05-" + std::to_string(20 - docNo) + "-2026#";
  const auto run = [&shop](const std::string& statement) { shop.context.KORDconn.execute(statement); };
  run("INSERT INTO Transactions (TranNo, DocNo, DocNo2, TranDate, TranType, FYID, PartyCode, PartyCode2, Text1, "
      "Text12, LocationFrom, TrAmount, Balance, UserAdded, UserEdited) VALUES (" +
      key + ", " + no + ", " + no + ", " + day + ", 32, 1, 40001001, 12001003, " + name + ", '1', 1, " + total + ", " +
      total + ", 1, 1)");
  for (int serial = 1; serial <= lines; ++serial)
    run("INSERT INTO StockFlow (TranNo, Serial, ItemCode, ItemName, StockOut, Unit, Rate, GrossAmt, DiscAmt, "
        "ItemValue, LocationID) VALUES (" +
        key + ", " + std::to_string(serial) + ", 'H1', 'Hammer', " + std::to_string(quantity) + ", 'Pcs', 50, " + each +
        ", 0, " + each + ", 1)");
  run("INSERT INTO SubTransactions (TranNo, AccCode, AccName, Debit) VALUES (" + key + ", 12001003, " + name + ", " +
      total + ")");
  run("INSERT INTO SubTransactions (TranNo, AccCode, AccName, Credit) VALUES (" + key + ", 40001001, 'Sales', " +
      total + ")");
  run("INSERT INTO AgingDr (TranNo, TranType, DocNo, TranDate, PartyCode, FYID, TrAmount) VALUES (" + key + ", 32, " +
      no + ", " + day + ", 12001003, 1, " + total + ")");
}

// Invoices 1, 2, ... to these customers, of 1, 2, ... hammers.
void post(InvoiceCompany& shop, std::initializer_list<const char*> customers) {
  int docNo = 0;
  for (const char* customer : customers) {
    ++docNo;
    post(shop, docNo, customer, docNo);
  }
}

TEST(SaleInvoiceNavigation, GoesByNumberAndStaysAtBothEnds) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  for (const char* button : {"PrevBttn", "NextBttn", "RetBttn"}) screen.press(button);  // nothing there: nothing said
  post(shop, {"One", "Two", "Three"});
  screen.press("CancelBttn");
  shop.prompts.expect("Last Record", "You have aleady been on the last record.");
  screen.press("NextBttn");
  shop.prompts.expect("Record Not Found",
                      "Last saved record not found. You may have deleted it or you may not have saved any record yet.");
  screen.press("RetBttn");
  const std::pair<const char*, const char*> steps[] = {
      {"PrevBttn", "Three"}, {"PrevBttn", "Two"},   {"PrevBttn", "One"},  {"PrevBttn", "One"},
      {"NextBttn", "Two"},   {"NextBttn", "Three"}, {"NextBttn", "Three"}};
  for (const auto& [button, name] : steps) {
    screen.press(button);
    EXPECT_EQ(screen.text("PartyNameTxt"), name) << button;
  }
  // Not found leaves the screen on its document: a save changes that one.
  shop.prompts.expect("Record Not Found",
                      "Last saved record not found. You may have deleted it or you may not have saved any record yet.");
  screen.show(99999);
  EXPECT_EQ(screen.text("PartyNameTxt"), "Three");
  screen.type("D1", "kept");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.rows("select docno, d1 from transactions where trantype=32 order by docno"),
            (Rows{"1|", "2|", "3|kept"}));
}

TEST(SaleInvoiceNavigation, DeletesTheDocumentWithAllItsRows) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  post(shop, {"One", "Two"});
  shop.prompts.expect("No Record Found", "Select a record to be deleted.");
  screen.press("DelBttn");
  screen.press("CancelBttn");
  for (const session::Answer answer : {session::Answer::No, session::Answer::Yes}) {
    screen.press("PrevBttn");
    if (answer == session::Answer::Yes) screen.press("NextBttn");
    shop.prompts.expect("Delete Confirmation",
                        "Are you sure, you want to delete this transaction, Serial No. 2? Deleting this transaction "
                        "will remove all the ledger entries in accounts relating to this transaction.",
                        answer);
    screen.press("DelBttn");
    const std::string left = answer == session::Answer::Yes ? "1" : "2";
    EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"), left);
    EXPECT_EQ(shop.one("select count(*) from agingdr"), left);
    EXPECT_EQ(shop.one("select count(*) from stockflow where stockout > 0"), left);
    EXPECT_EQ(shop.one("select count(*) from subtransactions where acccode=40001001"), left);
  }
  EXPECT_EQ(screen.text("DocNo"), "2") << "a deleted last number is used again";
}

TEST(SaleInvoiceNavigation, AsksBeforeTypedThingsAreDroppedWhenThatIsWanted) {
  InvoiceCompany shop;
  post(shop, {"One", "Two", "Three"});
  InvoiceScreen screen(shop);
  shop.context.AskBeforeDropping = true;
  const auto expectQuestion = [&shop](session::Answer answer) {
    shop.prompts.expect("Not Saved", "What you have typed in SALE INVOICES is not saved. Do you want to drop it?",
                        answer);
  };
  screen.press("PrevBttn");
  screen.press("PrevBttn");
  for (const char* button : {"NextBttn", "PrevBttn", "CancelBttn"}) screen.press(button);  // nothing typed: no question
  ASSERT_EQ(screen.text("PartyNameTxt"), "Two");

  screen.type("D1", "typed");
  for (const char* button : {"PrevBttn", "NextBttn", "CancelBttn", "AddBttn", "RetBttn"}) {
    expectQuestion(session::Answer::No);
    screen.press(button);
    EXPECT_EQ(screen.text("D1"), "typed") << button;
  }
  expectQuestion(session::Answer::No);
  screen.show(99999);
  expectQuestion(session::Answer::No);
  EXPECT_FALSE(screen.widget().close());

  expectQuestion(session::Answer::Yes);
  screen.press("PrevBttn");
  EXPECT_EQ(screen.text("PartyNameTxt"), "One") << "the refused ways have not moved";

  screen.type("D1", "kept");
  screen.press("SaveBttn");
  screen.press("PrevBttn");
  EXPECT_EQ(screen.text("PartyNameTxt"), "Three");

  // A line alone, and one whose cell is in edit.
  screen.press("AddBttn");
  test::type(*screen.widget().findChild<QTableView*>("Grid"), "H");
  expectQuestion(session::Answer::Yes);
  EXPECT_TRUE(screen.widget().close());
}

TEST(SaleInvoiceNavigation, LookingAtOldDocumentsTakesARight) {
  InvoiceCompany shop;
  post(shop, {"One"});
  shop.run("update userrights set operator1=yes where rightid=94");
  const std::string words = shop.one("select righttype from userrights where rightid=94");
  InvoiceScreen screen(shop);
  shop.context.UserID = 2;
  for (const char* button : {"PrevBttn", "NextBttn"}) {
    shop.prompts.expect("Not Allowed", "You do not have access to " + words);
    screen.press(button);
  }
  EXPECT_EQ(screen.text("PartyNameTxt"), "");
}

TEST(SaleInvoiceNavigation, CommandsOfMissingScreensStandDisabled) {
  InvoiceCompany shop;
  shop.screens.known = {"ModifyCustomers", "InvoiceSettings"};
  InvoiceScreen screen(shop);
  for (const char* button : {"ConvertBttn2", "ConvertBttn3", "CI", "PrintBill_1"})
    EXPECT_FALSE(screen.find<QPushButton>(button).isEnabled()) << button;
  screen.press("CA");
  EXPECT_EQ(shop.screens.opened, "ModifyCustomers");
  screen.press("SetBttn");
  EXPECT_EQ(shop.screens.opened, "InvoiceSettings");
  shop.prompts.expect("Cannot Add",
                      "You have already been adding a new record. To clear the changes, click on CANCEL button.");
  screen.press("AddBttn");
}

TEST(SaleInvoiceNavigation, TheVoucherPrintsOnceAfterTheSave) {
  InvoiceCompany shop;
  std::vector<std::int64_t> printed;
  InvoiceScreen screen(
      shop, {.voucher = [&](session::Workplace&, std::int64_t tranNo, QWidget*) { printed.push_back(tranNo); }});
  screen.type("PartyCodeTxt", "12001003");
  screen.line(0, "H1", "1");
  screen.press("PrintBill_1");
  EXPECT_FALSE(screen.find<QPushButton>("SaveBttn").isEnabled()) << "until the voucher was shown";
  QEventLoop loop;
  QTimer::singleShot(20, &loop, &QEventLoop::quit);
  loop.exec();
  ASSERT_EQ(printed.size(), 1u);
  EXPECT_EQ(std::to_string(printed[0]), shop.one("select tranno from transactions where trantype=32"));
  EXPECT_EQ(screen.text("DocNo"), "2");
  EXPECT_TRUE(screen.find<QPushButton>("SaveBttn").isEnabled());
}

TEST(SaleInvoiceNavigation, PrintingSavesAndPreviewsThatInvoice) {
  InvoiceCompany shop;
  post(shop, {"One", "Two"});
  InvoiceScreen screen(shop);
  screen.press("PrevBttn");
  screen.press("PrevBttn");
  screen.type("D1", "printed");
  screen.press("PrintBill_0");
  EXPECT_EQ(shop.context.PrintKind, 32);
  ASSERT_TRUE(shop.context.PrintRS.isOpen());
  EXPECT_EQ(shop.context.PrintRS.text("text1"), "One") << "not the first or last of the year";
  EXPECT_EQ(shop.context.PrintRS.text("d1"), "printed");
  EXPECT_EQ(screen.text("DocNo"), "3");
  auto* preview = screen.widget().findChild<printing::PreviewWindow*>();
  ASSERT_NE(preview, nullptr);
  preview->close();
  EXPECT_FALSE(shop.context.PrintRS.isOpen());
}

TEST(SaleInvoiceNavigation, ADocumentOfMoreLinesThanTheSheetIsShownWhole) {
  InvoiceCompany shop;
  post(shop, 1, "Zoe Builders", 1, 620);
  InvoiceScreen screen(shop);
  screen.press("PrevBttn");
  EXPECT_EQ(screen.find<QTableView>("Grid").model()->rowCount(), 620);
  EXPECT_EQ(screen.text("NetTotal"), "31000.00");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.one("select count(*), max(serial) as m from stockflow where itemcode='H1' and stockout=1"), "620|620");
}

TEST(FindSalesSimple, SearchesSortsAndShowsThePickedInvoice) {
  InvoiceCompany shop;
  post(shop, {"Adams", "O'Brien", "Baker 100%"});
  InvoiceScreen screen(shop);
  screen.withFind("FindSalesSimple", [&](QDialog& find) {
    auto& columns = *find.findChild<QComboBox*>("ColList");
    auto& value = *find.findChild<QLineEdit*>("ValueBox");
    auto& grid = *find.findChild<QTableView*>("TranGrid");
    const auto numbers = [&] {
      std::string shown;
      for (int row = 0; row < grid.model()->rowCount(); ++row)
        shown += grid.model()->index(row, 0).data().toString().toStdString();
      return shown;
    };
    EXPECT_EQ(numbers(), "123");
    const struct {
      const char *column, *value, *refusal, *found;
    } searches[] = {{"Serial No.", "2", "", "2"},
                    {"Serial No.", "two", "Give serial no. to find.", "2"},
                    {"Customer Name", "", "Give customer name to find.", "2"},
                    {"Customer Name", "o'b", "", "2"},
                    {"Customer Name", "a", "", "13"},
                    {"Terms of Payment", "x%", "", ""},
                    {"Amount", "150.00", "", "3"}};
    for (const auto& search : searches) {
      SCOPED_TRACE(std::string(search.column) + " " + search.value);
      columns.setCurrentText(search.column);
      value.setText(search.value);
      if (*search.refusal) shop.prompts.expect("Cannot Find", search.refusal);
      find.findChild<QPushButton*>("FindBttn")->click();
      EXPECT_EQ(numbers(), search.found);
    }
    columns.setCurrentText("Date");
    EXPECT_TRUE(find.findChild<QWidget*>("TrDate")->isVisible());
    EXPECT_FALSE(value.isVisible());
    find.findChild<QPushButton*>("RefBttn")->click();
    EXPECT_EQ(numbers(), "123");
    Q_EMIT grid.horizontalHeader()->sectionClicked(1);
    EXPECT_EQ(numbers(), "321") << "by date";
    grid.selectRow(1);
    test::press(grid, Qt::Key_Return);
  });
  EXPECT_EQ(screen.text("PartyNameTxt"), "O'Brien");
  EXPECT_EQ(screen.text("NetTotal"), "100.00");
}

// What is counted is what the list holds, read or not.
TEST(FindSalesSimple, CountsALongListThatItHasNotReadYet) {
  InvoiceCompany shop;
  post(shop, {"Adams"});
  for (int number = 2; number <= 400; ++number)
    shop.run(
        "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, LocationFrom, UserAdded, UserEdited, Text1) VALUES "
        "(" +
        std::to_string(number) + ", #01-15-2026#, 32, 1, 1, 1, 1, 'Baker " + std::to_string(number % 4) + "')");
  InvoiceScreen screen(shop);
  screen.withFind("FindSalesSimple", [&](QDialog& find) {
    auto& grid = *find.findChild<QTableView*>("TranGrid");
    const auto counted = [&] {
      std::string found;
      QElapsedTimer clock;
      clock.start();
      do {
        QApplication::processEvents();
        QStringList texts;
        for (const auto* label : find.findChildren<QLabel*>()) texts << label->text();
        found = texts.filter("document").join("").toStdString();
      } while (found.empty() && clock.elapsed() < 10000);
      return found;
    };
    const auto search = [&](const char* name) {
      find.findChild<QComboBox*>("ColList")->setCurrentText("Customer Name");
      find.findChild<QLineEdit*>("ValueBox")->setText(name);
      find.findChild<QPushButton*>("FindBttn")->click();
      return counted();
    };
    EXPECT_EQ(counted(), "400 documents");
    EXPECT_LT(grid.model()->rowCount(), 400);
    EXPECT_EQ(search("baker"), "399 documents");
    EXPECT_EQ(search("baker 3"), "100 documents");
    EXPECT_EQ(search("ADAMS"), "1 document");
    find.findChild<QPushButton*>("RefBttn")->click();
    test::press(grid, Qt::Key_End);
    EXPECT_TRUE(test::waitFor([&] { return grid.model()->rowCount() == 400; }));
    EXPECT_EQ(grid.currentIndex().siblingAtColumn(0).data().toString().toStdString(), "400");
  });
}

TEST(SaleInvoiceNavigation, OneKeyGoesFromPartToPart) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  QShortcut* next = nullptr;
  for (auto* shortcut : screen.widget().findChildren<QShortcut*>())
    if (shortcut->key() == QKeySequence(Qt::Key_F6)) next = shortcut;
  ASSERT_TRUE(next);
  const auto focused = [] { return QApplication::focusWidget()->objectName().toStdString(); };
  screen.type("PartyCodeTxt", "12001003");
  for (const char* place : {"Grid", "Discount", "PartyCodeTxt", "Grid"}) {
    Q_EMIT next->activated();
    EXPECT_EQ(focused(), place);
  }
  screen.typeCell(0, frame::GridColumn::ItemCode, "H1");
  test::press(screen.find<QTableView>("Grid"), Qt::Key_F2);
  Q_EMIT next->activated();
  EXPECT_EQ(focused(), "Discount") << "out of a cell in edit";
}

}  // namespace
