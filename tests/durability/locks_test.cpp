#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <QApplication>
#include <QFileDialog>
#include <QListView>
#include <QTimer>
#include <fstream>
#include <set>
#include <span>
#include <sstream>

#include "forms/file_dialogs.h"
#include "forms/whole_file.h"
#include "printing/pieces.h"
#include "schema/company_file.h"
#include "shell/settings/logo_file.h"
#include "spreadsheet/sheet_reader.h"
#include "spreadsheet/sheet_writer.h"
#include "store/recordset/recordset.h"
#include "store/upkeep/back_up.h"
#include "support/another_program.h"
#include "support/new_company.h"

namespace velmo::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* companyFile = "Uninstall/Uninstall.MDB";

using Locks = std::set<std::string>;

Locks locksInList(const std::string& inode, const std::string& part) {
  Locks held;
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    std::istringstream words(line);
    std::string number, kind, advisory, mode, process, file, from, to;
    words >> number >> kind >> advisory >> mode >> process >> file >> from >> to;
    if (process == std::to_string(::getpid()) && file.ends_with(inode))
      held.insert(part + " " + kind + " " + mode + " " + from + "-" + to);
  }
  return held;
}

// The locks that this process holds on the file and on what stands beside it, as the system lists them. A list that
// changes while it is read leaves a line out or gives one twice, so it is read more than once.
Locks locksHeld() {
  Locks held;
  for (const char* part : {"", "-wal", "-shm"}) {
    struct stat status {};
    if (::stat((std::string(companyFile) + part).c_str(), &status) != 0) continue;
    for (int reading = 0; reading < 5; ++reading) held.merge(locksInList(":" + std::to_string(status.st_ino), part));
  }
  return held;
}

// Everything that a person can point at the company's own file.
class LocksOnTheCompany : public testing::Test {
 protected:
  LocksOnTheCompany() {
    connection_.open(schema::plainConnectionString);
    connection_.execute("UPDATE BusinessInfo SET Name = 'Held'");
    held_ = locksHeld();
  }
  void SetUp() override { ASSERT_FALSE(held_.empty()) << "the system lists no locks"; }

  NewCompany company_;
  store::Connection connection_{schema::companyCatalog()};
  Locks held_;
};

TEST_F(LocksOnTheCompany, AreThereAfterEverythingThatTakesAFile) {
  fs::create_hard_link(companyFile, "hard.xlsx");
  fs::create_hard_link("Uninstall/Uninstall.MDB-shm", "shm.csv");
  fs::create_hard_link(companyFile, "mylogo.jpg");
  const auto refuses = [&](const char* what, const std::function<bool()>& refused) {
    EXPECT_TRUE(refused()) << what;
    EXPECT_EQ(locksHeld(), held_) << what;
  };
  for (const std::string path : {companyFile, "hard.xlsx", "shm.csv"}) {
    SCOPED_TRACE(path);
    refuses("names of sheets", [&] { return !spreadsheet::sheetNames(path); });
    refuses("a sheet", [&] { return !spreadsheet::readSheet(path); });
    refuses("a logo", [&] { return !shell::replaceLogo(path).empty(); });
    refuses("a file that is written whole", [&] { return !forms::WholeFile(path).open(QIODevice::WriteOnly); });
    refuses("a spreadsheet", [&] {
      return !spreadsheet::saveSheet(path, {.title = "List", .columns = {{.caption = "A"}}},
                                     [](std::span<store::Value>) { return false; });
    });
  }
  refuses("the logo on the screen", [&] { return shell::logoPicture({100, 100}).isNull(); });
  refuses("the logo on paper", [&] { return printing::companyLogo().isNull(); });
  fs::remove("mylogo.jpg");

  refuses("another connection that comes and goes", [] {
    store::Connection other(schema::companyCatalog());
    other.open(schema::plainConnectionString);
    return true;
  });
  refuses("a connection with another password", [] {
    try {
      store::Connection(schema::companyCatalog()).open("Data Source=Uninstall\\Uninstall.MDB");
      return false;
    } catch (const store::StoreError&) {
      return true;
    }
  });
  refuses("a start", [] {
    schema::prepareCompanyFile(schema::plainConnectionString, text::DateTime::fromCalendar(2026, 11, 22));
    return true;
  });
  refuses("a snapshot", [&] { return connection_.snapshot().isOpen(); });
  refuses("a back-up", [&] {
    store::backUp(schema::companyCatalog(),
                  {.source = schema::plainConnectionString, .destination = schema::connectionStringFor("copy")});
    return fs::exists("copy");
  });
  refuses("a file in the place of a copy", [] { return !forms::WholeFile("copy").open(QIODevice::WriteOnly); });
}

// What all this is about, and that it would be seen.
TEST_F(LocksOnTheCompany, AreGivenUpByWhoeverOpensTheFileBeside) {
  std::ifstream(companyFile).get();
  EXPECT_NE(locksHeld(), held_);
}

// The dialog lists the folder of the company's file until all its icons are there.
TEST_F(LocksOnTheCompany, AreThereAfterAFileDialog) {
  const std::string folder = (company_.folder() / "Uninstall").string();
  std::ofstream("Uninstall/notes.txt") << "x";
  forms::FileDialogs dialogs;
  for (const bool saving : {false, true}) {
    int listed = 0;
    int turns = 0;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      auto* list = dialog->findChild<QListView*>(QStringLiteral("listView"));
      listed = list->model()->rowCount(list->rootIndex());
      if (listed >= 4 && ++turns == 20) dialog->reject();
    });
    look.start(20);
    const std::string chosen = saving ? dialogs.saveFile("Save", "All files (*)", folder + "/new.txt")
                                      : dialogs.openFile("Open", "All files (*)", folder);
    EXPECT_EQ(chosen, "");
    EXPECT_GE(listed, 4) << "the file, its log, its index and the notes";
    EXPECT_EQ(locksHeld(), held_);
  }
}

// Another program takes the log for left behind when this one has no locks: what was saved is gone then.
TEST_F(LocksOnTheCompany, KeepTwoProgramsApartWithABackUpBetween) {
  const auto sold = [](store::Connection& connection, int docNo) {
    store::Connection::Transaction sale(connection);
    connection.execute("INSERT INTO Transactions (DocNo, TranType, FYID, Cancel, InvLedger) VALUES (" +
                       std::to_string(docNo) + ", 32, 1, No, No)");
    sale.commit();
  };
  sold(connection_, 1);
  store::backUp(schema::companyCatalog(),
                {.source = schema::plainConnectionString, .destination = schema::connectionStringFor("copy")});
  for (int i = 0; i < 3; ++i) {
    AnotherProgram other([] { return 0; },
                         [&] {
                           store::Connection connection(schema::companyCatalog());
                           connection.open(schema::plainConnectionString);
                           sold(connection, 100 + i);
                           connection.close();  // the last one to leave would fold and remove the log
                         });
    EXPECT_TRUE(other.ended());
    sold(connection_, 2 + i);
  }
  connection_.close();
  EXPECT_EQ(answer(companyFile,
                   "SELECT group_concat(DocNo, ' ') FROM (SELECT DocNo FROM Transactions WHERE TranType = "
                   "32 ORDER BY DocNo)"),
            "1 2 3 4 100 101 102");
  EXPECT_EQ(answer(companyFile, "PRAGMA integrity_check"), "ok");
}

}  // namespace
}  // namespace velmo::test
