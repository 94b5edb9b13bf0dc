#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>

#include "store/small_shop.h"

namespace {

using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

void runOn(sqlite3* database, const std::string& sql) {
  ASSERT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
}

std::string messageOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const StoreError& error) {
    return error.what();
  }
  return "";
}

class UndoneWrite : public testing::TestWithParam<Fetch> {
 protected:
  Recordset orders() { return shop.open("SELECT * FROM Orders ORDER BY OrderNo", LockType::Optimistic, GetParam()); }
  SmallShop shop;
};

INSTANTIATE_TEST_SUITE_P(Cursors, UndoneWrite, testing::Values(Fetch::All, Fetch::AsNeeded),
                         [](const auto& instance) { return instance.param == Fetch::All ? "Held" : "Walked"; });

TEST_P(UndoneWrite, ClosingEndsTheTransactionAndNothingAfterItIsItsOwn) {
  shop.addOrders(2);
  Recordset rows = orders();
  Connection::Transaction left(shop.connection);
  rows.update({{"Party", std::string("half")}});
  shop.connection.execute("DELETE FROM Orders WHERE OrderNo = 2");
  shop.connection.close();
  EXPECT_EQ(rows.text("Party"), "P1");
  EXPECT_EQ(failureOf([&] { rows.update({{"Party", std::string("late")}}); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { rows.remove(); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { Connection::Transaction next(shop.connection); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { shop.open("SELECT * FROM Orders"); }), ErrorKind::Misuse);

  shop.connection.open(shopConnectionString(shop.file()));
  EXPECT_EQ(column(orders(), "Party"), "P1,P2");
  Connection::Transaction next(shop.connection);
  shop.connection.execute("UPDATE Orders SET Party = 'next'");
  EXPECT_EQ(failureOf([&] { left.commit(); }), ErrorKind::Misuse);
  EXPECT_TRUE(shop.connection.inTransaction());
  next.commit();
  EXPECT_EQ(column(orders(), "Party"), "next,next");
}

TEST_P(UndoneWrite, FullDiskLeavesFileAndRecordsetAsTheyWere) {
  shop.addOrders(3);
  Recordset rows = orders();
  rows.moveNext();
  runOn(shop.connection.handle(), "PRAGMA max_page_count = 1");  // no more than there are
  const std::string large(200000, 'x');
  const std::string full =
      "The disk that holds \"" + shop.file().string() + "\" is full. Nothing was saved; make room and try again.";
  EXPECT_EQ(messageOf([&] { rows.update({{"Party", large}}); }), full);
  EXPECT_EQ(messageOf([&] { rows.addNew({{"Party", large}}); }), full);
  EXPECT_FALSE(rows.isEditing());
  {
    Connection::Transaction transaction(shop.connection);
    rows.update({{"Amount", 7.0}});
    EXPECT_EQ(messageOf([&] { rows.update({{"Party", large}}); }), full);
    EXPECT_NE(failureOf([&] {
                transaction.commit();
                rows.update({{"Party", large}});
              }),
              std::nullopt);
  }
  EXPECT_FALSE(shop.connection.inTransaction());
  EXPECT_EQ(rows.text("Party"), "P2");
  EXPECT_EQ(rows.recordCount(), 3);
  runOn(shop.connection.handle(), "PRAGMA max_page_count = 100000");
  rows.update({{"Party", large}});
  EXPECT_EQ(shop.read("SELECT len(Party) FROM Orders WHERE OrderNo = 2"), "200000");
}

TEST_P(UndoneWrite, FileThatAnotherWritesToIsBusyAndCanBeWrittenAfterwards) {
  shop.addOrders(2);
  Recordset rows = orders();
  sqlite3_busy_timeout(shop.connection.handle(), 1);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(shop.file().c_str(), &other), SQLITE_OK);
  runOn(other, "BEGIN IMMEDIATE; UPDATE Items SET ItemName = 'theirs'");
  const std::string busy =
      "The file \"" + shop.file().string() + "\" is in use by another program. Close that program and try again.";
  EXPECT_EQ(messageOf([&] { rows.update({{"Party", std::string("ours")}}); }), busy);
  EXPECT_EQ(messageOf([&] { rows.remove(); }), busy);
  EXPECT_EQ(messageOf([&] { Connection::Transaction transaction(shop.connection); }), busy);
  EXPECT_FALSE(shop.connection.inTransaction());
  EXPECT_EQ(column(orders(), "Party"), "P1,P2");  // reading goes on
  runOn(other, "COMMIT");
  sqlite3_close(other);
  EXPECT_EQ(rows.text("Party"), "P1");
  rows.update({{"Party", std::string("ours")}});
  EXPECT_EQ(shop.read("SELECT Party FROM Orders WHERE OrderNo = 1"), "ours");
}

TEST(UndoneJoinWrite, ConflictInOneTableTakesTheOthersBack) {
  SmallShop shop;
  shop.addOrders(1);
  shop.connection.execute("INSERT INTO Lines (OrderNo, Item, Qty) VALUES (1, 'A', 2)");
  for (const bool insideTransaction : {false, true}) {
    SCOPED_TRACE(insideTransaction);
    Recordset rows = shop.open(
        "SELECT Orders.OrderNo, Party, LineNo, Qty FROM Orders INNER JOIN Lines ON Orders.OrderNo = Lines.OrderNo");
    shop.connection.execute("UPDATE Lines SET Qty = Qty + 1");
    const std::string quantity = shop.read("SELECT Qty FROM Lines");
    std::optional<Connection::Transaction> transaction;
    if (insideTransaction) transaction.emplace(shop.connection);
    const std::string before = rows.text("Qty");
    EXPECT_EQ(failureOf([&] { rows.update({{"Party", std::string("mine")}, {"Qty", 9.0}}); }), ErrorKind::Conflict);
    EXPECT_EQ(rows.text("Party"), "P1");
    EXPECT_EQ(rows.text("Qty"), before);
    transaction.reset();
    EXPECT_EQ(shop.read("SELECT Party FROM Orders"), "P1");
    EXPECT_EQ(shop.read("SELECT Qty FROM Lines"), quantity);
    rows.requery();
    rows.update({{"Qty", 2.0}});
  }
}

TEST(Generation, RisesWithEveryWriteToTheTableHoweverItIsDone) {
  SmallShop shop;
  shop.addOrders(2);
  shop.connection.execute("INSERT INTO Items (Item) VALUES ('A')");
  const auto changed = [&](const char* table, const std::function<void()>& action) {
    const std::int64_t before = shop.connection.generationOf(table);
    action();
    return shop.connection.generationOf(table) > before;
  };
  const auto execute = [&](const char* statement) {
    return [&shop, statement] { shop.connection.execute(statement); };
  };
  EXPECT_FALSE(changed("Items", [] {}));
  EXPECT_FALSE(changed("Items", execute("UPDATE Orders SET Amount = 1")));
  EXPECT_TRUE(changed("items", execute("UPDATE Items SET ItemName = 'B'")));
  EXPECT_TRUE(changed("Items", execute("DELETE FROM Items")));  // as a whole, without its rows
  EXPECT_TRUE(changed("Lines", execute("INSERT INTO Lines (OrderNo) VALUES (1)")));
  EXPECT_TRUE(changed("Lines", execute("DELETE FROM Orders WHERE OrderNo = 1")));  // along with their order
  EXPECT_TRUE(changed("Orders", [&] { shop.open("SELECT * FROM Orders").remove(); }));
  EXPECT_TRUE(changed("Items", [&] {
    sqlite3* other = nullptr;
    sqlite3_open(shop.file().c_str(), &other);
    runOn(other, "INSERT INTO Items (Item) VALUES ('theirs')");
    sqlite3_close(other);
  }));
  std::int64_t inside = 0;
  {
    Connection::Transaction transaction(shop.connection);
    shop.connection.execute("UPDATE Items SET ItemName = 'C'");
    inside = shop.connection.generationOf("Items");
  }
  EXPECT_GT(shop.connection.generationOf("Items"), inside);  // what was read inside is not there any more
}

}  // namespace
