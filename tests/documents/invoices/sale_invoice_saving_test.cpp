#include <sqlite3.h>

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>

#include "documents/invoice_company.h"
#include "forms/date_picker.h"

namespace {

using namespace velmo;
using frame::GridColumn;
using test::InvoiceCompany;
using test::InvoiceScreen;
using Rows = std::vector<std::string>;

const char* const ledger =
    "select subtransactions.acccode, subtransactions.accname, subtransactions.desc, subtransactions.debit, "
    "subtransactions.credit from transactions inner join subtransactions on transactions.tranno = "
    "subtransactions.tranno where transactions.trantype=32 order by subtransactions.serial";
const char* const openItems =
    "select docno, docno2, trandate, partycode, trantype, tramount, payment, totpayment, fyid from agingdr order by "
    "serial";

TEST(SaleInvoiceSaving, WritesHeaderLinesLedgerAndOpenItem) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  EXPECT_EQ(screen.text("DocNo"), "1");
  EXPECT_EQ(screen.text("IncomeAcc"), "Sales");
  screen.type("PartyCodeTxt", "12001002");
  EXPECT_EQ(screen.text("PartyNameTxt"), "O'Brien & Sons");
  EXPECT_EQ(screen.text("Terms"), "Net 30");
  EXPECT_TRUE(screen.box("PartyNameTxt").isReadOnly());
  screen.type("D1", "PO-9");
  EXPECT_EQ(screen.text("D1Dt"), "05-10-2026") << "the date of the sale order with this reference";
  screen.line(0, "H1", "2");
  screen.line(1, "N1", "10");
  screen.line(2, "Service", "1", "20");
  screen.typeCell(2, GridColumn::Description, "Delivery");
  screen.type("Carriage", "-3.35");
  EXPECT_EQ(screen.text("NetTotal"), "120.00");
  screen.type("Received", "50");
  EXPECT_EQ(screen.text("Balance"), "70.00");
  screen.find<QPlainTextEdit>("Desc").setPlainText("By hand");
  screen.save();

  EXPECT_EQ(
      shop.one("select docno, docno2, trandate, nature, empid, jobidfrom, desc, d1, d1date, partycode, partycode2, "
               "text1, text2, text3, text4, text10, text11, text12 from transactions where trantype=32"),
      "1|1|11/22/2026|Net 30|1|0|By hand|PO-9|05-10-2026|40001001|12001002|O'Brien & Sons|1 High "
      "St|555-1|10001001||0|1");
  EXPECT_EQ(
      shop.one("select discount, tax1, carriage, tramount, received, balance, wordsamt, locationfrom, locationto, "
               "fyid, useradded, timeadded, useredited, timeedited from transactions where trantype=32"),
      "0|0|-3.35|120|50|70|one hundred twenty and 00/100 only.|1|1|1|1|11/22/2026 10:30:15 AM|1|11/22/2026 10:30:15 "
      "AM");
  EXPECT_EQ(shop.rows("select serial, itemcode, itemname, stockout, unit, rate, grossamt, discamt, itemvalue, packs, "
                      "packpcs, locationid, jobid from stockflow where stockout is not null order by flowid"),
            (Rows{"1|H1|Hammer|2|Pcs|50|100|0|100|1|1|1|0", "2|N1|Nail|10|Pcs|0.335|3.35|0|3.35|1|1|1|0",
                  "3|Service|Delivery|1||20|20||20|1|1|1|0"}));
  const std::string document = "O'Brien & Sons - Invoice No 1";
  const std::string lines =
      "O'Brien & Sons - (Hammer - 2 Pcs @Rs.50 =Rs.100) (Nail - 10 Pcs @Rs.0.335 =Rs.3.35) (Delivery - 1  @Rs.20 "
      "=Rs.20)";
  EXPECT_EQ(shop.rows(ledger),
            (Rows{"10001001|Cash in Hand|" + document + "|50|", "12001002|O'Brien & Sons|" + document + "|120|",
                  "12001002|O'Brien & Sons|" + document + "||50", "40001001|Sales|" + lines + "||123.35",
                  "60001001|Carriage & Freight Outwards|" + lines + "|3.35|"}));
  EXPECT_EQ(shop.rows(openItems), Rows{"1|1|11/22/2026|12001002|32|120|50|50|1"});
  // A new document waits.
  EXPECT_EQ(screen.text("DocNo"), "2");
  EXPECT_EQ(screen.text("PartyCodeTxt"), "");
  EXPECT_EQ(screen.text("NetTotal"), "0.00");
  EXPECT_TRUE(screen.find<QPushButton>("SaveBttn").isEnabled());
}

TEST(SaleInvoiceSaving, AWalkInCustomerPaysInFullUnderANameOfHisOwn) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.type("PartyCodeTxt", "12001001");
  ASSERT_FALSE(screen.box("PartyNameTxt").isReadOnly());
  screen.type("PartyNameTxt", "Mr Smith");
  screen.line(0, "H1", "3");
  EXPECT_EQ(screen.text("Received"), "150.00");
  screen.type("Discount", "0.5");
  EXPECT_EQ(screen.text("Received"), "149.50") << "kept in step";
  screen.press("SaveBttn");
  EXPECT_EQ(shop.rows("select accname, debit, credit from subtransactions where acccode in (10001001, 12001001, "
                      "40001001) and desc like 'Mr Smith%' order by serial"),
            (Rows{"Cash in Hand|149.5|", "Sales||149.5"}));
  screen.type("PartyCodeTxt", "12001001");
  screen.line(0, "H1", "1");
  screen.type("PartyCodeTxt", "12001003");
  EXPECT_EQ(screen.text("Received"), "50.00") << "another party leaves it as it stood";
  screen.type("Received", "10");
  EXPECT_EQ(screen.text("Balance"), "40.00");
}

TEST(SaleInvoiceSaving, SavingAgainRebuildsEverythingButAuthorAndMarks) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.saveInvoice("12001002", "40");
  shop.run("update transactions set text10 = 'O.G.P. No. 5' where trantype=32");
  const Rows oldLedger = shop.rows("select serial from subtransactions where acccode=40001001 order by serial");
  shop.clock.moment = text::DateTime::fromCalendar(2026, 11, 23, 9, 0, 0);
  shop.context.UserID = 1;

  screen.press("RetBttn");
  EXPECT_EQ(screen.text("PartyNameTxt"), "O'Brien & Sons");
  EXPECT_EQ(screen.text("Received"), "40.00");
  EXPECT_EQ(screen.find<QAbstractButton>("ConvLbl2").text(), "O.G.P. No. 5");
  EXPECT_FALSE(screen.find<QLabel>("ConvLbl").isHidden());
  screen.typeCell(0, GridColumn::Quantity, "4");
  screen.type("Received", "200");
  screen.press("SaveBttn");

  EXPECT_EQ(shop.one("select docno, tramount, received, balance, text10, timeadded, timeedited from transactions where "
                     "trantype=32"),
            "1|200|200|0|O.G.P. No. 5|11/22/2026 10:30:15 AM|11/23/2026 9:00:00 AM");
  EXPECT_EQ(shop.rows("select acccode, debit, credit from subtransactions where desc like 'O''Brien%' order by serial"),
            (Rows{"10001001|200|", "40001001||200"}))
      << "from credit to cash: the customer's rows are gone";
  EXPECT_NE(shop.rows("select serial from subtransactions where acccode=40001001 order by serial"), oldLedger);
  EXPECT_EQ(shop.rows("select stockout from stockflow where itemcode='H1' and stockout > 0"), Rows{"4"});
  EXPECT_EQ(shop.rows(openItems), Rows{"1|1|11/22/2026|12001002|32|200|200|200|1"});
}

TEST(SaleInvoiceSaving, CancellingTakesTheOpenItemAwayAndNothingElse) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.saveInvoice("12001003");
  for (const bool cancelled : {true, false}) {
    screen.press("RetBttn");
    auto& option = screen.find<QCheckBox>("CancelOption");
    EXPECT_EQ(option.isChecked(), !cancelled);
    option.click();
    EXPECT_EQ(option.font().bold(), cancelled);
    screen.press("SaveBttn");
    EXPECT_EQ(shop.one("select cancel from transactions where trantype=32"), cancelled ? "True" : "False");
    EXPECT_EQ(shop.rows(openItems).size(), cancelled ? 0u : 1u);
    EXPECT_EQ(shop.rows(ledger).size(), 2u);
    EXPECT_EQ(shop.one("select count(*) from stockflow where stockout > 0"), "1");
  }
}

TEST(SaleInvoiceSaving, AFailureInTheMiddleLeavesBooksAndScreenAsTheyWere) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.saveInvoice("12001003");
  const auto books = [&] {
    Rows all = shop.rows("select tranno, docno, tramount, timeedited from transactions");
    for (const char* part : {ledger, openItems, "select tranno, itemcode, stockout from stockflow"})
      for (const std::string& row : shop.rows(part)) all.push_back(row);
    return all;
  };
  int quantity = 100;
  const char* const tables[] = {"Transactions", "StockFlow", "SubTransactions", "AgingDr"};
  for (const bool shown : {false, true})
    for (const char* table : tables) {
      SCOPED_TRACE(std::string(shown ? "shown " : "new ") + table);
      const Rows before = books();
      if (shown) {
        screen.press("RetBttn");
        screen.typeCell(1, GridColumn::ItemCode, "N1");
        screen.typeCell(1, GridColumn::Quantity, QString::number(++quantity));
      } else {
        screen.type("PartyCodeTxt", "12001003");
        screen.line(0, "N1", "100");
      }
      const std::string net = screen.text("NetTotal");
      for (const char* event : {"INSERT", "UPDATE"}) {
        const std::string trigger = std::string("CREATE TEMP TRIGGER Fail") + event + " BEFORE " + event + " ON main." +
                                    table + " BEGIN SELECT RAISE(ABORT, 'no room'); END";
        ASSERT_EQ(sqlite3_exec(shop.context.KORDconn.handle(), trigger.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
      }
      shop.prompts.expectTitle("Cannot Save");
      screen.press("SaveBttn");
      EXPECT_EQ(books(), before);
      EXPECT_EQ(screen.text("NetTotal"), net);
      EXPECT_EQ(screen.text("PartyCodeTxt"), "12001003");
      EXPECT_TRUE(screen.find<QPushButton>("SaveBttn").isEnabled());
      EXPECT_EQ(screen.find<QTableView>("Grid").model()->rowCount(), 500);
      for (const char* drop : {"DROP TRIGGER temp.FailINSERT", "DROP TRIGGER temp.FailUPDATE"})
        sqlite3_exec(shop.context.KORDconn.handle(), drop, nullptr, nullptr, nullptr);
      screen.press("SaveBttn");  // the cause is mended: the same screen saves
      EXPECT_NE(books(), before);
      EXPECT_EQ(screen.text("PartyCodeTxt"), "");
      EXPECT_EQ(shop.one("select sum(debit)-sum(credit) as d from subtransactions"), "0");
    }
}

TEST(SaleInvoiceSaving, RefusesInItsOrderAndWritesNothing) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.saveInvoice("12001003");
  const auto refused = [&](const char* text) {
    shop.prompts.expect("Cannot Save", text);
    screen.press("SaveBttn");
    EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"), "1");
  };
  auto& day = screen.find<forms::DatePicker>("TrDate");
  screen.type("DocNo", "1");
  day.setDay(text::DateTime::fromCalendar(2025, 12, 31));
  refused("This Serial No. already exists in Sale Invoices. Saving this would create duplicate values.");
  screen.type("DocNo", "");
  refused("Transaction date cannot be before starting date of financial year.");
  day.setDay(text::DateTime::fromCalendar(2027, 1, 1));
  refused("Transaction date cannot be after ending date of financial year.");
  day.setDay(text::DateTime::fromCalendar(2026, 12, 31));
  refused("Serial number must be a numeric figure.");
  screen.type("DocNo", "40");
  refused("Select a correct customer. You may select Account Code '12001001' for a Walk-in (Cash) Customer.");

  // The credit limit is a question: No stops, Yes goes on.
  screen.type("PartyCodeTxt", "12001002");
  screen.line(0, "H1", "21");
  for (const session::Answer answer : {session::Answer::No, session::Answer::Yes}) {
    shop.prompts.expect("Credit Limit Increase",
                        "This will increase the balance of party from assigned credit limit. Do you want to continue?",
                        answer);
    screen.press("SaveBttn");
    EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"),
              answer == session::Answer::No ? "1" : "2");
  }
  EXPECT_EQ(screen.text("DocNo"), "41") << "the next number continues from the highest";
}

}  // namespace
