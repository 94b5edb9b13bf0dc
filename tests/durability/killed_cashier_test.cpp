#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include "attack/cashier.h"
#include "attack/process.h"
#include "attack/report_pipe.h"
#include "support/new_company.h"

namespace velmo::attack {
namespace {

constexpr int kills = 80;

TEST(BooksAfterKill, HoldEveryDocumentWholeOrNotAtAll) {
  const test::NewCompany company;
  const ReportPipe pipe;
  ToldBooks books;
  std::mt19937 random(20261122);
  for (int kill = 0; kill < kills && !testing::Test::HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    Process program([&, seed = static_cast<unsigned>(random())] {
      Cashier cashier(pipe.end(), seed, books.known());
      for (;;) cashier.step();
    });
    ASSERT_TRUE(pipe.waitForReport(20000));
    ::usleep(static_cast<useconds_t>(std::uniform_int_distribution(0, 30000)(random)));
    program.send(SIGKILL);
    EXPECT_EQ(program.status(), -SIGKILL) << "it ended by itself";
    for (const std::string& problem : books.check(pipe.reports())) ADD_FAILURE() << problem;
  }
  // Otherwise the instants missed the saves and the test has shown nothing.
  EXPECT_GT(books.interrupted(), kills / 4);
  EXPECT_GT(books.known().size(), 20u);
}

}  // namespace
}  // namespace velmo::attack
