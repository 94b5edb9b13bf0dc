#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>

#include "attack/risk_places.h"
#include "support/another_program.h"

namespace velmo::attack {
namespace {

namespace fs = std::filesystem;

class StartingTogether : public testing::Test {
 protected:
  StartingTogether() : before_(fs::current_path()) {
    std::string pattern = (fs::temp_directory_path() / "velmo-start-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    fs::current_path(folder_);
  }
  ~StartingTogether() override {
    fs::current_path(before_);
    fs::remove_all(folder_);
  }

  // Three programs, each of which finds a company that it can use.
  static void start() {
    std::vector<std::unique_ptr<test::AnotherProgram>> programs;
    for (int i = 0; i < 3; ++i)
      programs.push_back(std::make_unique<test::AnotherProgram>([] { return 0; }, startProgram));
    for (auto& program : programs) program->start();
    for (auto& program : programs) EXPECT_TRUE(program->ended());
  }
  static std::vector<std::string> namesThere() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(companyFolder)) names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
  }

 private:
  fs::path before_;
  fs::path folder_;
};

TEST_F(StartingTogether, MakesOneWholeCompany) {
  for (int round = 0; round < 8 && !HasFailure(); ++round) {
    fs::remove_all(companyFolder);
    start();
    EXPECT_EQ(test::answer(companyFile,
                           "SELECT (SELECT count(*) FROM BusinessInfo) || ' ' || (SELECT count(*) FROM "
                           "FinancialYear) || ' ' || (SELECT integrity_check FROM pragma_integrity_check)"),
              "1 1 ok");
    EXPECT_EQ(namesThere(), std::vector<std::string>{"Uninstall.MDB"});
    EXPECT_EQ(fs::status(companyFolder).permissions(), fs::perms::owner_all);
  }
}

TEST_F(StartingTogether, BringsAnOlderCompanyUpToDateOnce) {
  startProgram();
  for (int round = 0; round < 4 && !HasFailure(); ++round) {
    ASSERT_EQ(test::answer(companyFile, "PRAGMA journal_mode = DELETE"), "delete");
    ASSERT_EQ(test::answer(companyFile, "DROP TABLE Settings"), "no more rows available");
    ASSERT_EQ(test::answer(companyFile, "PRAGMA user_version = 1"), "no more rows available");
    start();
    EXPECT_EQ(test::answer(companyFile,
                           "SELECT user_version || (SELECT ' ' || count(*) FROM Settings) || (SELECT ' ' "
                           "|| integrity_check FROM pragma_integrity_check) FROM pragma_user_version"),
              "6 0 ok");
    EXPECT_EQ(namesThere(), (std::vector<std::string>{"Uninstall.MDB", "Uninstall.MDB before version 6"}));
  }
}

}  // namespace
}  // namespace velmo::attack
