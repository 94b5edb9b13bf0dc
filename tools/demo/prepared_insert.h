#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velmo::demo {

// One INSERT that is run many times. Throws std::runtime_error when SQLite refuses.
class PreparedInsert {
 public:
  // The columns as they stand between the parentheses of the statement; null columns need not be named.
  PreparedInsert(sqlite3* database, const std::string& table, const std::string& columns) : database_(database) {
    std::string places = "?";
    for (const char character : columns)
      if (character == ',') places += ",?";
    const std::string sql = "INSERT INTO " + table + " (" + columns + ") VALUES (" + places + ")";
    if (sqlite3_prepare_v2(database, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK) fail();
  }
  ~PreparedInsert() { sqlite3_finalize(statement_); }
  PreparedInsert(const PreparedInsert&) = delete;
  PreparedInsert& operator=(const PreparedInsert&) = delete;

  template <typename... Values>
  void run(const Values&... values) {
    int place = 0;
    (bind(++place, values), ...);
    if (sqlite3_step(statement_) != SQLITE_DONE) fail();
    sqlite3_reset(statement_);
  }

 private:
  void bind(int place, std::int64_t value) { sqlite3_bind_int64(statement_, place, value); }
  void bind(int place, int value) { sqlite3_bind_int64(statement_, place, value); }
  void bind(int place, double value) { sqlite3_bind_double(statement_, place, value); }
  void bind(int place, std::nullptr_t) { sqlite3_bind_null(statement_, place); }
  void bind(int place, std::string_view value) {
    sqlite3_bind_text(statement_, place, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT);
  }
  [[noreturn]] void fail() const { throw std::runtime_error(sqlite3_errmsg(database_)); }

  sqlite3* database_;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace velmo::demo
