#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <stdexcept>

#include "frame/items/item_history.h"
#include "frame/picking/account_code_box.h"
#include "frame/picking/pick_list.h"
#include "large_company_folder.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"

namespace velmo::bench {
namespace {

// What is typed, key by key: codes, words, wildcards and texts that nothing holds.
const std::vector<std::string> typedTexts = {"hinge", "it0012", "bolt 7", "zzzz", "a", "00", "b%k", "_0_1", "éclair"};

std::vector<std::string> keystrokes() {
  std::vector<std::string> texts;
  for (const std::string& typed : typedTexts)
    for (std::size_t length = 1; length <= typed.size(); ++length) texts.push_back(typed.substr(0, length));
  return texts;
}

int readByHand(sqlite3_stmt* statement, const std::string& typed) {
  const std::string pattern = "%" + typed + "%";
  sqlite3_bind_text(statement, 1, pattern.c_str(), -1, SQLITE_TRANSIENT);
  int rows = 0;
  while (rows < 100 && sqlite3_step(statement) == SQLITE_ROW) ++rows;
  sqlite3_reset(statement);
  return rows;
}

void keystrokeIn(benchmark::State& state, const frame::PickListSource& source, const char* handWritten) {
  enterCompany({.invoices = 200000, .items = 200000, .accounts = 20000});
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
  frame::PickList list(connection, source);
  Durations first, ours, theirs;
  first.measure([&] { list.narrow(""); });
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(connection.handle(), handWritten, -1, &prepared, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(connection.handle()));
  const std::vector<std::string> texts = keystrokes();
  std::size_t next = 0;
  for (auto _ : state) {
    const std::string& typed = texts[next++ % texts.size()];
    std::size_t shown = 0;
    ours.measure([&] {
      list.narrow(typed);
      for (int entry = 0; entry < list.sizeUpTo(100); ++entry) shown += list.display(entry).size();
    });
    benchmark::DoNotOptimize(shown);
    theirs.measure([&] { benchmark::DoNotOptimize(readByHand(prepared, typed)); });
  }
  sqlite3_finalize(prepared);
  state.counters["p95_ms"] = ours.percentile(0.95) * 1e3;
  state.counters["p95_ms_sqlite_like"] = theirs.percentile(0.95) * 1e3;
  state.counters["ratio_p95"] = ours.percentile(0.95) / theirs.percentile(0.95);
  state.counters["first_reading_ms"] = first.mean() * 1e3;
}

void KeystrokeInItemList(benchmark::State& state) {
  keystrokeIn(state, frame::itemSource(),
              "select ItemCode || '  (' || ItemName || ')' as InvItem from StockLevel3 where Status = 0 and InvItem "
              "like ?1 order by ItemCode");
}
BENCHMARK(KeystrokeInItemList)->Iterations(400)->Unit(benchmark::kMillisecond);

void KeystrokeInPartyList(benchmark::State& state) {
  keystrokeIn(state, frame::accountSource("Level1ID=120 or Level1ID=210"),
              "select AccCode || '  ' || AccName as Account from AccLevel3 where (Level1ID=120 or Level1ID=210) and "
              "Account like ?1 order by AccCode");
}
BENCHMARK(KeystrokeInPartyList)->Iterations(400)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
