#include "reports/ledgers/running_balances.h"

#include <array>
#include <cmath>
#include <map>
#include <random>
#include <tuple>

#include "reports/ledger_company.h"
#include "support/small_disk.h"

namespace velmo::reports {
namespace {

struct Stored {
  double balance;
  std::string status;
  bool operator==(const Stored&) const = default;
};
void PrintTo(const Stored& stored, std::ostream* out) {
  *out << stored.balance << " " << stored.status;
}
using ByLine = std::map<std::int64_t, Stored>;

class RunningBalances : public test::LedgerCompany {
 protected:
  static constexpr std::array<std::int64_t, 3> accounts{12001002, 12001003, 40001009};

  // A year of documents with several lines of an account on many days; some are cancelled, some of another year, some
  // lines empty, some amounts null. What is stored beforehand is wrong everywhere.
  void trade(int documents) {
    std::mt19937 random(20261122);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    store::Connection& books = context->KORDconn;
    store::Connection::Transaction together(books);
    for (int i = 0; i < documents; ++i) {
      test::LedgerDocument document{
          .day = days[static_cast<std::size_t>(upTo(3))], .lines = {}, .cancelled = upTo(9) == 0};
      for (int line = upTo(4); line >= 0; --line) {
        const double amount = upTo(5) == 0 ? 0 : upTo(99999) / 100.0;
        const bool debit = upTo(1) == 0;
        document.lines.push_back({accounts[static_cast<std::size_t>(upTo(2))], debit ? amount : 0, debit ? 0 : amount});
      }
      const std::int64_t tranNo = post(document);
      if (upTo(9) == 0)
        books.execute("UPDATE Transactions SET FYID = FYID + 1 WHERE TranNo = " + std::to_string(tranNo));
    }
    books.execute("UPDATE SubTransactions SET Credit = Null WHERE Credit = 0 and TranNo > 1000");
    books.execute("UPDATE SubTransactions SET Debit = Null WHERE Debit = 0 and TranNo < 1200");
    books.execute("UPDATE SubTransactions SET Balance = 777, Status = 'Old'");
    together.commit();
  }

  // In hundredths, from the bare rows.
  ByLine expected() {
    using Place = std::tuple<std::int64_t, text::DateTime, std::int64_t>;  // account, day, line
    ByLine result = stored();
    std::map<Place, std::int64_t> lines;
    store::Recordset all = rows(
        "select s.*, t.TranDate, t.FYID, t.Cancel from SubTransactions s, Transactions t where "
        "s.TranNo=t.TranNo");
    for (; !all.eof(); all.moveNext()) {
      const auto cents = [&](const char* side) { return std::llround(all.number(side) * 100); };
      if (all.integer("FYID") != context->FYID || all.integer("Cancel") != 0 ||
          (cents("Debit") == 0 && cents("Credit") == 0))
        continue;
      lines[{all.integer("AccCode"), store::dateOf(all.value("TranDate")), all.integer("Serial")}] =
          cents("Debit") - cents("Credit");
    }
    std::map<std::int64_t, std::int64_t> running;
    for (const auto& [place, hundredths] : lines) {
      const std::int64_t balance = running[std::get<0>(place)] += hundredths;
      result[std::get<2>(place)] = {static_cast<double>(std::abs(balance)) / 100, balance < 0 ? "Credit" : "Debit"};
    }
    return result;
  }
  // Rounded to hundredths.
  ByLine stored() {
    ByLine result;
    store::Recordset all = rows("select Serial, Balance, Status from SubTransactions");
    for (; !all.eof(); all.moveNext())
      result[all.integer("Serial")] = {std::round(all.number("Balance") * 100) / 100, all.text("Status")};
    return result;
  }
  std::int64_t generation() { return context->KORDconn.generationOf("SubTransactions"); }

 private:
  static constexpr std::array days{"03-01-2026", "03-02-2026", "03-02-2026", "12-31-2026"};
};

TEST_F(RunningBalances, StandBehindEveryLineOfTheYear) {
  EXPECT_TRUE(writeRunningBalances(context->KORDconn, context->FYID)) << "a year without documents";
  trade(600);
  const ByLine wanted = expected();
  EXPECT_TRUE(writeRunningBalances(context->KORDconn, context->FYID));
  EXPECT_EQ(stored(), wanted);
  const std::int64_t before = generation();
  EXPECT_TRUE(writeRunningBalances(context->KORDconn, context->FYID));
  EXPECT_EQ(generation(), before) << "lines that are right were written again";
  post({.day = "01-15-2026", .lines = {{accounts[0], 12.34, 0}}});
  const ByLine moved = expected();
  EXPECT_TRUE(writeRunningBalances(context->KORDconn, context->FYID));
  EXPECT_EQ(stored(), moved);
}

TEST_F(RunningBalances, WorkThatIsStoppedOrFailsChangesNothing) {
  trade(3000);
  const ByLine before = stored();
  ASSERT_GT(before.size(), 8192U) << "the work reports too seldom to be stopped";
  std::vector<std::int64_t> told;
  store::Connection& books = context->KORDconn;
  const auto stopAt = [&](std::size_t report) {
    told.clear();
    return writeRunningBalances(books, context->FYID, [&](std::int64_t lines) {
      told.push_back(lines);
      return told.size() < report;
    });
  };
  for (const std::size_t report : {1, 3}) {
    EXPECT_FALSE(stopAt(report));
    EXPECT_EQ(told.size(), report);
    EXPECT_FALSE(books.inTransaction());
    EXPECT_EQ(stored(), before) << "stopped at report " << report;
  }
  EXPECT_GT(told.back(), static_cast<std::int64_t>(expected().size())) << "no stop was among the writes";
  {
    const test::SmallDisk disk(4096);
    EXPECT_THROW(writeRunningBalances(books, context->FYID), store::StoreError);
  }
  EXPECT_FALSE(books.inTransaction());
  EXPECT_EQ(stored(), before) << "the disk was full";
}

}  // namespace
}  // namespace velmo::reports
