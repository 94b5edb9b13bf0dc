#include <sqlite3.h>

#include <QTimer>

#include "disk_clock.h"
#include "valuation/closing_stock.h"
#include "year.h"

namespace velmo::bench {
namespace {

constexpr const char* group = "What the program does by itself";

void run(session::LoginContext& context, const std::string& sql) {
  if (sqlite3_exec(context.KORDconn.handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(context.KORDconn.handle()));
}

// Item lines as of a busy week without an idle moment: the latest ones once more, on the same documents.
void addLines(session::LoginContext& context, int lines) {
  run(context,
      "INSERT INTO StockFlow (TranNo, Serial, ItemCode, ItemName, Packs, PackPcs, StockOut, Unit, Rate, GrossAmt, "
      "ItemValue, LocationID, JobID) SELECT TranNo, Serial, ItemCode, ItemName, Packs, PackPcs, 1, Unit, Rate, Rate, "
      "Rate, LocationID, JobID FROM StockFlow WHERE StockOut > 0 ORDER BY FlowId DESC LIMIT " +
          std::to_string(lines));
}

// The idle moment, in which the totals get their lines, the log is folded in and the checks begin.
void IdleMoment(benchmark::State& state) {
  Year year;
  session::LoginContext& context = year.shell().context();
  auto* idle = year.shell().window().findChild<QTimer*>("IdleTimer");
  const auto fire = [&] { idle->start(0); };
  for (auto _ : state) {
    year.tellStall("an idle moment with checks and nothing to add", fire);
    for (const int lines : {2000, 52000}) {
      addLines(context, lines);
      year.tellStall("an idle moment with " + std::to_string(lines) + " item lines to add", fire, 5);
    }
  }
}
BENCHMARK(IdleMoment)->Iterations(1)->Unit(benchmark::kMillisecond);

// The weighted costs that reports of stock ask for as they open, and the closing stock entry.
void CostsAndClosingStock(benchmark::State& state) {
  Year year;
  session::LoginContext& context = year.shell().context();
  Durations first, unchanged, changed, closing;
  const auto settle = [&](Durations& durations) {
    context.Costs.arm();
    durations.measure([&] { context.Costs.settle(context.KORDconn, context.FYID, context.FinancialYearEnd); });
  };
  for (auto _ : state) {
    settle(first);
    for (int round = 0; round < 5; ++round) {
      settle(unchanged);
      run(context,
          "UPDATE StockFlow SET Rate = Rate + 0.01, ItemValue = ItemValue + 1 WHERE FlowId IN (SELECT FlowId FROM "
          "StockFlow WHERE StockIn > 0 ORDER BY FlowId DESC LIMIT 5)");
      settle(changed);
      const double disk = diskSeconds();
      closing.measure([&] { valuation::postClosingStock(context.KORDconn, context.FYID, context.FinancialYearEnd); });
      state.counters["closing_disk_ms"] = (diskSeconds() - disk) * 1e3;
    }
    tell({.group = group, .name = "costs, the first time in a year", .value = first.mean() * 1e3});
    tell({.group = group, .name = "costs after a bill", .value = changed.percentile(0.5) * 1e3, .goal = 20});
    tell({.group = group, .name = "costs when nothing changed", .value = unchanged.percentile(0.5) * 1e3, .goal = 1});
    tell(
        {.group = group, .name = "closing stock posted", .value = closing.percentile(0.5) * 1e3, .goal = longestStall});
  }
}
BENCHMARK(CostsAndClosingStock)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
