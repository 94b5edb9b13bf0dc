#include "reports/ledgers/job_ledgers.h"

#include <gmock/gmock.h>

#include "reports/balances_desk.h"

namespace velmo::reports {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class JobLedgers : public test::BalancesDesk {
 protected:
  JobLedgers() {
    const auto run = [&](const std::string& statement) { context->KORDconn.execute(statement); };
    run("INSERT INTO Employees (EmpID, EmpName, Status) VALUES (5, 'Salma', Yes)");
    run("INSERT INTO Jobs (JobNo, JobDesc, JobDate, ExpDeliveryDate, CustomerName, EstimatedCost, ValueofWork, "
        "InchargeID, Status, CompletionDate) VALUES (12, 'Roof', #10-02-2026#, 'in May', 'O''Brien & Sons', 1500, "
        "2000.5, 5, Yes, 'never')");
    run("INSERT INTO Jobs (JobNo, JobDesc, Status) VALUES (7, 'Quay', No)");
    roof_ = rows("select JobID from Jobs where JobNo=12").integer("JobID");
    quay_ = rows("select JobID from Jobs where JobNo=7").integer("JobID");
    invoice_ = cite(roof_, {.day = "11-02-2026",
                            .tranType = 32,
                            .lines = {{12001002, 90, 0, "Beams"}, {40001009, 0, 90}, {12001003, 0, 0}},
                            .docNo = 5});
    cite(roof_, {.day = "11-01-2026", .tranType = 22, .lines = {{50001002, 40, 0}, {21001002, 0, 40}}, .docNo = 3});
    cite(roof_, {.day = "11-03-2026", .tranType = 22, .lines = {{50001002, 9, 0}}, .cancelled = true});
    context->FYID = 2;
    cite(roof_, {.day = "11-03-2027", .tranType = 22, .lines = {{50001002, 9, 0}}});
    context->FYID = 1;
    cite(quay_, {.day = "11-03-2026", .tranType = 41, .lines = {{50001002, 0.25, 0}}, .docNo = 8});
  }
  std::int64_t cite(std::int64_t job, const test::LedgerDocument& document) {
    const std::int64_t tranNo = post(document);
    context->KORDconn.execute("UPDATE Transactions SET JobIDFrom=" + std::to_string(job) +
                              " WHERE TranNo=" + std::to_string(tranNo));
    return tranNo;
  }
  std::vector<std::string> boxes() {
    std::vector<std::string> texts;
    for (int i = 0; i < 9; ++i) texts.push_back(read(("JobTxt_" + std::to_string(i)).c_str()));
    return texts;
  }

  std::int64_t roof_ = 0;
  std::int64_t quay_ = 0;
  std::int64_t invoice_ = 0;
};

TEST_F(JobLedgers, ShowsTheJobAndTheLinesThatCiteIt) {
  open(makeJobLedgers);
  EXPECT_EQ(dialog->windowTitle(), "Jobs Ledgers");
  auto& list = control<QComboBox>("JobList");
  EXPECT_EQ(list.itemText(0), "7 (Quay)");
  prompts.expect("Select Job", "Select a valid job to view ledger.");
  click("ViewBttn");
  EXPECT_TRUE(list.hasFocus());
  chooseEntry("JobList", roof_);
  EXPECT_EQ(list.currentText(), "12 (Roof)");
  EXPECT_THAT(boxes(), ElementsAre("12", "O'Brien & Sons", "1,500.00", "02-10-2026", "Salma", "2,000.50", "Closed",
                                   "in May", "never"));
  EXPECT_THAT(
      view("LedgerGrid"),
      ElementsAre("01-11-2026|PB 3|50001002|Account||40.00|0.00", "01-11-2026|PB 3|21001002|Account||0.00|40.00",
                  "02-11-2026|SI 5|12001002|Account|Beams|90.00|0.00", "02-11-2026|SI 5|40001009|Account||0.00|90.00"));
  EXPECT_EQ(read("TotalDr") + " " + read("TotalCr") + " " + read("Balance"), "130.00 130.00 0.00");
  chooseEntry("JobList", quay_);
  EXPECT_THAT(boxes(), ElementsAre("7", "", "", "", "", "", "Open", "", ""));
  EXPECT_EQ(view("LedgerGrid").size(), 1U);
  EXPECT_EQ(read("Balance"), "0.25");
  list.setEditText("8 (Nothing)");
  EXPECT_THAT(boxes(), testing::Each(""));
  prompts.expect("Select Job", "Select a valid job to view ledger.");
  click("ViewBttn");
}

TEST_F(JobLedgers, ADoubleClickOpensTheDocument) {
  open(makeJobLedgers);
  chooseEntry("JobList", roof_);
  click("ViewBttn");
  doubleClick("LedgerGrid", 3);
  EXPECT_EQ(screens.opened, "SaleInvoicesSimple");
  EXPECT_TRUE(context->OpenTranFlag);
  EXPECT_EQ(context->OpenTranNo, invoice_);
  context->OpenTranFlag = false;
  context->UserID = 3;
  context->KORDconn.execute("UPDATE UserRights SET operator2 = Yes WHERE RightID = 59");
  prompts.expect("Not Allowed", "You do not have access to " +
                                    rows("select RightType from userrights where rightid=59").text("RightType"));
  doubleClick("LedgerGrid", 0);
  EXPECT_EQ(screens.opened, "");
  EXPECT_FALSE(context->OpenTranFlag);
}

TEST_F(JobLedgers, AJobWithoutDocumentsIsEmpty) {
  context->KORDconn.execute("INSERT INTO Jobs (JobNo, JobDesc, Status) VALUES (9, 'Idle', No)");
  open(makeJobLedgers);
  chooseEntry("JobList", rows("select JobID from Jobs where JobNo=9").value("JobID"));
  EXPECT_THAT(view("LedgerGrid"), IsEmpty());
  EXPECT_EQ(read("TotalDr") + " " + read("TotalCr") + " " + read("Balance"), "0.00 0.00 0.00");
}

}  // namespace
}  // namespace velmo::reports
