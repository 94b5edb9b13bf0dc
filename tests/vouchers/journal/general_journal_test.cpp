#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "frame/document/find_screen.h"
#include "frame/document/find_statement.h"
#include "vouchers/clerk.h"
#include "vouchers/journal/find_journals.h"
#include "vouchers/journal/general_journal_type.h"
#include "vouchers/journal/journal_totals_panel.h"

// Journal vouchers as the bookkeeper types them, and what then stands in the books.
namespace {

using namespace velmo;
using namespace velmo::test;
using namespace velmo::vouchers;
using Rows = std::vector<std::string>;

enum Column { Code, Name, Text, Debit, Credit };

class Bookkeeper : public Clerk {
 public:
  explicit Bookkeeper(SettlementCompany& company, frame::PrintOuts printOuts = {})
      : Clerk(company, makeGeneralJournal, std::move(printOuts)), company_(company) {}

  void cell(int row, Column column, const QString& text) { Clerk::cell("Grid", row, column, text); }
  std::string shown(int row, Column column) { return Clerk::shown("Grid", row, column); }
  void line(int row, const QString& account, Column side, const QString& amount) {
    cell(row, Code, account);
    cell(row, side, amount);
  }
  std::string label(const char* name) { return find<QLabel>(name).text().toStdString(); }
  void remarks(const char* text) { find<QPlainTextEdit>("Desc").setPlainText(text); }
  std::string tranNo(int docNo = 1) { return company_.tranNo(41, docNo); }
  Rows ledger(int docNo = 1) {
    return company_.rows("select acccode, accname, [desc], debit, credit from subtransactions where tranno=" +
                         tranNo(docNo) + " order by serial");
  }

 private:
  SettlementCompany& company_;
};

TEST(GeneralJournal, WritesWhatIsTypedAsTheLedger) {
  SettlementCompany company;
  Bookkeeper keeper(company);
  keeper.line(0, "60001002", Debit, "1234.5");
  keeper.cell(0, Text, "O'Brien's rebate");
  keeper.line(1, "12001002", Credit, "1000");
  keeper.line(2, "12001003", Credit, "234.50");
  keeper.cell(3, Code, "11001009");
  keeper.remarks("Year's end");
  keeper.find<forms::DropCombo>("EmpList").setCurrentIndex(0);
  EXPECT_EQ(keeper.text("DTot"), "1234.50");
  EXPECT_EQ(keeper.text("CTot"), "1234.50");
  EXPECT_EQ(keeper.label("DiffLbl"), "");
  EXPECT_EQ(keeper.label("AmtWords"), "Rupees one thousand, two hundred thirty-four and 50/100 only.");
  keeper.press("SaveBttn");
  EXPECT_EQ(company.one("select nature, partycode, partycode2, text1, [desc], tramount, wordsamt, received, balance, "
                        "locationfrom, locationto, invledger, cancel from transactions where trantype=41"),
            "0|0||Year's end|1234.5|one thousand, two hundred thirty-four and 50/100 only.|0|0|0|0|False|False");
  EXPECT_EQ(keeper.ledger(), (Rows{"60001002|Discount Given to Parties|O'Brien's rebate|1234.5|",
                                   "12001002|O'Brien & Sons|Year's end||1000",
                                   "12001003|Zoe Builders|Year's end||234.5", "11001009|City Bank|Year's end||"}))
      << "also the line without an amount";
  EXPECT_EQ(keeper.text("DocNo"), "2");
  EXPECT_EQ(keeper.shown(0, Code), "");
  EXPECT_EQ(keeper.text("DTot"), "0.00");
}

// The lines keep their rows: what is changed is changed, what is emptied goes, and nothing is written anew.
TEST(GeneralJournal, CarriesChangesOfASavedVoucherIntoItsOwnRows) {
  SettlementCompany company;
  Bookkeeper keeper(company);
  keeper.line(0, "60001002", Debit, "100");
  keeper.line(1, "12001002", Credit, "60");
  keeper.line(2, "12001003", Credit, "40");
  keeper.press("SaveBttn");
  const std::string tranNo = keeper.tranNo();
  const std::string serials = "select serial from subtransactions where tranno=" + tranNo + " order by serial";
  const Rows before = company.rows(serials);

  keeper.show(tranNo);
  EXPECT_EQ(keeper.shown(2, Name), "Zoe Builders");
  keeper.cell(1, Credit, "");
  keeper.cell(1, Code, "");
  keeper.cell(2, Credit, "100");
  keeper.line(3, "11001009", Debit, "0.25");
  keeper.cell(3, Debit, "");
  keeper.cell(3, Credit, "0");
  keeper.press("SaveBttn");
  EXPECT_EQ(keeper.ledger().size(), 3u);
  const Rows after = company.rows(serials);
  EXPECT_EQ((Rows{after.at(0), after.at(1)}), (Rows{before.at(0), before.at(2)}));
  EXPECT_EQ(company.one("select tramount from transactions where trantype=41"), "100");
}

TEST(GeneralJournal, ALineIsADebitOrACreditOfAnAccount) {
  SettlementCompany company;
  Bookkeeper keeper(company);
  const auto refused = [&](Column column, const char* text) {
    company.prompts.expect("Select Account", text);
    keeper.cell(0, column, "5");
    EXPECT_EQ(keeper.shown(0, column), "");
  };
  refused(Text, "Select account before entering description.");
  refused(Debit, "Select account before entering amount.");
  refused(Credit, "Select account before entering amount.");
  for (const char* unknown : {"99999999", "cash", "12001002.5"}) {
    keeper.cell(0, Code, unknown);
    EXPECT_EQ(keeper.shown(0, Code), "") << unknown;
  }
  keeper.line(0, "12001002", Debit, "10");
  keeper.cell(0, Name, "Other");
  EXPECT_EQ(keeper.shown(0, Name), "O'Brien & Sons");
  keeper.cell(0, Credit, "7");
  EXPECT_EQ(keeper.shown(0, Credit), "") << "not beside a debit";
  for (const char* wrong : {"x", "1e400", "123456789012.34"}) {
    keeper.cell(0, Debit, wrong);
    EXPECT_EQ(keeper.shown(0, Debit), "10.00") << wrong;
  }
  keeper.cell(0, Debit, "");
  keeper.cell(0, Credit, "-7");
  EXPECT_EQ(keeper.shown(0, Credit), "(7.00)");
  EXPECT_EQ(keeper.text("CTot"), "-7.00");
  EXPECT_EQ(keeper.label("DiffLbl"), "There is a difference of Rs. 7.00 in totals.");
}

TEST(GeneralJournal, ComparesTheTotalsAsTheyAreShown) {
  struct Case {
    double debit;
    double credit;
    const char* difference;
  };
  const Case cases[] = {{100.004, 100, ""},
                        {100.006, 100, "There is a difference of Rs. 0.01 in totals."},
                        {1, 1000.5, "There is a difference of Rs. -999.50 in totals."},
                        {-0.001, 0, ""},
                        {0.1 + 0.2, 0.3, ""},
                        {99999999999999.25, 99999999999999.25, ""}};
  for (const auto& [debit, credit, difference] : cases) {
    const JournalTotals totals = journalTotals({.debit = debit, .credit = credit});
    EXPECT_EQ(differenceText(totals), difference) << debit << " " << credit;
    EXPECT_EQ(totals.areEqual(), *difference == '\0');
  }
}

TEST(GeneralJournal, RefusesInTheOrderOfItsTests) {
  SettlementCompany company;
  Bookkeeper keeper(company);
  const auto refused = [&](const char* text) {
    company.prompts.expect("Cannot Save", text);
    keeper.press("SaveBttn");
    EXPECT_EQ(company.one("select count(*) from transactions where trantype=41"), "0") << text;
  };
  keeper.line(0, "60001002", Debit, "100.004");
  keeper.line(1, "12001002", Credit, "99");
  keeper.find<forms::DropCombo>("JobList").setEditText("no such job");
  keeper.find<forms::DropCombo>("EmpList").setEditText("nobody");
  keeper.find<forms::DatePicker>("TrDate").setDay(text::DateTime::fromCalendar(2027, 1, 1));
  refused("Transaction date cannot be after ending date of financial year.");
  keeper.find<forms::DatePicker>("TrDate").setDay(text::DateTime::fromCalendar(2026, 12, 31));
  refused("Select a correct job or leave it blank if you do not want to save a job reference.");
  keeper.find<forms::DropCombo>("JobList").setEditText("");
  refused("Select a correct employee or leave it blank if you do not want to save an employee reference.");
  keeper.find<forms::DropCombo>("EmpList").setEditText("");
  refused("Totals of debits and credits must be equal.");
  keeper.cell(1, Credit, "100");
  keeper.press("SaveBttn");
  EXPECT_EQ(
      company.one("select sum(debit)-sum(credit) from subtransactions where tranno=" + keeper.tranNo()).substr(0, 5),
      "0.004");
  keeper.press("SaveBttn");
  EXPECT_EQ(keeper.ledger(2), Rows{}) << "a voucher without lines saves as well";
  keeper.type("DocNo", "1");
  company.prompts.expect("Cannot Save", "This Serial No. already exists. Saving this would create duplicate values.");
  keeper.press("SaveBttn");
}

TEST(GeneralJournal, WritesNothingWhenAnAccountIsGone) {
  SettlementCompany company;
  Bookkeeper keeper(company);
  keeper.line(0, "60001002", Debit, "10");
  keeper.line(1, "12001003", Credit, "10");
  company.run("DELETE FROM AccLevel3 WHERE AccCode=12001003");
  company.prompts.expectTitle("Cannot Save");
  keeper.press("SaveBttn");
  EXPECT_EQ(company.one("select count(*) from transactions where trantype=41"), "0");
  EXPECT_EQ(keeper.shown(1, Code), "12001003") << "the screen is as it was";
  keeper.cell(1, Code, "12001002");
  keeper.press("SaveBttn");
  EXPECT_EQ(keeper.ledger().size(), 2u) << "and the cause can be mended";
}

TEST(GeneralJournal, PrintsItsVoucherAndBeginsANewOne) {
  SettlementCompany company;
  std::vector<std::string> printed;
  Bookkeeper keeper(company, {.voucher = [&](session::Workplace&, std::int64_t tranNo, QWidget*) {
                      printed.push_back(std::to_string(tranNo));
                    }});
  EXPECT_EQ(keeper.widget().findChild<QPushButton*>("PrintBill_0"), nullptr);
  keeper.line(0, "60001002", Debit, "10");
  keeper.line(1, "12001002", Credit, "10");
  keeper.press("PrintBill");
  QApplication::processEvents();
  EXPECT_EQ(printed, Rows{keeper.tranNo()});
  EXPECT_EQ(keeper.text("DocNo"), "2");
  EXPECT_EQ(keeper.shown(0, Code), "");
}

TEST(GeneralJournal, WorksByKeyboardAndClipsNothing) {
  SettlementCompany company;
  Bookkeeper keeper(company);
  auto& grid = keeper.find<QTableView>("Grid");
  auto& remarks = keeper.find<QPlainTextEdit>("Desc");
  EXPECT_TRUE(grid.hasFocus()) << "where a voucher begins";
  test::type(grid, "z");
  test::type(*QApplication::focusWidget(), "oe");
  QApplication::processEvents();  // the list narrows
  ASSERT_TRUE(keeper.find<QWidget>("AccCodeList").isVisible());
  test::press(*QApplication::focusWidget(), Qt::Key_Down);
  test::press(*QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(keeper.shown(0, Code) + " " + keeper.shown(0, Name), "12001003 Zoe Builders");
  test::press(grid, Qt::Key_F6);
  EXPECT_TRUE(remarks.hasFocus());
  test::press(remarks, Qt::Key_F6);
  EXPECT_TRUE(grid.hasFocus());

  keeper.widget().resize(1024, 700);
  keeper.cell(0, Debit, "77777777777.77");
  QApplication::processEvents();
  for (const char* name : {"DiffLbl", "AmtWords"}) {
    const auto& label = keeper.find<QLabel>(name);
    EXPECT_GE(label.height(), label.heightForWidth(label.width())) << name;
  }
  const QLineEdit& total = keeper.box("DTot");
  EXPECT_GE(total.contentsRect().width(), total.fontMetrics().horizontalAdvance(total.text()) + 8);
}

TEST(FindJournals, FindsByEveryColumnUnderItsRight) {
  SettlementCompany company;
  {
    Bookkeeper keeper(company);
    keeper.line(0, "60001002", Debit, "12.5");
    keeper.line(1, "12001002", Credit, "12.5");
    keeper.remarks("Rent of the O'Hara store");
    keeper.press("SaveBttn");
  }
  const frame::FindType type = findJournals();
  const std::array<std::array<const char*, 4>, 4> searches = {
      {{"Serial No.", "1", "2", "Give serial no. to find."},
       {"Date", "", "", ""},
       {"Description", "o'hara", "o'brien", "Give remarks / description to find."},
       {"Amount", "12.50", "12", "Give amount paid to find."}}};
  ASSERT_EQ(type.columns.size(), searches.size());
  for (std::size_t at = 0; at < searches.size(); ++at) {
    const auto& [caption, value, other, refusal] = searches[at];
    const frame::FindColumn& column = type.columns[at];
    EXPECT_EQ(column.caption, caption);
    const auto count = [&](const char* wanted, const text::DateTime& day) {
      const std::string condition = frame::findCondition(column, wanted, day).value();
      return store::Recordset(company.context.KORDconn, frame::findStatement(type, 41, 1, condition)).recordCount();
    };
    EXPECT_EQ(count(value, company.clock.today()), 1) << caption;
    EXPECT_EQ(count(other, company.clock.today().addDays(1)), 0) << caption;
    if (*refusal) {
      EXPECT_EQ(frame::findCondition(column, "", {}).error(), refusal);
    }
  }
  const schema::DocumentForm& form = schema::documentForm("GeneralJournal");
  EXPECT_EQ(form.viewRight, 124);
  const frame::FindScreen find(
      type, form, company.workplace, [] {}, nullptr);
  const auto& found = *find.findChild<QTableView*>("TranGrid")->model();
  for (int column = 0; column < found.columnCount(); ++column)
    EXPECT_TRUE(found.index(0, column).data().isValid()) << column;
}

}  // namespace
