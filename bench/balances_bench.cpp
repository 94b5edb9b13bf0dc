#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cmath>
#include <stdexcept>

#include "frame/posting/party_balance.h"
#include "large_company_folder.h"
#include "reports/balances/balances_statements.h"
#include "reports/ledgers/ledger_statements.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/recordset/recordset.h"
#include "valuation/closing_stock.h"

namespace velmo::bench {
namespace {

constexpr int fewDocuments = 20000;
constexpr int manyDocuments = 330000;
const text::DateTime from = text::DateTime::fromCalendar(2026, 3, 11);
const text::DateTime to = text::DateTime::fromCalendar(2026, 11, 22);

// The statements as they are, without the kept totals, on the same file and its indexes.
const store::Catalog& plainCatalog() {
  static const store::Catalog catalog(schema::companyCatalog().tables());
  return catalog;
}

class Books {
 public:
  explicit Books(const store::Catalog& catalog = schema::companyCatalog()) : connection(catalog) {
    connection.open(schema::plainConnectionString);
  }

  // Reads to the last row; the sum of a column is the proof.
  double read(const std::string& statement, const char* column) {
    const store::Recordset rows(connection, statement, store::LockType::ReadOnly);
    const int field = rows.fieldIndex(column);
    double sum = 0;
    for (std::int64_t row = 0, count = rows.recordCount(); row < count; ++row)
      sum += std::abs(store::numberOf(rows.valueAt(row, field)));
    return sum;
  }

  store::Connection connection;
};

void requireSame(double ours, double theirs) {
  if (std::abs(ours - theirs) > 0.01 || theirs == 0)
    throw std::logic_error("the two ways differ: " + std::to_string(ours) + " and " + std::to_string(theirs));
}

demo::LargeCompany companyOf(std::int64_t documents) {
  return {.invoices = static_cast<int>(documents), .items = 20000, .accounts = 2000};
}

// The trial balance with the closing stock before it, as the screen reads them, beside the plain statements.
void TrialBalance(benchmark::State& state) {
  enterCompany(companyOf(state.range(0)));
  Books books, plain(plainCatalog());
  const reports::BalancePeriod period{.fyid = 1, .from = from, .to = to};
  const std::string six = reports::sixColumnBalances(period, reports::AllAccounts{});
  const std::string two = reports::twoColumnBalances(period, reports::AllAccounts{});
  const std::string type = reports::sixColumnBalances(period, reports::AccountsOfType{120});
  Durations sixColumns, sixPlain, twoColumns, twoPlain, customers, stock, stockPlain;
  for (auto _ : state) {
    double ours = 0, theirs = 0;
    sixColumns.measure([&] { ours = books.read(six, "CBalance"); });
    sixPlain.measure([&] { theirs = plain.read(six, "CBalance"); });
    requireSame(ours, theirs);
    twoColumns.measure([&] { ours = books.read(two, "Debits"); });
    twoPlain.measure([&] { theirs = plain.read(two, "Debits"); });
    requireSame(ours, theirs);
    customers.measure([&] { benchmark::DoNotOptimize(books.read(type, "CBalance")); });
    stock.measure([&] { ours = valuation::closingStockValue(books.connection, 1, to); });
    stockPlain.measure([&] { theirs = valuation::closingStockValue(plain.connection, 1, to); });
    requireSame(ours, theirs);
  }
  const auto counter = [&](const char* name, double value) { state.counters[name] = value; };
  counter("six_ms", sixColumns.percentile(0.5) * 1e3);
  counter("two_ms", twoColumns.percentile(0.5) * 1e3);
  counter("customers_ms", customers.percentile(0.5) * 1e3);
  counter("stock_ms", stock.percentile(0.5) * 1e3);
  counter("six_times_faster", sixPlain.percentile(0.5) / sixColumns.percentile(0.5));
  counter("two_times_faster", twoPlain.percentile(0.5) / twoColumns.percentile(0.5));
  counter("with_stock_times_faster", (sixPlain.percentile(0.5) + stockPlain.percentile(0.5)) /
                                         (sixColumns.percentile(0.5) + stock.percentile(0.5)));
}
BENCHMARK(TrialBalance)->Arg(fewDocuments)->Arg(manyDocuments)->Iterations(5)->Unit(benchmark::kMillisecond);

// What single accounts are asked for by their ledger, which is that of Sales here, and at a counter, where it is a
// customer's; and the check when a file is opened.
void BalanceOfOneAccount(benchmark::State& state) {
  enterCompany(companyOf(state.range(0)));
  Books books, plain(plainCatalog());
  constexpr std::int64_t sales = 40001001;
  constexpr std::int64_t customer = 12002005;
  const std::string before = reports::broughtForwardStatement(sales, 1, to);
  Durations forward, forwardPlain, party, partyPlain, opened;
  for (auto _ : state) {
    double ours = 0, theirs = 0;
    forward.measure([&] { ours = books.read(before, "OBalance"); });
    forwardPlain.measure([&] { theirs = plain.read(before, "OBalance"); });
    requireSame(ours, theirs);
    party.measure([&] { ours = frame::partyBalance(books.connection, customer, 1).amount; });
    partyPlain.measure([&] { theirs = frame::partyBalance(plain.connection, customer, 1).amount; });
    requireSame(std::abs(ours), std::abs(theirs));
    opened.measure([] { benchmark::DoNotOptimize(Books().connection.isOpen()); });
  }
  state.counters["brought_forward_ms"] = forward.percentile(0.5) * 1e3;
  state.counters["party_balance_ms"] = party.percentile(0.5) * 1e3;
  state.counters["open_ms"] = opened.percentile(0.5) * 1e3;
  state.counters["forward_times_faster"] = forwardPlain.percentile(0.5) / forward.percentile(0.5);
  state.counters["party_times_faster"] = partyPlain.percentile(0.5) / party.percentile(0.5);
}
BENCHMARK(BalanceOfOneAccount)->Arg(fewDocuments)->Arg(manyDocuments)->Iterations(5)->Unit(benchmark::kMillisecond);

// A report that reads every line of the books, beside the sums of SQLite itself.
void GroupedReport(benchmark::State& state) {
  enterCompany(companyOf(state.range(0)));
  Books books;
  const std::string statement =
      "SELECT Transactions.TranType, Sum(IIf(IsNull([debit]),0,[debit])) AS Dr, Sum(IIf(IsNull([credit]),0,[credit])) "
      "AS Cr, Sum(SubTransactions.Debit) - Sum(SubTransactions.Credit) AS Diff FROM Transactions INNER JOIN "
      "SubTransactions ON Transactions.TranNo = SubTransactions.TranNo WHERE Transactions.Cancel = No GROUP BY "
      "Transactions.TranType";
  sqlite3_stmt* byHand = nullptr;
  if (sqlite3_prepare_v2(books.connection.handle(),
                         "SELECT t.TranType, sum(iif(s.Debit IS NULL, 0, s.Debit)), sum(iif(s.Credit IS NULL, 0, "
                         "s.Credit)), sum(s.Debit) - sum(s.Credit) FROM Transactions AS t JOIN SubTransactions AS s ON "
                         "t.TranNo = s.TranNo WHERE t.Cancel = 0 GROUP BY t.TranType",
                         -1, &byHand, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(books.connection.handle()));
  Durations report, plain;
  for (auto _ : state) {
    double ours = 0, theirs = 0;
    report.measure([&] { ours = books.read(statement, "Dr"); });
    plain.measure([&] {
      while (sqlite3_step(byHand) == SQLITE_ROW) theirs += std::abs(sqlite3_column_double(byHand, 1));
      sqlite3_reset(byHand);
    });
    requireSame(ours, theirs);
  }
  sqlite3_finalize(byHand);
  state.counters["report_ms"] = report.percentile(0.5) * 1e3;
  state.counters["by_hand_ms"] = plain.percentile(0.5) * 1e3;
  state.counters["report_to_hand"] = report.percentile(0.5) / plain.percentile(0.5);
}
BENCHMARK(GroupedReport)->Arg(manyDocuments)->Iterations(9)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
