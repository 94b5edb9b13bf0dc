#include <gtest/gtest.h>

#include <random>

#include "small_shop.h"
#include "store/shape/parse_shape.h"

namespace {

using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

// A command and what hangs on it in one line: name{statement}(parent=child)[...].
std::string outline(const shape::Command& command) {
  std::string text = "{" + command.statement + "}";
  for (const shape::AppendedCommand& chapter : command.chapters) {
    text += "[" + chapter.name;
    for (const shape::Relation& relation : chapter.relations) text += " " + relation.parent + "=" + relation.child;
    text += " " + outline(*chapter.command) + "]";
  }
  return text;
}

TEST(ShapeText, EveryFormIsRead) {
  struct Case {
    const char* text;
    const char* outline;
  };
  for (const Case& c : {
           Case{"SHAPE {a} AS Level1 APPEND ({b} AS Level3 RELATE 'x' TO 'y') AS level3", "{a}[level3 x=y {b}]"},
           Case{"Shape {a} as P append ({b} as C relate x to y)", "{a}[C x=y {b}]"},
           Case{"SHAPE {a} APPEND ({b} RELATE [x x] TO \"y\", p TO q)", "{a}[Chapter1 x x=y p=q {b}]"},
           Case{"SHAPE {a} APPEND ({b} RELATE x TO y) AS one, ({c} RELATE x TO z) AS two",
                "{a}[one x=y {b}][two x=z {c}]"},
           Case{"SHAPE {a} APPEND ((SHAPE {b} APPEND ({c} RELATE p TO q) AS deep) AS inner RELATE x TO y) AS outer",
                "{a}[outer x=y {b}[deep p=q {c}]]"},
           Case{"SHAPE {a} APPEND (SHAPE {b} APPEND ({c} RELATE p TO q) AS deep RELATE x TO y) AS outer",
                "{a}[outer x=y {b}[deep p=q {c}]]"},
           Case{"SHAPE {select '}', \"{\" from t} APPEND (TABLE Lines RELATE x TO y) AS l",
                "{select '}', \"{\" from t}[l x=y {SELECT * FROM [Lines]}]"},
           Case{"SHAPE {a}", "{a}"},
       }) {
    EXPECT_EQ(outline(shape::parseShape(c.text)), c.outline) << c.text;
  }
}

TEST(ShapeText, WhatDoesNotFitIsRefused) {
  const std::string deep = [] {
    std::string text;
    for (int i = 0; i < 5000; ++i) text += "SHAPE (";
    return text;
  }();
  for (const std::string& text :
       {std::string(), std::string("SELECT 1"), std::string("SHAPE {a"), std::string("SHAPE {a} APPEND {b}"),
        std::string("SHAPE {a} APPEND ({b})"), std::string("SHAPE {a} APPEND ({b} RELATE x)"),
        std::string("SHAPE {a} APPEND ({b} RELATE x TO y) AS"), std::string("SHAPE {a} and more"),
        std::string("SHAPE {a} APPEND ({b} RELATE 'x TO y)"), deep, std::string(5000, '('),
        "SHAPE " + std::string(5000, '(')}) {
    EXPECT_EQ(failureOf([&] { shape::parseShape(text); }), ErrorKind::Statement) << text.substr(0, 60);
  }
}

// Whatever the text, it opens or is refused with a sentence of the store.
TEST(ShapeText, AnyTextOpensOrIsRefused) {
  SmallShop shop;
  shop.addOrders(3);
  const std::vector<std::string> pieces = {"SHAPE ",
                                           "APPEND ",
                                           "RELATE ",
                                           "TO ",
                                           "AS ",
                                           "{SELECT * FROM Orders}",
                                           "{SELECT Item, OrderNo FROM Lines}",
                                           "(",
                                           ")",
                                           ",",
                                           "{",
                                           "}",
                                           "'",
                                           "\"",
                                           "OrderNo ",
                                           "Year ",
                                           "[",
                                           "] ",
                                           "Lines ",
                                           "TABLE ",
                                           "COMPUTE ",
                                           "\xFF",
                                           "{} ",
                                           "'Item' ",
                                           "\t\n ",
                                           "nobody "};
  const std::string whole =
      "SHAPE {SELECT * FROM Orders} AS O APPEND ({SELECT * FROM Lines} AS L RELATE OrderNo TO OrderNo) AS L";
  std::mt19937 random(20261122);
  int opened = 0;
  int refused = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string text = i % 2 == 0 ? whole : "SHAPE ";
    for (std::size_t n = 1 + random() % 4; n > 0; --n) {
      const std::string& piece = pieces[random() % pieces.size()];
      const std::size_t at = random() % (text.size() + 1);
      i % 4 == 0 ? text.erase(at, random() % 12) : text.insert(i % 2 == 0 ? at : text.size(), piece);
    }
    Recordset rows;
    try {
      rows.openShape(shop.connection, text);
      EXPECT_EQ(rows.recordCount(), rows.fieldIndex("DocNo") >= 0 ? 3 : rows.recordCount()) << text;
      ++opened;
    } catch (const StoreError& error) {
      EXPECT_TRUE(error.kind() == ErrorKind::Statement || error.kind() == ErrorKind::Misuse) << text;
      EXPECT_FALSE(std::string(error.what()).empty());
      EXPECT_FALSE(rows.isOpen());
      ++refused;
    }
  }
  EXPECT_GT(opened, 20);
  EXPECT_GT(refused, 500);
}

TEST(Hierarchy, ThreeLevelsShowTheChildrenOfTheCurrentRow) {
  SmallShop shop;
  shop.addOrders(2, 1);
  shop.addOrders(1, 2);
  shop.connection.execute("INSERT INTO Items (Item, ItemName) VALUES ('a', 'Apple')");
  for (const char* line : {"(1, 'A', 1)", "(3, 'b', 5)", "(1, 'a', 2)", "(1, NULL, 9)"}) {
    shop.connection.execute(std::string("INSERT INTO Lines (OrderNo, Item, Qty) VALUES ") + line);
  }
  Recordset years;
  years.openShape(shop.connection,
                  "SHAPE {SELECT [Year], sum(Amount) AS Total FROM Orders GROUP BY [Year] ORDER BY [Year]} AS Years "
                  "APPEND ((SHAPE {SELECT OrderNo, [Year], DocNo FROM Orders ORDER BY DocNo DESC} APPEND ({SELECT * "
                  "FROM Lines ORDER BY Qty DESC} RELATE OrderNo TO OrderNo) AS LineRows, ({SELECT * FROM Items} RELATE "
                  "DocNo TO ItemName) AS Nothing) RELATE 'year' TO 'year') AS OrderRows");
  ASSERT_EQ(years.fields().size(), 3u);
  EXPECT_TRUE(years.fields()[2].chapter);
  EXPECT_EQ(years.fields()[2].name, "OrderRows");
  Recordset orders = years.chapter("orderrows");
  EXPECT_EQ(column(orders, "DocNo"), "2,1");
  orders.moveFirst();
  EXPECT_TRUE(orders.chapter("LineRows").isEmpty());
  EXPECT_TRUE(orders.chapter("LineRows").eof());
  EXPECT_EQ(orders.chapter("LineRows").recordCount(), 0);
  orders.moveNext();
  Recordset lines = orders.chapter("LineRows");
  EXPECT_EQ(column(lines, "Qty"), "9,2,1");
  lines.setSort("Qty");
  lines.setFilter("Qty < 9");
  EXPECT_EQ(column(lines, "Qty"), "1,2");
  EXPECT_TRUE(orders.chapter("Nothing").isEmpty());
  years.moveNext();
  EXPECT_EQ(column(years.chapter("OrderRows"), "OrderNo"), "3");
  EXPECT_EQ(column(orders, "DocNo"), "2,1");  // a held chapter keeps its parent
  EXPECT_EQ(failureOf([&] { years.chapter("Others"); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { lines.addNew(); }), ErrorKind::Misuse);

  shop.addOrders(1, 3);
  years.setSort("Year desc");
  years.setFilter("Year > 1");
  shop.addOrders(1, 4);
  years.requery();
  EXPECT_EQ(column(years, "Year"), "4,3,2");
  years.setFilter("");
  EXPECT_EQ(years.recordCount(), 4);
}

TEST(Hierarchy, TextKeysRelateWithoutRegardToCaseAndSeveralPairsAreAllRequired) {
  SmallShop shop;
  shop.addOrders(1);
  for (const char* item : {"('Ab', 'x')", "('c', 'x')"}) {
    shop.connection.execute(std::string("INSERT INTO Items (Item, ItemName) VALUES ") + item);
  }
  for (const char* line : {"(1, 'AB', 1)", "(1, 'ab', 2)", "(1, 'c', 3)", "(1, NULL, 4)"}) {
    shop.connection.execute(std::string("INSERT INTO Lines (OrderNo, Item, Qty) VALUES ") + line);
  }
  Recordset items;
  items.openShape(shop.connection,
                  "SHAPE {SELECT Item, 1 AS Ord FROM Items ORDER BY Item} APPEND ({SELECT * FROM Lines ORDER BY "
                  "LineNo} RELATE Item TO Item, Ord TO OrderNo) AS L");
  EXPECT_EQ(column(items.chapter("L"), "Qty"), "1,2");
  items.moveNext();
  EXPECT_EQ(column(items.chapter("L"), "Qty"), "3");
  EXPECT_EQ(failureOf([&] {
              items.openShape(shop.connection,
                              "SHAPE {SELECT Item FROM Items} APPEND ({SELECT * FROM Lines} RELATE Item TO Nobody)");
            }),
            ErrorKind::Misuse);
  EXPECT_EQ(items.recordCount(), 2);
}

}  // namespace
