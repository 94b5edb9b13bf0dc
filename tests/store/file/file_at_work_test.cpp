#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "store/file/open_database.h"
#include "store/file/work_file.h"
#include "store/small_shop.h"
#include "support/another_program.h"

namespace {

namespace fs = std::filesystem;
using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

std::optional<ErrorKind> failureOfSaving(Connection& connection) {
  return failureOf([&] {
    Connection::Transaction transaction(connection);
    connection.execute("INSERT INTO Items (Item) VALUES ('saved')");
    transaction.commit();
  });
}

// What happens to the file and its folder beside the running program.
TEST(FileAtWork, NothingIsSavedInAFileThatIsNotInItsPlace) {
  struct Case {
    const char* name;
    std::function<void(const fs::path& file)> remove;
    std::function<void(const fs::path& file)> putBack = {};
  };
  const auto aside = [](const fs::path& path) { return fs::path(path.string() + ".aside"); };
  for (const Case& c : {
           Case{"folder renamed",
                [&](const fs::path& file) { fs::rename(file.parent_path(), aside(file.parent_path())); },
                [&](const fs::path& file) { fs::rename(aside(file.parent_path()), file.parent_path()); }},
           Case{"file renamed", [&](const fs::path& file) { fs::rename(file, aside(file)); },
                [&](const fs::path& file) { fs::rename(aside(file), file); }},
           Case{"file replaced",
                [&](const fs::path& file) {
                  createDatabaseFile(file.string() + ".new", shopCatalog(), shopPassword, 1, {});
                  fs::rename(file, aside(file));
                  fs::rename(file.string() + ".new", file);
                },
                [&](const fs::path& file) { fs::rename(aside(file), file); }},
           Case{"file removed", [](const fs::path& file) { fs::remove(file); }},
           Case{"log removed", [](const fs::path& file) { fs::remove(file.string() + "-wal"); }},
       }) {
    SCOPED_TRACE(c.name);
    TemporaryFolder folder;
    const fs::path file = folder.path() / "company" / "Shop.MDB";
    createDatabaseFile(file, shopCatalog(), shopPassword, 1, {});
    Connection connection(shopCatalog());
    connection.open(shopConnectionString(file));
    ASSERT_EQ(failureOfSaving(connection), std::nullopt);
    connection.execute("DELETE FROM Items");
    c.remove(file);
    EXPECT_EQ(failureOfSaving(connection), ErrorKind::Missing);
    EXPECT_EQ(failureOf([&] { connection.execute("INSERT INTO Items (Item) VALUES ('by itself')"); }),
              ErrorKind::Missing);
    EXPECT_EQ(failureOf([&] {
                Recordset(connection, "SELECT * FROM Items").addNew({{"Item", "row"}});
              }),
              ErrorKind::Missing);
    EXPECT_TRUE(Recordset(connection, "SELECT * FROM Items").isEmpty()) << "what was read is read still";
    connection.checkpoint();  // idle work says nothing of it
    if (!c.putBack) continue;
    EXPECT_EQ(failureOf([&] { connection.snapshot(); }), ErrorKind::Missing);
    c.putBack(file);
    EXPECT_EQ(failureOfSaving(connection), std::nullopt);
  }
}

TEST(FileAtWork, IsNotCommittedWhenItWentAwayDuringTheSave) {
  SmallShop shop;
  const fs::path aside = shop.file().string() + ".aside";
  EXPECT_EQ(failureOf([&] {
              Connection::Transaction transaction(shop.connection);
              shop.connection.execute("INSERT INTO Items (Item) VALUES ('lost')");
              fs::rename(shop.file(), aside);
              transaction.commit();
            }),
            ErrorKind::Missing);
  fs::rename(aside, shop.file());
  EXPECT_EQ(shop.read("SELECT Item FROM Items"), "none");
}

TEST(FileAtWork, AnOlderProgramStopsWritingWhenTheSchemaBecomesNewer) {
  SmallShop shop;
  shop.addOrders(1);
  EXPECT_EQ(answer(shop.file(), "PRAGMA user_version = 2"), "no more rows available");
  EXPECT_EQ(failureOfSaving(shop.connection), ErrorKind::Newer);
  EXPECT_EQ(failureOf([&] { shop.addOrders(1); }), ErrorKind::Newer);
  EXPECT_EQ(shop.read("SELECT count(*) FROM Orders"), "1");
  shop.connection.checkpoint();
  shop.connection.close();
  shop.connection.open(shopConnectionString(shop.file()));
  EXPECT_EQ(failureOfSaving(shop.connection), std::nullopt);
}

TEST(FileAtWork, IsKnownUnderEveryNameWithItsLog) {
  SmallShop shop;
  const fs::path folder = shop.folder.path();
  fs::create_symlink(shop.file(), folder / "link");
  fs::create_hard_link(shop.file(), folder / "hard");
  fs::create_hard_link(shop.file().string() + "-wal", folder / "log");
  std::ofstream(folder / "other") << "text";
  for (const char* name : {"Shop.MDB", "link", "hard", "log", "Shop.MDB-wal", "Shop.MDB-shm"})
    EXPECT_TRUE(isOpenDatabase(folder / name)) << name;
  for (const char* name : {"other", "nothing"}) EXPECT_FALSE(isOpenDatabase(folder / name)) << name;
  shop.connection.close();
  EXPECT_FALSE(isOpenDatabase(shop.file()));
}

// The log of a program that died, with the file as a crash may leave it: the tail of it missing that is in the log.
TEST(FileAtWork, OpensWheneverSQLiteRecoversIt) {
  SmallShop shop;
  shop.connection.close();
  AnotherProgram dying([&] {
    auto open = std::make_shared<Connection>(shopCatalog());
    open->open(shopConnectionString(shop.file()));
    for (int i = 0; i < 300; ++i)
      open->execute("INSERT INTO Items (Item, Notes) VALUES ('" + std::to_string(i) + "', '" + std::string(500, 'n') +
                    "')");
    return open;
  });
  ASSERT_TRUE(dying.isReady() && dying.ended());
  // A checkpoint that was cut off after the first page and some later one: the first page tells of more pages than
  // there are.
  const fs::path log = shop.file().string() + "-wal";
  const fs::path copy = shop.folder.path() / "copy";
  fs::copy_file(shop.file(), copy);
  fs::copy_file(log, copy.string() + "-wal");
  ASSERT_EQ(answer(copy, "PRAGMA wal_checkpoint(TRUNCATE)"), "0");
  std::string firstPage(4096, '\0');
  std::ifstream(copy, std::ios::binary).read(firstPage.data(), 4096);
  std::fstream(shop.file(), std::ios::binary | std::ios::in | std::ios::out).write(firstPage.data(), 4096);
  ASSERT_LT(fs::file_size(shop.file()), fs::file_size(copy));

  EXPECT_EQ(failureOf([&] { shop.connection.open(shopConnectionString(shop.file(), "other")); }), ErrorKind::Password);
  EXPECT_GT(fs::file_size(log), 0U) << "who is refused leaves the log as it is";
  shop.connection.open(shopConnectionString(shop.file()));
  EXPECT_EQ(shop.read("SELECT count(*) FROM Items"), "300");
  shop.connection.close();
  fs::remove(log);
  fs::resize_file(shop.file(), fs::file_size(shop.file()) - 4096);
  EXPECT_EQ(failureOf([&] { shop.connection.open(shopConnectionString(shop.file())); }), ErrorKind::Damaged);
}

TEST(WorkFiles, OfLivingProgramsStayAndThoseOfDeadOnesGo) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / "Shop.MDB";
  fs::path ofDead;
  AnotherProgram dead([&] { return std::make_shared<WorkFile>(file, "new"); });
  ASSERT_TRUE(dead.isReady());
  for (const auto& entry : fs::directory_iterator(folder.path())) ofDead = entry.path();
  clearAbandonedWork(folder.path(), "Shop.MDB");
  ASSERT_TRUE(fs::exists(ofDead)) << "its program lives";
  ASSERT_TRUE(dead.ended());

  const WorkFile own(file, "new");
  EXPECT_NE(own.path, workPath(file, "new"));
  const auto touch = [&](const std::string& name, int hours) {
    std::ofstream(folder.path() / name) << "x";
    fs::last_write_time(folder.path() / name, fs::file_time_type::clock::now() - std::chrono::hours(hours));
  };
  const std::string otherBoot = ".Shop.MDB.velmo-ffffffff-1-2-3.copy";
  const std::string ownStart = own.path.filename().string();
  const std::string reused = ".x.velmo-" + ownStart.substr(ownStart.find("velmo-") + 6, 9) + "1-99999999999-1.part";
  touch(otherBoot, 2);
  touch(otherBoot + "-wal", 30);
  touch(reused, 0);  // the number belongs to another process now
  touch(reused + ".a1B2c3", 0);
  touch("KORD Back-Up (Date 1).999999999.part", 0);
  touch("KORD Back-Up (Date 1).1.copy", 0);
  touch("Shop.MDB.new", 1);
  touch("Shop.MDB.upgrade", 30);
  touch("report.2024.copy", 3000);  // a file of the user's
  clearAbandonedWork(folder.path(), "Shop.MDB");
  clearAbandonedWork(folder.path(), "KORD Back-Up (");
  std::vector<std::string> left;
  for (const auto& entry : fs::directory_iterator(folder.path())) left.push_back(entry.path().filename());
  EXPECT_THAT(left, testing::UnorderedElementsAre(ownStart, otherBoot, "KORD Back-Up (Date 1).1.copy", "Shop.MDB.new",
                                                  "report.2024.copy"));
}

// Several programs at once make one file, and each finds it whole.
TEST(WorkFiles, FirstMakerOfAFileWins) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / "Shop.MDB";
  std::vector<std::unique_ptr<AnotherProgram>> programs;
  for (int i = 0; i < 4; ++i)
    programs.push_back(std::make_unique<AnotherProgram>(
        [] { return 0; },
        [&, i] {
          createDatabaseFile(file, shopCatalog(), shopPassword, 1, [i](Connection& connection) {
            connection.execute("INSERT INTO Items (Item) VALUES ('" + std::to_string(i) + "')");
          });
          Connection connection(shopCatalog());
          connection.open(shopConnectionString(file));
          if (Recordset(connection, "SELECT * FROM Items").recordCount() != 1) throw std::runtime_error("half a file");
        }));
  for (auto& program : programs) program->start();
  for (auto& program : programs) EXPECT_TRUE(program->ended());
  EXPECT_EQ(answer(file, "SELECT count(*) FROM Items"), "1");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

}  // namespace
