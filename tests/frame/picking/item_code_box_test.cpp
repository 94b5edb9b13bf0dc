#include "frame/picking/item_code_box.h"

#include "frame/shop_fixture.h"
#include "support/typing.h"

namespace velmo::frame {
namespace {

using test::focus;
using test::press;
using test::type;

class ItemCodeBoxes : public test::Shop {
 protected:
  ItemCodeBoxes() {
    test::NewCompany::run(context.KORDconn,
                          {"INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('SRV09', 'Work', 'SERVICE')",
                           "INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID, Status) VALUES ('S-1', "
                           "'Hammering', 'SERVICE', 'SRV09', No)"});
    context.ItemsRS.requery();
    screen.resize(800, 600);
    auto* column = new QVBoxLayout(&screen);
    for (QWidget* each :
         {static_cast<QWidget*>(&goods), static_cast<QWidget*>(&services), static_cast<QWidget*>(&other)})
      column->addWidget(each);
    QObject::connect(&goods, &ItemCodeBox::moveOn, &other, [this] { other.setFocus(); });
    QObject::connect(&goods, &ItemCodeBox::named, &other, &QLineEdit::setText);
  }

  QWidget screen;
  CodeDropList list{{.name = "ItemCodeList", .spoken = "Items", .nothing = "No item matches"}, &screen};
  ItemCodeBox goods{context, list, ItemKinds::Goods, &screen};
  ItemCodeBox services{context, list, ItemKinds::Services, &screen};
  QLineEdit other{&screen};
};

TEST_F(ItemCodeBoxes, PickByAPartOfTheName) {
  focus(goods);
  type(goods, "hammer");
  ASSERT_TRUE(list.isVisible());
  EXPECT_EQ(list.model()->rowCount(), 2) << "without the service";
  press(goods, Qt::Key_Down);
  press(list, Qt::Key_Down);
  press(list, Qt::Key_Return);
  EXPECT_EQ(store::textOf(goods.code()), "101");
  EXPECT_EQ(other.text(), "Sledge Hammer");
  EXPECT_TRUE(other.hasFocus());
  EXPECT_FALSE(list.isVisible());

  focus(services);
  type(services, "hammer");
  EXPECT_EQ(list.model()->rowCount(), 1);
  press(services, Qt::Key_F5);
  EXPECT_FALSE(list.isVisible()) << "a command's outcome lies below it";
  press(services, Qt::Key_Escape);
  EXPECT_EQ(services.text(), "");
}

TEST_F(ItemCodeBoxes, KeepOnlyCodesOfItemsOfTheirKind) {
  const struct {
    ItemCodeBox& box;
    const char* typed;
    const char* left;
  } cases[] = {{goods, "100", "100"}, {goods, "o'n-1", "O'N-1"}, {goods, "10", ""},     {goods, "10%", ""},
               {goods, "S-1", ""},    {services, "s-1", "S-1"},  {services, "100", ""}, {goods, "' or 1=1", ""}};
  for (const auto& [box, typed, left] : cases) {
    focus(box);
    box.clear();
    type(box, typed);
    EXPECT_EQ(store::textOf(box.code()), left) << typed;
    focus(other);
    EXPECT_EQ(box.text().toStdString(), left) << typed;
  }
  context.ItemsRS.close();
  goods.setText("100");
  EXPECT_TRUE(store::isNull(goods.code())) << "no items have been read";
}

}  // namespace
}  // namespace velmo::frame
