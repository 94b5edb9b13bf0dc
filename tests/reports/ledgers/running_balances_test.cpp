#include "reports/ledgers/running_balances.h"

#include <sqlite3.h>

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
    store::Recordset all =
        rows("select s.*, t.TranDate, t.FYID, t.Cancel from SubTransactions s, Transactions t where s.TranNo=t.TranNo");
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

// It goes in stretches, of which each is written whole or not at all.
TEST_F(RunningBalances, WorkThatIsStoppedOrFailsKeepsWhatIsWritten) {
  trade(3000);
  const ByLine before = stored();
  const ByLine wanted = expected();
  ASSERT_GT(wanted.size(), 8192U) << "the work reports too seldom to be stopped";
  store::Connection& books = context->KORDconn;
  constexpr int pagesAtOnce = 100;
  constexpr std::int32_t linesOfStretch = pagesAtOnce * 25;
  const auto stopAt = [&](std::size_t report) {
    std::size_t told = 0;
    return writeRunningBalances(
        books, context->FYID, [&](std::int64_t) { return ++told < report; }, pagesAtOnce);
  };
  EXPECT_FALSE(stopAt(1));
  EXPECT_EQ(stored(), before) << "it was stopped as it read";
  std::size_t report = 2;
  while (stored() == before) ASSERT_FALSE(stopAt(report++));
  EXPECT_FALSE(books.inTransaction());
  {
    const test::SmallDisk disk(4096);
    EXPECT_THROW(writeRunningBalances(books, context->FYID, {}, pagesAtOnce), store::StoreError);
  }
  EXPECT_FALSE(books.inTransaction());
  std::map<std::int64_t, bool> writtenBy;  // stretch
  for (const auto& [serial, balance] : stored()) {
    const bool changes = !(before.at(serial) == wanted.at(serial));
    EXPECT_TRUE(balance == wanted.at(serial) || balance == before.at(serial)) << serial;
    if (!changes) continue;
    const auto [stretch, isFirst] = writtenBy.try_emplace(serial / linesOfStretch, balance == wanted.at(serial));
    EXPECT_EQ(stretch->second, balance == wanted.at(serial)) << serial << " is apart from its stretch";
  }
  EXPECT_TRUE(writeRunningBalances(books, context->FYID, {}, pagesAtOnce));
  EXPECT_EQ(stored(), wanted) << "the next pass goes on";
}

// What another program posts meanwhile is found at the end.
TEST_F(RunningBalances, AreRightBesideWhatOthersWrite) {
  trade(3000);
  sqlite3* other = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open("Uninstall/Uninstall.MDB", &other));
  const std::string change =
      "UPDATE SubTransactions SET Debit = 7, Credit = NULL WHERE Serial = (SELECT min(Serial) FROM SubTransactions "
      "WHERE TranNo > 1000 AND AccCode = " +
      std::to_string(accounts[0]) + ")";
  bool changed = false;
  EXPECT_TRUE(writeRunningBalances(
      context->KORDconn, context->FYID,
      [&](std::int64_t) {
        changed = changed || sqlite3_exec(other, change.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
        return true;
      },
      20));
  sqlite3_close(other);
  EXPECT_TRUE(changed);
  EXPECT_EQ(stored(), expected());
}

}  // namespace
}  // namespace velmo::reports
