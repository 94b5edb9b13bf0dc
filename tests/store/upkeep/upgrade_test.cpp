#include "store/upkeep/upgrade.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>

#include "store/file/open_database.h"
#include "store/small_shop.h"
#include "support/another_program.h"

namespace {

namespace fs = std::filesystem;
using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

const UpgradeStep addShelf{.version = 2, .run = [](Connection& connection) {
                             sqlite3_exec(connection.handle(), "ALTER TABLE Items ADD COLUMN Shelf TEXT", nullptr,
                                          nullptr, nullptr);
                             connection.execute("UPDATE Orders SET Party = 'second'");
                           }};
const UpgradeStep failing{.version = 3, .run = [](Connection& connection) {
                            connection.execute("UPDATE Orders SET Party = 'third'");
                            connection.execute("INSERT INTO Items (Item) VALUES (NULL)");
                          }};
const UpgradeStep orphaning{.version = 3, .run = [](Connection& connection) {
                              connection.execute("INSERT INTO Lines (OrderNo, Item) VALUES (77, 'of no order')");
                            }};

class Upgrade : public testing::Test {
 protected:
  Upgrade() {
    shop.addOrders(2);
    shop.connection.close();
  }

  std::optional<ErrorKind> upgrade(
      const std::vector<UpgradeStep>& steps, const std::function<void(Connection&)>& require = [](Connection&) {}) {
    return failureOf([&] { upgradeDatabaseFile(shop.file(), shopCatalog(), shopPassword, steps, require); });
  }
  // As any SQLite reads it: version, rows, whether the file and its copy are sound.
  static std::string look(const fs::path& file) {
    return answer(file,
                  "SELECT (SELECT user_version FROM pragma_user_version) || ' ' || (SELECT Party FROM Orders WHERE "
                  "OrderNo = 2) || ' ' || (SELECT integrity_check FROM pragma_integrity_check LIMIT 1)");
  }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(shop.folder.path())) all.push_back(entry.path().filename());
    std::ranges::sort(all);
    return all;
  }

  SmallShop shop;
};

TEST_F(Upgrade, HappensInTheFileItselfAndKeepsACopyOfWhatItWas) {
  const auto before = fileIdOf(shop.file());
  EXPECT_EQ(upgrade({addShelf, failing}), ErrorKind::Constraint);
  EXPECT_EQ(upgrade({addShelf, orphaning}), ErrorKind::Damaged);
  EXPECT_EQ(upgrade({addShelf}, [](Connection&) { throw StoreError(ErrorKind::Missing, "no use"); }),
            ErrorKind::Missing);
  EXPECT_EQ(look(shop.file()), "1 P2 ok");
  EXPECT_EQ(names(), std::vector<std::string>{"Shop.MDB"});

  EXPECT_EQ(upgrade({addShelf}), std::nullopt);
  EXPECT_EQ(look(shop.file()), "2 second ok");
  EXPECT_EQ(fileIdOf(shop.file()), before) << "whoever opens it meanwhile has the same file";
  EXPECT_EQ(look(shop.file().string() + " before version 2"), "1 P2 ok");
  EXPECT_EQ(names(), (std::vector<std::string>{"Shop.MDB", "Shop.MDB before version 2"}));
  const auto written = fs::last_write_time(shop.file());
  EXPECT_EQ(upgrade({addShelf}), std::nullopt) << "nothing is left to do";
  EXPECT_EQ(fs::last_write_time(shop.file()), written);

  shop.connection.open(shopConnectionString(shop.file()));
  EXPECT_EQ(answer(shop.file(), "PRAGMA journal_mode"), "wal");
  EXPECT_EQ(failureOf([&] { upgradeDatabaseFile(shop.file(), shopCatalog(), "other", {addShelf}); }),
            ErrorKind::Password);
}

TEST_F(Upgrade, IsLeftToTheOneWhoHasTheFileOpen) {
  AnotherProgram other([&] {
    auto open = std::make_shared<Connection>(shopCatalog());
    open->open(shopConnectionString(shop.file()));
    return open;
  });
  EXPECT_EQ(upgrade({addShelf}), ErrorKind::Busy);
  EXPECT_EQ(names().front(), "Shop.MDB");
  EXPECT_TRUE(other.ended());
  EXPECT_EQ(look(shop.file()), "1 P2 ok");
  EXPECT_EQ(upgrade({addShelf}), std::nullopt);
  EXPECT_EQ(look(shop.file()), "2 second ok");
}

// Each of several programs at once finds the file brought up to date, once.
TEST_F(Upgrade, IsMadeOnceByProgramsThatStartTogether) {
  const UpgradeStep counting{.version = 2, .run = [](Connection& connection) {
                               connection.execute("INSERT INTO Items (Item) VALUES ('upgraded')");
                             }};
  std::vector<std::unique_ptr<AnotherProgram>> programs;
  for (int i = 0; i < 4; ++i)
    programs.push_back(std::make_unique<AnotherProgram>(
        [] { return 0; }, [&] { upgradeDatabaseFile(shop.file(), shopCatalog(), shopPassword, {counting}); }));
  for (auto& program : programs) program->start();
  for (auto& program : programs) EXPECT_TRUE(program->ended());
  EXPECT_EQ(answer(shop.file(), "SELECT user_version || ' ' || (SELECT count(*) FROM Items) FROM pragma_user_version"),
            "2 1");
  EXPECT_EQ(names(), (std::vector<std::string>{"Shop.MDB", "Shop.MDB before version 2"}));
}

}  // namespace
