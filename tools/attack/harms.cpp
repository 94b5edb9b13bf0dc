#include "attack/harms.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "attack/kept_check.h"
#include "attack/risk_places.h"
#include "support/damage.h"

namespace velmo::attack {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t pageSize = 4096;
constexpr int headerSize = 100;
const std::string companyLog = std::string(companyFile) + "-wal";

std::int64_t between(std::mt19937& random, std::int64_t low, std::int64_t high) {
  return std::uniform_int_distribution<std::int64_t>(low, high)(random);
}

std::int64_t sizeOf(const fs::path& file) {
  return static_cast<std::int64_t>(fs::file_size(file));
}

std::string readBytes(const fs::path& file, std::int64_t at, std::int64_t length) {
  std::string bytes(static_cast<std::size_t>(length), '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.seekg(at);
  stream.read(bytes.data(), length);
  return bytes;
}

void writeBytes(const fs::path& file, std::int64_t at, const std::string& bytes) {
  std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
  stream.seekp(at);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string rubbish(std::mt19937& random, std::int64_t length) {
  std::string bytes(static_cast<std::size_t>(length), '\0');
  for (char& each : bytes) each = static_cast<char>(between(random, 0, 255));
  return bytes;
}

void changeOneByte(std::mt19937& random, const fs::path& file, std::int64_t within) {
  const std::int64_t at = between(random, 0, within - 1);
  std::string byte = readBytes(file, at, 1);
  // One bit, or any other value.
  byte[0] =
      static_cast<char>(byte[0] ^ (between(random, 0, 1) == 0 ? 1 << between(random, 0, 7) : between(random, 1, 255)));
  writeBytes(file, at, byte);
}

std::int64_t anyPage(std::mt19937& random) {
  return between(random, 0, sizeOf(companyFile) / pageSize - 1) * pageSize;
}

bool hasLog() {
  return fs::exists(companyLog) && fs::file_size(companyLog) > 0;
}

void overwriteByte(std::mt19937& random) {
  changeOneByte(random, companyFile, sizeOf(companyFile));
}

void overwriteRun(std::mt19937& random) {
  const std::int64_t length = between(random, 2, 600);
  writeBytes(companyFile, between(random, 0, sizeOf(companyFile) - length), rubbish(random, length));
}

void zeroPage(std::mt19937& random) {
  writeBytes(companyFile, anyPage(random), std::string(pageSize, '\0'));
}

void swapPages(std::mt19937& random) {
  const std::int64_t one = anyPage(random), other = anyPage(random);
  const std::string first = readBytes(companyFile, one, pageSize);
  writeBytes(companyFile, one, readBytes(companyFile, other, pageSize));
  writeBytes(companyFile, other, first);
}

// A write that never reached the disk.
void takeOlderPage(std::mt19937& random) {
  std::vector<std::int64_t> changed;
  for (std::int64_t at = 0; at < std::min(sizeOf(companyFile), sizeOf(olderFile)); at += pageSize)
    if (readBytes(companyFile, at, pageSize) != readBytes(olderFile, at, pageSize)) changed.push_back(at);
  if (changed.empty()) return zeroPage(random);
  const std::int64_t at =
      changed[static_cast<std::size_t>(between(random, 0, static_cast<std::int64_t>(changed.size()) - 1))];
  writeBytes(companyFile, at, readBytes(olderFile, at, pageSize));
}

void truncate(std::mt19937& random) {
  std::int64_t length = between(random, 1, sizeOf(companyFile) - 1);
  if (between(random, 0, 1) == 0) length = std::max<std::int64_t>(1, length / pageSize) * pageSize;
  fs::resize_file(companyFile, static_cast<std::uintmax_t>(length));
}

void grow(std::mt19937& random) {
  const std::int64_t length = between(random, 0, 1) == 0 ? between(random, 1, 9000) : between(random, 1, 3) * pageSize;
  std::ofstream(companyFile, std::ios::binary | std::ios::app) << rubbish(random, length);
}

void spoilLog(std::mt19937& random) {
  if (!hasLog()) return overwriteRun(random);
  const std::int64_t length = between(random, 1, 200);
  const std::int64_t size = sizeOf(companyLog);
  if (between(random, 0, 3) == 0)
    fs::resize_file(companyLog, static_cast<std::uintmax_t>(between(random, 1, size - 1)));
  else
    writeBytes(companyLog, between(random, 0, size - length), rubbish(random, length));
}

void spoilHeader(std::mt19937& random) {
  changeOneByte(random, companyFile, headerSize);
}

void past(const std::string& sql) {
  test::past(companyFile, sql);
}

// A condition for one row of a table by its whole key.
std::string anyRow(std::mt19937& random, const std::string& table, const std::string& key) {
  const std::int64_t rows =
      std::max<std::int64_t>(1, std::stoll(test::past(companyFile, "SELECT count(*) FROM " + table)));
  return " WHERE (" + key + ") = (SELECT " + key + " FROM " + table + " LIMIT 1 OFFSET " +
         std::to_string(between(random, 0, rows - 1)) + ")";
}

void changeTotal(std::mt19937& random) {
  struct Kept {
    const char* table;
    const char* key;
    const char* amounts[3];
  };
  static constexpr Kept all[] = {{"AccountDays", "FYID, TranDate, AccCode", {"Debit", "Credit", "Lines"}},
                                 {"AccountMonths", "FYID, AccCode, Month", {"Debit", "Credit", "Lines"}},
                                 {"StockDays", "FYID, TranDate, ItemCode", {"StockIn", "StockOut", "Lines"}},
                                 {"StockMonths", "FYID, ItemCode, Month", {"StockIn", "StockOut", "Lines"}},
                                 {"StockYears", "FYID, ItemCode", {"StockIn", "StockOut", "Lines"}},
                                 {"ReceiptDays", "FYID, TranDate, ItemCode", {"StockIn", "ItemValue", "Lines"}},
                                 {"ReceiptYears", "FYID, ItemCode", {"StockIn", "ItemValue", "Lines"}}};
  const Kept& kept = all[between(random, 0, 6)];
  const std::string amount = kept.amounts[between(random, 0, 2)];
  const std::string row = anyRow(random, kept.table, kept.key);
  if (between(random, 0, 4) == 0)
    past("DELETE FROM " + std::string(kept.table) + row);
  else
    past("UPDATE " + std::string(kept.table) + " SET " + amount + " = " + amount + " + 1" + row);
}

void changeLedgerAmount(std::mt19937& random) {
  static constexpr const char* differences[] = {"0.01", "1", "100", "0.9"};
  const std::string side = between(random, 0, 1) == 0 ? "Debit" : "Credit";
  past("UPDATE SubTransactions SET " + side + " = coalesce(" + side + ", 0) + " + differences[between(random, 0, 3)] +
       anyRow(random, "SubTransactions", "Serial"));
}

// What the triggers of the file would have seen.
void changeLedgerLinePastTotals(std::mt19937& random) {
  const std::string trigger = "AccountTotalsSubTransactionsChanged";
  const std::string sql = test::past(companyFile, "SELECT sql FROM sqlite_schema WHERE name = '" + trigger + "'");
  past("DROP TRIGGER " + trigger + "; UPDATE SubTransactions SET AccCode = AccCode + 1" +
       anyRow(random, "SubTransactions", "Serial") + "; " + sql);
}

void changePastIndex(std::mt19937& random) {
  struct Change {
    const char* index;
    const char* statement;
    const char* table;
    const char* key;
  };
  static constexpr Change all[] = {
      {"SubTransactions_AccCode", "UPDATE SubTransactions SET AccCode = AccCode + 1", "SubTransactions", "Serial"},
      {"SubTransactions_TranNo", "DELETE FROM SubTransactions", "SubTransactions", "Serial"},
      {"StockFlow_ItemCode", "UPDATE StockFlow SET ItemCode = 'Other'", "StockFlow", "FlowId"},
      {"AgingDr_PartyCode", "UPDATE AgingDr SET PartyCode = PartyCode + 1", "AgingDr", "Serial"},
      {"Transactions_TranDate", "UPDATE Transactions SET TranDate = '2026-12-01'", "Transactions", "TranNo"}};
  const Change& change = all[between(random, 0, 4)];
  test::changeBesideIndex(companyFile, change.index, change.statement + anyRow(random, change.table, change.key));
}

void breakRelation(std::mt19937& random) {
  static constexpr const char* statements[][3] = {{"DELETE FROM Transactions", "Transactions", "TranNo"},
                                                  {"UPDATE AgingDr SET TranNo = 987654", "AgingDr", "Serial"},
                                                  {"UPDATE StockFlow SET TranNo = 987654", "StockFlow", "FlowId"},
                                                  {"DELETE FROM AccLevel2", "AccLevel2", "Level2ID"}};
  const auto& [statement, table, key] = statements[between(random, 0, 3)];
  past(statement + anyRow(random, table, key));
}

void replace(const std::string& bytes) {
  fs::remove_all(companyFolder);
  fs::create_directory(companyFolder);
  std::ofstream(companyFile, std::ios::binary) << bytes;
}

void putText(std::mt19937& random) {
  std::string text;
  for (std::int64_t line = between(random, 1, 400); line > 0; --line) text += "Dear Sir or Madam, \n";
  replace(text);
}

void putArchive(std::mt19937& random) {
  replace("PK\x03\x04" + rubbish(random, between(random, 100, 20'000)));
}

void putNothing(std::mt19937&) {
  replace({});
}

void putOtherDatabase(std::mt19937& random) {
  replace({});
  past("CREATE TABLE Songs (Title TEXT); INSERT INTO Songs VALUES ('Yesterday')");
  if (between(random, 0, 1) == 0) past("PRAGMA application_id = 1447382093; PRAGMA user_version = 3");
}

// One without which the program cannot work; it makes kept totals by itself.
void dropTable(std::mt19937& random) {
  std::string tables = " FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite_%'";
  for (const std::string& kept : tablesOfKeptTotals()) tables += " AND name <> '" + kept + "'";
  const std::int64_t number = std::stoll(test::past(companyFile, "SELECT count(*)" + tables));
  past("DROP TABLE \"" +
       test::past(companyFile,
                  "SELECT name" + tables + " LIMIT 1 OFFSET " + std::to_string(between(random, 0, number - 1))) +
       "\"");
}

void makeNewer(std::mt19937& random) {
  past("PRAGMA user_version = " + std::to_string(between(random, 90, 1'000'000)));
}

}  // namespace

const std::vector<Harm>& harms() {
  using enum Harm::Of;
  static const std::vector<Harm> all = {{"one byte", Bytes, overwriteByte},
                                        {"a run of bytes", Bytes, overwriteRun},
                                        {"a page of zeros", Bytes, zeroPage},
                                        {"two pages swapped", Bytes, swapPages},
                                        {"an older page", Bytes, takeOlderPage},
                                        {"a file cut off", Bytes, truncate},
                                        {"rubbish behind the file", Bytes, grow},
                                        {"a damaged log", Bytes, spoilLog},
                                        {"a damaged header", Bytes, spoilHeader},
                                        {"a kept total", Rows, changeTotal},
                                        {"an amount of the ledger", Rows, changeLedgerAmount},
                                        {"an account past the totals", Rows, changeLedgerLinePastTotals},
                                        {"an index unlike its table", Rows, changePastIndex},
                                        {"a broken reference", Rows, breakRelation},
                                        {"a text", Foreign, putText},
                                        {"an archive", Foreign, putArchive},
                                        {"an empty file", Foreign, putNothing},
                                        {"another database", Foreign, putOtherDatabase},
                                        {"a table that is missing", Foreign, dropTable},
                                        {"a newer version", Foreign, makeNewer}};
  return all;
}

}  // namespace velmo::attack
