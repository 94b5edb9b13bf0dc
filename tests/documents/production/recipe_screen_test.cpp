#include <gmock/gmock.h>

#include <QComboBox>

#include "documents/production/recipe_type.h"
#include "documents/production/workshop_desk.h"
#include "frame/items/item_history.h"

namespace velmo::documents {
namespace {

using frame::GridColumn;
using testing::ElementsAre;
using testing::IsEmpty;

class RecipeScreen : public testing::Test {
 protected:
  void write(test::WorkshopScreen& screen) {
    screen.type("ICode", "P1");
    screen.line("Grid", 0, "h1", "2");
    screen.line("Grid", 2, "N1", "30", "0.2");
    screen.type("Labour", "5");
    screen.type("FOH", "3");
  }
  test::WorkshopCompany shop;
};

TEST_F(RecipeScreen, IsKeptBesideTheBooksAndFoundInEveryYear) {
  {
    test::WorkshopScreen screen(shop, makeBillofMaterial);
    EXPECT_TRUE(shop.context.Costs.areArmed());
    EXPECT_EQ(screen.widget().findChild<QWidget*>("CancelOption"), nullptr);
    EXPECT_EQ(screen.widget().findChild<QWidget*>("PrintBill_0"), nullptr);
    EXPECT_EQ(screen.text("QtyBox"), "1");
    write(screen);
    EXPECT_EQ(screen.text("IName"), "Hammer Box");
    EXPECT_EQ(screen.text("UnitBox"), "Set");
    EXPECT_EQ(screen.text("TExc"), "26.00");
    EXPECT_EQ(screen.text("TotalCost"), "34.00");
    screen.press("SaveBttn");
  }
  EXPECT_THAT(shop.rows("select docno, text1, text2, text3, additionaltax, discount, tax1, tax2, tramount, cancel, "
                        "invledger, partycode, LocationFrom, WordsAmt from transactions where trantype=95"),
              ElementsAre("1|P1|Hammer Box|Set|1|26|5|3|34|True|True|0|0|thirty-four and 00/100 only."));
  EXPECT_EQ(shop.rows("select tranno from transactions where trantype=95 and trandate=#11-22-2026#").size(), 1U);
  const std::string lines =
      "select S.serial, S.itemcode, S.stockout, S.rate, S.grossamt, S.locationid, S.jobid, S.packs from stockflow as S "
      "inner join transactions as T on S.tranno = T.tranno where T.trantype=95 order by S.serial";
  EXPECT_THAT(shop.rows(lines), ElementsAre("1|H1|2|10|20|1|0|1", "2|N1|30|0.2|6|1|0|1"));
  EXPECT_THAT(shop.rows("select S.serial from subtransactions as S inner join transactions as T on S.tranno = T.tranno "
                        "where T.trantype=95"),
              IsEmpty());
  EXPECT_EQ(frame::itemAvailable(shop.context.KORDconn, "H1", 0, 1), 100000);

  shop.context.FYID = 2;
  shop.context.FinancialYearStart = text::DateTime::fromCalendar(2027, 1, 1);
  test::WorkshopScreen next(shop, makeBillofMaterial);
  EXPECT_EQ(next.text("DocNo"), "2");
  next.type("DocNo", "1");
  next.type("ICode", "P1");
  shop.prompts.expect("Cannot Save", "This Serial No. already exists. Saving this would create duplicate values.");
  next.press("SaveBttn");
  shop.context.UserID = 2;  // Prev needs no right
  next.press("PrevBttn");
  EXPECT_EQ(next.text("Labour"), "5.00");
  EXPECT_EQ(next.text("IName"), "Hammer Box");
  EXPECT_EQ(next.shown("Grid", 1, GridColumn::NetAmount), "6.00");
  next.type("FOH", "4");
  next.press("SaveBttn");
  EXPECT_EQ(shop.one("select tramount from transactions where trantype=95"), "35");
  EXPECT_EQ(shop.rows(lines).size(), 2U);
}

TEST_F(RecipeScreen, RefusesWhatIsNoRecipeInItsOrder) {
  test::WorkshopScreen screen(shop, makeBillofMaterial);
  const auto refused = [&](const char* text) {
    shop.prompts.expect("Cannot Save", text);
    screen.press("SaveBttn");
  };
  screen.find<QLineEdit>("QtyBox").setText("0");
  screen.type("DocNo", "");
  refused("Serial number must be a numeric figure.");
  screen.type("DocNo", "7");
  screen.type("ICode", "nothing");
  EXPECT_EQ(screen.text("ICode"), "");
  refused("Select a correct product name from inventory.");
  screen.type("ICode", "p1");
  refused("Give a positive value for quantity.");
  screen.find<QLineEdit>("QtyBox").setText("-2");
  refused("Give a positive value for quantity.");
  shop.prompts.expect("Numeric Quantity", "Quantity must be a numeric figure.");
  screen.type("QtyBox", "");
  EXPECT_EQ(screen.text("QtyBox"), "0.00");
  screen.type("QtyBox", "0.125");
  EXPECT_EQ(screen.text("QtyBox"), "0.125");
  screen.find<QLineEdit>("Labour").setText("-5");
  refused("The cost of labour cannot be below zero.");
  screen.type("Labour", "0");
  EXPECT_FALSE(screen.cell("Grid", 0, GridColumn::ItemCode, "Service"));
  EXPECT_THAT(shop.rows("select * from transactions where trantype=95"), IsEmpty());
  screen.press("SaveBttn");  // without a line
  EXPECT_EQ(shop.one("select additionaltax from transactions where trantype=95"), "0.125");
}

TEST_F(RecipeScreen, IsFoundByWhatItIsFor) {
  shop.addRecipe("P1", {{"H1", 1, 10}}, 1, 1, 1, 7);
  shop.addRecipe("H1", {}, 1, 1);
  shop.run("UPDATE Transactions SET Text2 = 'Hammer Box', [Desc] = 'in oak' WHERE Text1 = 'P1'");
  test::WorkshopScreen screen(shop, makeBillofMaterial);
  screen.withFind("FindBillMaterial", [&](QDialog& find) {
    auto& grid = *find.findChild<QTableView*>("TranGrid");
    EXPECT_EQ(grid.model()->rowCount(), 2);
    for (int i = 0; i < grid.model()->columnCount(); ++i) {
      const QString caption = grid.model()->headerData(i, Qt::Horizontal).toString();
      EXPECT_NE(caption, "Status");
      EXPECT_NE(caption, "Location");
    }
    const std::pair<const char*, const char*> searches[] = {
        {"Combination No.", "1"}, {"Product Code", "p"}, {"Product Name", "box"}, {"Remarks", "oak"}};
    for (const auto& [column, value] : searches) {
      find.findChild<QComboBox*>()->setCurrentText(column);
      find.findChild<QLineEdit*>("ValueBox")->setText(value);
      find.findChild<QPushButton*>("FindBttn")->click();
      EXPECT_EQ(grid.model()->rowCount(), 1) << column;
    }
    find.findChild<QLineEdit*>("ValueBox")->clear();
    shop.prompts.expect("Cannot Find", "Give remarks to find.");
    find.findChild<QPushButton*>("FindBttn")->click();
    test::press(grid, Qt::Key_Return);
  });
  EXPECT_EQ(screen.text("ICode"), "P1");
}

}  // namespace
}  // namespace velmo::documents
