#include "frame/picking/pick_list.h"

#include <gtest/gtest.h>

#include <random>

#include "frame/items/item_history.h"
#include "frame/picking/pick_list_model.h"
#include "frame/shop_fixture.h"
#include "support/parted.h"

namespace velmo::frame {
namespace {

class PickListOfItems : public test::Shop {
 protected:
  PickList list{context.KORDconn, itemSource()};

  std::vector<std::string> narrowed(const std::string& typed) {
    list.narrow(typed);
    std::vector<std::string> keys;
    for (int i = 0; i < list.sizeUpTo(i + 1); ++i) keys.emplace_back(list.key(i));
    return keys;
  }
  std::vector<std::string> byStatement(const std::string& typed) {
    PickListSource source = itemSource();
    source.condition = "((StockLevel3.Status) = No and ((ItemCode & '  (' & ItemName & ')') like " +
                       store::quoted("%" + typed + "%") + "))";
    const store::Recordset rows(context.KORDconn, source.statement(), store::LockType::ReadOnly);
    std::vector<std::string> keys;
    for (std::int64_t i = 0; i < rows.recordCount(); ++i)
      keys.push_back(store::textOf(rows.valueAt(i, rows.fieldIndex("ItemCode"))));
    return keys;
  }
};

TEST_F(PickListOfItems, GivesTheRowsOfTheStatementForAnyText) {
  std::mt19937 random(20261122);
  const std::vector<std::string_view> pieces =
      test::parted("a|B|e|1|0| |'|(|)|-|Ä|ß|ş|É|%|_|[|]|[a-e]|[!x]|[%]|ham|\xF0\x9F\x94\xA8");
  const auto text = [&](std::size_t most) {
    std::string made;
    for (std::size_t n = random() % (most + 1); n > 0; --n) made += pieces[random() % pieces.size()];
    return made;
  };
  {
    store::Connection::Transaction filling(context.KORDconn);
    for (int i = 0; i < 150; ++i) addItem("R" + std::to_string(i) + text(2), text(9), 1, i % 10 == 0 ? "Yes" : "No");
    filling.commit();
  }
  std::string typed;
  int found = 0;
  for (int i = 0; i < 300; ++i) {
    typed = i % 3 == 0 ? text(2) : typed + text(1);  // also as a person types on
    if (i % 4 == 1) {                                // before the entries are all looked for
      list.narrow(typed);
      EXPECT_LE(list.sizeUpTo(2), 2);
      typed += text(1);
    }
    const auto wanted = byStatement(typed);
    EXPECT_EQ(narrowed(typed), wanted) << "[" << typed << "]";
    found += wanted.empty() ? 0 : 1;
  }
  EXPECT_GT(found, 100);
}

TEST_F(PickListOfItems, ShowsWhatWasWrittenSince) {
  EXPECT_TRUE(narrowed("zebra").empty());
  addItem("Z1", "Zebra", 1);
  EXPECT_EQ(narrowed("zebra"), std::vector<std::string>{"Z1"});
  test::NewCompany::run({"UPDATE StockLevel3 SET ItemName = 'Gnu' WHERE ItemCode = 'Z1'"});  // another program
  EXPECT_TRUE(narrowed("zebra").empty());
  context.KORDconn.execute("UPDATE StockLevel3 SET Status = Yes WHERE ItemCode = 'Z1'");
  EXPECT_TRUE(narrowed("gnu").empty());
}

TEST_F(PickListOfItems, HandsLongListsOutInPortions) {
  {
    store::Connection::Transaction filling(context.KORDconn);
    for (int i = 0; i < 600; ++i) addItem("P" + std::to_string(1000 + i), "Part", 1);
    filling.commit();
  }
  PickListModel model;
  model.setList(&list);
  model.narrow("part");
  EXPECT_LT(model.rowCount(), 600);
  EXPECT_EQ(model.indexOfKey("p1599").row(), 599);
  EXPECT_EQ(model.rowCount(), 600);
  EXPECT_FALSE(model.canFetchMore({}));
  EXPECT_FALSE(model.indexOfKey("100").isValid());
}

}  // namespace
}  // namespace velmo::frame
