#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace velmo::store {

class StatementCache;

// A prepared statement for one user at a time; goes back to its cache, reset, when let go. Failures throw StoreError.
class PreparedStatement {
 public:
  PreparedStatement(PreparedStatement&& other) noexcept;
  PreparedStatement& operator=(PreparedStatement&& other) noexcept;
  ~PreparedStatement();

  void bind(int index, const Value& value);         // index from 1
  void bindInPlace(int index, const Value& value);  // the value stays where it is until the statement has run
  bool step();                                      // true when there is a row
  void reset();
  sqlite3_stmt* handle() const { return statement_; }

 private:
  friend class StatementCache;
  PreparedStatement(std::shared_ptr<StatementCache> cache, std::string sql, sqlite3_stmt* statement);
  void bind(int index, const Value& value, void (*ofText)(void*));
  void letGo() noexcept;

  std::shared_ptr<StatementCache> cache_;
  std::string sql_;
  sqlite3_stmt* statement_ = nullptr;
};

// The prepared statements of one open file by their SQL text, least recently used ones dropped first.
class StatementCache : public std::enable_shared_from_this<StatementCache> {
 public:
  StatementCache(sqlite3* database, std::string fileName, std::size_t capacity = 200);
  ~StatementCache();
  StatementCache(const StatementCache&) = delete;
  StatementCache& operator=(const StatementCache&) = delete;

  PreparedStatement take(std::string_view sql);
  // Finalizes what is idle and whatever comes back later, so that the file can be closed.
  void shut();
  std::size_t idleCount() const { return idle_.size(); }

  sqlite3* database() const { return database_; }
  const std::string& fileName() const { return fileName_; }

 private:
  friend class PreparedStatement;
  struct Idle {
    std::string sql;
    sqlite3_stmt* statement;
  };
  void giveBack(std::string sql, sqlite3_stmt* statement) noexcept;

  sqlite3* database_;
  std::string fileName_;
  std::size_t capacity_;
  bool shut_ = false;
  std::list<Idle> idle_;  // most recently used first
  std::unordered_map<std::string_view, std::list<Idle>::iterator> bySql_;
};

// The value of a column of the row that a statement stands on, in the store's own types: INTEGER, REAL, TEXT, NULL.
Value columnValue(sqlite3_stmt* statement, int column);

}  // namespace velmo::store
