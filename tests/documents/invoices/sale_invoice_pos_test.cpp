#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>

#include "documents/invoice_company.h"
#include "documents/invoices/trade_screens.h"
#include "documents/trade/payment_panel.h"
#include "printing/preview_window.h"
#include "session/settings.h"

namespace {

using namespace velmo;
using frame::GridColumn;
using test::InvoiceCompany;
using test::InvoiceScreen;
using Rows = std::vector<std::string>;

std::string ledger(const char* columns) {
  return std::string("select ") + columns +
         " from transactions inner join subtransactions on transactions.tranno = subtransactions.tranno where "
         "transactions.trantype=32 order by subtransactions.serial";
}

class Counter : public InvoiceScreen {
 public:
  explicit Counter(InvoiceCompany& shop) : InvoiceScreen(shop, {}, documents::makeSaleInvoicesPOS) {}

  QWidget& panel() { return find<QWidget>("BalPic"); }
  bool isPaying() { return panel().isVisible() && !find<QWidget>("FormPic").isEnabled(); }
  void pay(const QString& received) {
    box("Received").selectAll();
    test::type(box("Received"), received);
    test::press(box("Received"), Qt::Key_Return);
  }
  // A key of the keyboard, so many milliseconds after the one before, goes to whatever has the focus.
  void key(int key, const QString& text, int gap) {
    at_ += static_cast<quint64>(gap);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, text);
      event.setTimestamp(at_);
      QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
  }
  void keys(const QString& text, int gap) {
    for (const QChar character : text) key(character.toUpper().unicode(), QString(character), gap);
  }
  void scan(const QString& code, int gap = 5) {
    at_ += 1000;
    keys(code, gap);
    key(Qt::Key_Return, {}, gap);
  }
  std::string cell(int row, GridColumn column) {
    const QAbstractItemModel& lines = *find<QTableView>("Grid").model();
    return lines.index(row, static_cast<int>(column)).data().toString().toStdString();
  }

 private:
  quint64 at_ = 1000;  // of the last key, in milliseconds
};

// The company's items under codes as long as those on a label.
class CounterCompany : public InvoiceCompany {
 public:
  CounterCompany() {
    context.KORDconn.execute("update stockflow set itemcode = '20000001' where itemcode = 'H1'");
    context.KORDconn.execute("update stocklevel3 set itemcode = '20000001' where itemcode = 'H1'");
    context.ItemsRS.requery();
  }
};

TEST(Counter, ScansPaysAndPostsStraightIntoTheDebitAccount) {
  CounterCompany shop;
  Counter counter(shop);
  EXPECT_EQ(counter.text("PartyCodeTxt"), "12001001");
  EXPECT_EQ(counter.text("ACodeTxt"), "10001001");
  EXPECT_EQ(counter.text("Acc"), "Cash in Hand");
  counter.find<QTableView>("Grid").setFocus();
  counter.scan("20000001");
  counter.scan("20000001");
  counter.scan("N1");
  EXPECT_EQ(counter.cell(0, GridColumn::Quantity), "2.00");
  EXPECT_EQ(counter.cell(1, GridColumn::ItemCode), "N1");
  EXPECT_EQ(counter.text("NetTotal"), "100.34");
  counter.type("PartyNameTxt", "Mr O'Hara");
  counter.find<QPlainTextEdit>("Desc").setPlainText("Till 1");
  counter.find<QComboBox>("PayMode").setCurrentIndex(2);

  counter.save();
  ASSERT_TRUE(counter.isPaying());
  EXPECT_TRUE(counter.box("Received").hasFocus());
  EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"), "0") << "nothing before the money";
  test::type(counter.box("Received"), "120");
  EXPECT_EQ(counter.text("Balance"), "19.66") << "the change";
  test::press(counter.box("Received"), Qt::Key_Return);
  EXPECT_FALSE(counter.panel().isVisible());
  EXPECT_TRUE(counter.find<QWidget>("FormPic").isEnabled());

  EXPECT_EQ(shop.one("select partycode, partycode2, text1, text4, text11, text12, tramount, received, balance from "
                     "transactions where trantype=32"),
            "40001001|12001001|Mr O'Hara|10001001|2|0|100.34|100.34|0");
  EXPECT_EQ(shop.rows(ledger("subtransactions.accname, subtransactions.desc, debit, credit")),
            (Rows{"Cash in Hand|Till 1|100.34|", "Sales|Till 1||100.34"}));
  EXPECT_EQ(shop.one("select docno, partycode, trantype, tramount, payment, totpayment from agingdr"),
            "1|12001001|32|100.34|120|120");
  EXPECT_EQ(counter.text("DocNo"), "2");
  EXPECT_EQ(counter.text("NetTotal"), "0.00");
}

TEST(Counter, OffersWhatIsLikelyHandedOver) {
  using documents::likelyTenders;
  EXPECT_EQ(likelyTenders(100.34), (std::vector<double>{100.34, 110, 150, 200, 500, 1000}));
  EXPECT_EQ(likelyTenders(100), (std::vector<double>{100, 110, 150, 200, 500, 1000}));
  EXPECT_EQ(likelyTenders(999.99), (std::vector<double>{999.99, 1000}));
  EXPECT_EQ(likelyTenders(0), (std::vector<double>{}));
  EXPECT_EQ(likelyTenders(-5), (std::vector<double>{}));
}

TEST(Counter, TellsWhatIsShortAndAsksWhereTheCompanyWantsIt) {
  CounterCompany shop;
  Counter counter(shop);
  counter.find<QTableView>("Grid").setFocus();
  counter.scan("20000001");
  counter.scan("N1");
  counter.save();
  const std::string total = counter.text("NetTotal");
  const auto told = [&] { return counter.find<QLabel>("ShortLbl").text().toStdString(); };
  EXPECT_EQ(told(), "Short by " + total);
  counter.find<QAbstractButton>("TenderBttn_0").click();
  EXPECT_EQ(counter.text("Received") + counter.text("Balance") + told(), total + "0.00");
  EXPECT_TRUE(counter.box("Received").hasFocus()) << "a touch leaves the keyboard where it is";

  counter.find<QAbstractButton>("AskShort").setChecked(true);
  counter.pay(QString::fromStdString(total));
  counter.find<QTableView>("Grid").setFocus();
  counter.scan("20000001");
  counter.save();
  const std::string question =
      "1.00 is missing of the total of " + counter.text("NetTotal") + ". Do you want to save the invoice as paid?";
  const QString less = QString::number(std::stod(counter.text("NetTotal")) - 1, 'f', 2);
  shop.prompts.expect("Short Payment", question, session::Answer::No);
  counter.pay(less);
  EXPECT_TRUE(counter.isPaying());
  shop.prompts.expect("Short Payment", question, session::Answer::Yes);
  counter.pay(less);
  EXPECT_FALSE(counter.panel().isVisible());
  EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"), "2");
}

TEST(Counter, EscapeLeadsBackToALiveFormAndLessThanTheTotalStillSaves) {
  CounterCompany shop;
  Counter counter(shop);
  counter.line(0, "20000001", "1");
  counter.type("Carriage", "-5");
  counter.press("SaveBttn");
  ASSERT_TRUE(counter.isPaying());
  test::press(counter.box("Received"), Qt::Key_Escape);
  EXPECT_FALSE(counter.isPaying());
  EXPECT_TRUE(counter.find<QWidget>("FormPic").isEnabled());
  EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"), "0");
  for (const char* refused : {"x", ""}) {
    counter.type("ACodeTxt", refused);
    counter.press("SaveBttn");
    shop.prompts.expect("Cannot Save", "Select a correct account to debit.");
    counter.pay("1");
    EXPECT_TRUE(counter.find<QWidget>("FormPic").isEnabled());
  }
  counter.type("ACodeTxt", "10001001");
  counter.press("SaveBttn");
  test::type(counter.box("Received"), "40");
  EXPECT_EQ(counter.text("Balance"), " (5.00)");
  test::press(counter.box("Received"), Qt::Key_Return);
  EXPECT_EQ(shop.one("select tramount, received, balance from transactions where trantype=32"), "45|45|0");
  EXPECT_EQ(shop.rows(ledger("acccode, debit, credit")), (Rows{"10001001|45|", "40001001||50", "60001001|5|"}));
  // Shown again it is as it was saved, and saved again it keeps what the other screen may have written.
  shop.run("update transactions set d1 = 'PO-1', text10 = 'mark' where trantype=32");
  counter.press("PrevBttn");
  EXPECT_EQ(counter.text("Acc"), "Cash in Hand");
  counter.press("SaveBttn");
  counter.pay("45");
  EXPECT_EQ(shop.one("select d1, text10, text12 from transactions where trantype=32"), "PO-1|mark|0");
}

TEST(Counter, AScanLandsInTheLinesWhereverTheFocusIs) {
  CounterCompany shop;
  Counter counter(shop);
  counter.type("PartyNameTxt", "Zoe");
  for (const char* field : {"PartyNameTxt", "PartyTel", "Discount"}) {
    counter.box(field).setFocus(Qt::TabFocusReason);
    const std::string before = counter.text(field);
    counter.scan("20000001");
    EXPECT_EQ(counter.text(field), before) << field;
    EXPECT_TRUE(counter.find<QTableView>("Grid").hasFocus()) << field;
  }
  EXPECT_EQ(counter.cell(0, GridColumn::Quantity), "3.00");
  counter.find<QAbstractButton>("RaiseQuantity").setChecked(false);
  counter.scan("20000001");
  EXPECT_EQ(counter.cell(1, GridColumn::ItemCode) + " " + counter.cell(1, GridColumn::Quantity), "20000001 1.00");

  counter.scan("99999999");
  EXPECT_EQ(counter.find<QLabel>("ScanLbl").text().toStdString(), "No item has the code 99999999.");
  EXPECT_EQ(counter.cell(2, GridColumn::ItemCode), "");
  counter.scan("N1");
  EXPECT_EQ(counter.find<QLabel>("ScanLbl").text().toStdString(), "");
  EXPECT_EQ(counter.cell(2, GridColumn::ItemCode), "N1");
  // A person types more slowly: Enter leads on and nothing is added.
  QLineEdit& name = counter.box("PartyNameTxt");
  name.setFocus(Qt::TabFocusReason);
  counter.keys("Zoe20", 60);
  counter.key(Qt::Key_Return, {}, 60);
  EXPECT_TRUE(name.text().endsWith(QStringLiteral("Zoe20"))) << name.text().toStdString();
  EXPECT_EQ(counter.cell(3, GridColumn::ItemCode), "");
}

TEST(Counter, RemembersHowItWorksAndASlipWhosePrinterIsGoneIsShown) {
  CounterCompany shop;
  {
    Counter counter(shop);
    counter.find<QAbstractButton>("RaiseQuantity").click();
    session::saveSetting(shop.context.KORDconn, session::settings::SlipPrinter, "Till 'printer'");
  }
  Counter counter(shop);
  EXPECT_FALSE(counter.find<QAbstractButton>("RaiseQuantity").isChecked());
  EXPECT_EQ(counter.find<QComboBox>("SlipList").currentText(), QStringLiteral("Till 'printer'"));
  counter.line(0, "N1", "10");
  counter.press("PrintBill_0");
  shop.prompts.expect(
      "Cannot Print",
      "The printer \"Till 'printer'\" is not there any more. The invoice is saved, and its slip is shown instead.");
  counter.pay("5");
  EXPECT_EQ(shop.one("select tramount from transactions where trantype=32"), "3.35");
  int previews = 0;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* preview = qobject_cast<printing::PreviewWindow*>(window)) {
      ++previews;
      preview->close();
    }
  EXPECT_EQ(previews, 1);
}

TEST(Counter, ANumberIsOnceInBothScreensOfTheYear) {
  CounterCompany shop;
  InvoiceScreen office(shop);
  office.line(0, "N1", "2");
  office.type("PartyCodeTxt", "12001002");
  office.press("SaveBttn");
  Counter counter(shop);
  EXPECT_EQ(counter.text("DocNo"), "2");
  counter.type("DocNo", "1");
  counter.line(0, "N1", "1");
  counter.press("SaveBttn");
  shop.prompts.expect("Cannot Save",
                      "This Serial No. already exists in Sale Invoices. Saving this would create duplicate values.");
  counter.pay("1");
  EXPECT_EQ(shop.one("select count(*) from transactions where trantype=32"), "1");
}

}  // namespace
