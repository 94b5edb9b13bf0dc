#include <QComboBox>
#include <QPlainTextEdit>

#include "documents/invoice_company.h"

namespace {

using namespace velmo;
using frame::GridColumn;
using test::InvoiceCompany;
using test::InvoiceScreen;

const QStringList& hostileTexts() {
  static const QStringList texts{"O'Brien",
                                 "\"quoted\"",
                                 "[bracket",
                                 "]",
                                 "%",
                                 "_",
                                 "#11-22-2026#",
                                 "; drop table transactions",
                                 "' or '1'='1",
                                 QString(10000, 'x'),
                                 QString::fromUtf8("\xF0\x9F\x94\xA8 hammer"),
                                 QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"),
                                 QString::fromUtf8("a\0b", 3),
                                 "1e308",
                                 "-0",
                                 "(5.00)",
                                 "1,2,3",
                                 "&HFF"};
  return texts;
}

// A person may paste anything anywhere: a refusal or the text as it is, never a broken statement.
TEST(SaleInvoiceHostileTexts, GoThroughEveryBox) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  for (const QString& text : hostileTexts()) {
    SCOPED_TRACE(text.left(30).toStdString());
    for (const char* name : {"PartyCodeTxt", "IncomeCode"}) {
      screen.type(name, text.left(200));
      EXPECT_EQ(screen.text(name), "") << "no account: cleared on leaving";
    }
    screen.type("IncomeCode", "40001001");
    screen.type("PartyCodeTxt", "12001001");
    for (const char* name : {"PartyNameTxt", "PartyAddress", "PartyTel", "Terms", "D1", "D1Dt", "D2", "D2Dt"}) {
      screen.box(name).setFocus();
      screen.box(name).setText(text);
      test::press(screen.box(name), Qt::Key_Tab);
    }
    for (const char* name : {"Discount", "Carriage"}) {
      screen.box(name).setFocus();
      screen.box(name).clear();
      screen.box(name).insert(text);
      screen.box(name).setText("0.00");
    }
    screen.find<QPlainTextEdit>("Desc").setPlainText(text);
    screen.line(0, "H1", "1");
    const QString name = screen.box("PartyNameTxt").text();
    const std::string docNo = screen.text("DocNo");
    if (text.contains(QChar(0))) {  // the one text that the store cannot hold: told, and nothing written
      shop.prompts.expectTitle("Cannot Save");
      screen.press("SaveBttn");
      EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32 and docno=" + docNo), "0");
      screen.press("CancelBttn");
      continue;
    }
    screen.press("SaveBttn");
    const std::string ofDocument = " from transactions where trantype=32 and docno=" + docNo;
    EXPECT_EQ(shop.one("select text1" + ofDocument), name.toStdString());
    EXPECT_EQ(shop.one("select d1date" + ofDocument), name.toStdString());
    EXPECT_EQ(shop.one("select desc" + ofDocument), text.toStdString());
    screen.press("RetBttn");
    EXPECT_EQ(screen.box("PartyNameTxt").text(), name);
    screen.press("AddBttn");
  }
}

TEST(SaleInvoiceHostileTexts, ListsThatDoNotMatchAreRefused) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  screen.type("PartyCodeTxt", "12001003");
  const std::pair<const char*, const char*> lists[] = {
      {"LocationList", "Select a correct location of inventory."},
      {"JobList", "Select a correct job or leave it blank if you do not want to save a job reference."},
      {"EmpList", "Select a correct employee or leave it blank if you do not want to save an employee reference."}};
  for (const auto& [name, refusal] : lists) {
    auto& list = screen.find<QComboBox>(name);
    const QString good = list.currentText();
    for (const QString& text : hostileTexts()) {
      list.setEditText(text);
      shop.prompts.expect("Cannot Save", refusal);
      screen.press("SaveBttn");
    }
    list.setEditText(good);
  }
  EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"), "0");
}

TEST(SaleInvoiceHostileTexts, GoThroughTheColumnsOfTheGrid) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  int row = 0;
  for (const QString& text : hostileTexts()) {
    SCOPED_TRACE(text.left(30).toStdString());
    screen.typeCell(row, GridColumn::ItemCode, "Service");
    screen.typeCell(row, GridColumn::Description, text.left(40));
    screen.typeCell(row, GridColumn::Packing, text.left(40));
    ++row;
  }
  screen.type("PartyCodeTxt", "12001003");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.one("select count(*) from stockflow where itemcode='Service'"), std::to_string(row));
  EXPECT_EQ(shop.one("select count(*) from stockflow where itemname='O''Brien' and packing='O''Brien'"), "1");
}

}  // namespace
