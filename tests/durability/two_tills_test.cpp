#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "attack/books_check.h"
#include "attack/cashier.h"
#include "frame/document_number.h"
#include "support/another_program.h"
#include "support/new_company.h"

namespace velmo::attack {
namespace {

constexpr int invoices = 150;  // of each till

// A program that saves invoices under the numbers that are proposed, and proposes again when one was taken meanwhile.
std::unique_ptr<test::AnotherProgram> openTill(int pipe, unsigned seed) {
  const auto cashier = std::make_shared<std::unique_ptr<Cashier>>();
  return std::make_unique<test::AnotherProgram>(
      [=] {
        *cashier = std::make_unique<Cashier>(pipe, seed, Documents());
        return 0;
      },
      [=] {
        for (int saved = 0; saved < invoices;) {
          try {
            (*cashier)->saveNew();
            ++saved;
          } catch (const frame::DocNoTaken&) {
          }
        }
      });
}

TEST(TwoTills, NeverGiveANumberTwice) {
  const test::NewCompany company;
  int ends[2];
  ASSERT_EQ(0, ::pipe(ends));
  ASSERT_GE(::fcntl(ends[1], F_SETPIPE_SZ, 1 << 20), 0);
  const std::unique_ptr<test::AnotherProgram> tills[] = {openTill(ends[1], 1), openTill(ends[1], 2)};
  for (const auto& till : tills) till->start();
  for (const auto& till : tills) EXPECT_TRUE(till->ended());
  ::close(ends[1]);
  Documents told;
  int begun = 0;
  for (Report report; ::read(ends[0], &report, sizeof report) == sizeof report;) {
    if (report.phase == Report::Phase::Begun) ++begun;
    if (report.phase == Report::Phase::Done) {
      EXPECT_FALSE(told.contains(report.docNo)) << "number " << report.docNo << " was given twice";
      told[report.docNo] = report.outcome;
    }
  }
  ::close(ends[0]);

  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
  EXPECT_EQ(documentsInFile(connection.handle()), told);
  EXPECT_EQ(told.size(), 2U * invoices);
  EXPECT_EQ(told.rbegin()->first, 2 * invoices) << "no number was left out";
  for (const std::string& problem : problemsOfBooks(connection.handle())) ADD_FAILURE() << problem;
  EXPECT_GT(begun, 2 * invoices) << "the tills did not get in each other's way, and the test has shown nothing";
}

}  // namespace
}  // namespace velmo::attack
