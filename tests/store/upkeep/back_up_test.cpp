#include "store/upkeep/back_up.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <map>
#include <thread>

#include "store/file/work_file.h"
#include "store/small_shop.h"

namespace {

namespace fs = std::filesystem;
using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

std::string stringFor(const fs::path& file) {
  return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=\"" + file.string() + "\";Jet OLEDB:Database Password='" +
         shopPassword + "'";
}

// A shop whose program is at work, and a folder for its back-ups.
class BackUp : public testing::Test {
 protected:
  BackUp() {
    createDatabaseFile(source, shopCatalog(), shopPassword, 3, {});
    shop.open(stringFor(source));
    Connection::Transaction transaction(shop);
    for (int i = 1; i <= 400; ++i)
      shop.execute("insert into Orders (OrderNo, DocNo, [Year], Party, Amount, Cancel) values (" + std::to_string(i) +
                   ", " + std::to_string(i) + ", 1, '" + std::string(600, 'x') + "', 0.1, no)");
    transaction.commit();
    fs::create_directory(folder);
  }

  BackUpResult save(const fs::path& file) {
    return backUp(shopCatalog(), {.source = stringFor(source),
                                  .destination = stringFor(file),
                                  .proofs = {"select [Year], sum(Amount) as Total from Orders group by [Year]"},
                                  .progress = progress});
  }
  ErrorKind failure(const fs::path& file) {
    const auto kind = failureOf([&] { save(file); });
    return kind.value_or(ErrorKind::Misuse);
  }
  static std::vector<std::string> namesIn(const fs::path& path) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path)) names.push_back(entry.path().filename());
    return names;
  }

  TemporaryFolder place;
  const fs::path source = place.path() / "shop.MDB";
  const fs::path folder = place.path() / "stick";
  const fs::path target = folder / "KORD Back-Up (Date 22-11-26)";
  Connection shop{shopCatalog()};
  std::function<void(BackUpStage)> progress;
};

TEST_F(BackUp, IsAWorkingFileWithAllRecordsWhoeverHasItOpen) {
  shop.execute("delete * from Orders where OrderNo > 300");  // still in the log, and leaves free pages
  const BackUpResult result = save(target);
  EXPECT_EQ(result.file, target);
  EXPECT_EQ(result.bytes, fs::file_size(target));
  EXPECT_EQ(result.records, 300);
  EXPECT_EQ(namesIn(folder), std::vector<std::string>{target.filename().string()}) << "no file beside it";
  EXPECT_LT(result.bytes, 300U * 600 * 3 / 2) << "compacted";

  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
  sqlite3* plain = nullptr;
  ASSERT_EQ(sqlite3_open_v2(target.c_str(), &plain, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(plain, "select count(*) from Orders", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(plain);
  EXPECT_EQ(namesIn(folder).size(), 1U) << "it is read without a log";
  fs::permissions(folder, fs::perms::owner_all);

  Connection copy(shopCatalog());
  copy.open(stringFor(target));
  EXPECT_EQ(Recordset(copy, "select count(*) as N from Orders").integer("N"), 300);
  EXPECT_EQ(failureOf([&] { copy.open("Data Source='" + target.string() + "';Jet OLEDB:Database Password=other"); }),
            ErrorKind::Password);
}

TEST_F(BackUp, IsOfOneMomentWhileOthersWrite) {
  int written = 0;
  progress = [&](BackUpStage stage) {
    if (stage == BackUpStage::Copying && written < 50)
      written += static_cast<int>(shop.execute("insert into Orders (DocNo, [Year], Amount) values (1, 2, 5)"));
  };
  save(target);
  ASSERT_GT(written, 0);
  Connection copy(shopCatalog());
  copy.open(stringFor(target));
  const auto inCopy = Recordset(copy, "select count(*) as N from Orders").integer("N");
  EXPECT_GE(inCopy, 400);
  EXPECT_LE(inCopy, 400 + written);
  EXPECT_EQ(Recordset(shop, "select count(*) as N from Orders").integer("N"), 400 + written);
}

// Enough records for every stage to take a while.
TEST_F(BackUp, TellsEveryStageOnTheThreadThatWaits) {
  const char* many =
      "INSERT INTO Orders (DocNo, Year, Party, Amount) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
      "WHERE i < 300000) SELECT i, 1, 'party ' || i, i FROM n";
  ASSERT_EQ(sqlite3_exec(shop.handle(), many, nullptr, nullptr, nullptr), SQLITE_OK);
  std::map<BackUpStage, int> calls;
  bool elsewhere = false;
  const auto here = std::this_thread::get_id();
  progress = [&](BackUpStage stage) {
    ++calls[stage];
    elsewhere = elsewhere || std::this_thread::get_id() != here;
  };
  save(target);
  EXPECT_FALSE(elsewhere) << "a window may be painted by its own thread only";
  EXPECT_GT(calls[BackUpStage::Copying], 5);
  EXPECT_GT(calls[BackUpStage::Compacting], 0);
  EXPECT_GT(calls[BackUpStage::Verifying], 5) << "also while the copy is tested for soundness, in one piece";
}

TEST_F(BackUp, ReplacesAnEarlierOneOnlyWhenItIsWhole) {
  save(target);
  shop.execute("delete * from Orders where OrderNo > 10");
  EXPECT_EQ(save(target).records, 10);

  const auto before = fs::last_write_time(target);
  progress = [&](BackUpStage stage) {
    if (stage == BackUpStage::Verifying) throw StoreError(ErrorKind::Failed, "the power went");
  };
  EXPECT_EQ(failure(target), ErrorKind::Failed);
  EXPECT_EQ(fs::last_write_time(target), before);
  EXPECT_EQ(namesIn(folder).size(), 1U);
}

// Between the compaction and the comparison a record and an amount of the copy are changed, as a bad disk might do.
TEST_F(BackUp, IsNotSavedWhenTheCopyDiffers) {
  for (const char* spoiling : {"DELETE FROM Lines", "UPDATE Orders SET Amount = Amount + 0.01 WHERE OrderNo = 7"}) {
    shop.execute("delete * from Lines");
    shop.execute("insert into Lines (OrderNo, Item) values (1, 'nail')");
    bool spoilt = false;
    progress = [&](BackUpStage stage) {
      if (stage != BackUpStage::Verifying || std::exchange(spoilt, true)) return;
      for (const std::string& name : namesIn(folder)) {
        if (!name.ends_with(".part")) continue;
        sqlite3* copy = nullptr;
        ASSERT_EQ(sqlite3_open((folder / name).c_str(), &copy), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(copy, spoiling, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(copy);
      }
    };
    EXPECT_EQ(failure(target), ErrorKind::Damaged) << spoiling;
    EXPECT_TRUE(spoilt);
    EXPECT_TRUE(namesIn(folder).empty());
  }
}

TEST_F(BackUp, RefusesNamesThatAreNoPlaceForIt) {
  fs::create_symlink(source, folder / "link");
  fs::create_hard_link(source, folder / "hard");
  struct Case {
    fs::path file;
    ErrorKind kind;
  };
  for (const Case& c : {Case{source, ErrorKind::Misuse}, Case{folder / ".." / "shop.MDB", ErrorKind::Misuse},
                        Case{source.string() + "-wal", ErrorKind::Misuse}, Case{folder / "link", ErrorKind::Misuse},
                        Case{folder / "hard", ErrorKind::Misuse}, Case{folder, ErrorKind::Misuse},
                        Case{folder / "gone" / "copy", ErrorKind::Missing}, Case{source / "copy", ErrorKind::Missing},
                        Case{folder / std::string(300, 'n'), ErrorKind::Failed}}) {
    EXPECT_EQ(failureOf([&] { save(c.file); }), c.kind) << c.file;
  }
  EXPECT_EQ(Recordset(shop, "select count(*) as N from Orders").integer("N"), 400);
  EXPECT_EQ(namesIn(folder).size(), 2U);
}

TEST_F(BackUp, SaysThatTheStickWasPulled) {
  for (const BackUpStage pulledAt : {BackUpStage::Copying, BackUpStage::Compacting, BackUpStage::Verifying}) {
    fs::create_directory(folder);
    progress = [&](BackUpStage stage) {
      if (stage == pulledAt) fs::remove_all(folder);
    };
    EXPECT_EQ(failure(target), ErrorKind::Missing);
    EXPECT_FALSE(fs::exists(folder));
  }
}

// In a program of its own whose files may not grow beyond half of the copy.
TEST_F(BackUp, LeavesNothingOnADiskThatRefusesToTakeMore) {
  std::ofstream(target) << "the last back-up";
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{.rlim_cur = 100'000, .rlim_max = 100'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    const bool refused = failureOf([&] { save(target); }).has_value();
    _exit(refused && namesIn(folder).size() == 1 ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(fs::file_size(target), 16U);
}

// Real small disks, where the system lets a test mount them; elsewhere the answer that they would give.
TEST_F(BackUp, TellsAFullDiskFromAReadOnlyOne) {
  struct Case {
    const char* options;
    unsigned long flags;
    ErrorKind kind;
    int answer;
  };
  for (const Case& c : {Case{"size=64k", 0, ErrorKind::Full, ENOSPC},   // not one copy
                        Case{"size=400k", 0, ErrorKind::Full, ENOSPC},  // one, but not the compacted one beside it
                        Case{"size=4m", MS_RDONLY, ErrorKind::ReadOnly, EROFS}}) {
    const bool mounted = ::mount("tmpfs", folder.c_str(), "tmpfs", c.flags, c.options) == 0;
    std::string message;
    try {
      mounted ? static_cast<void>(save(target)) : throw cannotMake(target, c.answer);
    } catch (const StoreError& error) {
      EXPECT_EQ(error.kind(), c.kind) << error.what();
      message = error.what();
    }
    EXPECT_NE(message.find(c.kind == ErrorKind::Full ? "full" : "read-only"), std::string::npos) << message;
    EXPECT_TRUE(namesIn(folder).empty());
    if (mounted) {
      ASSERT_EQ(::umount(folder.c_str()), 0);
    }
  }
}

// The key of a table of one row is a text that a person may change.
TEST_F(BackUp, KeyOfARowIsWrittenLikeAnyOtherField) {
  shop.execute("insert into Items (Item, ItemName) values ('nail', 'Nail')");
  Recordset row(shop, "select Item, ItemName, Notes from Items");
  row.update({{"Item", "O'Brien's"}, {"ItemName", "Nails"}});
  row.update({{"Item", ""}, {"Notes", "empty keys are keys"}});
  row.update({{"Item", "nail"}});
  EXPECT_EQ(Recordset(shop, "select * from Items where Item='nail'").text("Notes"), "empty keys are keys");
}

}  // namespace
