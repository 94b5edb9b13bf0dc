#include "schema/company_file.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "schema/open_company.h"
#include "store/connection/connection_string.h"
#include "store/values/error.h"
#include "support/damage.h"

namespace velmo::schema {
namespace {

namespace fs = std::filesystem;

const text::DateTime today = text::DateTime::fromCalendar(2026, 11, 22);

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(ConnectionStrings, NameTheSameFileAndPassword) {
  const auto plain = store::parseConnectionString(plainConnectionString);
  const auto shape = store::parseConnectionString(shapeConnectionString);
  EXPECT_EQ(fs::path("Uninstall/Uninstall.MDB"), plain.dataSource);
  EXPECT_EQ(plain.dataSource, shape.dataSource);
  EXPECT_EQ(plain.password, shape.password);
  EXPECT_EQ(store::Provider::Hierarchical, shape.provider);
  const auto elsewhere = store::parseConnectionString(connectionStringFor("/tmp/a; copy/Back-Up (Date 1)"));
  EXPECT_EQ(fs::path("/tmp/a; copy/Back-Up (Date 1)"), elsewhere.dataSource);
  EXPECT_EQ(plain.password, elsewhere.password);
}

// The layout of a file's tables and indexes, in words of its own.
std::vector<std::string> layoutOf(const fs::path& file) {
  std::vector<std::string> all;
  sqlite3* database = nullptr;
  EXPECT_EQ(SQLITE_OK, sqlite3_open(file.c_str(), &database));
  sqlite3_exec(
      database, "SELECT sql FROM sqlite_master WHERE sql IS NOT NULL ORDER BY name",
      [](void* found, int, char** texts, char**) {
        static_cast<std::vector<std::string>*>(found)->emplace_back(texts[0]);
        return 0;
      },
      &all, nullptr);
  sqlite3_close(database);
  return all;
}

TEST(CompanyFile, OfAnEarlierVersionIsBroughtUpToDate) {
  const std::string withoutAccounts = "DROP TABLE AccountPending; DROP TABLE AccountDays; DROP TABLE AccountMonths";
  const std::string asVersion4 =
      "DROP TABLE AccountPending; DROP TABLE StockPending; DROP TABLE StockYears; DROP TABLE ReceiptPending; DROP "
      "TABLE ReceiptDays; DROP TABLE ReceiptMonths; DROP TABLE ReceiptYears; DROP TABLE ReceiptAdded; DROP INDEX "
      "StockFlow_ApartStockIn; DROP INDEX StockFlow_Serials; CREATE TRIGGER AccountTotalsTransactionsMoved AFTER "
      "UPDATE OF Cancel ON Transactions BEGIN UPDATE AccountDays SET Debit = 0; END; PRAGMA user_version = 4";
  const std::pair<const char*, std::string> earlier[] = {
      {"Account", withoutAccounts +
                      "; DROP TABLE Settings; DROP INDEX StockFlow_Serials; DROP INDEX StockLevel3_SubCatID; CREATE "
                      "INDEX StockLevel3_SubCatID ON StockLevel3 (SubCatID); PRAGMA user_version = 1"},
      {"", asVersion4},
      {"",
       "DROP TABLE PlaceDays; DROP TABLE PlaceMonths; DROP TABLE PlaceYears; DROP TABLE PlacePending; DROP TABLE "
       "PlaceAdded; DROP TABLE KindDays; DROP TABLE KindMonths; DROP TABLE KindYears; DROP TABLE KindPending; DROP "
       "TABLE KindAdded; DROP TABLE OpenInvoices; DROP TABLE OpenBills; DROP INDEX StockFlow_ApartKind; DROP INDEX "
       "StockFlow_Serials; DROP INDEX OpenInvoices_Groupless; DROP INDEX OpenBills_Groupless; DROP INDEX "
       "Transactions_PartyCode2; DROP INDEX Transactions_TranType; CREATE INDEX Transactions_TranType ON Transactions "
       "(TranType, FYID, DocNo); DROP INDEX AgingDr_TranDate; DROP INDEX AgingCr_PartyCode; CREATE INDEX "
       "AgingCr_PartyCode ON AgingCr (PartyCode, DocNo); PRAGMA user_version = 5"}};
  for (const auto& [triggersOf, sql] : earlier) {
    test::OpenCompany company;
    company.connection.execute("INSERT INTO Transactions (TranNo, TranDate, FYID) VALUES (900, #11-22-2026#, 1)");
    company.connection.execute("INSERT INTO SubTransactions (TranNo, AccCode, Debit) VALUES (900, 10001001, 5)");
    company.connection.close();
    const fs::path file = company.file();
    const std::vector<std::string> current = layoutOf(file);
    const std::string triggers = test::past(
        file,
        "SELECT group_concat('DROP TRIGGER ' || name, '; ') FROM sqlite_schema WHERE type = 'trigger' AND name LIKE '" +
            std::string(triggersOf) + "%'");
    test::past(file, triggers + "; " + sql);
    ASSERT_NE(layoutOf(file), current);
    prepareCompanyFile(connectionStringFor(file), today);
    EXPECT_EQ(layoutOf(file), current);
    EXPECT_EQ(test::past(file, "SELECT Debit FROM AccountDays WHERE AccCode = 10001001"), "50000");
    EXPECT_TRUE(fs::exists(file.string() + " before version 6"));
    prepareCompanyFile(connectionStringFor(file), today);  // nothing is left to do
    EXPECT_EQ(layoutOf(file), current);
  }
}

TEST(CompanyFile, OfTheFirstVersionIsRefusedAsItIsWhenATableIsMissing) {
  for (const char* table : {"StockLevel3", "SubTransactions", "Users"}) {
    SCOPED_TRACE(table);
    test::OpenCompany company;
    company.connection.close();
    test::past(company.file(), std::string("DROP TABLE Settings; PRAGMA user_version = 1; DROP TABLE ") + table);
    const std::vector<std::string> before = layoutOf(company.file());
    try {
      prepareCompanyFile(connectionStringFor(company.file()), today);
      ADD_FAILURE();
    } catch (const store::StoreError& failure) {
      EXPECT_EQ(failure.kind(), store::ErrorKind::Damaged);
      EXPECT_NE(std::string(failure.what()).find(table), std::string::npos) << failure.what();
    }
    EXPECT_EQ(layoutOf(company.file()), before);
    EXPECT_FALSE(fs::exists(company.file().string() + " before version 6"));
  }
}

TEST(CompanyFile, OfUnsoundStructureGetsNoNewTotals) {
  test::OpenCompany company;
  company.connection.execute("INSERT INTO Transactions (TranNo, TranDate, FYID) VALUES (900, #11-22-2026#, 1)");
  company.connection.execute("INSERT INTO SubTransactions (TranNo, AccCode, Debit) VALUES (900, 10001001, 5)");
  company.connection.close();
  test::changeBesideIndex(company.file(), "AccountDays_AccCode", "DELETE FROM AccountDays");
  const FileState state = prepareCompanyFile(connectionStringFor(company.file()), today);
  EXPECT_EQ(state.damage.size(), 1U);
  EXPECT_FALSE(state.totalsMended);
  EXPECT_EQ(test::past(company.file(), "SELECT count(*) FROM AccountDays NOT INDEXED"), "0");
}

TEST(CompanyFile, IsForItsOwnerAloneAndForAnySqlite) {
  test::OpenCompany company;
  struct stat status {};
  ASSERT_EQ(0, stat(company.file().c_str(), &status));
  EXPECT_EQ(0600, status.st_mode & 0777);
  company.connection.close();
  sqlite3* database = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open_v2(company.file().c_str(), &database, SQLITE_OPEN_READONLY, nullptr));
  EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, "SELECT TranDate FROM Transactions WHERE \"Desc\"='Opening Balance'",
                                    nullptr, nullptr, nullptr));
  sqlite3_close(database);
}

TEST(CompanyFile, StaysAsItIsWhenItIsThere) {
  test::OpenCompany company;
  company.connection.execute("update BusinessInfo set Name='Kept'");
  company.connection.close();
  const std::string before = contentOf(company.file());
  prepareCompanyFile(connectionStringFor(company.file()), today);
  EXPECT_EQ(before, contentOf(company.file()));
  company.connection.open(connectionStringFor(company.file()));
  EXPECT_EQ("Kept", company.rows("select Name from BusinessInfo").text("Name"));
}

TEST(CompanyFile, LeavesAForeignFileAlone) {
  test::OpenCompany company;
  const fs::path foreign = company.folder() / "notes.txt";
  std::ofstream(foreign) << "not a company";
  EXPECT_THROW(prepareCompanyFile(connectionStringFor(foreign), today), store::StoreError);
  EXPECT_EQ("not a company", contentOf(foreign));
}

// The environment and the current folder are the process's: each case puts them back.
class ProgramFolder : public testing::Test {
 protected:
  void SetUp() override {
    const char* variable = std::getenv("XDG_DATA_HOME");
    if (variable != nullptr) dataHome_ = variable;
    before_ = fs::current_path();
    root_ = fs::canonical(testing::TempDir()) / ("folders-" + std::to_string(getpid()));
    fs::create_directories(root_ / "work");
    fs::current_path(root_ / "work");
    setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
  }
  void TearDown() override {
    fs::current_path(before_);
    if (dataHome_)
      setenv("XDG_DATA_HOME", dataHome_->c_str(), 1);
    else
      unsetenv("XDG_DATA_HOME");
    fs::remove_all(root_);
  }

  std::optional<std::string> dataHome_;
  fs::path before_;
  fs::path root_;
};

TEST_F(ProgramFolder, IsTheCurrentFolderWhenItHoldsTheData) {
  fs::create_directory("Uninstall");
  EXPECT_EQ(root_ / "work", programFolder());
}

TEST_F(ProgramFolder, IsOtherwiseInTheUsersDataAndMade) {
  std::ofstream("Uninstall") << "a file of that name is no data folder";
  EXPECT_EQ(root_ / "data" / "velmo", programFolder());
  EXPECT_TRUE(fs::is_directory(root_ / "data" / "velmo"));
}

TEST_F(ProgramFolder, IsRefusedInASentenceWhenItCannotBeMade) {
  std::ofstream(root_ / "data") << "in the way";
  EXPECT_THROW(programFolder(), store::StoreError);
}

}  // namespace
}  // namespace velmo::schema
