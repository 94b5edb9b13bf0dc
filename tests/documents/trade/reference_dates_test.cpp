#include <gtest/gtest.h>

#include <QComboBox>

#include "documents/invoice_company.h"
#include "documents/invoices/trade_screens.h"
#include "documents/print/invoice_print.h"
#include "forms/date_picker.h"
#include "printing/page_pictures.h"
#include "support/damage.h"

// Dates that a document keeps as texts: one form for what the program writes, whichever form an older file has.
namespace {

using namespace velmo;
using namespace velmo::test;

std::string bare(const InvoiceCompany& shop, const std::string& sql) {
  return past(shop.company.file(), sql);
}

// A return of two hammers against the number 12 of 3 October.
std::string saveReturn(InvoiceCompany& shop, InvoiceScreen& screen, const char* number, const char* day) {
  screen.type("PartyCodeTxt", "12001002");
  screen.type("D1", "12");
  screen.type(number, "12");
  screen.find<forms::DatePicker>(day).setDay(text::DateTime::fromCalendar(2026, 10, 3));
  screen.line(0, "H1", "2");
  screen.press("SaveBttn");
  return bare(shop, "select TranNo from Transactions where TranType in (25, 35)");
}

struct Return {
  InvoiceScreen::Make make;
  const char* screen;
  const char* number;
  const char* day;
  const char* column;
  const char* table;
  const char* searched;
  documents::InvoiceKind kind;
};

const Return returns[] = {{documents::makeSaleReturns, "FindSReturns", "D1", "D1Dt", "D1Date", "AgingDr",
                           "Invoice Date", documents::InvoiceKind::SaleReturn},
                          {documents::makePurchaseReturns, "FindPReturns", "D2", "D2Dt", "D2Date", "AgingCr",
                           "Purchase Date", documents::InvoiceKind::PurchaseReturn}};

TEST(ReferenceDates, AReturnOfAnOlderFileIsSavedAgainWithTheSameOpenItem) {
  for (const Return& kind : returns) {
    SCOPED_TRACE(kind.screen);
    InvoiceCompany shop;
    InvoiceScreen screen(shop, {}, kind.make);
    const std::string tranNo = saveReturn(shop, screen, kind.number, kind.day);
    const std::string text = std::string("select ") + kind.column + " from Transactions where TranNo = " + tranNo;
    const std::string item =
        std::string("select DocNo || ' ' || date(TranDate) from ") + kind.table + " where TranNo = " + tranNo;
    EXPECT_EQ(bare(shop, text), "03-10-2026");
    EXPECT_EQ(bare(shop, item), "12 2026-10-03");
    for (const char* older : {"10/3/2026", "2026-10-03", "03-10-2026"}) {
      bare(shop, "update Transactions set " + std::string(kind.column) + " = '" + older + "' where TranNo = " + tranNo);
      screen.show(tranNo);
      EXPECT_EQ(screen.find<forms::DatePicker>(kind.day).day(), text::DateTime::fromCalendar(2026, 10, 3)) << older;
      screen.press("SaveBttn");
      EXPECT_EQ(bare(shop, text), "03-10-2026") << older;
      EXPECT_EQ(bare(shop, item), "12 2026-10-03") << older;
    }
    // What nobody can read does not take the day of the document that was shown before.
    bare(shop, "update Transactions set " + std::string(kind.column) + " = 'soon' where TranNo = " + tranNo);
    screen.find<forms::DatePicker>(kind.day).setDay(text::DateTime::fromCalendar(2026, 1, 1));
    screen.show(tranNo);
    EXPECT_EQ(screen.find<forms::DatePicker>(kind.day).day(), shop.clock.today());
  }
}

TEST(ReferenceDates, AreFoundInBothFormsAndShownInOne) {
  for (const Return& kind : returns) {
    SCOPED_TRACE(kind.screen);
    InvoiceCompany shop;
    InvoiceScreen screen(shop, {}, kind.make);
    const std::string tranNo = saveReturn(shop, screen, kind.number, kind.day);
    for (const char* stored : {"10/3/2026", "03-10-2026"}) {
      bare(shop, "update Transactions set " + std::string(kind.column) + " = '" + stored +
                     "', TimeAdded = '2026-10-03 14:07:09' where TranNo = " + tranNo);
      screen.withFind(kind.screen, [&](QDialog& find) {
        auto& columns = *find.findChild<QComboBox*>("ColList");
        columns.setCurrentIndex(columns.findText(kind.searched));
        const QTableView& grid = *find.findChild<QTableView*>("TranGrid");
        for (const char* typed : {"03-10-2026", "3-10-2026", "10/3/2026", "2026-10-03", "04-10-2026", "10/4/2026"}) {
          find.findChild<QLineEdit*>("ValueBox")->setText(typed);
          find.findChild<QPushButton*>("FindBttn")->click();
          EXPECT_EQ(grid.model()->rowCount(), std::string_view(typed).find('4') == std::string_view::npos ? 1 : 0)
              << stored << " by " << typed;
        }
        find.findChild<QPushButton*>("RefBttn")->click();
        QStringList shown;
        for (int column = 0; column < grid.model()->columnCount(); ++column)
          shown << grid.model()->index(0, column).data().toString();
        EXPECT_TRUE(shown.contains("03-10-2026")) << shown.join(", ").toStdString();
        EXPECT_TRUE(shown.contains("03-10-2026 14:07:09")) << shown.join(", ").toStdString();
        EXPECT_FALSE(shown.join(' ').contains('/')) << shown.join(", ").toStdString();
      });
    }
  }
}

TEST(ReferenceDates, WhatWasTypedIsNeverRewritten) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.type("PartyCodeTxt", "12001002");
  screen.type("D1", "PO-8");
  screen.type("D1Dt", "10/3/2026");
  screen.type("D2Dt", "15.11");
  screen.line(0, "H1", "2");
  screen.press("SaveBttn");
  const std::string tranNo = bare(shop, "select TranNo from Transactions where TranType = 32");
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(bare(shop, "select D1Date || ', ' || D2Date from Transactions where TranType = 32"), "10/3/2026, 15.11");
    screen.show(tranNo);
    EXPECT_EQ(screen.text("D1Dt"), "10/3/2026");
    screen.press("SaveBttn");
  }
}

QString printed(InvoiceCompany& shop, documents::InvoiceKind kind, const std::string& tranNo) {
  const store::Recordset document(shop.context.KORDconn, "select * from transactions where tranno = " + tranNo);
  const store::Recordset lines(shop.context.KORDconn, "Select * from stockflow where tranno = " + tranNo);
  QString all;
  for (const printing::Page& page :
       printing::test::pagesOf(documents::tradePrint({shop.context, document, lines, {}, shop.clock.today()}, kind)))
    for (const printing::TextRun& run : page.drawing.texts) all += printing::drawnText(page.drawing, run, 1) + u'\n';
  return all;
}

TEST(ReferenceDates, PrintAsTheyWereTypedOrPicked) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.saveInvoice("12001002");
  const std::string tranNo = bare(shop, "select TranNo from Transactions where TranType = 32");
  for (const char* typed : {"15.11", "46000", "15.11.26", "10/3/2026", "next week"}) {
    bare(shop, std::string("update Transactions set D1Date = '") + typed + "', D2Date = '' where TranNo = " + tranNo);
    const QString paper = printed(shop, documents::InvoiceKind::Sale, tranNo);
    EXPECT_TRUE(paper.contains(QString::fromUtf8(typed) + u'\n')) << typed;
    EXPECT_FALSE(paper.contains("yyyy")) << typed;
  }
  for (const Return& kind : returns) {
    bare(shop, "update Transactions set D1Date = '', D2Date = ''");
    bare(shop, std::string("update Transactions set ") + kind.column + " = '10/3/2026'");
    EXPECT_TRUE(printed(shop, kind.kind, tranNo).contains("03-10-2026")) << kind.column;
  }
}

}  // namespace
