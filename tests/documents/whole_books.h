#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

// Questions to the file itself, past the program.
namespace velmo::test {

inline std::int64_t count(sqlite3* file, const char* statement) {
  sqlite3_stmt* rows = nullptr;
  EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(file, statement, -1, &rows, nullptr)) << sqlite3_errmsg(file);
  EXPECT_EQ(SQLITE_ROW, sqlite3_step(rows));
  const std::int64_t result = sqlite3_column_int64(rows, 0);
  sqlite3_finalize(rows);
  return result;
}

// There are no rows that only a torn sale invoice could leave.
inline void expectWholeInvoices(sqlite3* file) {
  EXPECT_EQ(0, count(file,
                     "select count(*) from (select TranNo from SubTransactions group by TranNo having"
                     " abs(total(Debit) - total(Credit)) > 0.005)"));
  EXPECT_EQ(0, count(file,
                     "select count(*) from Transactions t where TranType = 32 and not exists"
                     " (select 1 from SubTransactions s where s.TranNo = t.TranNo)"));
  EXPECT_EQ(0,
            count(file,
                  "select count(*) from Transactions t where TranType = 32 and (Cancel = 0) <>"
                  " (select count(*) = 1 and total(TrAmount) = t.TrAmount from AgingDr a where a.TranNo = t.TranNo)"));
  for (const char* table : {"SubTransactions", "StockFlow", "AgingDr"})
    EXPECT_EQ(0, count(file, ("select count(*) from " + std::string(table) +
                              " where TranNo not in (select TranNo from Transactions)")
                                 .c_str()));
  EXPECT_EQ(0, count(file,
                     "select count(*) from (select TranNo from StockFlow group by TranNo"
                     " having count(*) <> max(Serial) or count(distinct Serial) <> count(*))"));
}

}  // namespace velmo::test
