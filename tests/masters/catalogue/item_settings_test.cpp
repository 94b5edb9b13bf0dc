#include "masters/catalogue/item_settings.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "frame/master/grid_editor.h"
#include "masters/catalogue/inv_below_reorder.h"
#include "masters/catalogue/search_item.h"
#include "masters/master_company.h"
#include "printing/page_pictures.h"
#include "printing/preview_window.h"

namespace velmo::masters {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ItemGrid : public test::MasterCompany {
 protected:
  void addGoods() {
    logIn();
    run({"insert into brands (brandname) values ('Strongarm')",
         "insert into stocklevel1 (catid, catname) values ('HND', 'Hand tools')",
         "insert into stocklevel1 (catid, catname) values ('O''B', 'O''Brien tools')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('HND01', 'Hammers', 'HND')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('O''B01', 'Own', 'O''B')"});
    addItem("C1", "O'B", 2, 30);
    addItem("A1", "HND", 1, 10.125);
    addItem("B1", "HND", 2, 20);
  }
  void addItem(const std::string& code, const std::string& category, int brand, double cost) {
    context->KORDconn.execute(
        "insert into stocklevel3 (itemcode, itemname, brandid, purchaseprice, sellingprice, unit, reorderlevel, "
        "valuationtype, status, catid, subcatid) values ('" +
        code + "', 'Item " + code + "', " + std::to_string(brand) + ", " + std::to_string(cost) +
        ", 99, 'Pcs', 5, no, no, " + store::quoted(category) + ", " + store::quoted(category + "01") + ")");
  }
  QTableView& grid(const char* name = "Grid") { return control<QTableView>(name); }
  std::vector<std::string> column(int which, const char* name = "Grid") {
    std::vector<std::string> texts;
    const QAbstractItemModel& model = *grid(name).model();
    for (int row = 0; row < model.rowCount(); ++row)
      texts.push_back(model.index(row, which).data().toString().toStdString());
    return texts;
  }
  bool put(int row, int which, const char* text) {
    return grid().model()->setData(grid().model()->index(row, which), QString::fromUtf8(text), Qt::EditRole);
  }
  std::string stored(const char* columnName, const std::string& code) {
    return rows("select * from stocklevel3 where itemcode='" + code + "'").text(columnName);
  }
  bool isOn(const char* option) { return control<QAbstractButton>(option).isChecked(); }
  void expectDropQuestion(session::Answer answer) {
    prompts.expect("Not Saved", "There are changes that have not been saved. Do you want to drop them?", answer);
  }
};

TEST_F(ItemGrid, ShowsAllGoodsThoseOfACategoryOrOfABrand) {
  addGoods();
  for (const Make make : {Make(makeInvPrices), Make(makeInvReorderSettings), Make(makeInvValuation)}) {
    open(make);
    EXPECT_THAT(column(0), ElementsAre("A1", "B1", "C1")) << "services are left out";
    click("ItemOpt_1");
    EXPECT_THAT(column(0), ElementsAre("A1", "B1", "C1")) << "no category yet";
    EXPECT_EQ(control<QComboBox>("CatList").findText("Services"), -1);
    pick("CatList", std::string("O'B"));
    EXPECT_THAT(column(0), ElementsAre("C1"));
    pick("BrandList", std::int64_t{2});
    EXPECT_THAT(column(0), ElementsAre("C1")) << "brands are not asked for";
    click("ItemOpt_2");
    EXPECT_EQ(control<QComboBox>("CatList").currentText(), QString());
    EXPECT_THAT(column(0), ElementsAre("B1", "C1"));
    pick("BrandList", std::int64_t{1});
    EXPECT_THAT(column(0), ElementsAre("A1"));
    control<forms::DropCombo>("BrandList").setEditText("No such brand");
    EXPECT_THAT(column(0), ElementsAre("A1"));
    click("ItemOpt_0");
    EXPECT_EQ(control<QComboBox>("BrandList").currentText(), QString());
    EXPECT_THAT(column(0), ElementsAre("A1", "B1", "C1"));
  }
}

TEST_F(ItemGrid, CellTakesNumbersAlone) {
  addGoods();
  open(makeInvPrices);
  for (int which = 0; which < 3; ++which)
    EXPECT_FALSE(grid().model()->index(0, which).flags().testFlag(Qt::ItemIsEditable)) << which;
  for (const char* text : {"", " ", "abc", "1.2.3", "5%", "1e999", "(5", "--5", "😀", "0x5", "١٢"}) {
    EXPECT_FALSE(put(0, 4, text)) << text;
    EXPECT_EQ(column(4)[0], "99.00") << text;
  }
  struct Figure {
    const char* typed;
    const char* kept;
  };
  for (const Figure& figure :
       {Figure{"12.345", "12.345"}, Figure{"1,234.5", "1234.5"}, Figure{"(5.00)", "-5"}, Figure{"-0", "0"},
        Figure{"1,2,3", "123"}, Figure{"&HFF", "255"}, Figure{"1e308", "1E+308"}}) {
    EXPECT_TRUE(put(0, 4, figure.typed)) << figure.typed;
    EXPECT_EQ(stored("sellingprice", "A1"), "99") << "not before the save";
    EXPECT_EQ(grid().model()->index(0, 4).data(Qt::EditRole).toString().toStdString(), figure.kept);
  }
  click("SaveBttn");
  EXPECT_EQ(stored("sellingprice", "A1"), "1E+308");
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(ItemGrid, EnterActsAsTabThroughTheFigures) {
  addGoods();
  open(makeInvPrices);
  grid().setFocus();
  EXPECT_EQ(grid().currentIndex(), grid().model()->index(0, 3));
  const char* typed[] = {"1", "2", "3"};
  const std::pair<int, int> places[] = {{0, 3}, {0, 4}, {1, 3}};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(grid().currentIndex(), grid().model()->index(places[i].first, places[i].second));
    test::press(*QApplication::focusWidget(), Qt::Key_0 + (typed[i][0] - '0'), Qt::NoModifier, typed[i]);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->text().toStdString(), typed[i]);
    test::press(*editor, Qt::Key_Return);
    QApplication::processEvents();
  }
  EXPECT_THAT(column(3), ElementsAre("1.00", "3.00", "30.00"));
  EXPECT_THAT(column(4), ElementsAre("2.00", "99.00", "99.00"));
  EXPECT_EQ(grid().currentIndex(), grid().model()->index(1, 4));
  test::press(*QApplication::focusWidget(), Qt::Key_Return);  // without an edit too
  QApplication::processEvents();
  EXPECT_EQ(grid().currentIndex(), grid().model()->index(2, 3));
}

TEST_F(ItemGrid, WhatIsBeingTypedIsSavedOrDroppedWithTheRest) {
  addGoods();
  open(makeInvReorderSettings);
  for (const bool save : {true, false}) {
    grid().setFocus();
    grid().setCurrentIndex(grid().model()->index(0, 3));
    test::press(*QApplication::focusWidget(), Qt::Key_8, Qt::NoModifier, QStringLiteral("8"));
    if (!save) test::press(*QApplication::focusWidget(), Qt::Key_9, Qt::NoModifier, QStringLiteral("9"));
    click(save ? "SaveBttn" : "CancelBttn");
    QApplication::processEvents();
    EXPECT_EQ(stored("reorderlevel", "A1"), "8");
    EXPECT_EQ(column(3)[0], "8.00");
  }
  EXPECT_TRUE(dialog->close()) << "nothing is left to ask about";
}

TEST_F(ItemGrid, EditsAreNotLostToAnotherChoiceUnasked) {
  addGoods();
  open(makeInvPrices);
  click("ItemOpt_1");
  pick("CatList", std::string("HND"));
  put(1, 4, "7");
  expectDropQuestion(session::Answer::No);
  pick("CatList", std::string("O'B"));
  EXPECT_EQ(control<QComboBox>("CatList").currentText(), QStringLiteral("Hand tools")) << "what the grid shows";
  EXPECT_THAT(column(4), ElementsAre("99.00", "7.00"));
  expectDropQuestion(session::Answer::No);
  click("ItemOpt_0");
  EXPECT_TRUE(isOn("ItemOpt_1"));
  EXPECT_EQ(control<QComboBox>("CatList").currentText(), QStringLiteral("Hand tools"));
  expectDropQuestion(session::Answer::No);
  EXPECT_FALSE(dialog->close());
  expectDropQuestion(session::Answer::Yes);
  click("ItemOpt_0");
  EXPECT_THAT(column(4), ElementsAre("99.00", "99.00", "99.00"));
  EXPECT_TRUE(dialog->close());
}

TEST_F(ItemGrid, MarginSetsTheSellingPricesOnShow) {
  addGoods();
  open(makeInvPrices);
  for (const char* text : {"", "ten", "10%", "1 0"}) {
    write("ProfitTxt", text);
    refused("UpdateBttn", "Cannot Update", "Enter profit margin in numeric.");
    EXPECT_TRUE(control<QWidget>("ProfitTxt").hasFocus());
  }
  click("ItemOpt_1");
  pick("CatList", std::string("HND"));
  write("ProfitTxt", "12.5");
  click("UpdateBttn");
  EXPECT_THAT(column(4), ElementsAre("11.39", "22.50"));
  EXPECT_EQ(stored("sellingprice", "A1"), "99");
  click("CancelBttn");
  EXPECT_THAT(column(4), ElementsAre("99.00", "99.00"));
  write("ProfitTxt", "(50)");
  click("UpdateBttn");
  click("SaveBttn");
  EXPECT_EQ(stored("sellingprice", "A1") + "/" + stored("sellingprice", "B1") + "/" + stored("sellingprice", "C1"),
            "5.0625/10/99");
}

TEST_F(ItemGrid, MethodFlipsByDoubleClickAndForAllOnShow) {
  addGoods();
  open(makeInvValuation);
  EXPECT_THAT(column(2), ElementsAre("Manual Cost", "Manual Cost", "Manual Cost"));
  Q_EMIT grid().doubleClicked(grid().model()->index(1, 0));
  EXPECT_THAT(column(2), ElementsAre("Manual Cost", "Weighted Average Cost", "Manual Cost"));
  grid().setCurrentIndex(grid().model()->index(2, 2));
  test::press(grid(), Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
  EXPECT_EQ(column(2)[2], "Weighted Average Cost");
  click("SaveBttn");
  EXPECT_EQ(rows("select * from stocklevel3 where valuationtype=yes").recordCount(), 2);
  click("WABttn");
  EXPECT_THAT(column(2), testing::Each("Weighted Average Cost"));
  click("CancelBttn");
  EXPECT_EQ(column(2)[0], "Manual Cost");
  click("ItemOpt_2");
  pick("BrandList", std::int64_t{2});
  click("PPBttn");
  click("SaveBttn");
  EXPECT_EQ(rows("select * from stocklevel3 where valuationtype=yes").recordCount(), 0);
}

TEST_F(ItemGrid, ConflictSavesNothingAndKeepsTheEdits) {
  addGoods();
  open(makeInvReorderSettings);
  put(0, 3, "1");
  put(1, 3, "2");
  test::NewCompany::run({"update stocklevel3 set reorderlevel=77 where itemcode='B1'"});
  prompts.expect("Cannot Save",
                 "The record of StockLevel3 was changed or deleted since it was read. Nothing was saved; show it again "
                 "and repeat the change.");
  click("SaveBttn");
  EXPECT_EQ(stored("reorderlevel", "A1") + "/" + stored("reorderlevel", "B1"), "5/77");
  EXPECT_THAT(column(3), ElementsAre("1.00", "2.00", "5.00"));
}

class Stock : public ItemGrid {
 protected:
  void addMovements() {
    addGoods();
    addItem("D1", "HND", 1, 1);  // never moves
    addItem("E1", "HND", 1, 1);
    run({"update stocklevel3 set reorderlevel=0 where itemcode='E1'",
         "insert into transactions (tranno, docno, fyid, trantype) values (7, 1, 1, 45)",
         "insert into transactions (tranno, docno, fyid, trantype) values (8, 1, 2, 45)",
         "insert into transactions (tranno, docno, fyid, trantype, cancel) values (9, 2, 1, 45, yes)",
         "insert into transactions (tranno, docno, fyid, trantype, invledger) values (10, 3, 1, 22, yes)",
         "insert into stockflow (tranno, itemcode, stockin) values (9, 'A1', 50)",
         "insert into stockflow (tranno, itemcode, stockin) values (10, 'A1', 50)",
         "insert into stocklevel3 (itemcode, itemname, reorderlevel, status, catid, subcatid) values ('XX', "
         "'Blocked', 10, yes, 'HND', 'HND01')",
         "insert into stockflow (tranno, itemcode, stockin) values (7, 'XX', 1)",
         "insert into stockflow (tranno, itemcode, stockin) values (7, 'a1', 7.5)",
         "insert into stockflow (tranno, itemcode, stockout) values (7, 'A1', 3)",
         "insert into stockflow (tranno, itemcode, stockin) values (7, 'B1', 6)",
         "insert into stockflow (tranno, itemcode, stockin) values (8, 'D1', 6)",
         "insert into stockflow (tranno, itemcode, stockout) values (7, 'C1', 1250)",
         "insert into stockflow (tranno, itemcode, stockin) values (7, 'E1', 2)",
         "insert into stockflow (tranno, itemcode, stockout) values (7, 'E1', 2)"});
  }
  static std::string previewed() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* preview = qobject_cast<printing::PreviewWindow*>(widget)) {
        std::string texts = printing::test::textsOf(*preview->pages().page(0), 1);
        delete preview;
        return texts;
      }
    return "no preview";
  }
};

TEST_F(Stock, ItemsBelowTheirReorderLevelAreListedAndPrintedAsChosen) {
  addMovements();
  run({"insert into stockflow (tranno, itemcode, stockout) values (7, 'SRV001', 5)"});
  open(makeInvBelowReorder);
  EXPECT_TRUE(isOn("AllBttn"));
  EXPECT_THAT(column(0, "DetailGrid"), ElementsAre("A1", "C1", "E1"));
  EXPECT_THAT(column(1, "DetailGrid"), ElementsAre("4.50", "(1,250.00)", "0.00"));
  click("PrintBttn");
  EXPECT_THAT(previewed(), testing::AllOf(HasSubstr("Item A1"), HasSubstr("Item E1"), Not(HasSubstr("Item B1"))));
  click("NonZeroBttn");
  EXPECT_THAT(column(0, "DetailGrid"), ElementsAre("A1", "C1"));
  click("PrintBttn");
  EXPECT_THAT(previewed(), testing::AllOf(HasSubstr("Item A1"), Not(HasSubstr("Item E1"))));
  click("AllBttn");
  EXPECT_THAT(column(4, "DetailGrid"), ElementsAre("Item A1", "Item C1", "Item E1"));
  context->FYID = 2;
  click("NonZeroBttn");
  EXPECT_THAT(column(0, "DetailGrid"), IsEmpty());
  EXPECT_EQ(dialog->findChild<QWidget*>("SaveBttn"), nullptr);
}

TEST_F(Stock, ListBelowReorderLevelClosesItsChildWindow) {
  addMovements();
  QMdiArea area;
  area.show();
  QMdiSubWindow* window = area.addSubWindow(makeInvBelowReorder(*workplace, nullptr));
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  window->show();
  window->widget()->findChild<QPushButton*>("CloseBttn")->click();
  EXPECT_FALSE(window->isVisible());
}

TEST_F(Stock, SearchShowsPriceAndStockOfTheItemsByCode) {
  addMovements();
  struct Search {
    const char* typed;
    std::vector<std::string> found;
  };
  const Search searches[] = {{"1", {"A1", "B1", "C1", "D1", "E1", "SRV001"}},
                             {"b", {"B1"}},
                             {"_1", {"A1", "B1", "C1", "D1", "E1", "SRV001"}},
                             {"[AB]1", {"A1", "B1"}},
                             {"O'Brien", {}},
                             {"'; delete * from stocklevel3 --", {}}};
  for (const Search& search : searches) {
    SCOPED_TRACE(search.typed);
    context->SearchText = search.typed;
    open(makeSearchItem);
    EXPECT_EQ(column(0, "ItemGrid"), search.found);
  }
  write("SearchBox", "1");
  test::press(control<QLineEdit>("SearchBox"), Qt::Key_Return);
  EXPECT_THAT(column(3, "ItemGrid"), ElementsAre("4.50", "6.00", "(1,250.00)", "", "0.00", ""));
  EXPECT_THAT(column(2, "ItemGrid").front(), "99.00");
  EXPECT_THAT(column(7, "ItemGrid").back(), "Services");
  for (int which = 0; which < 8; ++which)
    EXPECT_FALSE(grid("ItemGrid").model()->index(0, which).flags().testFlag(Qt::ItemIsEditable));
}

}  // namespace
}  // namespace velmo::masters
