#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <random>

#include "store/small_shop.h"

namespace {

using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

// Orders with many equal and empty values, in seeded disorder.
void addRandomOrders(SmallShop& shop, std::mt19937& random, int count) {
  Connection::Transaction transaction(shop.connection);
  Recordset rows = shop.open("SELECT * FROM Orders WHERE OrderNo = 0");
  for (int i = 0; i < count; ++i) {
    auto sometimes = [&](Value value) { return random() % 4 == 0 ? Value(Null{}) : std::move(value); };
    rows.addNew({{"DocNo", sometimes(static_cast<std::int64_t>(random() % 6))},
                 {"Year", static_cast<std::int64_t>(1 + random() % 2)},
                 {"Party", sometimes(std::string(random() % 2 == 0 ? "ab" : "AB") + char('a' + random() % 3))},
                 {"Amount", sometimes(static_cast<double>(random() % 4) / 2)},
                 {"Cancel", random() % 2 == 0}});
  }
  transaction.commit();
}

TEST(KeysetWalk, EqualsTheFullReadInEveryOrderAndBothDirections) {
  std::mt19937 random(20261122);
  for (int round = 0; round < 4; ++round) {
    SmallShop shop;
    addRandomOrders(shop, random, 60);
    for (const char* sort :
         {"OrderNo", "OrderNo desc", "DocNo, OrderNo", "DocNo desc, OrderNo desc", "Party, Amount desc, OrderNo",
          "Amount desc, Party, DocNo, OrderNo desc", "Cancel desc, Party desc, OrderNo"}) {
      SCOPED_TRACE(std::string(sort) + " in round " + std::to_string(round));
      const char* statement =
          "SELECT DocNo, Party, Amount, OrderNo, Cancel FROM Orders WHERE [Year] = 1 ORDER BY DocNo";
      Recordset held = shop.open(statement);
      Recordset walked = shop.open(statement, LockType::Optimistic, Fetch::AsNeeded);
      held.setSort(sort);
      walked.setSort(sort);
      const std::string expected = column(held, "OrderNo");
      EXPECT_EQ(column(walked, "OrderNo"), expected);
      EXPECT_EQ(walked.recordCount(), held.recordCount());
      std::string backwards;
      std::int64_t position = walked.recordCount();
      for (walked.moveLast(); !walked.bof(); walked.movePrevious()) {
        backwards = walked.text("OrderNo") + (backwards.empty() ? "" : ",") + backwards;
        ASSERT_EQ(walked.position(), --position);
        ASSERT_EQ(walked.bookmarkAt(position), walked.bookmark());
      }
      EXPECT_EQ(backwards, expected);
      for (const char* criterion : {"Amount = 1.5", "Party like '*ABA*'", "DocNo > 4", "OrderNo = 30"}) {
        held.moveFirst();
        walked.moveFirst();
        for (SearchFrom from = SearchFrom::CurrentRow; held.find(criterion, from); from = SearchFrom::NextRow) {
          ASSERT_TRUE(walked.find(criterion, from)) << criterion;
          ASSERT_EQ(walked.integer("OrderNo"), held.integer("OrderNo")) << criterion;
        }
        EXPECT_FALSE(walked.find(criterion, SearchFrom::NextRow));
      }
    }
  }
}

TEST(KeysetWalk, SeesNewNeighboursAndSkipsThoseThatLeft) {
  SmallShop shop;
  shop.addOrders(5);
  Recordset rows =
      shop.open("SELECT * FROM Orders WHERE [Year] = 1 ORDER BY DocNo", LockType::Optimistic, Fetch::AsNeeded);
  shop.connection.execute("DELETE FROM Orders WHERE DocNo = 2");
  rows.moveNext();
  EXPECT_EQ(rows.integer("DocNo"), 3);
  shop.connection.execute("INSERT INTO Orders (DocNo, [Year]) VALUES (3, 1)");
  rows.moveNext();
  EXPECT_EQ(rows.integer("OrderNo"), 6);
  EXPECT_EQ(rows.integer("DocNo"), 3);
}

// A view reads rows by their places: in runs, in both directions and in jumps.
TEST(KeysetWalk, RowsAreFoundByTheirPlacesHoweverTheViewMovesAndWhoeverWrites) {
  std::mt19937 random(20261122);
  SmallShop shop;
  addRandomOrders(shop, random, 900);
  const char* statement = "SELECT OrderNo, DocNo FROM Orders WHERE [Year] = 1 ORDER BY DocNo DESC";
  Recordset walked = shop.open(statement, LockType::Optimistic, Fetch::AsNeeded);
  Connection other(shopCatalog());
  other.open(shopConnectionString(shop.file()));
  for (int round = 0; round < 6; ++round) {
    SCOPED_TRACE(round);
    std::vector<std::int64_t> expected;
    for (Recordset held = shop.open(statement); !held.eof(); held.moveNext())
      expected.push_back(held.integer("OrderNo"));
    const auto count = static_cast<std::int64_t>(expected.size());
    ASSERT_EQ(walked.recordCount(), count);
    std::int64_t place = count / 2;
    for (int step = 0; step < 400; ++step) {
      const bool jumps = random() % 20 == 0;
      place += jumps ? static_cast<std::int64_t>(random() % 900) - 450 : static_cast<std::int64_t>(random() % 61) - 30;
      place = std::clamp(place, std::int64_t{0}, count - 1);
      if (step == 0) walked.moveTo(place);  // from here on what others wrote is seen
      ASSERT_EQ(numberOf(walked.valueAt(place, 0)), static_cast<double>(expected[static_cast<std::size_t>(place)]));
    }
    EXPECT_EQ(failureOf([&] { walked.moveTo(count); }), ErrorKind::Misuse);
    EXPECT_EQ(failureOf([&] { walked.moveTo(-1); }), ErrorKind::Misuse);
    const std::string doomed = std::to_string(expected[static_cast<std::size_t>(place / 2)]);
    Connection& writer = round % 2 == 0 ? other : shop.connection;
    writer.execute("DELETE FROM Orders WHERE OrderNo = " + doomed);
    if (round > 1) writer.execute("INSERT INTO Orders (DocNo, [Year]) VALUES (3, 1)");
  }
}

TEST(KeysetWalk, WorksWithoutTheKeyAmongTheFieldsAndLeavesOtherStatementsToTheHeldRows) {
  SmallShop shop;
  shop.addOrders(3);
  Recordset keyless = shop.open("SELECT Party FROM Orders ORDER BY DocNo DESC", LockType::Optimistic, Fetch::AsNeeded);
  keyless.moveNext();
  keyless.update({{"Party", std::string("middle")}});
  EXPECT_EQ(column(keyless, "Party"), "P3,middle,P1");
  for (const char* statement :
       {"SELECT OrderNo, Amount * 2 AS Twice FROM Orders ORDER BY OrderNo", "SELECT DISTINCT OrderNo FROM Orders",
        "SELECT TOP 3 OrderNo FROM Orders ORDER BY OrderNo"}) {
    SCOPED_TRACE(statement);
    Recordset rows = shop.open(statement, LockType::Optimistic, Fetch::AsNeeded);
    EXPECT_EQ(column(rows, "OrderNo"), "1,2,3");
  }
}

// Codes that differ by a trailing blank, names that are equal but for case, letters beyond ASCII, in seeded disorder.
void addRandomItems(SmallShop& shop, std::mt19937& random, int count) {
  sqlite3_stmt* insert = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(shop.connection.handle(), "INSERT OR IGNORE INTO Items VALUES (?1, ?2, ?3)", -1, &insert,
                               nullptr),
            SQLITE_OK);
  const std::vector<std::string> names = {"",    " ", "same", "SAME", "Same ", "\xC3\x84rger", "\xC3\xA4rger",
                                          "[a]", "z%"};
  for (int i = 0; i < count; ++i) {
    std::string code(1 + random() % 3, static_cast<char>("aAbB_"[random() % 5]));
    code += random() % 3 == 0 ? " " : random() % 2 == 0 ? "1" : "";
    const std::string& name = names[random() % names.size()];
    sqlite3_bind_text(insert, 1, code.c_str(), -1, SQLITE_TRANSIENT);
    random() % 5 == 0 ? sqlite3_bind_null(insert, 2) : sqlite3_bind_text(insert, 2, name.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_text(insert, 3, names[random() % names.size()].c_str(), -1, SQLITE_STATIC);
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
}

TEST(KeysetWalk, TextKeysKeepTheOrderOfTheStatement) {
  std::mt19937 random(20261122);
  for (int round = 0; round < 3; ++round) {
    SmallShop shop;
    addRandomItems(shop, random, 60);
    for (const char* order : {"Item", "Item DESC", "ItemName, Item", "Notes DESC, ItemName, Item DESC"}) {
      SCOPED_TRACE(order);
      const std::string statement = "SELECT ItemName, Item, Notes FROM Items ORDER BY " + std::string(order);
      Recordset held = shop.open(statement);
      Recordset walked = shop.open(statement, LockType::Optimistic, Fetch::AsNeeded);
      const std::string expected = column(held, "Item");
      EXPECT_EQ(column(walked, "Item"), expected);
      std::string backwards;
      for (walked.moveLast(); !walked.bof(); walked.movePrevious()) {
        backwards = walked.text("Item") + (backwards.empty() ? "" : ",") + backwards;
      }
      EXPECT_EQ(backwards, expected);
      int found = 0;
      for (const char* criterion :
           {"Item like 'AB'", "Item like 'a'", "Item like 'a '", "Item = 'a '", "Item like 'a_'", "Item like '*B1'",
            "ItemName like 'same'", "ItemName = 'SAME'", "ItemName like '\xC3\x84RGER'", "ItemName like '[[]a]'",
            "Notes like ''", "Item > 'aa' ", "Item like '__'", "ItemName like 'none*'"}) {
        SCOPED_TRACE(criterion);
        held.moveFirst();
        walked.moveFirst();
        for (SearchFrom from = SearchFrom::CurrentRow; held.find(criterion, from); from = SearchFrom::NextRow) {
          ASSERT_TRUE(walked.find(criterion, from));
          ASSERT_EQ(walked.text("Item"), held.text("Item"));
          ++found;
        }
        EXPECT_FALSE(walked.find(criterion, SearchFrom::NextRow));
        EXPECT_TRUE(walked.eof());
      }
      EXPECT_GT(found, 20);
    }
  }
}

TEST(KeysetWalk, RowsOfTextKeysAreRenamedAddedRemovedAndMarked) {
  SmallShop shop;
  for (const char* item : {"a", "b", "c"}) {
    shop.connection.execute(std::string("INSERT INTO Items (Item, ItemName) VALUES ('") + item + "', 'x')");
  }
  Recordset rows = shop.open("SELECT ItemName, Item FROM Items ORDER BY Item", LockType::Optimistic, Fetch::AsNeeded);
  const Bookmark first = rows.bookmark();
  rows.update({{"Item", std::string("bb")}});
  EXPECT_EQ(rows.position(), 1);
  EXPECT_EQ(column(rows, "Item"), "b,bb,c");
  rows.setBookmark(first);
  EXPECT_EQ(rows.text("Item"), "bb");
  EXPECT_EQ(failureOf([&] { rows.update({{"Item", std::string("C")}}); }), ErrorKind::Constraint);
  EXPECT_EQ(rows.text("Item"), "bb");
  rows.addNew({{"Item", std::string("Ba")}});
  EXPECT_EQ(rows.position(), 1);
  rows.remove();
  EXPECT_EQ(column(rows, "Item"), "b,bb,c");
  Recordset nameless = shop.open("SELECT ItemName FROM Items ORDER BY Item", LockType::Optimistic, Fetch::AsNeeded);
  shop.connection.execute("UPDATE Items SET Item = 'a' WHERE Item = 'b'");
  EXPECT_EQ(failureOf([&] { nameless.update({{"ItemName", std::string("y")}}); }), ErrorKind::Conflict);
  nameless.requery();
  nameless.update({{"ItemName", std::string("y")}});
  EXPECT_EQ(shop.read("SELECT ItemName FROM Items WHERE Item = 'a'"), "y");
}

TEST(KeysetWalk, TableWithoutKeyIsReadAndTellsWhyItIsNotWritten) {
  SmallShop shop;
  for (const char* amount : {"2", "1", "2"}) {
    shop.connection.execute(std::string("INSERT INTO Tally (Amount) VALUES (") + amount + ")");
  }
  for (const Fetch fetch : {Fetch::All, Fetch::AsNeeded}) {
    Recordset rows = shop.open("SELECT * FROM Tally ORDER BY Amount", LockType::Optimistic, fetch);
    EXPECT_EQ(column(rows, "Amount"), "1,2,2");
    rows.moveFirst();
    for (const auto& write : {std::function<void()>([&] {
                                rows.update({{"Amount", 3.0}});
                              }),
                              std::function<void()>([&] { rows.remove(); })}) {
      try {
        write();
        ADD_FAILURE() << "written";
      } catch (const StoreError& error) {
        EXPECT_STREQ(error.what(), "Rows of Tally cannot be written because the table has no key.");
      }
    }
    EXPECT_EQ(rows.number("Amount"), 1);
    rows.cancelUpdate();
  }
}

// The plan, not the clock: no step may read or sort the table.
TEST(KeysetWalk, EveryStepIsASearchOfAnIndex) {
  SmallShop shop;
  shop.addOrders(10);
  for (int i = 0; i < 20; ++i) {
    const std::string number = std::to_string(i);
    shop.connection.execute("INSERT INTO Items (Item, ItemName) VALUES ('I" + number + "', 'Name " + number + "')");
  }
  static std::vector<std::string> statements;
  statements.clear();
  sqlite3_trace_v2(
      shop.connection.handle(), SQLITE_TRACE_STMT,
      [](unsigned, void*, void* statement, void*) {
        statements.emplace_back(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
        return 0;
      },
      nullptr);
  Recordset rows =
      shop.open("SELECT * FROM Orders WHERE [Year] = 1 ORDER BY DocNo", LockType::Optimistic, Fetch::AsNeeded);
  rows.moveLast();
  rows.movePrevious();
  rows.moveFirst();
  rows.moveNext();
  rows.find("OrderNo = 7");
  rows.update({{"Amount", 1.0}});
  rows.requery();
  EXPECT_FALSE(rows.isEmpty());
  rows.setSort("OrderNo asc");
  rows.moveLast();
  rows.movePrevious();
  Recordset items = shop.open("SELECT * FROM Items ORDER BY Item", LockType::ReadOnly, Fetch::AsNeeded);
  items.moveLast();
  items.movePrevious();
  items.moveFirst();
  items.find("Item like 'I10'");
  items.find("Item like 'I[_]1'");
  items.moveFirst();
  items.find("Item like 'Ä[%]1'");
  items.moveFirst();
  items.find("Item = 'i12'", SearchFrom::NextRow);
  EXPECT_EQ(items.text("ItemName"), "Name 12");
  sqlite3_trace_v2(shop.connection.handle(), 0, nullptr, nullptr);
  EXPECT_GE(statements.size(), 12u);
  for (const std::string& sql : statements) {
    if (sql.starts_with("EXPLAIN")) continue;
    const bool inTableOrder = sql.find("NOT INDEXED") != std::string::npos;  // stops at the first row that fits
    sqlite3_stmt* plan = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(shop.connection.handle(), ("EXPLAIN QUERY PLAN " + sql).c_str(), -1, &plan, nullptr),
              SQLITE_OK)
        << sql;
    while (sqlite3_step(plan) == SQLITE_ROW) {
      const std::string detail = reinterpret_cast<const char*>(sqlite3_column_text(plan, 3));
      const bool isEnd = detail.find("USING INDEX") != std::string::npos && sql.find(" WHERE ") == std::string::npos;
      const bool isList = detail.starts_with("SCAN json_each");  // the spellings of what is looked for
      EXPECT_TRUE(inTableOrder || isEnd || isList || !detail.starts_with("SCAN")) << sql << "\n" << detail;
      EXPECT_EQ(detail.find("TEMP B-TREE FOR ORDER BY"), std::string::npos) << sql << "\n" << detail;
    }
    sqlite3_finalize(plan);
  }
}

}  // namespace
