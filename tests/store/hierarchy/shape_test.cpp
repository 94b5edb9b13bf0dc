#include <gtest/gtest.h>
#include <sqlite3.h>

#include <random>

#include "store/hierarchy/parse_shape.h"
#include "store/small_shop.h"
#include "support/parted.h"

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
  const std::vector<std::string_view> pieces = parted(
      "SHAPE |APPEND |RELATE |TO |AS |{SELECT * FROM Orders}|{SELECT Item, OrderNo FROM Lines}|(|)|,|{|}|'|\"|OrderNo "
      "|Year |[|] |Lines |TABLE |COMPUTE |\xFF|{} |'Item' |\t\n |nobody ");
  const std::string whole =
      "SHAPE {SELECT * FROM Orders} AS O APPEND ({SELECT * FROM Lines} AS L RELATE OrderNo TO OrderNo) AS L";
  std::mt19937 random(20261122);
  int opened = 0;
  int refused = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string text = i % 2 == 0 ? whole : "SHAPE ";
    for (std::size_t n = 1 + random() % 4; n > 0; --n) {
      const std::string_view piece = pieces[random() % pieces.size()];
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

// The hierarchy as one text: every order with its lines.
std::string ordersWithLines(Recordset orders) {
  std::string all;
  for (orders.moveFirst(); !orders.eof(); orders.moveNext())
    all += orders.text("OrderNo") + "(" + column(orders.chapter("L"), "Qty") + ")";
  return all;
}

constexpr const char* linesOfOrders =
    "SHAPE {SELECT OrderNo FROM Orders ORDER BY OrderNo} APPEND ({SELECT * FROM Lines WHERE Qty < 90 ORDER BY Qty "
    "DESC} RELATE OrderNo TO OrderNo) AS L";

// The store finds the lines of an order by index: they are read when they are asked for, and no others.
TEST(Hierarchy, RowsThatAnIndexFindsAreReadParentByParentAndStandAsAtTheOpening) {
  SmallShop shop;
  shop.addOrders(4);
  for (const char* line :
       {"(1, 'a', 1)", "(2, 'a', 20)", "(2, 'b', 21)", "(2, 'b', 95)", "(3, 'a', 30)", "(4, 'c', 4)"})
    shop.connection.execute(std::string("INSERT INTO Lines (OrderNo, Item, Qty) VALUES ") + line);
  const std::string before = "1(1)2(21,20)3(30)4(4)";
  Recordset asked;
  Recordset unasked;
  Recordset undone;
  for (Recordset* orders : {&asked, &unasked, &undone}) orders->openShape(shop.connection, linesOfOrders);
  asked.moveTo(1);
  EXPECT_EQ(column(asked.chapter("L"), "Qty"), "21,20");
  EXPECT_EQ(asked.chapter("L").bookmarkAt(0), 0) << "the lines of other orders were read before";
  Recordset held = asked.chapter("L");
  {
    const Connection::Transaction transaction(shop.connection);
    shop.connection.execute("UPDATE Lines SET Qty = 7");
    EXPECT_EQ(ordersWithLines(undone), before);
  }
  for (const char* change : {"UPDATE Lines SET Qty = 50 WHERE OrderNo = 2", "DELETE FROM Lines WHERE OrderNo = 3",
                             "INSERT INTO Lines (OrderNo, Item, Qty) VALUES (4, 'd', 40)"})
    shop.connection.execute(change);
  EXPECT_EQ(ordersWithLines(asked), before);
  EXPECT_EQ(ordersWithLines(unasked), before);
  EXPECT_EQ(ordersWithLines(undone), before);
  EXPECT_EQ(column(held, "Qty"), "21,20");
  asked.requery();
  EXPECT_EQ(ordersWithLines(asked), "1(1)2(50,50,50)3()4(40,4)");
}

TEST(Hierarchy, ALongOneIsReadAsItIsWalkedAndSeesNoLaterChange) {
  SmallShop shop;
  shop.addOrders(600);
  shop.connection.execute("INSERT INTO Lines (OrderNo, Item, Qty) SELECT OrderNo, 'a', DocNo FROM Orders");
  Recordset orders;
  orders.openShape(shop.connection, linesOfOrders);
  EXPECT_LT(orders.fetchedCount(), 600);
  shop.connection.execute("DELETE FROM Orders WHERE OrderNo > 3");
  shop.connection.execute("UPDATE Lines SET Qty = 0");
  shop.connection.checkpoint();
  const std::string all = ordersWithLines(orders);
  EXPECT_EQ(orders.recordCount(), 600);
  EXPECT_EQ(all.substr(0, 15), "1(1)2(2)3(3)4(4");
  EXPECT_TRUE(all.ends_with("599()600()")) << "lines of 90 and more are not among them";
  EXPECT_EQ(ordersWithLines(orders), all);
  orders.requery();
  EXPECT_EQ(ordersWithLines(orders), "1(0)2(0)3(0)");
  {
    const Connection::Transaction transaction(shop.connection);
    shop.connection.execute("UPDATE Lines SET Qty = 8 WHERE OrderNo = 2");
    Recordset inside;
    inside.openShape(shop.connection, linesOfOrders);
    shop.connection.execute("UPDATE Lines SET Qty = 9");
    EXPECT_EQ(ordersWithLines(inside), "1(0)2(8)3(0)") << "what the transaction had written";
  }
  shop.connection.close();
  EXPECT_EQ(failureOf([&] { orders.requery(); }), ErrorKind::Misuse);
}

TEST(Hierarchy, OnlyALongOneKeepsTheLogFromBeingEmptied) {
  SmallShop shop;
  shop.addOrders(30);
  const auto logIsFree = [&] {
    int inLog = -1;
    int moved = -1;
    return sqlite3_wal_checkpoint_v2(shop.connection.handle(), nullptr, SQLITE_CHECKPOINT_TRUNCATE, &inLog, &moved) ==
           SQLITE_OK;
  };
  sqlite3_busy_timeout(shop.connection.handle(), 0);
  const auto opened = [&] {
    Recordset orders;
    orders.openShape(shop.connection, linesOfOrders);
    shop.connection.execute("INSERT INTO Lines (OrderNo, Item, Qty) VALUES (7, 'a', 3)");
    return orders;
  };
  const auto ofOrder7 = [](Recordset orders) {
    orders.moveTo(6);
    return orders.chapter("L").recordCount();
  };
  Recordset few = opened();
  EXPECT_TRUE(logIsFree());
  EXPECT_EQ(ofOrder7(few), 0);
  for (int line = 0; line < 300; ++line)
    shop.connection.execute("INSERT INTO Lines (OrderNo, Item, Qty) VALUES (7, 'a', 3)");
  Recordset manyLines = opened();
  EXPECT_FALSE(logIsFree());
  EXPECT_EQ(ofOrder7(manyLines), 301);
  EXPECT_FALSE(logIsFree());
  manyLines.close();
  EXPECT_TRUE(logIsFree());
  shop.addOrders(30);
  Recordset manyOrders = opened();
  EXPECT_FALSE(logIsFree());
  EXPECT_EQ(ofOrder7(manyOrders), 302);
}

TEST(Snapshot, SeesTheFileAsItWasAndCannotWrite) {
  SmallShop shop;
  shop.addOrders(2);
  Connection before = shop.connection.snapshot();
  shop.connection.execute("UPDATE Orders SET Party = 'later'");
  const auto parties = [](Connection& connection) {
    return column(Recordset(connection, "SELECT * FROM Orders ORDER BY OrderNo", LockType::ReadOnly), "Party");
  };
  EXPECT_EQ(parties(before), "P1,P2");
  EXPECT_EQ(parties(shop.connection), "later,later");
  EXPECT_NE(failureOf([&] { before.execute("UPDATE Orders SET Party = 'lost'"); }), std::nullopt);
  EXPECT_NE(failureOf([&] { Connection::Transaction transaction(before); }), std::nullopt);
  Connection after = shop.connection.snapshot();
  shop.connection.close();
  EXPECT_EQ(parties(after), "later,later");
  EXPECT_EQ(parties(before), "P1,P2");
  EXPECT_EQ(failureOf([&] { shop.connection.snapshot(); }), ErrorKind::Misuse);
}

// However the rows are found, a parent gets the same ones.
TEST(Hierarchy, EveryWayOfReadingGivesTheSameRows) {
  SmallShop shop;
  shop.addOrders(40);
  std::mt19937 random(20261122);
  for (int line = 0; line < 500; ++line)
    shop.connection.execute("INSERT INTO Lines (OrderNo, Item, Qty) VALUES (" + std::to_string(1 + random() % 40) +
                            ", 'i', " + std::to_string(line) + ")");
  shop.connection.execute("INSERT INTO Items (Item, ItemName) VALUES ('I', 'Item')");
  struct Case {
    const char* parents;
    const char* children;
    const char* relation;
  };
  for (const Case& c :
       {Case{"SELECT OrderNo FROM Orders ORDER BY OrderNo", "SELECT * FROM Lines ORDER BY Qty DESC",
             "OrderNo TO OrderNo"},
        Case{"SELECT OrderNo FROM Orders ORDER BY OrderNo", "SELECT TOP 100 * FROM Lines ORDER BY Qty",
             "OrderNo TO OrderNo"},
        Case{"SELECT OrderNo FROM Orders WHERE OrderNo = 7", "SELECT * FROM Lines ORDER BY Qty", "OrderNo TO OrderNo"},
        Case{"SELECT OrderNo FROM Orders", "SELECT OrderNo, sum(Qty) AS Total FROM Lines GROUP BY OrderNo",
             "OrderNo TO OrderNo"},
        Case{"SELECT DISTINCT Item FROM Lines", "SELECT Item, ItemName FROM Items", "Item TO Item"},
        Case{"SELECT (OrderNo & '') AS OrderText FROM Orders", "SELECT * FROM Lines", "OrderText TO OrderNo"}}) {
    SCOPED_TRACE(c.children);
    Recordset rows;
    rows.openShape(shop.connection, std::string("SHAPE {") + c.parents + "} APPEND ({" + c.children + "} RELATE " +
                                        c.relation + ") AS L");
    // The same, found by going through all rows. A number is not its own text.
    Recordset all = shop.open(c.children, LockType::ReadOnly);
    const std::string relation = c.relation;
    const std::string parentField = relation.substr(0, relation.find(' '));
    const std::string childField = relation.substr(relation.rfind(' ') + 1);
    const std::string shown = all.fields().back().name;
    const bool text = std::holds_alternative<std::string>(rows.value(parentField));
    const bool comparable = text == std::holds_alternative<std::string>(all.value(childField));
    std::string found;
    for (; !rows.eof(); rows.moveNext()) {
      const std::string key = rows.text(parentField);
      all.setFilter(childField + " = " + (text ? store::quoted(key) : key));
      const std::string expected = comparable ? column(all, shown) : "";
      found += expected;
      ASSERT_EQ(column(rows.chapter("L"), shown), expected) << key;
    }
    EXPECT_EQ(!found.empty(), comparable);
  }
}

}  // namespace
