#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDateEdit>
#include <QInputDialog>

#include "frame/items/item_history.h"
#include "masters/accounts/modify_accounts.h"
#include "masters/accounts/modify_parties.h"
#include "masters/catalogue/catalogue_prints.h"
#include "masters/catalogue/item_filter.h"
#include "masters/catalogue/modify_inventory.h"
#include "masters/catalogue/modify_services.h"
#include "masters/catalogue/stock_hierarchies.h"
#include "masters/labels/bar_code_labels.h"
#include "masters/lists/simple_lists.h"
#include "masters/master_company.h"
#include "masters/people/employees.h"
#include "masters/people/user_logins.h"
#include "printing/page_pictures.h"

namespace velmo::masters {
namespace {

// Codes whose signs are wildcards elsewhere, beside others that are like them.
class SignedCodes : public test::MasterCompany {
 protected:
  SignedCodes() {
    logIn();
    run({"insert into stocklevel1 (catid, catname) values ('[x]', 'Brackets')",
         "insert into stocklevel1 (catid, catname) values ('x', 'Plain')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('[x]01', 'First', '[x]')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('x01', 'Plain first', 'x')"});
    add("A[1]", "[x]01");
    add("A1", "x01");
    add("B_1", "[x]01");
    add("B11", "x01");
    add("É%", "[x]01");
    run(
        {"insert into transactions (tranno, docno, fyid, trantype, trandate, cancel, invledger) values (7, 1, 1, 32, "
         "#11-02-2026#, No, No)"});
    move("A[1]", 1);
    move("B11", 5);
  }
  void add(const char* code, const char* subCategory) {
    context->KORDconn.execute(
        "insert into stocklevel3 (itemcode, itemname, catid, subcatid, brandid, purchaseprice, sellingprice, unit, "
        "reorderlevel, valuationcost2) values (" +
        store::quoted(code) + ", 'Item', " + (subCategory[0] == '[' ? "'[x]'" : "'x'") + ", " +
        store::quoted(subCategory) + ", 1, 1, 2, 'Pcs', 0, 1)");
  }
  void move(const char* code, int pieces) {
    context->KORDconn.execute("insert into stockflow (tranno, itemcode, stockout) values (7, " + store::quoted(code) +
                              ", " + std::to_string(pieces) + ")");
  }
  void chooseItem(const char* category, const char* subCategory, const char* code) {
    choose("L1List", category);
    choose("L2List", subCategory);
    choose("L3List", code);
  }
};

TEST_F(SignedCodes, NameTheirOwnRowsAlone) {
  open(makeModifyInventory);
  choose("L1List", "[x]");
  ASSERT_EQ(count("L2List"), 1);
  ASSERT_EQ(count("L3List"), 3);
  click("AddBttn2");
  EXPECT_EQ(read("SubCatCode"), "[x]02");
  click("CancelBttn2");
  choose("L1List", "x");
  EXPECT_EQ(count("L3List"), 2);

  const auto ofCategory = [this](const std::string& statement) {
    store::Recordset shape;
    shape.openShape(context->KORDconn, statement);
    return shape.recordCount() == 1 ? store::textOf(shape.valueAt(0, 0)) : "";
  };
  EXPECT_EQ(ofCategory(inventoryOfCategory("[x]")), "[x]");
  EXPECT_EQ(ofCategory(servicesOfSubCategory("[x]01")), "[x]01");
  EXPECT_EQ(rows(filteredItems("itemcode", 1, "[x]")).recordCount(), 3);
  EXPECT_EQ(rows(barCodeStatement("B_1", "Rs.")).recordCount(), 1);
  EXPECT_EQ(rows(barCodeStatement("A[1]", "Rs.")).text("ItemCode"), "A[1]");

  EXPECT_EQ(frame::itemBalance(context->KORDconn, "A[1]", 1), -1);
  EXPECT_EQ(frame::itemBalance(context->KORDconn, "B_1", 1), std::nullopt) << "B11 is another item";
  EXPECT_EQ(frame::itemBalance(context->KORDconn, "É%", 1), std::nullopt);
  const frame::ItemGridKind sales;
  EXPECT_EQ(frame::itemHistory(context->KORDconn, sales, "a[1]", std::nullopt, 1).recordCount(), 1);
  EXPECT_EQ(frame::itemHistory(context->KORDconn, sales, "B_1", std::nullopt, 1).recordCount(), 0);
}

TEST_F(SignedCodes, AreTakenAndKeptByWhatTheyAreAndByWhatIsLikeThem) {
  open(makeModifyInventory);
  const char* hasMoved = "There have been ledger entries recorded for the selected item, Item.";
  chooseItem("[x]", "[x]01", "A[1]");
  refused("DelBttn3", "Cannot Delete", hasMoved);
  choose("L3List", "B_1");
  refused("DelBttn3", "Cannot Delete", hasMoved);  // B11 is like it
  choose("L3List", "É%");
  deleteAndConfirm("DelBttn3", "Are you sure, you want to delete this selected inventory item, Item?");

  const char* taken = "An item is already present with the same item code. Give a different item code.";
  for (const char* code : {"a[1]", "b_1", "%", " A1", "a1\u00A0", "[a]1"}) {
    click("AddBttn3");
    write("InvTxt_0", code);
    write("InvTxt_1", "Other");
    refused("SaveBttn3", "Cannot Save", taken);
    click("CancelBttn3");
  }
  click("AddBttn");
  write("CatCode", "[X]");
  write("CatCodeTxt", "Again");
  refused("SaveBttn", "Cannot Save", "A category is already present with the same code. Give a different code.");
}

TEST_F(SignedCodes, OfANewCategoryHaveThreeCharactersAndOldOnesStay) {
  run({"insert into stocklevel1 (catid, catname) values ('HARDW', 'Hardware')"});
  open(makeModifyInventory);
  choose("L1List", "HARDW");
  EXPECT_EQ(read("CatCode"), "HARDW");
  write("CatCodeTxt", "Hardware and more");
  click("SaveBttn");
  EXPECT_EQ(rows("select catname from stocklevel1 where catid = 'HARDW'").text("catname"), "Hardware and more");
  click("AddBttn");
  write("CatCode", "TOOLS");
  EXPECT_EQ(read("CatCode"), "TOO");
  click("CancelBttn");
  EXPECT_EQ(read("CatCode"), "HARDW");
}

class Blanks : public test::MasterCompany {};

// A dialog, its list and what it says of a row without a name.
struct BlankCase {
  QWidget* (*make)(session::Workplace&, QWidget*);
  std::vector<std::pair<const char*, const char*>> filled;  // boxes before the one in question
  const char* suffix;
  const char* box;
  const char* refusal;
};

TEST_F(Blanks, AreNoName) {
  logIn();
  run({"insert into stocklevel1 (catid, catname) values ('HND', 'Hand tools')",
       "insert into stocklevel2 (subcatid, subcatname, catid) values ('HND01', 'Hammers', 'HND')"});
  const std::vector<BlankCase> cases = {
      {makeModifyInventory, {}, "", "CatCode", "Enter category code to save."},
      {makeModifyInventory, {{"CatCode", "X"}}, "", "CatCodeTxt", "Enter inventory category name to save."},
      {makeModifyInventory, {}, "2", "SubCatCodeTxt", "Enter sub inventory category name to save."},
      {makeModifyInventory, {}, "3", "InvTxt_0", "Enter item code to save."},
      {makeModifyInventory, {{"InvTxt_0", "H1"}}, "3", "InvTxt_1", "Enter item name to save."},
      {makeModifyInventory,
       {{"InvTxt_0", "H1"}, {"InvTxt_1", "Hammer"}},
       "3",
       "InvTxt_8",
       "Enter measurement unit to save."},
      {makeModifyServices, {}, "2", "SubCatCode", "Enter sub inventory category code to save."},
      {makeModifyAccounts, {}, "2", "SubCatCodeTxt", "Enter sub account type to save."},
      {makeModifyAccounts, {}, "3", "AccCodeTxt", "Enter account name to save."},
      {makeModifyCustomers, {}, "3", "AccCodeTxt", "Enter customer name to save."},
      {makeRegions, {}, "", "CatCodeTxt", "Enter region name to save."},
      {makeInvBrands, {}, "", "LocName", "Give location name to save."},
      {makeUserLogins, {}, "", "LoginTxt", "Give login name to save record."},
      {makeEmployees, {}, "", "EmpTxt_0", "Give employee name to save record."},
  };
  for (const BlankCase& blank : cases) {
    SCOPED_TRACE(blank.refusal);
    open(blank.make);
    click(("AddBttn" + std::string(blank.suffix)).c_str());
    for (const auto& [box, text] : blank.filled) write(box, text);
    write(blank.box, " \u00A0\t");
    refused(("SaveBttn" + std::string(blank.suffix)).c_str(), "Cannot Save", blank.refusal);
    click(("CancelBttn" + std::string(blank.suffix)).c_str());
  }
}

TEST_F(Blanks, AroundACodeOrANameAreNotSaved) {
  logIn();
  run({"insert into stocklevel1 (catid, catname) values ('HND', 'Hand tools')",
       "insert into stocklevel2 (subcatid, subcatname, catid) values ('HND01', 'Hammers', 'HND')"});
  open(makeModifyInventory);
  click("AddBttn3");
  write("InvTxt_0", "  a100 ");
  write("InvTxt_1", "\tClaw  hammer \u3000");
  click("SaveBttn3");
  const auto item = rows("select * from stocklevel3 where catid = 'HND'");
  EXPECT_EQ(item.text("itemcode") + "|" + item.text("itemname"), "a100|Claw  hammer");
  click("AddBttn3");
  write("InvTxt_0", "A100 ");
  write("InvTxt_1", "Other");
  refused("SaveBttn3", "Cannot Save",
          "An item is already present with the same item code. Give a different item code.");
}

TEST_F(Blanks, OfAnAccountTypesComponentAreRefusedOnEditToo) {
  open(makeModifyAccounts);
  choose("L1List", "600");
  const std::string before = rows("select natureid from acclevel1 where typeid=600").text("natureid");
  for (const char* component : {"", "No such component"}) {
    control<forms::DropCombo>("FSList").setEditText(component);
    refused("SaveBttn", "Cannot Save",
            "Select correct financial statements component to save or you may have added maximum number of account "
            "types in the selected component.");
    click("CancelBttn");
  }
  EXPECT_EQ(rows("select natureid from acclevel1 where typeid=600").text("natureid"), before);
}

TEST_F(Blanks, InAnEmployeesDatesStayUntilADayIsGiven) {
  logIn();
  run({"insert into employees (empname) values ('Zoë')"});
  open(makeEmployees);
  choose("EmpList", "Zoë");
  EXPECT_EQ(control<QDateEdit>("LDt").text().trimmed(), QString());
  write("EmpTxt_3", "555");
  click("SaveBttn");
  const auto days = [this] {
    const auto row = rows("select * from employees where empname = 'Zoë'");
    return row.text("telephone") + "|" + row.text("dateofbirth") + "|" + row.text("datejoin") + "|" +
           row.text("dateleft");
  };
  EXPECT_EQ(days(), "555|||");

  // Every way into the empty box begins with today, in the month of which the calendar opens.
  auto& left = control<QDateEdit>("LDt");
  left.setFocus();
  test::press(left, Qt::Key_Up);
  EXPECT_EQ(left.date(), QDate(2026, 11, 22));
  click("CancelBttn");
  EXPECT_EQ(left.text().trimmed(), QString());
  left.setFocus();
  test::type(left, "05");
  click("SaveBttn");
  EXPECT_EQ(rows("select dateleft from employees where empname = 'Zoë'").date("dateleft").iso(), "2026-11-05");
  left.setFocus();
  test::press(left, Qt::Key_Delete, Qt::ControlModifier);
  click("SaveBttn");
  EXPECT_EQ(rows("select dateleft from employees where empname = 'Zoë'").text("dateleft"), "");
  EXPECT_EQ(rows("select datejoin from employees where empname = 'Zoë'").text("datejoin"), "");
}

TEST_F(SignedCodes, LabelsCarryTheCurrencyOnce) {
  run({"update BusinessInfo set ccode = 'Rs', currencyname = 'Rupees'",
       "update stocklevel3 set sellingprice = 1234.5 where itemcode = 'A1'"});
  logIn();
  open(makeModifyInventory);
  chooseItem("x", "x01", "A1");
  for (const frame::MasterPrint& print : inventoryPrints()) {
    if (!print.caption.starts_with("Bar Codes")) continue;
    QTimer::singleShot(0, dialog.get(), [] {
      if (auto* copies = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) copies->accept();
    });
    const auto report = print.report(master());
    ASSERT_TRUE(report) << print.caption;
    printing::test::leavePictures("labels " + print.caption, printing::test::pagesOf(*report));
    EXPECT_THAT(printing::test::textsOf(*report).front(), testing::HasSubstr("Rs 1,234.50")) << print.caption;
  }
}

TEST_F(SignedCodes, EveryNamedControlIsThere) {
  struct Named {
    QWidget* (*make)(session::Workplace&, QWidget*);
    std::vector<std::string> names;
  };
  std::vector<std::string> accountBoxes;
  for (int i = 0; i <= 18; ++i) accountBoxes.push_back("AccBox_" + std::to_string(i));
  for (const Named& named : {Named{makeModifyAccounts, accountBoxes}, Named{makeModifyCustomers, accountBoxes},
                             Named{makeModifySuppliers, accountBoxes}, Named{makeModifyBanks, accountBoxes},
                             Named{makeModifyInventory, {"VM"}}, Named{makeInvLocations, {"LocDesc", "LocName"}}}) {
    open(named.make);
    for (const std::string& name : named.names)
      EXPECT_NE(dialog->findChild<QWidget*>(QString::fromStdString(name)), nullptr)
          << dialog->objectName().toStdString() << " " << name;
  }
}

TEST_F(SignedCodes, ControlsOfOneColumnGoTogether) {
  open(makeModifyInventory);
  chooseItem("x", "x01", "A1");
  auto& VM = control<QCheckBox>("VM");
  click("CostOpt_0");
  EXPECT_TRUE(VM.isChecked());
  click("CostOpt_1");
  EXPECT_FALSE(VM.isChecked() || control<QLineEdit>("InvTxt_10").isReadOnly());
  VM.setChecked(true);
  EXPECT_TRUE(control<QAbstractButton>("CostOpt_0").isChecked() && control<QLineEdit>("InvTxt_10").isReadOnly());
  click("SaveBttn3");
  EXPECT_TRUE(rows("select valuationtype from stocklevel3 where itemcode = 'A1'").yes("valuationtype"));

  run({"insert into regions1 (region1id, region1name) values (2, 'North')",
       "insert into regions2 (region2id, region2name, region1id) values (2, 'Hill', 2)"});
  open(makeModifyCustomers);
  click("AddBttn3");
  write("AccCodeTxt", "Zed");
  EXPECT_EQ(read("AccBox_16"), "1");
  pick("RegionList1", std::int64_t{2});
  EXPECT_EQ(read("AccBox_16") + "|" + read("AccBox_17"), "2|");
  write("AccBox_17", "2");
  EXPECT_EQ(control<QComboBox>("RegionList2").currentText(), QStringLiteral("Hill"));
  click("SaveBttn3");
  const auto customer = rows("select * from acclevel3 where accname = 'Zed'");
  EXPECT_EQ(customer.text("region1id") + customer.text("region2id") + customer.text("sectorid"), "221");

  open(makeInvLocations);
  write("LocDesc", "Back yard");
  EXPECT_EQ(read("LocName"), "Back yard");
  click("SaveBttn");
  EXPECT_EQ(rows("select locationname from StockLocation").text("locationname"), "Back yard");
}

TEST_F(SignedCodes, NumbersOfAnAccountsClassificationAreReplacedWhereTheyAreNone) {
  open(makeModifyAccounts);
  choose("L1List", "600");
  click("AddBttn3");
  write("AccCodeTxt", "Snacks");
  for (const char* box : {"AccBox_15", "AccBox_16", "AccBox_17", "AccBox_18"}) write(box, "none");
  click("SaveBttn3");
  const auto account = rows("select * from acclevel3 where accname = 'Snacks'");
  EXPECT_EQ(account.text("empid") + account.text("region1id") + account.text("region2id") + account.text("sectorid"),
            "0111");
}

}  // namespace
}  // namespace velmo::masters
