#include "store/sqlite/statement_cache.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "store/sqlite/sqlite_error.h"

namespace velmo::store {

PreparedStatement::PreparedStatement(std::shared_ptr<StatementCache> cache, Entry entry)
    : cache_(std::move(cache)), entry_(entry) {}

PreparedStatement::PreparedStatement(PreparedStatement&& other) noexcept
    : cache_(std::move(other.cache_)), entry_(other.entry_) {}

PreparedStatement& PreparedStatement::operator=(PreparedStatement&& other) noexcept {
  if (this != &other) {
    letGo();
    cache_ = std::move(other.cache_);
    entry_ = other.entry_;
  }
  return *this;
}

PreparedStatement::~PreparedStatement() {
  letGo();
}

void PreparedStatement::letGo() noexcept {
  if (cache_ != nullptr) cache_->giveBack(entry_);
  cache_.reset();
}

void PreparedStatement::bind(int index, const Value& value) {
  bind(index, value, SQLITE_TRANSIENT);
}

void PreparedStatement::bindLiterals(const std::vector<Value>& literals) {
  const std::size_t used = static_cast<std::size_t>(sqlite3_bind_parameter_count(handle()));
  for (std::size_t i = 0; i < std::min(used, literals.size()); ++i) bind(static_cast<int>(i) + 1, literals[i]);
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
  const int code = std::visit(Binder{handle(), index, ofText}, value);
  if (code != SQLITE_OK) throw sqliteError(cache_->database(), code, cache_->fileName());
}

bool PreparedStatement::step() {
  const int code = sqlite3_step(handle());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  const StoreError error = sqliteError(cache_->database(), code, cache_->fileName());
  sqlite3_reset(handle());
  throw error;
}

void PreparedStatement::reset() {
  sqlite3_reset(handle());
}

StatementCache::StatementCache(sqlite3* database, std::string fileName, std::size_t capacity)
    : database_(database), fileName_(std::move(fileName)), capacity_(capacity) {}

StatementCache::~StatementCache() {
  shut();
}

PreparedStatement StatementCache::take(std::string_view sql) {
  if (shut_) throw StoreError(ErrorKind::Misuse, "The database is closed.");
  const auto found = bySql_.find(sql);
  if (found != bySql_.end() && !found->second->taken) {
    entries_.splice(entries_.begin(), entries_, found->second);
    --idle_;
  } else {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database_, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                                        &statement, nullptr);
    if (code != SQLITE_OK) throw sqliteError(database_, code, fileName_);
    entries_.push_front({.sql = std::string(sql), .statement = statement});
    entries_.front().listed = bySql_.emplace(entries_.front().sql, entries_.begin()).second;
  }
  entries_.front().taken = true;
  return {shared_from_this(), entries_.begin()};
}

void StatementCache::giveBack(Entry entry) noexcept {
  sqlite3_reset(entry->statement);  // the failure it repeats was told when it happened
  sqlite3_clear_bindings(entry->statement);
  entry->taken = false;
  if (shut_ || !entry->listed) {
    sqlite3_finalize(entry->statement);
    entries_.erase(entry);
    return;
  }
  if (++idle_ > capacity_) dropOldest();
}

void StatementCache::dropOldest() noexcept {
  const auto oldest = std::find_if(entries_.rbegin(), entries_.rend(), [](const auto& entry) { return !entry.taken; });
  if (oldest == entries_.rend()) return;
  bySql_.erase(oldest->sql);
  sqlite3_finalize(oldest->statement);
  entries_.erase(std::next(oldest).base());
  --idle_;
}

void StatementCache::shut() {
  shut_ = true;
  bySql_.clear();
  idle_ = 0;
  entries_.remove_if([](const CachedStatement& entry) {
    if (!entry.taken) sqlite3_finalize(entry.statement);
    return !entry.taken;
  });
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
