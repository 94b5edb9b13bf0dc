#include "masters/people/jobs.h"

#include <QCheckBox>
#include <QListView>

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "masters/master_company.h"
#include "printing/preview_window.h"

namespace velmo::masters {
namespace {

// Customers, a vendor and two people, of whom one has left; the customers' accounts are read as the shell reads them.
class Jobs : public test::MasterCompany {
 protected:
  Jobs() {
    logIn();
    run(
        {"INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, Address, Phone, Contact) VALUES (12001002, "
         "'O''Brien & Sons', 120, 12001, '1 High St', '555-1', 'Mr. Khan')",
         "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, Address) VALUES (21001002, 'Yard', 210, 21001, "
         "'Dock 4')",
         "INSERT INTO Employees (EmpID, EmpName, Status) VALUES (7, 'Omar', Yes)",
         "INSERT INTO Employees (EmpID, EmpName, Status) VALUES (8, 'Zoë', No)"});
    context->AccountsRS.open(context->KORDconn, "SELECT * from AccLevel3 order by acccode", store::LockType::ReadOnly);
    context->CompanyName = "Harbour Timber";
    open(makeJobs);
  }

  void add(const char* number) {
    click("AddBttn");
    write("DocNo", number);
  }
  forms::DropCombo& inCharge() { return control<forms::DropCombo>("EmpList"); }
  std::string customer() {
    std::string all;
    for (const char* box : {"PartyCodeTxt", "PartyNameTxt", "PartyAddress", "PartyTel", "PartyContact"})
      all += read(box) + "|";
    return all;
  }
  std::string saved(const std::string& column, const std::string& number) {
    return rows("select * from jobs where jobno = " + number).text(column);
  }
};

TEST_F(Jobs, ANewJobBeginsTodayAndIsWrittenWhole) {
  EXPECT_FALSE(control<QPushButton>("JobCard").isEnabled());
  add("41");
  EXPECT_FALSE(control<QPushButton>("JobCard").isEnabled()) << "not saved yet";
  EXPECT_EQ(control<forms::DatePicker>("TrDate").day(), text::DateTime::fromCalendar(2026, 11, 22));
  EXPECT_EQ(inCharge().boundValue(), store::Value(std::int64_t{1}));
  EXPECT_EQ(customer(), "|||||");
  control<forms::DatePicker>("TrDate").setDay(text::DateTime::fromCalendar(2026, 3, 5));
  inCharge().setEditText("zoë");
  control<QCheckBox>("CompleteOpt").setChecked(true);
  const std::pair<const char*, const char*> boxes[] = {{"Desc", "Two oak doors"},      {"OrderNo", "PO-9 of 1 March"},
                                                       {"DelDate", "end of April"},    {"PartyCodeTxt", "12001002"},
                                                       {"EstCost", "1250.5"},          {"JobValue", "2000"},
                                                       {"CompDate", "30 April"},       {"DelRef", "DC-3"},
                                                       {"Remarks", "it's for \"Zoë\""}};
  for (const auto& [box, text] : boxes) write(box, text);
  click("SaveBttn");
  EXPECT_EQ(line("select JobNo, JobDesc, OrderRefDate, ExpDeliveryDate, CustomerCode, CustomerName, Address, "
                 "Telephone, Contact, EstimatedCost, ValueofWork, InchargeID, CompletionDate, DeliveryRefDate, "
                 "Remarks, JobDate, Status from jobs"),
            "41|Two oak doors|PO-9 of 1 March|end of April|12001002|O'Brien & Sons|1 High St|555-1|Mr. "
            "Khan|1250.5|2000|8|30 April|DC-3|it's for \"Zoë\"|3/5/2026|True");
  EXPECT_EQ(count("Grid"), 1);
}

TEST_F(Jobs, RefusalsComeInTheirOrder) {
  refused("SaveBttn", "Cannot Save", "Click on Add Button before adding record.");
  add("");
  inCharge().setEditText("Nobody");
  write("PartyCodeTxt", "10001001");
  refused("SaveBttn", "Cannot Save", "Job No. must be a numeric figure.");
  write("DocNo", "5");
  for (const char* nobody : {"Nobody", "Omar"}) {
    inCharge().setEditText(nobody);
    refused("SaveBttn", "Cannot Save",
            "Select a correct employee or leave it blank if you do not want to save an employee reference.");
  }
  inCharge().setEditText("");
  for (const char* code : {"10001001", "99", "1200100", "O'Brien", "12001002.5"}) {
    write("PartyCodeTxt", code);
    refused("SaveBttn", "Cannot Save", "Select a correct customer.");
  }
  EXPECT_EQ(rows("select * from jobs").recordCount(), 0);
  write("PartyCodeTxt", "21001002");
  click("SaveBttn");
  EXPECT_EQ(saved("InchargeID", "5"), "");
  EXPECT_EQ(saved("CustomerName", "5"), "Yard") << "a vendor is a party";
}

TEST_F(Jobs, TheCodeBringsTheCustomerAndAnotherTextTakesHimAway) {
  add("1");
  auto& code = control<QLineEdit>("PartyCodeTxt");
  test::focus(code);
  test::type(code, "12001002");
  EXPECT_EQ(customer(), "12001002|O'Brien & Sons|1 High St|555-1|Mr. Khan|");
  test::press(code, Qt::Key_Backspace);
  EXPECT_EQ(customer(), "1200100|||||");
  test::press(code, Qt::Key_Escape);
  EXPECT_TRUE(master().panel(0).isBusy()) << "Esc is the box's own key";
  test::type(code, "brien");
  auto& list = control<QListView>("PartyList");
  ASSERT_TRUE(list.isVisible());
  EXPECT_EQ(list.model()->rowCount(), 1);
  test::press(code, Qt::Key_Down);
  test::press(list, Qt::Key_Return);
  EXPECT_EQ(read("PartyCodeTxt"), "12001002");
  EXPECT_EQ(QApplication::focusWidget(), &control<QLineEdit>("PartyNameTxt"));
  test::focus(code);
  test::type(code, "Cash in Hand");
  EXPECT_EQ(list.model()->rowCount(), 0) << "parties only";
  test::press(code, Qt::Key_Return);
  EXPECT_EQ(customer(), "|||||");
  EXPECT_EQ(QApplication::focusWidget(), &control<QLineEdit>("PartyNameTxt"));
  write("PartyNameTxt", "A passer-by");
  click("SaveBttn");
  EXPECT_EQ(saved("CustomerCode", "1") + "/" + saved("CustomerName", "1"), "/A passer-by");
}

TEST_F(Jobs, WhoHasLeftStaysInChargeOfHisOldJobs) {
  run(
      {"INSERT INTO Jobs (JobNo, JobDesc, CustomerCode, CustomerName, InchargeID, Status) VALUES (1, 'Old', 12001002, "
       "'Name of then', 7, No)",
       "INSERT INTO Jobs (JobNo, JobDesc, InchargeID, Status) VALUES (2, 'Other', 8, No)"});
  master().reload();
  choose("Grid", "2");
  EXPECT_EQ(inCharge().findText("Omar"), -1);
  choose("Grid", "1");
  EXPECT_EQ(inCharge().currentText(), QStringLiteral("Omar"));
  EXPECT_EQ(read("PartyNameTxt"), "Name of then");
  EXPECT_FALSE(master().panel(0).isBusy()) << "a row that is looked at is not changed";
  write("Remarks", "Paint");
  click("SaveBttn");
  EXPECT_EQ(saved("InchargeID", "1") + saved("CustomerName", "1"), "7Name of then");
  click("AddBttn");
  EXPECT_EQ(inCharge().findText("Omar"), -1);
  EXPECT_EQ(inCharge().boundValue(), store::Value(std::int64_t{1}));
  click("CancelBttn");
}

TEST_F(Jobs, TheCardShowsTheJobAsItWasSaved) {
  run({"INSERT INTO Jobs (JobNo, JobDesc, InchargeID, Status) VALUES (1, 'Doors', 8, No)",
       "INSERT INTO Jobs (JobNo, JobDesc, InchargeID, Status) VALUES (2, 'Windows', 8, No)"});
  master().reload();
  choose("Grid", "2");
  write("Desc", "Windows and more");
  EXPECT_FALSE(control<QPushButton>("JobCard").isEnabled());
  click("CancelBttn");
  click("JobCard");
  std::string shown;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* preview = qobject_cast<printing::PreviewWindow*>(window)) {
      const auto page = preview->pages().page(0);
      for (const printing::TextRun& run : page->drawing.texts) shown += page->drawing.textOf(run).toStdString() + "|";
      preview->close();
    }
  for (const char* words : {"Harbour Timber|", "JOB CARD|", "|Windows|", "|Zoë|"})
    EXPECT_NE(shown.find(words), std::string::npos) << words << " in " << shown;
}

TEST_F(Jobs, KeysAddSaveAndCancelAndTypingIsNotLostUnasked) {
  test::focus(control<QTableView>("Grid"));
  test::press(*QApplication::focusWidget(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), &control<QLineEdit>("DocNo"));
  test::type(*QApplication::focusWidget(), "x12");
  prompts.expect("Not Saved", "What you have typed has not been saved. Do you want to drop it?", session::Answer::No);
  dialog->close();
  EXPECT_TRUE(dialog->isVisible());
  test::press(*QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(saved("JobNo", "12"), "12");
  test::press(*QApplication::focusWidget(), Qt::Key_N, Qt::ControlModifier);
  write("Desc", "dropped");
  test::press(control<QLineEdit>("DocNo"), Qt::Key_Escape);
  EXPECT_EQ(read("Desc"), "");
  EXPECT_EQ(rows("select * from jobs").recordCount(), 1);
  test::press(control<QTableView>("Grid"), Qt::Key_Escape);
  EXPECT_FALSE(dialog->isVisible());
}

}  // namespace
}  // namespace velmo::masters
