#include <gtest/gtest.h>

#include "frame/items/item_rules.h"
#include "frame/items/item_sheet.h"
#include "frame/shop_fixture.h"
#include "support/parted.h"

namespace velmo::frame {
namespace {

using test::Shop;

TEST(ItemGridRules, RefuseWhatMayNotStandInACell) {
  const LineCells line{.itemCode = "100", .gross = "50", .discountRate = ""};
  const struct {
    GridColumn column;
    std::string typed;
    bool accepted;
  } cases[] = {
      {GridColumn::ItemCode, "Service", true},
      {GridColumn::Description, std::string(250, 'x'), true},
      {GridColumn::Description, std::string(251, 'x'), false},
      {GridColumn::Packing, std::string(251, 'x'), false},
      {GridColumn::Quantity, "99999999", false},
      {GridColumn::Quantity, "99999998.99", true},
      {GridColumn::Quantity, "", false},
      {GridColumn::Quantity, "two", false},
      {GridColumn::Quantity, "&HFF", true},
      {GridColumn::Quantity, "1,2,3", true},
      {GridColumn::Quantity, "1e308", false},
      {GridColumn::Rate, "99999999", false},
      {GridColumn::Rate, "(5.00)", true},
      {GridColumn::DiscountRate, "", true},
      {GridColumn::DiscountRate, "100", false},
      {GridColumn::DiscountRate, "99.99", true},
      {GridColumn::DiscountRate, " ", false},
      {GridColumn::Discount, "50", true},
      {GridColumn::Discount, "50.01", false},
      {GridColumn::Discount, "", false},
      {GridColumn::Unit, "Pcs", false},
      {GridColumn::GrossAmount, "1", false},
      {GridColumn::NetAmount, "1", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(acceptsEntry(c.column, c.typed, line), c.accepted)
        << static_cast<int>(c.column) << ": " << c.typed.substr(0, 20);
  }
  std::string wide;
  for (int i = 0; i < 250; ++i) wide += "\xF0\x9F\x94\xA8";  // counted as characters, not as bytes
  EXPECT_TRUE(acceptsEntry(GridColumn::Description, wide, line));
}

TEST(ItemGridRules, AskForAnItemBeforeOtherCells) {
  const struct {
    GridColumn column;
    const char* name;
  } cases[] = {{GridColumn::Description, "description"},
               {GridColumn::Quantity, "quantity"},
               {GridColumn::Rate, "rate"},
               {GridColumn::DiscountRate, "discount rate"},
               {GridColumn::Discount, "discount amount"},
               {GridColumn::Packing, "packing details"}};
  for (const auto& c : cases) {
    const EntryVerdict verdict = beforeEdit(c.column, {});
    EXPECT_FALSE(verdict.refused);
    ASSERT_EQ(verdict.messages.size(), 1U);
    EXPECT_EQ(verdict.messages[0].title, "Select Inventory Item");
    EXPECT_EQ(verdict.messages[0].text, "Select inventory item before entering " + std::string(c.name) +
                                            ". If you want to enter a service, then give 'Service' in Item Code "
                                            "Column.");
    EXPECT_TRUE(beforeEdit(c.column, {.itemCode = "100", .gross = {}, .discountRate = {}}).messages.empty());
  }
  const EntryVerdict discount = beforeEdit(GridColumn::Discount, {.itemCode = "1", .gross = {}, .discountRate = "5"});
  EXPECT_TRUE(discount.refused);
  ASSERT_EQ(discount.messages.size(), 1U);
  EXPECT_EQ(discount.messages[0].title, "Discount Error");
  EXPECT_TRUE(beforeEdit(GridColumn::NetAmount, {}).refused);
}

class ItemGridSheet : public Shop {
 protected:
  ItemSheet sheet{{.stockWarning = StockWarning::Shown}, workplace};
  std::string shown(GridColumn column, int row = 0) { return sheet.shownText(row, column); }
};

TEST_F(ItemGridSheet, CodesBringTheirItems) {
  sheet.bind(lines());
  const struct {
    const char* typed;
    const char* code;
    const char* description;
    const char* rate;
  } cases[] = {
      {"100", "100", "Claw Hammer", "150.50"}, {"o'n-1", "O'N-1", "O'Neil [steel] 100%_x", "3.13"},
      {"10%", "100", "Claw Hammer", "150.50"}, {"10[1-9]", "101", "Sledge Hammer", "900.00"},
      {"ä-7", "Ä-7", "Größe ÄÖÜ ÇŞ", "7.00"},
  };
  int row = 0;
  for (const auto& c : cases) {
    ASSERT_TRUE(sheet.enter(row, GridColumn::ItemCode, c.typed)) << c.typed;
    EXPECT_EQ(shown(GridColumn::ItemCode, row), c.code);
    EXPECT_EQ(shown(GridColumn::Description, row), c.description);
    EXPECT_EQ(shown(GridColumn::Quantity, row), "0.00");
    EXPECT_EQ(shown(GridColumn::Unit, row), "Pcs");
    EXPECT_EQ(shown(GridColumn::Rate, row), c.rate);
    EXPECT_EQ(shown(GridColumn::NetAmount, row), "0.00");
    ++row;
  }
  ASSERT_TRUE(sheet.enter(row, GridColumn::ItemCode, "service"));
  EXPECT_EQ(shown(GridColumn::ItemCode, row), "service");
  EXPECT_EQ(shown(GridColumn::Description, row), "");
}

TEST_F(ItemGridSheet, AmountsFollowAndTheSheetKeepsItsLength) {
  sheet.bind(lines());
  ASSERT_TRUE(sheet.enter(0, GridColumn::ItemCode, "SeRvIcE"));
  ASSERT_TRUE(sheet.enter(0, GridColumn::Quantity, "500"));  // services have no stock to be short of
  ASSERT_TRUE(sheet.enter(0, GridColumn::Rate, "(2.00)"));
  EXPECT_EQ(shown(GridColumn::GrossAmount), "(1000.00)");
  ASSERT_TRUE(sheet.enter(0, GridColumn::Rate, "2"));
  ASSERT_TRUE(sheet.enter(0, GridColumn::DiscountRate, "10"));
  EXPECT_EQ(shown(GridColumn::Discount), "100.00");
  EXPECT_EQ(shown(GridColumn::NetAmount), "900.00");
  ASSERT_TRUE(sheet.enter(0, GridColumn::DiscountRate, ""));
  EXPECT_EQ(shown(GridColumn::DiscountRate), "");
  ASSERT_TRUE(sheet.enter(0, GridColumn::Discount, "1000"));
  EXPECT_FALSE(sheet.enter(0, GridColumn::Discount, "1000.01"));
  EXPECT_EQ(shown(GridColumn::NetAmount), "0.00");
  sheet.removeRow(0);
  EXPECT_EQ(sheet.rowCount(), 12);
  EXPECT_EQ(shown(GridColumn::ItemCode), "");
}

TEST_F(ItemGridSheet, WarnsOfShortStockAndCountsASavedLineOnce) {
  sheet.bind(lines());
  ASSERT_TRUE(sheet.enter(0, GridColumn::ItemCode, "100"));
  ASSERT_TRUE(sheet.enter(0, GridColumn::Quantity, "6"));  // 10 in, 4 out
  prompts.expect("Short Item Balance", "You do not have required balance of this item in hand.");
  ASSERT_TRUE(sheet.enter(0, GridColumn::Quantity, "6.01"));
  EXPECT_EQ(shown(GridColumn::Quantity), "6.01");

  sheet.bind(lines(9002));
  EXPECT_DOUBLE_EQ(sheet.ItemAvailable(0), 10);
  ASSERT_TRUE(sheet.enter(0, GridColumn::Quantity, "10"));
}

TEST_F(ItemGridSheet, HostileTextsAreRefusedOrKept) {
  std::vector<std::string> hostile = {std::string(10000, 'q'), std::string("a\0b", 3)};
  for (const std::string_view text : test::parted("'|\"|';--|[|[a|]|%|_|#|a;b|\xF0\x9F\x94\xA8|"
                                                  "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D|1e308|-1e308|-0|(5.00)|1,2,3|&HFF"))
    hostile.emplace_back(text);
  ItemSheet quiet({}, workplace);
  quiet.bind(lines(0, 30));
  int row = 0;
  for (const std::string& text : hostile) {
    for (int column = 0; column < gridColumnCount; ++column) {
      const auto cell = static_cast<GridColumn>(column);
      const std::string before = quiet.plainText(row, cell);
      if (!quiet.enter(row, cell, text)) {
        EXPECT_EQ(quiet.plainText(row, cell), before) << text.substr(0, 20);
      }
      EXPECT_EQ(quiet.plainText(row, cell).find('\0'), std::string::npos);
    }
    EXPECT_EQ(quiet.shownText(row, GridColumn::NetAmount).find("inf"), std::string::npos) << text.substr(0, 20);
    ++row;
  }
}

TEST_F(Shop, TypedCodesFindTheItemItselfBeforeOnesThatAreLikeIt) {
  for (const char* code : {"A[1]", "A1", "B_1", "B11", "C%", "*Z"}) addItem(code, std::string("Item ") + code, 5);
  addItem("4Z", "First that ends in Z", 5);
  context.ItemsRS.requery();
  ItemSheet sheet({}, workplace);
  sheet.bind(lines());
  const struct {
    const char* typed;
    const char* code;
  } cases[] = {{"a[1]", "A[1]"}, {"A1", "A1"},        {"b_1", "B_1"},    {"B1_", "B11"}, {"c%", "C%"},
               {"*z", "*Z"},     {" A1\u00A0", "A1"}, {"\t[a]1 ", "A1"}, {"ä-7", "Ä-7"}, {"  None ", "None"}};
  for (const auto& c : cases) {
    ASSERT_TRUE(sheet.enter(0, GridColumn::ItemCode, c.typed)) << c.typed;
    EXPECT_EQ(sheet.plainText(0, GridColumn::ItemCode), c.code) << c.typed;
  }
  EXPECT_EQ(sheet.scan(" B_1 ", ScannedAgain::NewLine), 1);
}

}  // namespace
}  // namespace velmo::frame
