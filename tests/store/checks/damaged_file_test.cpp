#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "store/checks/check_round.h"
#include "store/checks/soundness.h"
#include "store/small_shop.h"
#include "store/upkeep/back_up.h"
#include "store/upkeep/copy_pages.h"
#include "support/damage.h"

namespace {

namespace fs = std::filesystem;
using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;
using testing::HasSubstr;

const text::DateTime now = text::DateTime::fromCalendar(2026, 11, 22, 14, 7, 9);

// Pages enough that no check is through at once.
void fill(Connection& connection) {
  Connection::Transaction transaction(connection);
  connection.execute("INSERT INTO Items (Item, Notes) VALUES ('0', '" + std::string(1000, 'n') + "')");
  for (int doubled = 1; doubled <= 32768; doubled *= 2)
    connection.execute("INSERT INTO Items (Item, Notes) SELECT Item & 'x" + std::to_string(doubled) +
                       "', Notes FROM Items");
  transaction.commit();
}

std::string words(const std::vector<Finding>& findings) {
  std::string all;
  for (const Finding& finding : findings) all += finding.words + "\n";
  return all;
}

TEST(DamagedFile, IsReadAndNotWrittenByAnything) {
  SmallShop shop;
  shop.addOrders(3);
  const fs::path log = shop.file().string() + "-wal";
  Recordset order = shop.open("SELECT * FROM Orders");
  const std::string before = bytesOf(shop.file());
  const std::string logBefore = bytesOf(log);
  EXPECT_EQ(failureOf([&] {
              Connection::Transaction transaction(shop.connection);
              shop.addOrders(1);
              shop.connection.refuseWriting();
              transaction.commit();
            }),
            ErrorKind::Damaged);
  EXPECT_TRUE(shop.connection.refusesWriting());
  EXPECT_EQ(failureOf([&] { shop.addOrders(1); }), ErrorKind::Damaged);
  EXPECT_EQ(failureOf([&] { Connection::Transaction transaction(shop.connection); }), ErrorKind::Damaged);
  EXPECT_EQ(failureOf([&] { order.update({{"Party", "other"}}); }), ErrorKind::Damaged);
  shop.connection.checkpoint();  // idle work does nothing, and says nothing
  EXPECT_EQ(shop.read("SELECT count(*) FROM Orders"), "3");
  shop.connection.close();
  EXPECT_EQ(bytesOf(shop.file()), before);
  EXPECT_EQ(bytesOf(log), logBefore) << "closing did not fold it in";

  shop.connection.open(shopConnectionString(shop.file()));
  shop.addOrders(1);
  EXPECT_EQ(shop.read("SELECT count(*) FROM Orders"), "4") << "a file that was put right is written again";
}

TEST(DamagedFile, IsOneToReadAloneThoughItMayBeWritten) {
  SmallShop shop;
  shop.addOrders(3);
  shop.connection.close();
  const auto setWriteVersion = [&](char version) {
    std::fstream bytes(shop.file(), std::ios::binary | std::ios::in | std::ios::out);
    bytes.seekp(18).put(version);
  };
  setWriteVersion('\x22');
  const std::string before = bytesOf(shop.file());
  EXPECT_EQ(failureOf([&] { shop.connection.open(shopConnectionString(shop.file())); }), ErrorKind::Damaged);
  EXPECT_EQ(bytesOf(shop.file()), before);
  setWriteVersion('\x02');
  shop.connection.open(shopConnectionString(shop.file()));
  EXPECT_EQ(shop.read("SELECT count(*) FROM Orders"), "3");
}

TEST(DamagedFile, QuickCheckFindsThePlaceOrGivesUpInTime) {
  SmallShop shop;
  fill(shop.connection);
  using std::chrono::milliseconds;
  const auto began = std::chrono::steady_clock::now();
  EXPECT_FALSE(quickCheck(shop.connection, milliseconds(1)));
  EXPECT_LT(std::chrono::steady_clock::now() - began, milliseconds(100));
  const auto sound = quickCheck(shop.connection, std::chrono::minutes(1));
  ASSERT_TRUE(sound) << "the connection works on after it gave up";
  EXPECT_EQ(words(*sound), "");
  EXPECT_EQ(words(structureFaults(shop.connection)), "");

  shop.connection.close();
  spoilTable(shop.file(), "Lines");
  shop.connection.open(shopConnectionString(shop.file()));
  const auto found = quickCheck(shop.connection, std::chrono::minutes(1));
  ASSERT_TRUE(found && found->size() == 1) << "one table, and no other";
  EXPECT_THAT(found->front().words, HasSubstr("the table \"Lines\" ("));
  EXPECT_EQ(found->front().kind, Finding::Kind::Damage);
}

TEST(DamagedFile, RoundEndsWithTheFirstDamageAndWhenItIsStopped) {
  SmallShop shop;
  fill(shop.connection);
  int looked = 0;
  const IdleCheck counting{"next", [&](Connection&) { return ++looked, std::vector<Finding>(); }};
  const IdleCheck unreadable{
      "the first", [](Connection&) -> std::vector<Finding> { throw StoreError(ErrorKind::Damaged, "unreadable"); }};
  const auto found = CheckRound(shop.connection.snapshot(), {counting, unreadable, counting}).run();
  ASSERT_TRUE(found);
  EXPECT_EQ(words(*found), "the first\n");
  EXPECT_EQ(looked, 1);

  std::promise<void> started;
  CheckRound round(shop.connection.snapshot(), {{"endless", [&](Connection& snapshot) {
                                                   started.set_value();
                                                   while (structureFaults(snapshot).empty()) {
                                                   }
                                                   return std::vector<Finding>();
                                                 }}});
  auto ended = std::async(std::launch::async, [&] { return round.run(); });
  started.get_future().wait();
  round.stop();
  ASSERT_EQ(ended.wait_for(std::chrono::seconds(2)), std::future_status::ready);
  EXPECT_FALSE(ended.get());
  EXPECT_EQ(failureOf([&] { structureFaults(round.snapshot()); }), ErrorKind::Failed) << "it stays stopped";
}

TEST(DamagedFile, IsKeptOnceAsItIs) {
  SmallShop shop;
  shop.addOrders(2);
  const fs::path kept = setAside(shop.connection, now);
  EXPECT_EQ(kept.filename(), "Shop.MDB damaged 2026-11-22 14-07-09");
  EXPECT_EQ(past(kept, "SELECT count(*) FROM Orders"), "2") << "what is in the log belongs to it";
  EXPECT_EQ(setAside(shop.connection, now.addDays(1)), kept) << "nothing was written since";
  fs::last_write_time(kept, fs::last_write_time(shop.file()) - std::chrono::hours(1));
  EXPECT_EQ(setAside(shop.connection, now).filename(), "Shop.MDB damaged 2026-11-22 14-07-09 (2)");
}

TEST(DamagedFile, IsNoBackUpWhenRecordsAreLost) {
  SmallShop shop;
  shop.addOrders(1);
  past(shop.file(), "INSERT INTO Lines (OrderNo, Item) VALUES (77, 'lost'), (78, 'lost')");
  EXPECT_EQ(words(relationFaults(shop.connection)),
            "the table \"Lines\" (2 records refer to what is not there in \"Orders\")\n");
  const fs::path copy = shop.folder.path() / "copy";
  EXPECT_EQ(failureOf([&] {
              backUp(shopCatalog(),
                     {.source = shopConnectionString(shop.file()), .destination = shopConnectionString(copy)});
            }),
            ErrorKind::Damaged);
  EXPECT_FALSE(fs::exists(copy));
}

TEST(DamagedFile, LacksWhatTheProgramNeeds) {
  for (const auto& [sql, what] : {std::pair{"DROP TABLE Items", "lacks the table \"Items\""},
                                  {"ALTER TABLE Items DROP COLUMN Notes", "lacks the column \"Notes\" of the table"}}) {
    SmallShop shop;
    requireTables(shop.connection);
    past(shop.file(), sql);
    try {
      requireTables(shop.connection);
      ADD_FAILURE() << sql;
    } catch (const StoreError& failure) {
      EXPECT_EQ(failure.kind(), ErrorKind::Damaged);
      EXPECT_THAT(failure.what(), HasSubstr(what));
    }
  }
}

}  // namespace
