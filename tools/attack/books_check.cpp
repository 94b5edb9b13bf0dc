#include "attack/books_check.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

#include "schema/company_schema.h"
#include "store/kept_totals.h"

namespace velmo::attack {
namespace {

using Rows = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Rows rowsOf(sqlite3* file, const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(file, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
    throw std::runtime_error(statement + ": " + sqlite3_errmsg(file));
  return {prepared, sqlite3_finalize};
}

// How many there are of what should not be.
struct Fault {
  const char* words;
  std::string count;
};

std::string orphansIn(const std::string& table) {
  return "select count(*) from " + table + " where TranNo not in (select TranNo from Transactions)";
}

std::vector<Fault> faults() {
  return {
      {"documents whose debits are not their credits",
       "select count(*) from (select TranNo from SubTransactions group by TranNo having"
       " abs(total(Debit) - total(Credit)) > 0.005)"},
      {"sale invoices without ledger lines",
       "select count(*) from Transactions t where TranType = 32 and not exists"
       " (select 1 from SubTransactions s where s.TranNo = t.TranNo)"},
      {"sale invoices without their open item, or cancelled ones with one",
       "select count(*) from Transactions t where TranType = 32 and (Cancel = 0) <>"
       " (select count(*) = 1 and total(TrAmount) = t.TrAmount from AgingDr a where a.TranNo = t.TranNo)"},
      {"item lines that are missing or stand twice",
       "select count(*) from (select TranNo from StockFlow group by TranNo"
       " having count(*) <> max(Serial) or count(distinct Serial) <> count(*))"},
      {"numbers that stand twice",
       "select count(*) from (select 1 from Transactions where TranType = 32 group by FYID, DocNo having count(*) > "
       "1)"},
      {"ledger lines of no document", orphansIn("SubTransactions")},
      {"item lines of no document", orphansIn("StockFlow")},
      {"open items of no document", orphansIn("AgingDr")},
      {"faults in the structure of the file",
       "select count(*) from pragma_integrity_check where integrity_check <> 'ok'"},
      {"records that refer to others which are not there", "select count(*) from pragma_foreign_key_check"},
  };
}

}  // namespace

std::int64_t numberIn(sqlite3* file, const std::string& statement) {
  const Rows rows = rowsOf(file, statement);
  if (sqlite3_step(rows.get()) != SQLITE_ROW) throw std::runtime_error(statement + ": " + sqlite3_errmsg(file));
  return sqlite3_column_int64(rows.get(), 0);
}

Documents documentsInFile(sqlite3* file) {
  Documents found;
  const Rows rows = rowsOf(file,
                           "select t.DocNo, (select count(*) from StockFlow s where s.TranNo = t.TranNo), t.TrAmount,"
                           " t.Cancel <> 0 from Transactions t where t.TranType = 32");
  while (sqlite3_step(rows.get()) == SQLITE_ROW)
    found[sqlite3_column_int64(rows.get(), 0)] = {.present = true,
                                                  .lines = sqlite3_column_int64(rows.get(), 1),
                                                  .netTotal = sqlite3_column_double(rows.get(), 2),
                                                  .cancelled = sqlite3_column_int(rows.get(), 3) != 0};
  return found;
}

Problems problemsOfBooks(sqlite3* file) {
  Problems problems;
  for (const Fault& fault : faults())
    if (const std::int64_t found = numberIn(file, fault.count); found != 0)
      problems.push_back(std::to_string(found) + " " + fault.words);
  for (const store::KeptTotals& kept : schema::companyCatalog().keptTotals())
    if (!store::areRight(file, kept))
      problems.push_back("the kept totals " + kept.name + " are not those of the lines");
  return problems;
}

}  // namespace velmo::attack
