#include <gmock/gmock.h>

#include <QComboBox>
#include <QPlainTextEdit>

#include "documents/production/workshop_desk.h"
#include "printing/preview_window.h"

namespace velmo::documents {
namespace {

using frame::GridColumn;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ProductionScreen : public testing::Test {
 protected:
  ProductionScreen() {
    shop.addRecipe("P1", {{"H1", 2, 10}}, 5, 3, 10);
    shop.run("INSERT INTO Jobs (JobID, JobNo, JobDesc, Status) VALUES (3, 33, 'Hall', No)");
  }
  void importFor(test::WorkshopScreen& screen, const char* pieces) {
    screen.line("GridOut", 0, "P1", pieces);
    screen.press("ImportBttn");
  }
  void refused(test::WorkshopScreen& screen, const char* text) {
    shop.prompts.expect("Cannot Save", text);
    screen.press("SaveBttn");
  }
  std::vector<std::string> lines(const char* docNo = "1") {
    return shop.rows(
        "select S.serial, S.itemcode, S.stockin, S.stockout, S.rate, S.grossamt, S.itemvalue, S.jobid from stockflow "
        "as S inner join transactions as T on S.tranno = T.tranno where T.trantype=42 and T.docno=" +
        std::string(docNo) + " order by S.stockin, S.serial");
  }
  std::vector<std::string> ledger(const char* docNo = "1") {
    return shop.rows(
        "select S.acccode, S.accname, S.desc, S.debit, S.credit from subtransactions as S inner join transactions as T "
        "on S.tranno = T.tranno where T.trantype=42 and T.docno=" +
        std::string(docNo) + " order by S.serial");
  }
  test::WorkshopCompany shop;
};

TEST_F(ProductionScreen, MakesAProductFromItsRecipe) {
  test::WorkshopScreen screen(shop, makeProduction);
  EXPECT_TRUE(shop.context.Costs.areArmed());
  EXPECT_EQ(screen.find<QTableView>("GridOut").model()->rowCount(), 1);
  EXPECT_EQ(screen.find<QTableView>("GridIn").model()->rowCount(), 500);
  importFor(screen, "4");
  EXPECT_EQ(screen.shown("GridIn", 0, GridColumn::ItemCode), "H1");
  EXPECT_EQ(screen.shown("GridIn", 0, GridColumn::Quantity), "8.00");
  for (const auto& [box, amount] : {std::pair{"TotM", "80.00"},
                                    {"TotL", "20.00"},
                                    {"TotFOH", "12.00"},
                                    {"TotOS", "0.00"},
                                    {"TotCOP", "112.00"},
                                    {"TotCGM", "112.00"}})
    EXPECT_EQ(screen.text(box), amount) << box;
  EXPECT_EQ(screen.shown("GridOut", 0, GridColumn::Rate), "28.00");
  screen.find<QComboBox>("JobList").setCurrentIndex(0);
  screen.find<QPlainTextEdit>("Desc").setPlainText("for the hall");
  screen.press("SaveBttn");
  EXPECT_THAT(lines(), ElementsAre("1|H1||8|10|80|80|3", "1|P1|4||28|112|112|3"));
  EXPECT_THAT(ledger(),
              ElementsAre("50001008|Cost of Goods Produced|for the hall|112|", "50001002|Purchases|for the hall||80",
                          "50002001|Labour Wages|for the hall||20", "50003001|Factory Overhead|for the hall||12"));
  EXPECT_THAT(shop.rows("select partycode, partycode2, text1, text2, text3, discount, carriage, tramount, received, "
                        "balance, invledger, LocationFrom, LocationTo, jobidfrom from transactions where trantype=42"),
              ElementsAre("50001002|50001008|Purchases|Cost of Goods Produced|0|80|20|112|12|0|False|1|1|3"));
  screen.press("PrevBttn");
  EXPECT_EQ(screen.text("TotCOP"), "112.00");
  screen.type("TotOS", "50");
  refused(screen, "Select a correct production outsourced party.");
  screen.find<QComboBox>("PartyList").setCurrentIndex(screen.find<QComboBox>("PartyList").findText("Zoe Builders"));
  refused(screen, "Total cost of goods produced must be equal to total value of goods manufactured.");
  screen.cell("GridOut", 0, GridColumn::Rate, "40.5");
  screen.press("SaveBttn");
  EXPECT_THAT(ledger().back(), "12001003|Zoe Builders|for the hall||50");
  EXPECT_THAT(lines(), ElementsAre("1|H1||8|10|80|80|3", "1|P1|4||40.5|162|162|3"));
  screen.withFind("FindProduction", [&](QDialog& find) {
    find.findChild<QComboBox*>()->setCurrentText("Outsource Party");
    find.findChild<QLineEdit*>("ValueBox")->setText("zoe");
    find.findChild<QPushButton*>("FindBttn")->click();
    EXPECT_EQ(find.findChild<QTableView*>("TranGrid")->model()->rowCount(), 1);
    find.findChild<QLineEdit*>("ValueBox")->setText("brien");
    find.findChild<QPushButton*>("FindBttn")->click();
    EXPECT_EQ(find.findChild<QTableView*>("TranGrid")->model()->rowCount(), 0);
  });
}

TEST_F(ProductionScreen, RefusesInItsOrder) {
  test::WorkshopScreen screen(shop, makeProduction);
  shop.prompts.expect("Select Correct Product",
                      "Select a correct product with quantity greater than 0 to import components.");
  screen.press("ImportBttn");
  for (const char* pieces : {"0", "-4"}) {
    shop.prompts.expect("Select Correct Product",
                        "Select a correct product with quantity greater than 0 to import components.");
    importFor(screen, pieces);
  }
  EXPECT_FALSE(screen.cell("GridOut", 0, GridColumn::Quantity, "1e308"));
  EXPECT_FALSE(screen.cell("GridIn", 0, GridColumn::ItemCode, "Service"));
  screen.line("GridOut", 0, "N1", "3");
  screen.press("ImportBttn");  // nothing, of an item without a recipe
  EXPECT_EQ(screen.shown("GridIn", 0, GridColumn::ItemCode), "");
  screen.find<QTableView>("GridIn").setFocus();
  screen.grid("GridIn").setCurrentCell(499, GridColumn::ItemCode);
  shop.addRecipe("P1", {{"N1", 1, 1}});
  shop.prompts.expect("Components Not Imported",
                      "The recipe has 2 components, and there is room for 1 from this line on. Nothing was imported.");
  importFor(screen, "4");
  EXPECT_EQ(screen.text("TotL"), "0.00");
  screen.cell("GridOut", 0, GridColumn::Quantity, "0");
  for (const auto& [list, text] :
       {std::pair{"LocationList", "Select a correct location of inventory."},
        {"JobList", "Select a correct job or leave it blank if you do not want to save a job reference."},
        {"IHead_0", "Select an appropriate input account to be credited."},
        {"IHead_1", "Select an appropriate output account to be debited."}}) {
    auto& combo = screen.find<QComboBox>(list);
    const QString before = combo.currentText();
    combo.setEditText("no such entry");
    refused(screen, text);
    combo.setEditText(before);
  }
  screen.find<QLineEdit>("TotL").setText("-5");
  screen.line("GridIn", 0, "H1", "1", "5");
  refused(screen, "The cost of labour cannot be below zero.");
  screen.type("TotL", "0");
  EXPECT_THAT(shop.rows("select * from transactions where trantype=42"), IsEmpty());
}

TEST_F(ProductionScreen, WithoutInputsPostsBothSidesAtZero) {
  test::WorkshopScreen screen(shop, makeProduction);
  screen.press("SaveBttn");
  EXPECT_THAT(ledger(), ElementsAre("50001008|Cost of Goods Produced||0|", "50001002|Purchases|||0"));
  EXPECT_THAT(lines(), IsEmpty());
}

// What was printed is that document, whatever is changed and pressed next.
TEST_F(ProductionScreen, StaysOnWhatItPrints) {
  test::WorkshopScreen screen(shop, makeProduction);
  importFor(screen, "4");
  for (const char* print : {"PrintBill_1", "PrintBill_0"}) {
    screen.type("DocNo", std::string(print) == "PrintBill_1" ? "7" : "8");
    screen.press(print);
    QApplication::processEvents();
    EXPECT_EQ(screen.text("TotCOP"), "112.00") << print;
  }
  for (QWidget* window : QApplication::topLevelWidgets())
    if (qobject_cast<printing::PreviewWindow*>(window)) window->close();
  EXPECT_FALSE(shop.context.PrintRS.isOpen());
  QApplication::setActiveWindow(&screen.widget());
  screen.cell("GridIn", 0, GridColumn::Quantity, "9");
  screen.cell("GridOut", 0, GridColumn::Rate, "30.5");
  screen.press("SaveBttn");
  EXPECT_THAT(shop.rows("select docno from transactions where trantype=42"), ElementsAre("8"));
  EXPECT_EQ(ledger("8").size(), 4U);
  EXPECT_THAT(lines("8"), ElementsAre("1|H1||9|10|90|90|0", "1|P1|4||30.5|122|122|0"));
}

}  // namespace
}  // namespace velmo::documents
