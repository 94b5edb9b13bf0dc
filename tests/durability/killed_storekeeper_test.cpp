#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <random>

#include "attack/process.h"
#include "documents/stock/stock_desk.h"
#include "support/new_company.h"
#include "support/plain_rows.h"

namespace velmo::attack {
namespace {

const text::DateTime workTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

// Adds, reduces and moves stock, every third time in a document that is there.
void workWithoutEnd(unsigned seed) {
  session::LoginContext context(schema::companyCatalog());
  context.KORDconn.open(schema::plainConnectionString);
  context.FYID = context.UserID = context.stocklocationid = 1;
  std::mt19937 random(seed);
  const auto pick = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  test::StockDesk desks[] = {{context, documents::inventoryTransfersType()},
                             {context, documents::addInventoryType()},
                             {context, documents::reduceInventoryType()}};
  std::int64_t last[3] = {};
  for (int step = 0;; ++step) {
    const int kind = pick(3);
    std::vector<test::StockLine> lines(static_cast<std::size_t>(1 + pick(12)),
                                       {.code = "H1", .quantity = 1.0 + pick(9), .rate = 2.5});
    desks[kind].prepare(step % 3 == 0 ? last[kind] : 0, test::stockValues(workTime.date(), 1, 2), lines);
    last[kind] = desks[kind].post(workTime);
  }
}

// Torn documents, as anybody sees them who only adds up: the header's total is that of the lines that a person typed,
// what leaves arrives, and the ledger has both sides.
std::vector<std::string> torn(test::PlainFile& file) {
  return test::plainTexts(
      file,
      "with doc as (select t.TranNo, t.TranType, t.TrAmount, (select coalesce(sum(GrossAmt), 0) from StockFlow s where "
      "s.TranNo = t.TranNo and (t.TranType <> 43 or StockOut is not null)) as Gross, (select count(*) from StockFlow s "
      "where s.TranNo = t.TranNo and StockOut is not null) as Outs, (select count(*) from StockFlow s where s.TranNo = "
      "t.TranNo and StockIn is not null) as Ins, (select count(*) from SubTransactions l where l.TranNo = t.TranNo) as "
      "Ledger, (select coalesce(sum(Debit), 0) from SubTransactions l where l.TranNo = t.TranNo) as Debits, (select "
      "coalesce(sum(Credit), 0) from SubTransactions l where l.TranNo = t.TranNo) as Credits from Transactions t where "
      "t.TranType in (43, 45, 47)) select * from doc where abs(TrAmount - Gross) > 0.001 or (TranType = 43 and (Outs "
      "<> Ins or Ledger <> 0)) or (TranType <> 43 and (Ledger <> 2 or abs(Debits - TrAmount) > 0.001 or abs(Credits - "
      "TrAmount) > 0.001)) or Outs + Ins = 0");
}

TEST(StockAfterKill, EveryDocumentIsThereWholeOrNotAtAll) {
  const test::NewCompany company;
  std::mt19937 random(20261122);
  std::int64_t before = 0;
  int grown = 0;
  for (int kill = 0; kill < 60 && !testing::Test::HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    Process program([seed = static_cast<unsigned>(random())] { workWithoutEnd(seed); });
    ::usleep(static_cast<useconds_t>(std::uniform_int_distribution(10000, 90000)(random)));
    program.send(SIGKILL);
    EXPECT_EQ(program.status(), -SIGKILL) << "it ended by itself";
    test::PlainFile file("Uninstall/Uninstall.MDB");
    EXPECT_EQ(torn(file), std::vector<std::string>{});
    const std::int64_t now = std::stoll(test::plainTexts(file, "select count(*) from Transactions").front());
    grown += now > before ? 1 : 0;
    before = now;
  }
  EXPECT_GT(grown, 10) << "the kills missed the saves";
}

}  // namespace
}  // namespace velmo::attack
