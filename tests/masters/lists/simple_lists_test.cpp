#include "masters/lists/simple_lists.h"

#include <QCheckBox>

#include "forms/date_picker.h"
#include "masters/master_company.h"
#include "masters/people/employees.h"

namespace velmo::masters {
namespace {

using Lists = test::MasterCompany;

TEST_F(Lists, RegionsHideTheirFirstRowAndKeepWhatIsUsed) {
  open(makeRegions);
  EXPECT_EQ(count("L1List"), 0);
  refused("DelBttn", "No Region", "There is no region to be deleted.");
  for (const char* name : {"North", "South"}) {
    click("AddBttn");
    write("CatCodeTxt", name);
    click("SaveBttn");
  }
  EXPECT_EQ(read("CatCode"), "3");
  refused("DelBttn2", "No Sub Region Found", "There is no sub region to be deleted.");
  click("AddBttn2");
  EXPECT_EQ(read("SubCatCode"), "2") << "1 is the hidden sub region's";
  write("SubCatCodeTxt", "Bay");
  click("SaveBttn2");
  EXPECT_EQ(rows("select * from regions2 where region2name='Bay'").text("region1id"), "3");
  choose("L1List", "North");
  EXPECT_EQ(count("L2List"), 0);
  choose("L1List", "South");
  refused("DelBttn", "Cannot Delete",
          "There have been sub regions present in this region. Delete them before deleting it.");
  run({"update acclevel3 set region2id=2 where acccode=12001001"});
  refused("DelBttn2", "Cannot Delete", "There have been customers recorded in this sub region, Bay.");
  run({"update acclevel3 set region2id=1 where acccode=12001001"});
  deleteAndConfirm("DelBttn2", "Are you sure, you want to delete this selected sub region, Bay?");
  deleteAndConfirm("DelBttn", "Are you sure, you want to delete this selected region?");
  EXPECT_EQ(count("L1List"), 1);
  EXPECT_EQ(rows("select * from regions1").recordCount(), 2);
}

TEST_F(Lists, FirstSectorStays) {
  open(makeSectors);
  EXPECT_EQ(read("LID"), "1");
  write("LocName", "");
  refused("SaveBttn", "Cannot Save", "Give sector name to save.");
  write("LocName", "Mine");
  EXPECT_FALSE(control<QTableView>("LocList").isEnabled() || control<QPushButton>("AddBttn").isEnabled());
  refused("SaveBttn", "Cannot Save", "You cannot modify this sector.");
  click("CancelBttn");
  refused("DelBttn", "Cannot Delete", "You cannot delete this sector.");
  click("AddBttn");
  write("LocName", "Retail");
  click("SaveBttn");
  EXPECT_EQ(read("LID"), "2");
  run({"update acclevel3 set sectorid=2 where acccode=12001001"});
  refused("DelBttn", "Cannot Delete", "There have been customers recorded for the selected sector.");
  run({"update acclevel3 set sectorid=1 where acccode=12001001"});
  deleteAndConfirm("DelBttn", "Are you sure, you want to delete this sector?");
}

TEST_F(Lists, BrandsAndLocationsAreNamedAndNeverDeleted) {
  struct List {
    QWidget* (*make)(session::Workplace&, QWidget*);
    const char* table;
    const char* key;
    const char* name;
    int hidden;
  };
  for (const List& list : {List{makeInvBrands, "Brands", "brandid", "brandname", 1},
                           List{makeInvLocations, "StockLocation", "locationid", "locationname", 0}}) {
    SCOPED_TRACE(list.table);
    open(list.make);
    EXPECT_EQ(count("LocList"), 1 - list.hidden);
    EXPECT_EQ(dialog->findChild<QWidget*>("DelBttn"), nullptr);
    if (list.hidden) refused("SaveBttn", "Cannot Save", "Click on Add Button before adding record.");
    click("AddBttn");
    EXPECT_EQ(read("LID"), list.hidden ? "" : "2");
    refused("SaveBttn", "Cannot Save", "Give location name to save.");
    write("LocName", "Zoë's");
    click("SaveBttn");
    EXPECT_EQ(read("LID"), "2");
    click("AddBttn");
    write("LocName", "Aardvark");
    click("SaveBttn");
    EXPECT_EQ(read("LID"), "3");
    EXPECT_EQ(control<QTableView>("LocList").model()->index(0, 0).data().toString(), QStringLiteral("Aardvark"));
    write("LocName", "Aardvark & Sons");
    click("SaveBttn");
    EXPECT_EQ(rows(std::string("select * from ") + list.table + " where " + list.key + "=3").text(list.name),
              "Aardvark & Sons");
    EXPECT_EQ(count("LocList"), 3 - list.hidden);
  }
}

TEST_F(Lists, EmployeesStartTodayAndKeepTheirDates) {
  open(makeEmployees);
  click("AddBttn");
  const text::DateTime today = text::DateTime::fromCalendar(2026, 11, 22);
  for (const char* day : {"DoB", "JDt", "LDt"}) EXPECT_EQ(control<forms::DatePicker>(day).day(), today);
  EXPECT_FALSE(control<QCheckBox>("StatusOpt").isChecked());
  refused("SaveBttn", "Cannot Save", "Give employee name to save record.");
  for (int i = 0; i < 10; ++i)
    if (i != 7) write(("EmpTxt_" + std::to_string(i)).c_str(), ("O'" + std::to_string(i)).c_str());
  write("EmpTxt_7", "");
  control<forms::DatePicker>("DoB").setDay(text::DateTime::fromCalendar(1960, 2, 29));
  control<QComboBox>("EmpDeptt").setEditText("Stores");
  control<QCheckBox>("StatusOpt").setChecked(true);
  click("SaveBttn");
  const auto row = rows("select * from employees where empid=" + read("EmpID"));
  const char* columns[] = {"EmpName", "FatherName",  "Address", "Telephone", "EMail",
                           "NICNo",   "Designation", "Salary",  "Remarks",   "Reference"};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(row.text(columns[i]), i == 7 ? "0" : "O'" + std::to_string(i)) << columns[i];
  EXPECT_EQ(row.date("DateOfBirth").iso() + row.text("Department"), "1960-02-29Stores");
  EXPECT_TRUE(row.yes("Status"));
  auto& departments = control<forms::DropCombo>("EmpDeptt");
  departments.showPopup();
  departments.hidePopup();
  EXPECT_EQ(departments.findText("Management"), 0);
  EXPECT_EQ(departments.findText("Stores"), 1);
  EXPECT_EQ(departments.currentText(), QStringLiteral("Stores"));
}

TEST_F(Lists, LastEmployeeAndThoseInUseStay) {
  open(makeEmployees);
  refused("DelBttn", "Cannot Delete", "You cannot delete the last employee in record.");
  click("AddBttn");
  write("EmpTxt_0", "Zoë");
  click("SaveBttn");
  ASSERT_EQ(read("EmpID"), "2");
  run({"insert into transactions (tranno, docno, fyid, trantype, empid) values (7, 1, 1, 71, 2)",
       "update acclevel3 set empid=2 where acccode=12001001"});
  refused("DelBttn", "Cannot Delete", "There have been transactions recorded for the selected employee.");
  run({"delete * from transactions where tranno=7"});
  refused("DelBttn", "Cannot Delete", "There have been customers linked with the selected employee.");
  run({"update acclevel3 set empid=1 where acccode=12001001"});
  deleteAndConfirm("DelBttn", "Are you sure, you want to delete this employee?");
  refused("DelBttn", "Cannot Delete", "You cannot delete the last employee in record.");
}

}  // namespace
}  // namespace velmo::masters
