#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <random>

#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "schema/open_company.h"
#include "store/recordset/recordset.h"
#include "store/sql/compile.h"
#include "store/sqlite/kept_balances.h"
#include "store/sqlite/kept_totals.h"

namespace velmo::schema {

// Writes documents and lines past the program, as any SQLite program could.
class RandomBooks : public testing::Test {
 protected:
  RandomBooks() {
    run("INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) SELECT 12001100 + value, 'Customer ' || value, "
        "120, 12001 FROM (WITH RECURSIVE n(value) AS (SELECT 1 UNION ALL SELECT value + 1 FROM n WHERE value < 6) "
        "SELECT * FROM n)");
  }

  void run(const std::string& sql) {
    char* message = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(company.connection.handle(), sql.c_str(), nullptr, nullptr, &message))
        << sql << ": " << message;
  }

  int between(int low, int high) { return std::uniform_int_distribution(low, high)(random); }
  std::string oneOf(const std::vector<std::string>& choice) {
    return choice[static_cast<std::size_t>(between(0, static_cast<int>(choice.size()) - 1))];
  }
  std::string anyDay() {
    return between(0, 30) == 0 ? "NULL" : "date('2025-12-29', '+" + std::to_string(between(0, 200)) + " days')";
  }
  std::string anyYear() { return oneOf({"1", "1", "1", "1", "2", "NULL"}); }
  std::string anyType() { return oneOf({"22", "32", "22", "11", "35", "NULL"}); }
  std::string anyAccount() { return between(0, 30) == 0 ? "NULL" : std::to_string(12001101 + between(0, 5)); }
  std::string anyItem() { return oneOf({"NULL", "'A1'", "'B2'", "'C3'", "'Ö9'", "'A1'"}); }
  // Some fit no whole number of ten-thousandths, some are not quite what they show, and large ones may have any fifteen
  // digits.
  std::string anyAmount() {
    if (large && between(0, 3) == 0)
      return oneOf({"0.333333333333333", "123456789012.34", "-99999999999.9999", "100000000000", "999999999999999",
                    "5901234123457"});
    if (between(0, 2) == 0)
      return oneOf({"NULL", "0", "0.1", "12.35", "-7.5", "1000000.01", "99.995", "0.1 + 0.2", "1e-7", "'none'"});
    static constexpr std::array<std::int64_t, 5> limits{999, 99'999, 99'999'999, 99'999'999'999, 999'999'999'999'999};
    const std::int64_t limit = limits[static_cast<std::size_t>(between(0, large ? 4 : limitOfSmall))];
    const std::string digits = std::to_string(std::uniform_int_distribution<std::int64_t>(-limit, limit)(random));
    return digits + "e-" + std::to_string(between(0, 4));
  }
  // Any row of a table by its key.
  std::string anyOf(const std::string& table, const std::string& key) {
    return "(SELECT " + key + " FROM " + table + " ORDER BY (" + key + " * 7919 + " + std::to_string(between(0, 9999)) +
           ") % 104729 LIMIT 1)";
  }
  std::string anyDocument() { return anyOf("Transactions", "TranNo"); }
  std::string anyLedgerLine() { return anyOf("SubTransactions", "Serial"); }
  std::string anyItemLine() { return anyOf("StockFlow", "FlowId"); }
  std::string anyPlace() { return oneOf({"1", "2", "1", "3", "0", "NULL"}); }
  std::string anyQuantity() { return between(0, 3) == 0 ? "NULL" : anyAmount(); }
  // Few of them, so that rows meet.
  std::string anyNumber() { return oneOf({"1", "2", "3", "2", "1", "NULL"}); }
  std::string anyVendorNumber() { return oneOf({"'V1'", "'v1'", "''", "'W2'", "'V1'", "NULL"}); }
  std::string anyInvoiceDay() { return oneOf({"'2026-01-05'", "'2026-01-05'", "'2026-03-01'", "NULL"}); }
  std::string anyOpenAmount() { return oneOf({"0", "0", "100", "0.1", "12.35", "100", anyAmount()}); }
  std::string anyFlag() { return oneOf({"0", "0", "0", "-1"}); }

  void addDocument() {
    run("INSERT INTO Transactions (TranType, TranDate, FYID, Cancel, InvLedger) VALUES (" + anyType() + ", " +
        anyDay() + ", " + anyYear() + ", " + anyFlag() + ", " + anyFlag() + ")");
    for (int line = between(0, 5); line > 0; --line) addLines("(SELECT max(TranNo) FROM Transactions)");
  }
  void addLines(const std::string& document) {
    run("INSERT INTO SubTransactions (TranNo, AccCode, Debit, Credit) VALUES (" + document + ", " + anyAccount() +
        ", " + anyAmount() + ", " + anyAmount() +
        "); INSERT INTO StockFlow (TranNo, LocationID, ItemCode, StockIn, StockOut, ItemValue) VALUES (" + document +
        ", " + anyPlace() + ", " + anyItem() + ", " + anyQuantity() + ", " + anyQuantity() + ", " + anyAmount() + ")");
    for (const char* table : {"AgingDr", "AgingCr"}) addOpenItem(table, document);
  }
  void addOpenItem(const std::string& table, const std::string& document) {
    const bool isBill = table == "AgingCr";
    run("INSERT INTO " + table + " (TranNo, TranType, FYID, PartyCode, DocNo, TranDate, TranDate2, TrAmount, " +
        "TotPayment, Payment" + (isBill ? ", VendorInvNo) VALUES (" : ") VALUES (") + document + ", " +
        oneOf({"32", "22", "11", "38", "29"}) + ", " + anyYear() + ", " + anyAccount() + ", " + anyNumber() + ", " +
        anyInvoiceDay() + ", " + anyDay() + ", " + anyOpenAmount() + ", " + anyOpenAmount() + ", " + anyAmount() +
        (isBill ? ", " + anyVendorNumber() + ")" : ")"));
  }

  void changeAnything() {
    switch (between(0, 15)) {
      case 0:
        return run("DELETE FROM Transactions WHERE TranNo = " + anyDocument());
      case 1:
        return run("DELETE FROM SubTransactions WHERE Serial = " + anyLedgerLine() +
                   "; DELETE FROM StockFlow WHERE FlowId = " + anyItemLine());
      case 2:
        return run("UPDATE Transactions SET Cancel = -1 - Cancel WHERE TranNo = " + anyDocument());
      case 3:
        return run("UPDATE Transactions SET InvLedger = -1 - InvLedger WHERE TranNo = " + anyDocument());
      case 4:
        return run("UPDATE Transactions SET TranDate = " + anyDay() + ", FYID = " + anyYear() +
                   ", TranType = " + anyType() + ", \"Desc\" = 'moved' WHERE TranNo = " + anyDocument());
      case 5:
        return run("UPDATE SubTransactions SET Debit = " + anyAmount() + ", AccCode = " + anyAccount() +
                   " WHERE Serial = " + anyLedgerLine());
      case 6:
        return run("UPDATE StockFlow SET StockIn = " + anyQuantity() + ", StockOut = " + anyQuantity() +
                   ", LocationID = " + anyPlace() + ", ItemValue = " + anyAmount() + ", ItemCode = " + anyItem() +
                   " WHERE FlowId = " + anyItemLine());
      case 7:
        return run("UPDATE SubTransactions SET TranNo = " + anyDocument() + " WHERE Serial = " + anyLedgerLine() +
                   "; UPDATE StockFlow SET TranNo = " + anyDocument() + " WHERE FlowId = " + anyItemLine());
      case 8:
        return run("UPDATE SubTransactions SET Balance = 5, Credit = Credit WHERE TranNo = " + anyDocument());
      case 9:
        return run("UPDATE OR IGNORE StockFlow SET FlowId = FlowId + 100000 WHERE FlowId = " + anyItemLine());
      case 10:
        // A line with a key of its own choice, below those that are added already.
        return run("INSERT OR IGNORE INTO StockFlow (FlowId, TranNo, ItemCode, StockIn) VALUES (" +
                   std::to_string(between(1, 400)) + ", " + anyDocument() + ", 'A1', 3)");
      case 11: {
        const std::string table = oneOf({"AgingDr", "AgingCr"});
        run("UPDATE OR IGNORE " + table + " SET TrAmount = " + anyOpenAmount() + ", DocNo = " + anyNumber() +
            ", TranDate = " + anyInvoiceDay() + ", PartyCode = " + anyAccount() + ", FYID = " + anyYear() +
            " WHERE Serial = " + anyOf(table, "Serial"));
        run("UPDATE " + table + " SET TotPayment = " + anyOpenAmount() + " WHERE Serial = " + anyOf(table, "Serial"));
        return run("DELETE FROM " + table + " WHERE Serial = " + anyOf(table, "Serial"));
      }
      case 12:
        return run("UPDATE AgingCr SET TranNo = " + anyDocument() + ", VendorInvNo = " + anyVendorNumber() +
                   " WHERE Serial = " + anyOf("AgingCr", "Serial"));
      case 13:
        return addLines(anyDocument());
      default:
        return addDocument();
    }
  }

  // Part of the items is in the totals, the rest is to be added.
  void makeBooks() {
    for (int i = 0; i < 70; ++i) addDocument();
    addLater();
    for (int i = 0; i < 50; ++i) addDocument();
  }
  void addLater(std::int64_t atMost = 1000) {
    run("BEGIN");
    for (const store::KeptTotals& totals : companyCatalog().keptTotals())
      store::addLaterLines(company.connection.handle(), totals, atMost);
    run("COMMIT");
  }

  bool areRight() {
    sqlite3* file = company.connection.handle();
    return std::ranges::all_of(companyCatalog().keptTotals(),
                               [&](const store::KeptTotals& totals) { return store::areRight(file, totals); }) &&
           std::ranges::all_of(companyCatalog().keptBalances(),
                               [&](const store::KeptBalances& kept) { return store::areRight(file, kept); });
  }
  bool areKept() {
    sqlite3* file = company.connection.handle();
    return std::ranges::all_of(companyCatalog().keptTotals(),
                               [&](const store::KeptTotals& totals) { return store::areKept(file, totals); }) &&
           std::ranges::all_of(companyCatalog().keptBalances(),
                               [&](const store::KeptBalances& kept) { return store::areKept(file, kept); });
  }

  using Rows = std::vector<std::string>;
  static Rows rowsOf(store::Connection& connection, const std::string& statement) {
    const store::Recordset found(connection, statement, store::LockType::ReadOnly);
    Rows rows;
    for (std::int64_t row = 0; row < found.recordCount(); ++row) {
      std::string line;
      for (int field = 0; field < static_cast<int>(found.fields().size()); ++field) {
        const store::Value value = found.valueAt(row, field);
        line += store::textOf(value) + "|";
      }
      rows.push_back(line);
    }
    return rows;
  }
  std::string planOf(const std::string& statement) {
    const auto compiled = store::sql::compile(statement, companyCatalog());
    EXPECT_TRUE(compiled.has_value()) << statement;
    std::string plan;
    const auto add = [](void* steps, int, char** texts, char**) {
      *static_cast<std::string*>(steps) += std::string(texts[3]) + "\n";
      return 0;
    };
    if (compiled)
      sqlite3_exec(company.connection.handle(), ("EXPLAIN QUERY PLAN " + compiled->sql).c_str(), add, &plan, nullptr);
    return plan;
  }

  void expectSameAsOfLines(const std::string& statement) {
    store::Connection plain{plainCatalog};
    plain.open(connectionStringFor(company.file()));
    const Rows ofLines = rowsOf(plain, statement);
    EXPECT_EQ(rowsOf(company.connection, statement), ofLines) << statement;
    EXPECT_FALSE(ofLines.empty()) << statement;
  }

  std::mt19937 random{20261123};
  bool large = false;
  int limitOfSmall = 3;  // which of the limits amounts keep to otherwise
  test::OpenCompany company;
  store::Catalog plainCatalog{companyCatalog().tables()};
};

}  // namespace velmo::schema
