#pragma once

#include <sqlite3.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace velmo::test {

// A company file read with SQLite alone, past the program.
class PlainFile {
 public:
  explicit PlainFile(const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    const int outcome = sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    database_.reset(database);
    if (outcome != SQLITE_OK) fail();
  }
  void run(const std::string& sql) {
    if (sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail();
  }
  sqlite3* handle() { return database_.get(); }
  [[noreturn]] void fail() const { throw std::runtime_error(sqlite3_errmsg(database_.get())); }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  std::unique_ptr<sqlite3, Close> database_;
};

// The rows of a SELECT; columns are numbered from 0. Null is 0 and "".
class PlainRows {
 public:
  PlainRows(PlainFile& file, const std::string& sql) : file_(file) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(file.handle(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) file.fail();
    statement_.reset(statement);
  }
  bool next() {
    const int outcome = sqlite3_step(statement_.get());
    if (outcome != SQLITE_ROW && outcome != SQLITE_DONE) file_.fail();
    return outcome == SQLITE_ROW;
  }
  int columns() const { return sqlite3_column_count(statement_.get()); }
  std::int64_t integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }
  double number(int column) const { return sqlite3_column_double(statement_.get(), column); }
  std::string text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    return text ? text : "";
  }
  // Of the 15 digits that an amount is known by. Throws when it is not one of whole cents.
  std::int64_t cents(int column) const {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.15g", number(column));
    const long double amount = std::strtold(digits, nullptr) * 100;
    if (std::abs(amount - std::round(amount)) > 1e-4L) throw std::runtime_error("not cents: " + text(column));
    return std::llround(amount);
  }

 private:
  struct Finish {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  PlainFile& file_;
  std::unique_ptr<sqlite3_stmt, Finish> statement_;
};

// All rows of a SELECT, one text each, fields parted by "|".
inline std::vector<std::string> plainTexts(PlainFile& file, const std::string& sql) {
  std::vector<std::string> all;
  for (PlainRows rows(file, sql); rows.next();) {
    std::string row;
    for (int column = 0; column < rows.columns(); ++column) row += (column == 0 ? "" : "|") + rows.text(column);
    all.push_back(row);
  }
  return all;
}

// The sums of its columns in cents, of amounts that are all of whole cents.
inline std::vector<std::int64_t> plainSums(PlainFile& file, const std::string& sql) {
  PlainRows rows(file, sql);
  std::vector<std::int64_t> sums(static_cast<std::size_t>(rows.columns()));
  while (rows.next())
    for (int column = 0; column < rows.columns(); ++column)
      sums[static_cast<std::size_t>(column)] += rows.cents(column);
  return sums;
}

}  // namespace velmo::test
