#include <gmock/gmock.h>

#include <QHeaderView>
#include <QLabel>

#include "masters/accounts/modify_accounts.h"
#include "masters/catalogue/modify_inventory.h"
#include "masters/master_company.h"

namespace velmo::masters {
namespace {

using testing::ElementsAre;

class Pickers : public test::MasterCompany {
 protected:
  void addGoods() {
    logIn();
    run({"insert into brands (brandname) values ('Gürtel')", "insert into brands (brandname) values ('Zebra 100%')",
         "insert into stocklevel1 (catid, catname) values ('B', 'Alpha [goods]')",
         "insert into stocklevel1 (catid, catname) values ('A', 'Zulu')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('B01', 'O''Brien''s', 'B')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('A01', 'Screws_x', 'A')"});
    const char* names[] = {"Hammer", "hammer", "Ümlaut Äpfel", "50% off", "a_b", "[x]", "tail "};
    for (int i = 0; i < 28; ++i) {
      const bool first = i % 3 == 0;
      context->KORDconn.execute("insert into stocklevel3 (itemcode, itemname, brandid, catid, subcatid) values ('" +
                                std::string(1, static_cast<char>('a' + i * 7 % 26)) + std::to_string(i) + "', " +
                                store::quoted(names[i % 7]) + ", " + std::to_string(1 + i % 3) + ", '" +
                                (first ? "A" : "B") + "', '" + (first ? "A01" : "B01") + "')");
    }
  }
  static std::vector<std::string> codes(QDialog& picker) {
    auto& model = *picker.findChild<QTableView*>("InvGrid")->model();
    while (model.canFetchMore({})) model.fetchMore({});
    std::vector<std::string> all;
    for (int row = 0; row < model.rowCount(); ++row)
      all.push_back(model.index(row, 0).data().toString().section(' ', 0, 0).toStdString());
    return all;
  }
  std::vector<std::string> expected(const std::string& statement) {
    std::vector<std::string> all;
    for (store::Recordset found = rows(statement); !found.eof(); found.moveNext()) all.push_back(found.text("Code"));
    return all;
  }
  // Rows in which some column is like the typed text, wildcards and all.
  std::vector<std::string> likeAny(const std::string& list, const std::vector<std::string>& columns,
                                   const std::string& typed) {
    std::string any;
    for (const std::string& column : columns)
      any += (any.empty() ? "" : " or ") + column + " like " + store::quoted("%" + typed + "%");
    return expected("SELECT * FROM (" + list + ") AS List WHERE " + any + " ORDER BY Code");
  }
};

const std::string accountList =
    "SELECT AccLevel3.AccCode AS Code, [AccLevel3].[AccCode] & '  ' & [AccLevel3].[AccName] AS AccL3, "
    "[AccLevel1].[TypeID] & '  ' & [AccLevel1].[Type] AS AccL1, [AccLevel2].[Level2ID] & '  ' & "
    "[AccLevel2].[L2AccName] AS AccL2 FROM (AccLevel1 INNER JOIN AccLevel2 ON AccLevel1.TypeID = AccLevel2.TypeID) "
    "INNER JOIN AccLevel3 ON AccLevel2.Level2ID = AccLevel3.Level2ID";
const std::string itemList =
    "SELECT StockLevel3.ItemCode AS Code, StockLevel3.ItemName, StockLevel1.CatName, StockLevel2.SubCatName, "
    "Brands.BrandName FROM ((StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID) INNER JOIN "
    "StockLevel3 ON StockLevel2.SubCatID = StockLevel3.SubCatID) INNER JOIN Brands ON StockLevel3.BrandID = "
    "Brands.BrandID WHERE StockLevel1.CatID not like 'Service'";

TEST_F(Pickers, FindTextInAnyOneColumn) {
  addGoods();
  run(
      {"insert into acclevel3 (acccode, accname, level1id, level2id) values (12001002, 'O''Brien 100% [x] a_b', 120, "
       "12001)"});
  struct List {
    Make make;
    std::string statement;
    std::vector<std::string> columns;
    std::vector<std::string> texts;
  };
  const List lists[] = {
      {makeModifyAccounts, accountList, {"AccL3", "AccL1", "AccL2"}, {"",          "cash",
                                                                      "CASH",      "1",
                                                                      "12001",     "12001  ",
                                                                      "001  c",    "zzzz",
                                                                      "%",         "_",
                                                                      "%%",        "a%b",
                                                                      "O'Brien",   "100%",
                                                                      "[x]",       "[0-4]2",
                                                                      "a_b",       "12001002  O'Brien",
                                                                      "Cash%Bank", "Cash in Hand%10001",
                                                                      "Hand\t100", "Hand%Cash%10001",
                                                                      "  "}},
      {makeModifyInventory,
       itemList,
       {"Code", "ItemName", "CatName", "SubCatName", "BrandName"},
       {"",   "hammer",        "HAMM",     "zulu", "o'brien",     "gürtel", "GÜRTEL", "äpfel",       "%",
        "_b", "100%",          "[[]goods", "[x]",  "alpha%brien", "a%a",    "_x",     "Hammer%Zulu", "tail\tZ",
        "\t", "no such thing", "a",        "a1",   "a",           ""}}};
  for (const List& list : lists) {
    open(list.make);
    inDialogOf("FindBttn", [&](QDialog& picker) {
      auto& box = *picker.findChild<QLineEdit*>("SearchBox");
      for (const std::string& text : list.texts) {
        SCOPED_TRACE(text);
        box.setText(QString::fromStdString(text));
        const auto wanted = likeAny(list.statement, list.columns, text);
        EXPECT_EQ(codes(picker), wanted);
        QApplication::processEvents();
        const auto counts = picker.findChildren<QLabel*>();
        EXPECT_TRUE(std::ranges::any_of(counts, [&](const QLabel* label) {
          return label->text().startsWith(QString::number(wanted.size()) + QLatin1Char(' '));
        }));
      }
    });
  }
}

TEST_F(Pickers, HeadersOfItemsSortByCodeNameOrCategory) {
  addGoods();
  open(makeModifyInventory);
  inDialogOf("FindBttn", [&](QDialog& picker) {
    auto& header = *picker.findChild<QTableView*>("InvGrid")->horizontalHeader();
    const auto byCategory = expected(itemList + " ORDER BY StockLevel1.CatName, StockLevel3.ItemCode");
    const auto byCode = expected(itemList + " ORDER BY StockLevel3.ItemCode");
    Q_EMIT header.sectionClicked(2);
    EXPECT_EQ(codes(picker), byCategory);
    Q_EMIT header.sectionClicked(3);
    EXPECT_EQ(codes(picker), byCategory) << "sub categories do not sort";
    Q_EMIT header.sectionClicked(0);
    EXPECT_EQ(codes(picker), byCode);
    Q_EMIT header.sectionClicked(4);
    EXPECT_EQ(codes(picker), byCategory);
    picker.findChild<QLineEdit*>("SearchBox")->setText("hammer");
    EXPECT_EQ(codes(picker), expected(itemList + " AND StockLevel3.ItemName like '%hammer%' ORDER BY "
                                                 "StockLevel1.CatName, StockLevel3.ItemCode"));
    Q_EMIT header.sectionClicked(1);
    auto& model = *picker.findChild<QTableView*>("InvGrid")->model();
    for (int row = 0; row < model.rowCount(); ++row)
      EXPECT_EQ(model.index(row, 1).data().toString().toLower(), QStringLiteral("hammer")) << "still narrowed";
    EXPECT_EQ(model.rowCount(), 8);
  });
}

TEST_F(Pickers, RefreshReadsWhatIsNewAndEmptiesTheBox) {
  addGoods();
  open(makeModifyAccounts);
  inDialogOf("FindBttn", [&](QDialog& picker) {
    auto& box = *picker.findChild<QLineEdit*>("SearchBox");
    const std::size_t before = codes(picker).size();
    box.setText("petty");
    EXPECT_EQ(codes(picker).size(), 1U);
    test::NewCompany::run(
        {"insert into acclevel3 (acccode, accname, level1id, level2id) values (60002099, 'Petty "
         "things', 600, 60002)"});
    picker.findChild<QPushButton*>("RefBttn")->click();
    EXPECT_EQ(box.text(), QString());
    EXPECT_EQ(codes(picker).size(), before + 1);
  });
}

TEST_F(Pickers, ChoiceLeadsTheDialogToTheRowOnEveryLevel) {
  addGoods();
  open(makeModifyAccounts);
  inDialogOf("FindBttn", [&](QDialog& picker) {
    EXPECT_EQ(context->ChartView, 1);
    picker.findChild<QLineEdit*>("SearchBox")->setText("22002003");
    auto& grid = *picker.findChild<QTableView*>("InvGrid");
    grid.selectRow(0);
    Q_EMIT grid.doubleClicked(grid.currentIndex());
    EXPECT_FALSE(picker.isVisible());
  });
  EXPECT_EQ(read("MainCode") + "/" + read("SubCode") + "/" + read("AccCode"), "220/22002/22002003");
  EXPECT_EQ(dialog->focusWidget(), &control<QWidget>("L3List"));

  open(makeModifyInventory);
  inDialogOf("FindBttn", [](QDialog& picker) {
    auto& box = *picker.findChild<QLineEdit*>("SearchBox");
    box.setText("off");
    QApplication::setActiveWindow(&picker);
    test::press(box, Qt::Key_Down);
    auto& grid = *picker.findChild<QTableView*>("InvGrid");
    EXPECT_TRUE(grid.hasFocus());
    test::press(grid, Qt::Key_Down);
    test::press(grid, Qt::Key_Return);
  });
  const std::string second =
      expected("SELECT itemcode AS Code FROM StockLevel3 WHERE itemname='50% off' ORDER BY itemcode")[1];
  EXPECT_EQ(read("InvTxt_0"), second);
  EXPECT_EQ(rows("select * from stocklevel3 where itemcode='" + second + "'").text("subcatid"), read("SubCatCode"));
  const std::string before = read("InvTxt_0");
  inDialogOf("FindBttn", [](QDialog& picker) {
    auto& box = *picker.findChild<QLineEdit*>("SearchBox");
    box.setText("no such thing");
    test::press(box, Qt::Key_Return);
    EXPECT_TRUE(picker.isVisible()) << "nothing to pick";
  });
  EXPECT_EQ(read("InvTxt_0"), before);
}

TEST_F(Pickers, AskBeforeTypedTextIsDropped) {
  addGoods();
  open(makeModifyInventory);
  write("InvTxt_1", "Half a na");
  prompts.expect("Not Saved", "What you have typed has not been saved. Do you want to drop it?", session::Answer::No);
  click("FindBttn");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(read("InvTxt_1"), "Half a na");
  prompts.expect("Not Saved", "What you have typed has not been saved. Do you want to drop it?", session::Answer::Yes);
  inDialogOf("FindBttn", [](QDialog&) {});
  EXPECT_EQ(master().panel(2).state(), frame::MasterPanel::State::Browsing);
}

}  // namespace
}  // namespace velmo::masters
