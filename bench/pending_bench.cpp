#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cmath>
#include <stdexcept>

#include "desk.h"
#include "store/recordset/recordset.h"
#include "vouchers/settlement/pending_items.h"

namespace velmo::bench {
namespace {

constexpr std::int64_t customer = 12001001;

// 20,000 invoices of one customer, every tenth of them still open.
void giveInvoicesTo(store::Connection& connection) {
  const std::string first = " WHERE DocNo <= 20000";
  connection.execute("UPDATE AgingDr SET PartyCode = " + std::to_string(customer) + first);
  connection.execute("UPDATE AgingDr SET TotPayment = TrAmount" + first + " AND DocNo Mod 10 <> 0");
}

struct Pending {
  std::int64_t invoices = 0;
  double balance = 0;
};

Pending readThrough(store::Connection& connection, const std::string& statement) {
  const store::Recordset rows(connection, statement, store::LockType::ReadOnly);
  const int balance = rows.fieldIndex("BalAmt");
  Pending pending{.invoices = rows.recordCount()};
  for (std::int64_t row = 0; row < pending.invoices; ++row)
    pending.balance += store::numberOf(rows.valueAt(row, balance));
  return pending;
}

// The same rows as one would write it for SQLite: the customer's own rows once through the index, grouped.
const char* const byHandSql =
    "select max(case when a.TranType in (11,31,32) then a.TranNo end), a.DocNo, a.TranDate, a.PartyCode, "
    "sum(a.TrAmount), sum(a.\"Return\"), sum(a.Payment), sum(a.WHTax), sum(a.AdvAdj), sum(a.Discount), "
    "sum(a.TotPayment), sum(a.TrAmount) - sum(a.TotPayment) as Open from AgingDr a join Transactions t on t.TranNo "
    "= a.TranNo where a.PartyCode = ?1 and a.FYID = 1 and t.Cancel = 0 group by a.DocNo, a.TranDate having Open > 0 "
    "and max(a.TranType in (11,31,32)) order by a.TranDate, a.DocNo";

// What is typed needs no more of an invoice than what is open of it.
const char* const typedByHandSql =
    "select max(case when a.TranType in (11,31,32) then a.TranNo end), a.DocNo, a.TranDate, a.PartyCode, "
    "sum(a.TrAmount), sum(a.TrAmount) - sum(a.TotPayment) as Open from AgingDr a join Transactions t on t.TranNo = "
    "a.TranNo where a.PartyCode = ?1 and a.FYID = 1 and t.Cancel = 0 group by a.DocNo, a.TranDate having Open > 0 and "
    "max(a.TranType in (11,31,32)) order by a.TranDate, a.DocNo";

sqlite3_stmt* prepared(store::Connection& connection, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection.handle(), sql, -1, &statement, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(connection.handle()));
  return statement;
}

Pending byHand(sqlite3_stmt* statement) {
  Pending pending;
  sqlite3_bind_int64(statement, 1, customer);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    ++pending.invoices;
    const int columns = sqlite3_column_count(statement);
    for (int column = 0; column < columns; ++column) benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
    pending.balance += sqlite3_column_double(statement, columns - 1);
  }
  sqlite3_reset(statement);
  return pending;
}

// The open invoices of a customer with 2,000 open of 20,000, among 200,000 invoices of 1,000,000 ledger lines: read to
// the last row, as a share of what the hand-written statement takes.
void PendingInvoices(benchmark::State& state) {
  Desk desk;
  store::Connection& connection = desk.context().KORDconn;
  giveInvoicesTo(connection);
  sqlite3_stmt* const hand = prepared(connection, byHandSql);
  sqlite3_stmt* const typedHand = prepared(connection, typedByHandSql);
  const auto& kind = vouchers::cashReceipts();
  Durations list, typed, theirs, typedTheirs;
  for (auto _ : state) {
    Pending shown, found, expected, expectedTyped;
    theirs.measure([&] { expected = byHand(hand); });
    typedTheirs.measure([&] { expectedTyped = byHand(typedHand); });
    list.measure([&] { shown = readThrough(connection, vouchers::pendingListStatement(kind, customer, 1)); });
    typed.measure([&] { found = readThrough(connection, vouchers::pendingStatement(kind, customer, 1)); });
    for (const Pending& ours : {shown, found, expectedTyped})
      if (ours.invoices != expected.invoices || std::abs(ours.balance - expected.balance) > 0.005)
        throw std::logic_error("the two ways differ: " + std::to_string(ours.invoices) + " invoices with " +
                               std::to_string(ours.balance) + ", by hand " + std::to_string(expected.invoices) +
                               " with " + std::to_string(expected.balance));
  }
  sqlite3_finalize(hand);
  sqlite3_finalize(typedHand);
  state.counters["list_ms"] = list.percentile(0.5) * 1e3;
  state.counters["typed_ms"] = typed.percentile(0.5) * 1e3;
  state.counters["typed_by_hand_ms"] = typedTheirs.percentile(0.5) * 1e3;
  state.counters["by_hand_ms"] = theirs.percentile(0.5) * 1e3;
  state.counters["list_to_hand"] = list.percentile(0.5) / theirs.percentile(0.5);
  state.counters["typed_to_hand"] = typed.percentile(0.5) / typedTheirs.percentile(0.5);
}
BENCHMARK(PendingInvoices)->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
