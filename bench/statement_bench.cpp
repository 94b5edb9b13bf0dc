#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <stdexcept>

#include "large_company_folder.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/recordset/recordset.h"
#include "store/sql/compile.h"

namespace velmo::bench {
namespace {

std::string balanceStatement(int account) {
  return "SELECT SubTransactions.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, "
         "Sum(IIf(IsNull([credit]),0,[credit])) AS Credits, [Debits]-[Credits] AS Dif, IIf([Dif]>0,"
         "Format(Abs([Dif]),'Fixed') & ' Dr',Format(Abs([Dif]),'Fixed') & ' Cr') AS PBalance FROM Transactions INNER "
         "JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo GROUP BY SubTransactions.AccCode, "
         "Transactions.Cancel, Transactions.FYID HAVING (((SubTransactions.AccCode)=" +
         std::to_string(account) + ") AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=1))";
}

// The ledgers of all accounts: the longest statement of the program.
const char* const allLedgers =
    "SELECT MainBal.AccCode, [MainBal].[AccName] AS AccountName, MainBal.OpBalance, MainBal.OpStatus, "
    "Last(IIf(IsNull([Balance]),[OpBalance],[Balance])) AS ClBalance, Last(IIf(IsNull([Balance]),[OpStatus],[Status])) "
    "AS ClStatus FROM (SELECT AccLevel3.AccCode, AccLevel3.AccName, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, "
    "Sum(IIf(IsNull([credit]),0,[credit])) AS Credits, [Debits]-[Credits] AS Diff, Abs([diff]) AS OpBalance, "
    "IIf([diff]<0,'Credit','Debit') AS OpStatus FROM AccLevel3 LEFT JOIN [SELECT Transactions.TranDate, "
    "Transactions.Cancel, SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Credit FROM Transactions "
    "INNER "
    "JOIN SubTransactions ON Transactions.TranNo=SubTransactions.TranNo WHERE ((Transactions.TranDate)<#11-01-2026#) "
    "And "
    "(Transactions.FYID)=1 And (Transactions.Cancel)=No]. AS ABal ON AccLevel3.AccCode = ABal.AccCode GROUP BY "
    "AccLevel3.AccCode, AccLevel3.AccName, AccLevel3.Level2ID, AccLevel3.Level1ID HAVING AccLevel3.Level1ID = 120) as "
    "MainBal LEFT JOIN (SELECT SubTransactions.AccCode, Transactions.TranDate, SubTransactions.Serial, "
    "SubTransactions.Balance, SubTransactions.Status FROM Transactions INNER JOIN SubTransactions ON "
    "Transactions.TranNo "
    "= SubTransactions.TranNo Where ((((Transactions.TranDate) >= #11-01-2026#) And (Transactions.TranDate) <= "
    "#11-22-2026#) And ((Transactions.FYID) = 1) And ((Transactions.Cancel) = No)) GROUP BY SubTransactions.AccCode, "
    "Transactions.TranDate, SubTransactions.Serial, SubTransactions.Balance, SubTransactions.Status ORDER BY "
    "SubTransactions.AccCode, Transactions.TranDate, SubTransactions.Serial) as SubBal ON MainBal.AccCode = "
    "SubBal.AccCode GROUP BY MainBal.AccCode, [MainBal].[AccName], MainBal.OpBalance, MainBal.OpStatus Order By "
    "MainBal.AccCode";

void CompileLongestStatement(benchmark::State& state) {
  for (auto _ : state) {
    auto compiled = store::sql::compile(allLedgers, schema::companyCatalog());
    if (!compiled) throw std::logic_error(compiled.error().describe(allLedgers));
    benchmark::DoNotOptimize(compiled);
  }
}
BENCHMARK(CompileLongestStatement)->Unit(benchmark::kMicrosecond);

// One account's balance through the cache of statements, each time with another account, beside the prepared statement
// that the compiler itself makes of it.
void CachedStatement(benchmark::State& state) {
  enterCompany({.invoices = 20000, .items = 2000, .accounts = 2000});
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
  const auto compiled = store::sql::compile(balanceStatement(12001001), schema::companyCatalog());
  if (!compiled) throw std::logic_error("the balance does not compile");
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(connection.handle(), compiled->sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(connection.handle()));
  std::size_t accountParameter = 0;
  for (std::size_t i = 0; i < compiled->parameters.size(); ++i) {
    const store::Value& value = compiled->parameters[i];
    if (store::numberOf(value) == 12001001) accountParameter = i + 1;
    if (const auto* text = std::get_if<std::string>(&value))
      sqlite3_bind_text(prepared, static_cast<int>(i + 1), text->c_str(), -1, SQLITE_TRANSIENT);
    else
      sqlite3_bind_int64(prepared, static_cast<int>(i + 1), store::integerOf(value));
  }
  Durations ours, theirs;
  int account = 0;
  for (auto _ : state) {
    account = (account + 1) % 1000;
    const std::string statement = balanceStatement(12001001 + account);
    double balance = 0;
    ours.measure([&] {
      store::Recordset rows(connection, statement, store::LockType::ReadOnly);
      if (!rows.eof()) balance = rows.number("Dif");
    });
    double byHand = 0;
    theirs.measure([&] {
      sqlite3_bind_int64(prepared, static_cast<int>(accountParameter), 12001001 + account);
      while (sqlite3_step(prepared) == SQLITE_ROW) byHand = sqlite3_column_double(prepared, 3);
      sqlite3_reset(prepared);
    });
    if (balance != byHand) throw std::logic_error("the two balances differ");
  }
  sqlite3_finalize(prepared);
  state.counters["added_us"] = (ours.percentile(0.5) - theirs.percentile(0.5)) * 1e6;
  state.counters["ratio"] = ours.percentile(0.5) / theirs.percentile(0.5);
}
BENCHMARK(CachedStatement)->Iterations(3000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velmo::bench
