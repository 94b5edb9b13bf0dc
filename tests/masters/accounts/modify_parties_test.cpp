#include "masters/accounts/modify_parties.h"

#include <gmock/gmock.h>

#include "masters/master_company.h"

namespace velmo::masters {
namespace {

using testing::ElementsAre;

struct Family {
  const char* name;
  QWidget* (*make)(session::Workplace&, QWidget*);
  std::string type;
  std::string party;
  std::string title;
};

class Parties : public test::MasterCompany, public testing::WithParamInterface<Family> {
 protected:
  const Family& family() const { return GetParam(); }
  void openFamily() {
    open(family().make);
    choose("L2List", QString::fromStdString(family().type + "01"));
  }
  // The name of a bank account is composed of the bank's.
  const char* nameBox() const { return family().type == "110" ? "AccBox_13" : "AccCodeTxt"; }
  std::string add(const char* name) {
    click("AddBttn3");
    write(nameBox(), name);
    click("SaveBttn3");
    return read("AccCode");
  }
};

TEST_P(Parties, SpeakOfTheirOwnKind) {
  logIn();
  run({"delete * from acclevel3 where level1id=120 or level1id=210 or level1id=110",
       "delete * from acclevel2 where typeid=120 or typeid=210 or typeid=110"});
  open(family().make);
  EXPECT_EQ(count("L2List"), 0);
  refused("SaveBttn2", "Cannot Save", "Click on Add Button before adding record.");
  refused("DelBttn2", "No Sub Account Type", "There is no sub account type to be deleted.");
  EXPECT_FALSE(control<QPushButton>("AddBttn3").isEnabled()) << "a party stands under a sub type";
  click("AddBttn2");
  EXPECT_EQ(read("SubCode"), family().type + "01");
  refused("SaveBttn2", "Cannot Save", "Enter sub account type to save.");
  write("SubCatCodeTxt", "O'Brien's");
  click("SaveBttn2");
  EXPECT_EQ(rows("select * from acclevel2 where level2id=" + read("SubCode")).text("typeid"), family().type);

  refused("SaveBttn3", "Cannot Save", "Click on Add Button before adding " + family().party + ".");
  refused("DelBttn3", ("No " + family().title + " Found").c_str(), "There is no " + family().party + " to be deleted.");
  click("AddBttn3");
  EXPECT_EQ(read("AccCode"), family().type + "01001");
  refused("SaveBttn3", "Cannot Save", "Enter " + family().party + " name to save.");
  write(nameBox(), "Ağa & Sons");
  click("SaveBttn3");
  EXPECT_EQ(rows("select * from acclevel3 where acccode=" + read("AccCode")).text("level1id"), family().type);
  refused("DelBttn2", "Cannot Delete",
          "There have been " + family().party + "s present in this sub account type. Delete them before deleting it.");
  const std::string code = read("AccCode");
  context->KORDconn.execute("insert into transactions (tranno, docno, fyid, trantype) values (7, 1, 1, 71)");
  context->KORDconn.execute("insert into subtransactions (tranno, acccode) values (7, " + code + ")");
  refused("DelBttn3", "Cannot Delete", "There have been ledger entries recorded for the selected account, Ağa & Sons.");
  run({"delete * from transactions where tranno=7"});
  prompts.expect("Delete Confirmation",
                 "Are you sure, you want to delete this selected " + family().party + ", Ağa & Sons?",
                 session::Answer::No);
  click("DelBttn3");
  EXPECT_EQ(count("L3List"), 1);
  deleteAndConfirm("DelBttn3", "Are you sure, you want to delete this selected " + family().party + ", Ağa & Sons?");
  EXPECT_EQ(count("L3List"), 0);
}

TEST_P(Parties, NumbersEndAt999AndRowsOfTheProgramAreLocked) {
  logIn();
  context->KORDconn.execute("insert into acclevel2 (level2id, l2accname, typeid) values (" + family().type +
                            "99, 'Last', " + family().type + ")");
  context->KORDconn.execute("insert into acclevel3 (acccode, accname, level1id, level2id) values (" + family().type +
                            "99999, 'Last', " + family().type + ", " + family().type + "99)");
  open(family().make);
  choose("L2List", QString::fromStdString(family().type + "99"));
  click("AddBttn3");
  EXPECT_EQ(read("AccCode"), "");
  write(nameBox(), "One more");
  refused("SaveBttn3", "Cannot Save",
          "You have added maximum number of " + family().party + "s in the selected sub account type.");
  click("CancelBttn3");
  EXPECT_EQ(read("AccCode"), family().type + "99999");
  click("AddBttn2");
  refused("SaveBttn2", "Cannot Save",
          "You have added maximum number of sub account types in the selected main account type.");
  click("CancelBttn2");

  choose("L2List", QString::fromStdString(family().type + "01"));
  add("The program's own");
  context->KORDconn.execute("update acclevel3 set [default]=yes where acccode=" + family().type + "01001");
  master().reload();
  choose("L3List", QString::fromStdString(family().type + "01001"));
  write("AccBox_5", "0300");
  refused("SaveBttn3", "Cannot Save", "This is a default account. You cannot edit it.");
  click("CancelBttn3");
  refused("DelBttn3", "Cannot Delete", "This is a default account. You cannot delete it.");
}

TEST_P(Parties, PickerShowsTheKindAloneAndLeadsToTheRow) {
  openFamily();
  const std::string code = add("Zoë's Window Frames");
  context->KORDconn.execute("insert into acclevel2 (level2id, l2accname, typeid) values (" + family().type +
                            "07, 'Far', " + family().type + ")");
  master().reload();
  choose("L2List", QString::fromStdString(family().type + "07"));
  EXPECT_EQ(count("L3List"), 0);
  inDialogOf("FindBttn", [&](QDialog& picker) {
    EXPECT_EQ(context->ChartView, std::stoi(family().type));
    auto& grid = *picker.findChild<QTableView*>("InvGrid");
    for (int row = 0; row < grid.model()->rowCount(); ++row)
      EXPECT_TRUE(grid.model()->index(row, 0).data().toString().startsWith(QString::fromStdString(family().type)));
    auto& box = *picker.findChild<QLineEdit*>("SearchBox");
    box.setText(QStringLiteral("WINDOW fr"));
    EXPECT_EQ(grid.model()->rowCount(), 1);
    test::press(box, Qt::Key_Return);
  });
  EXPECT_EQ(read("AccCode"), code);
  EXPECT_EQ(read("SubCode"), family().type + "01");
}

INSTANTIATE_TEST_SUITE_P(Masters, Parties,
                         testing::Values(Family{"Customers", makeModifyCustomers, "120", "customer", "Customer"},
                                         Family{"Suppliers", makeModifySuppliers, "210", "supplier", "Supplier"},
                                         Family{"Banks", makeModifyBanks, "110", "bank", "Bank"}),
                         [](const auto& family) { return std::string(family.param.name); });

class Customers : public test::MasterCompany {
 protected:
  void openWithRegions() {
    logIn();
    run({"insert into regions1 (region1id, region1name) values (2, 'North')",
         "insert into regions1 (region1id, region1name) values (3, 'South')",
         "insert into regions2 (region2id, region2name, region1id) values (2, 'Hill', 2)",
         "insert into regions2 (region2id, region2name, region1id) values (3, 'Bay', 3)",
         "insert into regions2 (region2id, region2name, region1id) values (4, 'Cape', 3)",
         "insert into bizsectors (sectorid, sectorname) values (2, 'Trade')",
         "insert into acclevel3 (acccode, accname, level1id, level2id, creditlimit, empid, sectorid, region1id, "
         "region2id) values (12001002, 'O''Brien', 120, 12001, 1500.255, 1, 2, 3, 4)"});
    open(makeModifyCustomers);
  }
  std::vector<std::string> offered(const char* list) {
    std::vector<std::string> entries;
    auto& combo = control<forms::DropCombo>(list);
    for (int i = 0; i < combo.count(); ++i) entries.push_back(combo.itemText(i).toStdString());
    return entries;
  }
  std::string shown(const char* list) { return control<forms::DropCombo>(list).currentText().toStdString(); }
};

TEST_F(Customers, SubRegionsFollowTheRegion) {
  openWithRegions();
  choose("L3List", "12001002");
  EXPECT_EQ(shown("RegionList1") + "/" + shown("RegionList2") + "/" + shown("SectorList"), "South/Cape/Trade");
  EXPECT_THAT(offered("RegionList2"), ElementsAre("Bay", "Cape"));
  EXPECT_EQ(read("AccBox_12"), "1500.255");
  EXPECT_EQ(master().panel(1).state(), frame::MasterPanel::State::Browsing) << "looking is no change";

  click("AddBttn3");  // after a customer of another region
  EXPECT_EQ(shown("RegionList1") + "/" + shown("RegionList2") + "/" + shown("SectorList") + "/" + shown("EmpList"),
            "General/General/General/Head Office");
  EXPECT_EQ(read("AccBox_12"), "0.00");
  EXPECT_EQ(read("AccBox_13"), "0");
  click("CancelBttn3");
  EXPECT_EQ(shown("RegionList2"), "Cape");

  pick("RegionList1", std::int64_t{2});
  EXPECT_THAT(offered("RegionList2"), ElementsAre("Hill"));
  EXPECT_EQ(shown("RegionList2"), "") << "of the other region";
  refused("SaveBttn3", "Cannot Save", "Select correct sub region name.");
  pick("RegionList2", std::int64_t{2});
  click("SaveBttn3");
  EXPECT_EQ(line("select Region1ID, Region2ID, SectorID, EmpID, CreditLimit from acclevel3 where acccode=12001002"),
            "2|2|2|1|1500.255");
}

TEST_F(Customers, TestsComeInTheirOrder) {
  openWithRegions();
  click("AddBttn3");
  write("AccBox_12", "");
  for (const char* list : {"RegionList1", "RegionList2", "SectorList", "EmpList"})
    control<forms::DropCombo>(list).setEditText("Nowhere");
  refused("SaveBttn3", "Cannot Save", "Enter customer name to save.");
  write("AccCodeTxt", "Late");
  struct Step {
    const char* list;
    const char* refusal;
  };
  for (const Step& step :
       {Step{"RegionList1", "Select correct region name."}, Step{"RegionList2", "Select correct sub region name."},
        Step{"SectorList", "Select correct sector name."}, Step{"EmpList", "Select correct account manager name."}}) {
    refused("SaveBttn3", "Cannot Save", step.refusal);
    EXPECT_TRUE(control<QWidget>(step.list).hasFocus());
    pick(step.list, std::int64_t{1});
  }
  refused("SaveBttn3", "Cannot Save", "Enter numeric credit limit.");
  EXPECT_EQ(rows("select * from acclevel3 where level1id=120").recordCount(), 2) << "a refusal writes nothing";
  write("AccBox_12", "250");
  click("SaveBttn3");
  const auto row = rows("select * from acclevel3 where acccode=12001003");
  EXPECT_EQ(row.number("CreditLimit"), 250);
  EXPECT_EQ(row.text("Level2ID"), "12001");
}

TEST_F(Customers, EmployeesAreReadWhenTheListDropsDownAndOpenFromTheButton) {
  openWithRegions();
  choose("L3List", "12001002");
  run({"insert into employees (empname) values ('Zoë')"});
  control<forms::DropCombo>("EmpList").showPopup();
  control<forms::DropCombo>("EmpList").hidePopup();
  EXPECT_THAT(offered("EmpList"), ElementsAre("Head Office", "Zoë"));
  EXPECT_EQ(shown("EmpList"), "Head Office");
  run({"insert into employees (empname) values ('Adam')"});
  click("EmpBttn");
  EXPECT_EQ(screens.opened, "Employees");
  EXPECT_THAT(offered("EmpList"), ElementsAre("Adam", "Head Office", "Zoë"));
  EXPECT_EQ(master().panel(1).state(), frame::MasterPanel::State::Browsing);
}

TEST_F(Customers, BankAccountsAreNamedByTheirBankAndNumber) {
  open(makeModifyBanks);
  click("AddBttn3");
  struct Step {
    const char* box;
    const char* text;
    const char* name;
  };
  for (const Step& step :
       {Step{"AccBox_13", "Habib (Main) Bank", "Habib (Main) Bank"},
        Step{"AccBox_4", "0012-7", "Habib (Main) Bank (Acc No. 0012-7)"},
        Step{"AccBox_13", "O'Brien's", "O'Brien's (Acc No. 0012-7)"}, Step{"AccBox_13", "", " (Acc No. 0012-7)"},
        Step{"AccBox_4", "", ""}, Step{"AccBox_13", "Allied", "Allied"}}) {
    write(step.box, step.text);
    EXPECT_EQ(read("AccCodeTxt"), step.name);
  }
  click("SaveBttn3");
  const auto row = rows("select * from acclevel3 where acccode=" + read("AccCode"));
  EXPECT_EQ(row.text("AccName") + "/" + row.text("CreditTerms") + "/" + row.text("AccountNo"), "Allied/Allied/");
}

}  // namespace
}  // namespace velmo::masters
