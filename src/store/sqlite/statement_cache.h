#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/values/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace velmo::store {

class StatementCache;

// A statement that its cache prepared.
struct CachedStatement {
  std::string sql;
  sqlite3_stmt* statement = nullptr;
  bool taken = false;
  bool listed = false;  // found by its text; not when the same text was taken already
};

// A prepared statement for one user at a time; goes back to its cache, reset, when let go. Failures throw StoreError.
class PreparedStatement {
 public:
  PreparedStatement(PreparedStatement&& other) noexcept;
  PreparedStatement& operator=(PreparedStatement&& other) noexcept;
  ~PreparedStatement();

  void bind(int index, const Value& value);               // index from 1
  void bindInPlace(int index, const Value& value);        // the value stays where it is until the statement has run
  void bindLiterals(const std::vector<Value>& literals);  // of a compiled statement, which may have no use for some
  bool step();                                            // true when there is a row
  void reset();
  sqlite3_stmt* handle() const { return entry_->statement; }

 private:
  friend class StatementCache;
  using Entry = std::list<CachedStatement>::iterator;
  PreparedStatement(std::shared_ptr<StatementCache> cache, Entry entry);
  void bind(int index, const Value& value, void (*ofText)(void*));
  void letGo() noexcept;

  std::shared_ptr<StatementCache> cache_;  // nullptr when moved from
  Entry entry_;
};

// The prepared statements of one open file by their SQL text; of those that are not in use, the least recently used
// ones are dropped first.
class StatementCache : public std::enable_shared_from_this<StatementCache> {
 public:
  StatementCache(sqlite3* database, std::string fileName, std::size_t capacity = 200);
  ~StatementCache();
  StatementCache(const StatementCache&) = delete;
  StatementCache& operator=(const StatementCache&) = delete;

  PreparedStatement take(std::string_view sql);
  // Finalizes what is idle and whatever comes back later, so that the file can be closed.
  void shut();
  sqlite3* database() const { return database_; }
  const std::string& fileName() const { return fileName_; }

 private:
  friend class PreparedStatement;
  using Entry = std::list<CachedStatement>::iterator;
  void giveBack(Entry entry) noexcept;
  void dropOldest() noexcept;

  sqlite3* database_;
  std::string fileName_;
  std::size_t capacity_;
  std::size_t idle_ = 0;
  bool shut_ = false;
  std::list<CachedStatement> entries_;  // most recently used first
  std::unordered_map<std::string_view, Entry> bySql_;
};

// The value of a column of the row that a statement stands on, in the store's own types: INTEGER, REAL, TEXT, NULL.
Value columnValue(sqlite3_stmt* statement, int column);

}  // namespace velmo::store
