#pragma once

#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

// What a program without a store of its own would do, to measure ours beside it.
namespace velmo::bench {

// A prepared statement bound from left to right, without a copy of any text.
class HandStatement {
 public:
  HandStatement(sqlite3* database, const char* sql) : database_(database) {
    if (sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr) != SQLITE_OK) fail();
  }
  ~HandStatement() { sqlite3_finalize(statement_); }
  HandStatement(const HandStatement&) = delete;
  HandStatement& operator=(const HandStatement&) = delete;

  template <class... Values>
  void run(const Values&... values) {
    int index = 0;
    (bind(++index, values), ...);
    if (sqlite3_step(statement_) != SQLITE_DONE) fail();
    sqlite3_reset(statement_);
  }

 private:
  void bind(int index, std::int64_t number) { sqlite3_bind_int64(statement_, index, number); }
  void bind(int index, double number) { sqlite3_bind_double(statement_, index, number); }
  void bind(int index, std::nullptr_t) { sqlite3_bind_null(statement_, index); }
  void bind(int index, std::string_view text) {
    sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  [[noreturn]] void fail() const { throw std::runtime_error(sqlite3_errmsg(database_)); }

  sqlite3* database_;
  sqlite3_stmt* statement_ = nullptr;
};

// Throws unless the two files hold the same rows, keys included, in every one of the tables.
inline void requireSameRows(sqlite3* ours, const std::filesystem::path& theirs,
                            std::initializer_list<const char*> tables) {
  const auto run = [&](const std::string& sql, int* result) {
    const auto take = [](void* place, int, char** values, char**) {
      *static_cast<int*>(place) = std::atoi(values[0]);
      return 0;
    };
    if (sqlite3_exec(ours, sql.c_str(), take, result, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(ours));
  };
  int differences = 0;
  run("attach '" + theirs.string() + "' as hand", nullptr);
  for (const std::string table : tables) {
    const std::string here = "select * from main." + table, there = "select * from hand." + table;
    run("select count(*) from (select * from (" + here + " except " + there + ") union all select * from (" + there +
            " except " + here + "))",
        &differences);
    if (differences != 0) throw std::logic_error("the two ways differ in " + table);
  }
  run("detach hand", nullptr);
}

}  // namespace velmo::bench
