#include "masters/accounts/modify_accounts.h"

#include <gmock/gmock.h>

#include <QMenu>
#include <QPushButton>

#include "forms/drop_combo.h"
#include "masters/master_company.h"
#include "printing/preview_window.h"

namespace velmo::masters {
namespace {

using Accounts = test::MasterCompany;
using testing::ElementsAre;

TEST_F(Accounts, CodesGrowFromTheirParents) {
  open(makeModifyAccounts);
  choose("L1List", "600");
  click("AddBttn2");
  const std::string subType = read("SubCode");
  EXPECT_EQ(
      subType,
      std::to_string(rows("select * from acclevel2 where typeid=600 order by level2id desc").integer("level2id") + 1));
  EXPECT_TRUE(control<QWidget>("SubCatCodeTxt").hasFocus());
  EXPECT_FALSE(control<QWidget>("L1Frame").isEnabled() || control<QWidget>("L3Frame").isEnabled());
  write("SubCatCodeTxt", "O'Brien's costs");
  click("SaveBttn2");
  EXPECT_TRUE(control<QWidget>("L1Frame").isEnabled());
  EXPECT_EQ(read("SubCode"), subType);

  for (const char* code : {"001", "002"}) {
    click("AddBttn3");
    EXPECT_EQ(read("AccCode"), subType + code);
    write("AccCodeTxt", "Snacks");
    click("SaveBttn3");
  }
  choose("L3List", QString::fromStdString(subType + "001"));
  deleteAndConfirm("DelBttn3", "Are you sure, you want to delete this selected account, Snacks?");
  click("AddBttn3");
  EXPECT_EQ(read("AccCode"), subType + "003");  // a code is used again only when it was the last
  click("CancelBttn3");
  deleteAndConfirm("DelBttn3", "Are you sure, you want to delete this selected account, Snacks?");
  click("AddBttn3");
  EXPECT_EQ(read("AccCode"), subType + "001");
}

TEST_F(Accounts, LastNumbersLeaveTheCodeBlankAndTheSaveSaysSo) {
  logIn();
  test::NewCompany::run(context->KORDconn,
                        {"insert into acclevel1 (typeid, type, natureid) values (799, 'Last', 65)",
                         "insert into acclevel2 (level2id, l2accname, typeid) values (79999, 'Last', 799)",
                         "insert into acclevel3 (acccode, accname, level1id, level2id) values (79999999, 'Last', 799, "
                         "79999)"});
  open(makeModifyAccounts);
  choose("L1List", "799");
  click("AddBttn3");
  EXPECT_EQ(read("AccCode"), "");
  refused("SaveBttn3", "Cannot Save", "You have added maximum number of accounts in the selected sub account type.");
  click("CancelBttn3");
  EXPECT_EQ(read("AccCode"), "79999999");
  click("AddBttn2");
  refused("SaveBttn2", "Cannot Save",
          "You have added maximum number of sub account types in the selected main account type.");
  click("CancelBttn2");
  click("AddBttn");
  control<forms::DropCombo>("FSList").setBoundValue(std::int64_t{61});
  EXPECT_EQ(read("MainCode"), "");
  refused("SaveBttn", "Cannot Save",
          "Select correct financial statements component to save or you may have added maximum number of account types "
          "in the selected component.");
}

TEST_F(Accounts, NewTypeFollowsTheLastOfItsSeries) {
  open(makeModifyAccounts);
  const std::string series[][2] = {{"10", "natureid=10 or natureid=11"},
                                   {"11", "natureid=10 or natureid=11"},
                                   {"20", "natureid=20 or natureid=21"},
                                   {"30", "natureid=30"},
                                   {"40", "natureid=40"},
                                   {"50", "natureid=50"},
                                   {"60", "natureid=60"}};
  for (const auto& [component, filter] : series) {
    SCOPED_TRACE(component);
    const auto last = rows("select typeid from acclevel1 where " + filter + " order by typeid desc");
    click("AddBttn");
    EXPECT_EQ(read("MainCode"), "");
    control<forms::DropCombo>("FSList").setBoundValue(std::int64_t{std::stoi(component)});
    EXPECT_EQ(read("MainCode"), std::to_string(last.integer("typeid") + 1));
    refused("SaveBttn", "Cannot Save", "Enter main account type to save.");
    write("CatCodeTxt", "Further");
    click("SaveBttn");
    EXPECT_EQ(rows("select * from acclevel1 where typeid=" + read("MainCode")).text("natureid"), component);
    EXPECT_EQ(count("L2List"), 0);
    deleteAndConfirm("DelBttn", "Are you sure, you want to delete this selected main account type?");
  }
}

TEST_F(Accounts, WhatTheProgramNeedsOrOthersUseStays) {
  open(makeModifyAccounts);
  for (const char* type : {"100", "110", "120", "130", "140", "210", "220", "320", "400", "500", "600"}) {
    choose("L1List", type);
    refused("DelBttn", "Cannot Delete", "This account type cannot be deleted.");
  }
  choose("L1List", "120");
  refused("DelBttn2", "Cannot Delete",
          "There have been accounts present in this sub account type. Delete them before deleting it.");
  choose("L3List", "12001001");
  refused("DelBttn3", "Cannot Delete", "This is a default account. You cannot delete it.");
  write("AccBox_5", "0300");
  refused("SaveBttn3", "Cannot Save", "This is a default account. You cannot edit it.");
  EXPECT_NE(rows("select phone from acclevel3 where acccode=12001001").text("phone"), "0300");
  click("CancelBttn3");

  test::NewCompany::run(
      context->KORDconn,
      {"insert into acclevel3 (acccode, accname, level1id, level2id) values (12001002, 'O''Brien', 120, 12001)",
       "insert into transactions (tranno, docno, fyid, trantype) values (7, 1, 1, 71)",
       "insert into subtransactions (tranno, acccode) values (7, 12001002)"});
  choose("L1List", "100");
  choose("L1List", "120");
  choose("L3List", "12001002");
  refused("DelBttn3", "Cannot Delete", "There have been ledger entries recorded for the selected account, O'Brien.");
  choose("L1List", "100");
  test::NewCompany::run(context->KORDconn,
                        {"insert into acclevel1 (typeid, type, natureid) values (190, 'Own', 11)",
                         "insert into acclevel2 (level2id, l2accname, typeid) values (19001, 'Own', 190)"});
  open(makeModifyAccounts);
  choose("L1List", "190");
  refused("DelBttn", "Cannot Delete",
          "There have been sub account types present in this main account type. Delete them before deleting it.");
  refused("DelBttn3", "No Account Found", "There is no account to be deleted.");
  refused("SaveBttn3", "Cannot Save", "Click on Add Button before adding record.");
  deleteAndConfirm("DelBttn2", "Are you sure, you want to delete this selected sub account type?");
  refused("DelBttn2", "No Sub Account Type", "There is no sub account type to be deleted.");
  deleteAndConfirm("DelBttn", "Are you sure, you want to delete this selected main account type?");
}

TEST_F(Accounts, EveryColumnIsWrittenAndFiguresThatAreNoneAreReplaced) {
  open(makeModifyAccounts);
  choose("L1List", "600");
  click("AddBttn3");
  write("AccCodeTxt", "Rent “Main Bazaar” 😀");
  write("AccBox_12", "");
  write("AccBox_1", "5, O'Connell St; DROP TABLE x");
  test::press(control<QLineEdit>("AccBox_14"), Qt::Key_Return);
  click("SaveBttn3");
  EXPECT_EQ(line("select AccName, Address, CreditLimit, CreditTerms, EmpID, SectorID, Region1ID, Region2ID, Level1ID, "
                 "Level2ID, AccLevel3.Default from acclevel3 where acccode=" +
                 read("AccCode")),
            "Rent “Main Bazaar” 😀|5, O'Connell St; DROP TABLE x|0|0|0|1|1|1|600|" + read("SubCode") + "|False");
}

TEST_F(Accounts, DetailLineLeadsToTheDialogOfTheType) {
  open(makeModifyAccounts);
  struct Detail {
    const char* type;
    const char* caption;
    const char* dialog;
  };
  for (const Detail& detail :
       {Detail{"110", "Click Here to Record Details of Bank Accounts ....", "ModifyBanks"},
        Detail{"120", "Click Here to Record Details of Customers ....", "ModifyCustomers"},
        Detail{"210", "Click Here to Record Details of Suppliers / Vendors ....", "ModifySuppliers"}}) {
    if (!dialog->isVisible()) open(makeModifyAccounts);
    choose("L1List", "130");
    EXPECT_FALSE(control<QPushButton>("DetailLbl").isVisible());
    choose("L1List", detail.type);
    EXPECT_EQ(control<QPushButton>("DetailLbl").text().toStdString(), detail.caption);
    click("DetailLbl");
    EXPECT_FALSE(dialog->isVisible());
    QApplication::processEvents();
    EXPECT_EQ(screens.opened, detail.dialog);
  }
}

TEST_F(Accounts, TypedTextIsNotLostByClosingAndEscapeCancelsBeforeItCloses) {
  open(makeModifyAccounts);
  choose("L1List", "600");
  const std::string before = read("AccCodeTxt");
  write("AccCodeTxt", "Half a na");
  EXPECT_FALSE(control<QTableView>("L3List").isEnabled());
  prompts.expect("Not Saved", "What you have typed has not been saved. Do you want to drop it?", session::Answer::No);
  EXPECT_FALSE(dialog->close());
  EXPECT_EQ(read("AccCodeTxt"), "Half a na");
  master().panel(2).cancel();
  EXPECT_EQ(read("AccCodeTxt"), before);
  EXPECT_TRUE(dialog->close());
}

TEST_F(Accounts, ThePrintedChartGoesWithItsPreview) {
  open(makeModifyAccounts);
  const auto actions = control<QPushButton>("PrintBttn").menu()->actions();
  ASSERT_FALSE(actions.isEmpty());
  actions.front()->trigger();
  ASSERT_TRUE(context->AccListRS.isOpen());
  EXPECT_GT(context->AccListRS.recordCount(), 5);
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* preview = qobject_cast<printing::PreviewWindow*>(window)) preview->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(context->AccListRS.isOpen());
}

}  // namespace
}  // namespace velmo::masters
