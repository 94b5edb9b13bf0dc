#include <gtest/gtest.h>

#include "attack/books_check.h"
#include "attack/cashier.h"
#include "attack/process.h"
#include "attack/report_pipe.h"
#include "frame/posting/document_number.h"
#include "schema/company_file.h"
#include "support/new_company.h"

namespace velmo::attack {
namespace {

constexpr int invoices = 150;  // of each till

// Saves invoices under the numbers that are proposed, and proposes again when one was taken meanwhile.
void sell(int pipe, unsigned seed) {
  Cashier cashier(pipe, seed, {});
  for (int saved = 0; saved < invoices;) {
    try {
      cashier.saveNew();
      ++saved;
    } catch (const frame::DocNoTaken&) {
    }
  }
}

TEST(TwoTills, NeverGiveANumberTwice) {
  const test::NewCompany company;
  const ReportPipe pipe;
  Process first([&] { sell(pipe.end(), 1); });
  Process second([&] { sell(pipe.end(), 2); });
  EXPECT_EQ(first.status(), 0);
  EXPECT_EQ(second.status(), 0);
  Documents told;
  int begun = 0;
  for (const Report& report : pipe.reports()) {
    if (report.phase == Report::Phase::Begun) ++begun;
    if (report.phase != Report::Phase::Done) continue;
    EXPECT_FALSE(told.contains(report.docNo)) << "number " << report.docNo << " was given twice";
    told[report.docNo] = report.outcome;
  }

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
