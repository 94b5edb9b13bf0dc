#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <map>

#include "store/connection/connection_string.h"
#include "store/small_shop.h"

namespace {

namespace fs = std::filesystem;
using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

TEST(ConnectionStringText, NamesFilePasswordAndProvider) {
  struct Case {
    const char* text;
    Provider provider;
    const char* file;
    const char* password;
  };
  for (const Case& c :
       {Case{"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=Uninstall\\Uninstall.MDB;Jet OLEDB:System "
             "Database=MySystem.mdw;Jet OLEDB:Database Password=Zx7",
             Provider::Plain, "Uninstall/Uninstall.MDB", "Zx7"},
        Case{"PROVIDER=MSDataShape;Data Provider=Microsoft.Jet.OLEDB.4.0;Data Source=a\\b.MDB;Jet OLEDB:Database "
             "Password=p",
             Provider::Hierarchical, "a/b.MDB", "p"},
        Case{" data source = /x y/z.MDB ; Jet OLEDB:Engine Type=5;", Provider::Plain, "/x y/z.MDB", ""},
        Case{"Data Source=\"a;b\"\"c\" ; jet oledb:database password='it''s;'", Provider::Plain, "a;b\"c", "it's;"}}) {
    const ConnectionString parsed = parseConnectionString(c.text);
    EXPECT_EQ(parsed.provider, c.provider) << c.text;
    EXPECT_EQ(parsed.dataSource, c.file);
    EXPECT_EQ(parsed.password, c.password);
  }
  for (const char* text :
       {"", "Provider=Other;Data Source=a", "Provider=MSDataShape", "Data Source=", ";;;", "Data Source='"}) {
    EXPECT_EQ(failureOf([&] { parseConnectionString(text); }), ErrorKind::Misuse) << text;
  }
}

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Every name in the folder with what it holds.
std::string contentOfFolder(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::directory_iterator(folder)) files[entry.path().filename()] = contentOf(entry.path());
  std::string all;
  for (const auto& [name, content] : files) all += name + "\n" + content + "\n";
  return all;
}

void overwrite(const fs::path& file, std::streamoff at, std::string_view bytes) {
  std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
  stream.seekp(at);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

TEST(DatabaseFile, RefusedFilesAndTheirFoldersStayAsTheyAre) {
  struct Case {
    const char* name;
    ErrorKind kind;
    std::function<void(const fs::path&)> spoil;
    std::string password = shopPassword;
  };
  for (const Case& c : {
           Case{"missing", ErrorKind::Missing, [](const fs::path& file) { fs::remove(file); }},
           Case{"empty", ErrorKind::Damaged, [](const fs::path& file) { fs::resize_file(file, 0); }},
           Case{"header", ErrorKind::Damaged, [](const fs::path& file) { overwrite(file, 0, "garbage"); }},
           Case{"text", ErrorKind::Damaged,
                [](const fs::path& file) { std::ofstream(file) << std::string(5000, 'x'); }},
           Case{"truncated", ErrorKind::Damaged,
                [](const fs::path& file) { fs::resize_file(file, fs::file_size(file) - 5000); }},
           Case{"tables lost", ErrorKind::Damaged,
                [](const fs::path& file) { overwrite(file, 100, std::string(3996, '\7')); }},
           Case{"foreign", ErrorKind::Foreign,
                [](const fs::path& file) {
                  overwrite(file, 68, {"\0\0\0\1", 4});
                }},
           Case{"folder", ErrorKind::Foreign,
                [](const fs::path& file) {
                  fs::remove(file);
                  fs::create_directory(file);
                }},
           Case{"newer", ErrorKind::Newer,
                [](const fs::path& file) {
                  overwrite(file, 60, {"\0\0\0\3", 4});
                }},
           Case{"read-only", ErrorKind::ReadOnly, [](const fs::path& file) { ::chmod(file.c_str(), 0444); }},
           Case{"read-only folder", ErrorKind::ReadOnly,
                [](const fs::path& file) { ::chmod(file.parent_path().c_str(), 0555); }},
           Case{"password", ErrorKind::Password, [](const fs::path&) {}, "other"},
           Case{"no password", ErrorKind::Password, [](const fs::path&) {}, ""},
       }) {
    SCOPED_TRACE(c.name);
    TemporaryFolder folder;
    const fs::path file = folder.path() / "Shop # %41?.MDB";
    createDatabaseFile(file, shopCatalog(), shopPassword, 2, {});
    c.spoil(file);
    const std::string before = fs::is_directory(file) ? "" : contentOfFolder(folder.path());
    Connection connection(shopCatalog(), 2);
    try {
      connection.open(shopConnectionString(file, c.password));
      ADD_FAILURE() << "opened";
    } catch (const StoreError& error) {
      EXPECT_EQ(error.kind(), c.kind) << error.what();
      const bool namesPlace = std::string(error.what()).find(folder.path().string()) != std::string::npos;
      EXPECT_TRUE(namesPlace) << error.what();
    }
    EXPECT_FALSE(connection.isOpen());
    if (!before.empty()) {
      EXPECT_EQ(contentOfFolder(folder.path()), before);
    }
  }
}

TEST(DatabaseFile, LockedByAnotherProcessIsBusy) {
  SmallShop shop;
  shop.connection.close();
  int ready[2];
  int release[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(release), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    sqlite3* database = nullptr;
    sqlite3_open(shop.file().c_str(), &database);
    const int code = sqlite3_exec(database, "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; DELETE FROM Lines;",
                                  nullptr, nullptr, nullptr);
    char byte = code == SQLITE_OK ? '1' : '0';
    if (::write(ready[1], &byte, 1) != 1 || ::read(release[0], &byte, 1) != 1) ::_exit(1);
    ::_exit(0);
  }
  char byte = '0';
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  EXPECT_EQ(byte, '1');
  Connection connection(shopCatalog());
  EXPECT_EQ(failureOf([&] { connection.open(shopConnectionString(shop.file())); }), ErrorKind::Busy);
  EXPECT_EQ(::write(release[1], "x", 1), 1);
  int status = 0;
  ::waitpid(child, &status, 0);
  connection.open(shopConnectionString(shop.file()));
  EXPECT_TRUE(connection.isOpen());
  for (int descriptor : {ready[0], ready[1], release[0], release[1]}) ::close(descriptor);
}

TEST(DatabaseFile, IsMadeWholeOrNotAtAllAndReadableByItsOwnerAlone) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / "deep" / "er" / "Shop.MDB";
  EXPECT_THROW(createDatabaseFile(file, shopCatalog(), "p", 1,
                                  [](Connection& connection) {
                                    connection.execute("INSERT INTO Items (Item) VALUES ('half')");
                                    throw std::runtime_error("power cut");
                                  }),
               std::runtime_error);
  EXPECT_TRUE(fs::is_empty(file.parent_path()));
  createDatabaseFile(file, shopCatalog(), "p", 1, [](Connection& connection) {
    Connection::Transaction transaction(connection);
    connection.execute("INSERT INTO Items (Item) VALUES ('whole')");
    transaction.commit();
  });
  struct stat status {};
  ASSERT_EQ(::stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
  EXPECT_FALSE(createDatabaseFile(file, shopCatalog(), "p", 2, {})) << "the first maker wins";
  Connection connection(shopCatalog());
  connection.open(shopConnectionString(file, "p"));
  EXPECT_EQ(Recordset(connection, "SELECT * FROM Items").text("Item"), "whole");
  for (const char* expected : {"journal_mode=wal", "synchronous=2", "foreign_keys=1"}) {
    const std::string_view pragma(expected);
    sqlite3_stmt* statement = nullptr;
    const std::string sql = "PRAGMA " + std::string(pragma.substr(0, pragma.find('=')));
    ASSERT_EQ(sqlite3_prepare_v2(connection.handle(), sql.c_str(), -1, &statement, nullptr), SQLITE_OK);
    sqlite3_step(statement);
    EXPECT_EQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)), pragma.substr(pragma.find('=') + 1));
    sqlite3_finalize(statement);
  }
}

TEST(OpenConnection, StatementsOfOneShapeShareOnePreparedStatementAndTheCacheIsBounded) {
  SmallShop shop;
  shop.addOrders(3);
  int prepared = 0;
  auto preparedStatements = [&] {
    prepared = 0;
    for (sqlite3_stmt* each = sqlite3_next_stmt(shop.connection.handle(), nullptr); each != nullptr;
         each = sqlite3_next_stmt(shop.connection.handle(), each)) {
      ++prepared;
    }
    return prepared;
  };
  shop.read("SELECT Party FROM Orders WHERE DocNo = 1 AND Party like 'P1'");
  const int before = preparedStatements();
  for (int i = 1; i <= 3; ++i) {
    const std::string number = std::to_string(i);
    EXPECT_EQ(shop.read("SELECT Party FROM Orders WHERE DocNo = " + number + " AND Party like 'P" + number + "'"),
              "P" + number);
  }
  EXPECT_EQ(preparedStatements(), before);
  std::string columns = "DocNo";
  for (int i = 0; i < 300; ++i) {
    columns += ", DocNo AS D" + std::to_string(i);
    shop.read("SELECT " + columns + " FROM Orders");
  }
  EXPECT_LE(preparedStatements(), 201);
  EXPECT_EQ(shop.read("SELECT Party FROM Orders WHERE DocNo = 2 AND Party like 'P2'"), "P2");
}

TEST(OpenConnection, FailuresAreSentencesOfTheirKind) {
  SmallShop shop;
  shop.addOrders(1);
  struct Case {
    const char* statement;
    ErrorKind kind;
  };
  for (const Case& c :
       {Case{"DELETE FROM Nobody", ErrorKind::Statement}, Case{"SELECT * FROM Orders", ErrorKind::Statement},
        Case{"nonsense", ErrorKind::Statement}, Case{"UPDATE Orders SET Amount = 1 / 0", ErrorKind::Statement},
        Case{"INSERT INTO Lines (OrderNo) VALUES (77)", ErrorKind::Constraint}}) {
    EXPECT_EQ(failureOf([&] { shop.connection.execute(c.statement); }), c.kind) << c.statement;
  }
  EXPECT_EQ(shop.connection.execute("UPDATE Orders SET Amount = 2"), 1);
  Recordset rows = shop.open("SELECT * FROM Orders");
  shop.connection.checkpoint();
  shop.connection.close();
  EXPECT_EQ(rows.number("Amount"), 2);
  EXPECT_EQ(failureOf([&] { rows.update({{"Amount", 3.0}}); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { rows.requery(); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { shop.connection.execute("DELETE FROM Orders"); }), ErrorKind::Misuse);
}

TEST(Literals, TypedTextIsDoubledAndDatesAreMonthFirst) {
  SmallShop shop;
  const std::string typed = "O'Brien's 'x'; #1#";
  shop.connection.execute("INSERT INTO Items (Item, ItemName) VALUES ('A', " + store::quoted(typed) + ")");
  EXPECT_EQ(shop.read("SELECT ItemName FROM Items WHERE ItemName = " + store::quoted(typed)), typed);
  EXPECT_EQ(dateLiteral(text::DateTime::fromCalendar(2026, 1, 9)), "#01-09-2026#");
}

}  // namespace
