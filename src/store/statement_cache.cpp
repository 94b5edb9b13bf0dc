#include "store/statement_cache.h"

#include <sqlite3.h>

#include <utility>

#include "store/sqlite_error.h"

namespace velmo::store {

PreparedStatement::PreparedStatement(std::shared_ptr<StatementCache> cache, std::string sql, sqlite3_stmt* statement)
    : cache_(std::move(cache)), sql_(std::move(sql)), statement_(statement) {}

PreparedStatement::PreparedStatement(PreparedStatement&& other) noexcept
    : cache_(std::move(other.cache_)),
      sql_(std::move(other.sql_)),
      statement_(std::exchange(other.statement_, nullptr)) {}

PreparedStatement& PreparedStatement::operator=(PreparedStatement&& other) noexcept {
  if (this != &other) {
    letGo();
    cache_ = std::move(other.cache_);
    sql_ = std::move(other.sql_);
    statement_ = std::exchange(other.statement_, nullptr);
  }
  return *this;
}

PreparedStatement::~PreparedStatement() {
  letGo();
}

void PreparedStatement::letGo() noexcept {
  if (statement_ == nullptr) return;
  cache_->giveBack(std::move(sql_), statement_);
  statement_ = nullptr;
}

void PreparedStatement::bind(int index, const Value& value) {
  bind(index, value, SQLITE_TRANSIENT);
}

void PreparedStatement::bindInPlace(int index, const Value& value) {
  bind(index, value, SQLITE_STATIC);
}

void PreparedStatement::bind(int index, const Value& value, void (*ofText)(void*)) {
  struct Binder {
    sqlite3_stmt* statement;
    int index;
    void (*ofText)(void*);
    int operator()(Null) const { return sqlite3_bind_null(statement, index); }
    int operator()(bool yes) const { return sqlite3_bind_int(statement, index, yes ? -1 : 0); }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, index, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
    int operator()(const std::string& text) const {
      return sqlite3_bind_text64(statement, index, text.data(), text.size(), ofText, SQLITE_UTF8);
    }
    int operator()(const text::DateTime& date) const {
      const std::string text = date.iso();
      return sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
  };
  const int code = std::visit(Binder{statement_, index, ofText}, value);
  if (code != SQLITE_OK) throw sqliteError(cache_->database(), code, cache_->fileName());
}

bool PreparedStatement::step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  const StoreError error = sqliteError(cache_->database(), code, cache_->fileName());
  sqlite3_reset(statement_);
  throw error;
}

void PreparedStatement::reset() {
  sqlite3_reset(statement_);
}

StatementCache::StatementCache(sqlite3* database, std::string fileName, std::size_t capacity)
    : database_(database), fileName_(std::move(fileName)), capacity_(capacity) {}

StatementCache::~StatementCache() {
  shut();
}

PreparedStatement StatementCache::take(std::string_view sql) {
  if (shut_) throw StoreError(ErrorKind::Misuse, "The database is closed.");
  if (auto found = bySql_.find(sql); found != bySql_.end()) {
    const auto entry = found->second;
    bySql_.erase(found);
    PreparedStatement taken(shared_from_this(), std::move(entry->sql), entry->statement);
    idle_.erase(entry);
    return taken;
  }
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(database_, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                                      &statement, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database_, code, fileName_);
  return {shared_from_this(), std::string(sql), statement};
}

void StatementCache::giveBack(std::string sql, sqlite3_stmt* statement) noexcept {
  sqlite3_reset(statement);  // the failure it repeats was told when it happened
  sqlite3_clear_bindings(statement);
  if (shut_ || bySql_.contains(sql)) {
    sqlite3_finalize(statement);
    return;
  }
  idle_.push_front({std::move(sql), statement});
  bySql_.emplace(idle_.front().sql, idle_.begin());
  if (idle_.size() > capacity_) {
    bySql_.erase(idle_.back().sql);
    sqlite3_finalize(idle_.back().statement);
    idle_.pop_back();
  }
}

void StatementCache::shut() {
  shut_ = true;
  bySql_.clear();
  for (const Idle& entry : idle_) sqlite3_finalize(entry.statement);
  idle_.clear();
}

Value columnValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return static_cast<std::int64_t>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    case SQLITE_NULL:
      return Null{};
    default: {
      const auto* text = static_cast<const char*>(sqlite3_column_blob(statement, column));
      return std::string(text == nullptr ? "" : text,
                         static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    }
  }
}

}  // namespace velmo::store
