#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "attack/cashier.h"
#include "support/new_company.h"

namespace velmo::attack {
namespace {

constexpr int kills = 300;

class BooksAfterKill : public testing::Test {
 protected:
  // Lets a cashier work for some microseconds and kills the process. Returns what it told.
  std::vector<Report> killedWork(unsigned seed, int microseconds) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
      close(ends[0]);
      try {
        Cashier cashier(ends[1], seed, books_.known());
        for (;;) cashier.step();
      } catch (const std::exception& failure) {
        fprintf(stderr, "the saving process failed: %s\n", failure.what());
      }
      _exit(4);
    }
    close(ends[1]);
    pollfd ready{ends[0], POLLIN, 0};
    poll(&ready, 1, 20000);
    usleep(static_cast<useconds_t>(microseconds));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the saving process ended by itself";
    std::vector<Report> reports;
    for (Report report; read(ends[0], &report, sizeof report) == sizeof report;) reports.push_back(report);
    close(ends[0]);
    return reports;
  }

  test::NewCompany company_;
  ToldBooks books_;
};

TEST_F(BooksAfterKill, HoldEveryDocumentWholeOrNotAtAll) {
  std::mt19937 random(20261122);
  for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    const std::vector<Report> reports =
        killedWork(static_cast<unsigned>(random()), std::uniform_int_distribution(0, 30000)(random));
    for (const std::string& problem : books_.check(reports)) ADD_FAILURE() << problem;
  }
  // Otherwise the instants missed the saves and the test has shown nothing.
  EXPECT_GT(books_.interrupted(), kills / 4);
  EXPECT_GT(books_.known().size(), 20u);
}

}  // namespace
}  // namespace velmo::attack
