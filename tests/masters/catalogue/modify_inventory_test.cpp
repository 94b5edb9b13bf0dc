#include "masters/catalogue/modify_inventory.h"

#include <gmock/gmock.h>

#include "masters/catalogue/modify_services.h"
#include "masters/master_company.h"

namespace velmo::masters {
namespace {

using testing::ElementsAre;

class Catalogue : public test::MasterCompany {
 protected:
  void openGoods() {
    if (!context) logIn();
    run({"insert into stocklevel1 (catid, catname) values ('HND', 'Hand tools')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('HND01', 'Hammers', 'HND')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('HND02', 'Saws', 'HND')",
         "insert into brands (brandname) values ('Strongarm')"});
    open(makeModifyInventory);
    choose("L2List", "HND01");
  }
  void addItem(const char* code, const char* name = "Hammer") {
    click("AddBttn3");
    write("InvTxt_0", code);
    write("InvTxt_1", name);
    click("SaveBttn3");
  }
  bool isAdding() { return master().panel(master().levels() - 1).state() == frame::MasterPanel::State::Adding; }
};

TEST_F(Catalogue, CategoriesAreTypedAndSubCategoriesNumbered) {
  open(makeModifyInventory);
  EXPECT_EQ(count("L1List"), 0) << "services have a dialog of their own";
  refused("SaveBttn", "Cannot Save", "Click on Add Button before adding record.");
  refused("DelBttn", "Cannot Delete", "There is no category to be deleted.");
  click("AddBttn");
  EXPECT_FALSE(control<QWidget>("L2Frame").isEnabled() || control<QWidget>("L3Frame").isEnabled());
  refused("SaveBttn", "Cannot Save", "Enter category code to save.");
  write("CatCode", "HND");
  refused("SaveBttn", "Cannot Save", "Enter inventory category name to save.");
  write("CatCodeTxt", "Hand tools");
  click("SaveBttn");
  EXPECT_TRUE(control<QLineEdit>("CatCode").isReadOnly());
  const char* taken = "A category is already present with the same code. Give a different code.";
  for (const char* code : {"HND", "hnd", "H%", "_n_"}) {
    click("AddBttn");
    write("CatCode", code);
    write("CatCodeTxt", "Other");
    refused("SaveBttn", "Cannot Save", taken);
    click("CancelBttn");
  }
  write("CatCodeTxt", "Tools for hands");  // its own code is not another's
  click("SaveBttn");
  EXPECT_EQ(rows("select * from stocklevel1 where catid='HND'").text("catname"), "Tools for hands");

  for (const char* code : {"HND01", "HND02"}) {
    click("AddBttn2");
    EXPECT_EQ(read("SubCatCode"), code);
    refused("SaveBttn2", "Cannot Save", "Enter sub inventory category name to save.");
    write("SubCatCodeTxt", "Hammers");
    click("SaveBttn2");
  }
  refused("DelBttn", "Cannot Delete",
          "There have been sub categories present in this category. Delete them before deleting it.");
  addItem("H1");
  refused("DelBttn2", "Cannot Delete",
          "There have been items present in this sub category. Delete them before deleting it.");
  deleteAndConfirm("DelBttn3", "Are you sure, you want to delete this selected inventory item, Hammer?");
  refused("DelBttn3", "Cannot Delete", "There is no inventory item to be deleted.");
  refused("SaveBttn3", "Cannot Save", "Click on Add Button before adding record.");
  for (int i = 0; i < 2; ++i)
    deleteAndConfirm("DelBttn2", "Are you sure, you want to delete this selected sub category?");
  refused("DelBttn2", "Cannot Delete", "There is no sub categories to be deleted.");
  deleteAndConfirm("DelBttn", "Are you sure, you want to delete this selected category?");
  EXPECT_EQ(rows("select * from stocklevel1").recordCount(), 1) << "the services stay";
}

TEST_F(Catalogue, SubCategory99IsTheLast) {
  logIn();
  run({"insert into stocklevel1 (catid, catname) values ('X', 'Other')",
       "insert into stocklevel2 (subcatid, subcatname, catid) values ('X98', 'Ninety-eight', 'X')"});
  open(makeModifyInventory);
  click("AddBttn2");
  EXPECT_EQ(read("SubCatCode"), "X99");
  write("SubCatCodeTxt", "The last");
  click("SaveBttn2");
  click("AddBttn2");
  EXPECT_EQ(read("SubCatCode"), "");
  write("SubCatCodeTxt", "One too many");
  refused("SaveBttn2", "Cannot Save", "You have added maximum number of sub categories in the selected main category.");
}

TEST_F(Catalogue, ItemsStartWithUsualValuesAndAreTestedInOrder) {
  openGoods();
  click("AddBttn3");
  EXPECT_TRUE(control<QWidget>("InvTxt_0").hasFocus());
  std::vector<std::string> texts;
  for (int i = 0; i < 11; ++i) texts.push_back(read(("InvTxt_" + std::to_string(i)).c_str()));
  EXPECT_THAT(texts, ElementsAre("", "", "", "", "0.00", "0.00", "0.00", "0.00", "Pcs", "0.00", "0.00"));
  EXPECT_EQ(control<forms::DropCombo>("BrandList").currentText().toStdString(), "General");
  EXPECT_TRUE(control<QAbstractButton>("CostOpt_0").isChecked());
  EXPECT_FALSE(control<QAbstractButton>("StatusOpt").isChecked());

  for (const char* box : {"InvTxt_4", "InvTxt_5", "InvTxt_8", "InvTxt_9", "InvTxt_10"}) write(box, "");
  control<forms::DropCombo>("BrandList").setEditText("No such brand");
  struct Step {
    const char* refusal;
    const char* box;
    std::function<void()> mend;
  };
  const Step steps[] = {
      {"Enter item code to save.", "InvTxt_0", [this] { write("InvTxt_0", "H1"); }},
      {"Enter item name to save.", "InvTxt_1", [this] { write("InvTxt_1", "Claw hammer"); }},
      {"Select correct brand name.", "BrandList", [this] { pick("BrandList", std::int64_t{2}); }},
      {"Enter a numeric purchase price.", "InvTxt_4", [this] { write("InvTxt_4", "12.345"); }},
      {"Enter a numeric selling price.", "InvTxt_5", [this] { write("InvTxt_5", "20"); }},
      {"Enter measurement unit to save.", "InvTxt_8", [this] { write("InvTxt_8", "Box"); }},
      {"Enter a numeric re-order quantity.", "InvTxt_9", [this] { write("InvTxt_9", "5"); }},
      {"Enter a numeric valuation cost.", "InvTxt_10", [this] { write("InvTxt_10", "11"); }},
  };
  for (const Step& step : steps) {
    refused("SaveBttn3", "Cannot Save", step.refusal);
    EXPECT_TRUE(control<QWidget>(step.box).hasFocus()) << step.box;
    step.mend();
  }
  click("SaveBttn3");
  const auto row = rows("select * from stocklevel3 where itemcode='H1'");
  std::vector<std::string> kept;
  for (const char* column : {"ItemName", "BrandID", "PurchasePrice", "SellingPrice", "SellingPrice2", "PackPcs", "Unit",
                             "ReorderLevel", "ValuationCost1", "ValuationCost2", "CatID", "SubCatID"})
    kept.push_back(row.text(column));
  EXPECT_THAT(kept, ElementsAre("Claw hammer", "2", "12.345", "20", "0", "1", "Box", "5", "11", "11", "HND", "HND01"));
  EXPECT_TRUE(row.yes("ValuationType"));
  EXPECT_FALSE(row.yes("Status"));
}

TEST_F(Catalogue, CostIsTypedOnlyWhereItIsNotAnAverage) {
  openGoods();
  addItem("H1");
  const auto locked = [this] { return control<QLineEdit>("InvTxt_10").isReadOnly(); };
  EXPECT_TRUE(locked());
  click("CostOpt_1");
  EXPECT_FALSE(locked());
  write("InvTxt_10", "7.5");
  click("SaveBttn3");
  EXPECT_FALSE(locked());
  const auto row = rows("select * from stocklevel3 where itemcode='H1'");
  EXPECT_FALSE(row.yes("ValuationType"));
  EXPECT_EQ(row.text("ValuationCost1") + "/" + row.text("ValuationCost2"), "7.5/7.5");
  addItem("H2");
  EXPECT_TRUE(locked());
  choose("L3List", "H1");
  EXPECT_FALSE(locked());
  click("CostOpt_0");
  click("CancelBttn3");
  EXPECT_FALSE(locked()) << "the change was dropped";
}

TEST_F(Catalogue, CodesAreUniqueByPatternWhateverTheirCase) {
  openGoods();
  for (const char* code : {"Ab-1", "O'Brien", "[x]", "50%"}) addItem(code);
  const char* taken = "An item is already present with the same item code. Give a different item code.";
  const char* refusedCodes[] = {"Ab-1", "AB-1", "ab-1", "o'BRIEN", "50%", "A%", "_b-_", "%", "[0-9]0%", "srv001"};
  for (const char* code : refusedCodes) {
    click("AddBttn3");
    write("InvTxt_0", code);
    refused("SaveBttn3", "Cannot Save", taken);
    EXPECT_TRUE(isAdding());
    click("CancelBttn3");
  }
  for (const char* code : {"Ab-11", "z%", "a_c", "x", "'", "''", "\"", "#;"}) {
    SCOPED_TRACE(code);
    addItem(code);
    EXPECT_FALSE(isAdding());
    EXPECT_EQ(read("InvTxt_0"), code);
  }
  // On editing: a row counts only when it is another one.
  choose("L3List", "Ab-1");
  write("InvTxt_0", "AB-1");
  click("SaveBttn3");
  EXPECT_EQ(read("InvTxt_0"), "AB-1");
  write("InvTxt_0", "a_-1");  // fits its own code alone
  click("SaveBttn3");
  EXPECT_EQ(read("InvTxt_0"), "a_-1");
  write("InvTxt_0", "Ab-11");
  refused("SaveBttn3", "Cannot Save", taken);
  click("CancelBttn3");

  click("AddBttn3");  // a code that as a pattern does not fit itself
  write("InvTxt_0", "[x]");
  write("InvTxt_1", "Twice");
  refused("SaveBttn3", "Cannot Save", taken);  // the row "x"
  click("CancelBttn3");
}

TEST_F(Catalogue, NewCodeTakesTheMovementsAlong) {
  openGoods();
  addItem("O'ld%1");
  addItem("O'ld%12");
  run({"insert into transactions (tranno, docno, fyid, trantype) values (7, 1, 1, 45)",
       "insert into stockflow (tranno, itemcode, stockin) values (7, 'O''ld%1', 5)",
       "insert into stockflow (tranno, itemcode, stockin) values (7, 'o''LD%1', 6)",
       "insert into stockflow (tranno, itemcode, stockin) values (7, 'O''ld%12', 7)"});
  choose("L3List", "O'ld%1");
  write("InvTxt_0", "New'er");
  click("SaveBttn3");
  const auto flow = [this](const char* code) {
    return rows(std::string("select sum(stockin) as S from stockflow where itemcode = ") + store::quoted(code))
        .number("S");
  };
  EXPECT_EQ(flow("New'er"), 11);
  EXPECT_EQ(flow("O'ld%12"), 7);
  EXPECT_EQ(rows("select * from stocklevel3 where itemcode='O''ld%1'").recordCount(), 0);
  refused("DelBttn3", "Cannot Delete", "There have been ledger entries recorded for the selected item, Hammer.");

  write("InvTxt_0", "Never");  // what is not saved moves nothing
  click("CancelBttn3");
  EXPECT_EQ(flow("New'er"), 11);
  run({"update transactions set [cancel]=yes where tranno=7"});
  refused("DelBttn3", "Cannot Delete", "There have been ledger entries recorded for the selected item, Hammer.");
}

TEST_F(Catalogue, RowOfAnotherProgramIsNotOverwritten) {
  openGoods();
  addItem("H1");
  write("InvTxt_1", "mine");
  test::NewCompany::run({"update stocklevel3 set itemname='theirs' where itemcode='H1'"});
  prompts.expect("Cannot Save",
                 "The record of StockLevel3 was changed or deleted since it was read. Nothing was saved; show it again "
                 "and repeat the change.");
  click("SaveBttn3");
  EXPECT_EQ(read("InvTxt_1"), "mine");
  click("CancelBttn3");
  EXPECT_EQ(read("InvTxt_1"), "theirs");
}

TEST_F(Catalogue, ServicesStandUnderOneFixedCategory) {
  open(makeModifyServices);
  EXPECT_EQ(count("L2List"), 1);
  refused("DelBttn2", "Cannot Delete", "The only service category cannot be deleted.");
  refused("DelBttn3", "Cannot Delete", "The only service cannot be deleted.");
  click("AddBttn2");
  refused("SaveBttn2", "Cannot Save", "Enter sub inventory category code to save.");
  write("SubCatCode", "service01");
  refused("SaveBttn2", "Cannot Save", "Enter sub inventory category name to save.");
  write("SubCatCodeTxt", "Delivery");
  refused("SaveBttn2", "Cannot Save", "A category is already present with the same code. Give a different code.");
  write("SubCatCode", "DEL");
  click("SaveBttn2");
  EXPECT_EQ(rows("select * from stocklevel2 where subcatid='DEL'").text("catid"), "Service");
  EXPECT_TRUE(control<QLineEdit>("SubCatCode").isReadOnly());

  click("AddBttn3");
  refused("SaveBttn3", "Cannot Save", "Enter service code to save.");
  write("InvTxt_0", "srv001");
  refused("SaveBttn3", "Cannot Save",
          "A service is already present with the same service code. Give a different service code.");
  write("InvTxt_0", "VAN");
  refused("SaveBttn3", "Cannot Save", "Enter service name to save.");
  write("InvTxt_1", "Van, per trip");
  write("InvTxt_5", "400");
  click("SaveBttn3");
  const auto row = rows("select * from stocklevel3 where itemcode='VAN'");
  EXPECT_EQ(row.text("CatID") + "/" + row.text("SubCatID") + "/" + row.text("SellingPrice") + "/" + row.text("BrandID"),
            "Service/DEL/400/1");
  refused("DelBttn2", "Cannot Delete",
          "There have been service present in this category. Delete them before deleting it.");
  run({"insert into transactions (tranno, docno, fyid, trantype) values (7, 1, 1, 32)",
       "insert into stockflow (tranno, itemcode, stockout) values (7, 'van', 1)"});
  refused("DelBttn3", "Cannot Delete",
          "There have been ledger entries recorded for the selected service, Van, per trip.");
  run({"delete * from transactions where tranno=7"});
  deleteAndConfirm("DelBttn3", "Are you sure, you want to delete this selected inventory service, Van, per trip?");
  deleteAndConfirm("DelBttn2", "Are you sure, you want to delete this selected sub category?");
}

TEST_F(Catalogue, BrandsOpenFromTheirButton) {
  openGoods();
  addItem("H1");
  click("BrandBttn");
  EXPECT_EQ(screens.opened, "InvBrands");
  run({"insert into brands (brandname) values ('Aardvark')"});
  click("BrandBttn");
  auto& brands = control<forms::DropCombo>("BrandList");
  EXPECT_EQ(brands.itemText(0).toStdString(), "Aardvark");
  EXPECT_EQ(brands.currentText().toStdString(), "General");
  EXPECT_FALSE(isAdding());
}

}  // namespace
}  // namespace velmo::masters
