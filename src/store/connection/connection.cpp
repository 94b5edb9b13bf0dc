#include "store/connection/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

#include "store/connection/connection_impl.h"
#include "store/connection/connection_string.h"
#include "store/sql/parse/statement_shape.h"
#include "store/sqlite/kept_totals.h"
#include "store/sqlite/sqlite_error.h"
#include "text/like.h"

namespace velmo::store {
namespace {

constexpr std::size_t mostShapes = 200;
// Of lines that are added to kept totals: so many are worth the while, and that many are added at once.
constexpr std::int64_t fewestAdded = 500;
constexpr std::int64_t smallestPortion = 32;
constexpr std::int64_t largestPortion = std::numeric_limits<int>::max();

StoreError alreadyUndone() {
  return {ErrorKind::Failed, "The change was undone by the database because of an earlier failure."};
}

}  // namespace

Connection::Impl::~Impl() {
  close();
}

void Connection::Impl::close() noexcept {
  if (database == nullptr) return;
  if (transaction != 0) rollback();
  for (const auto& weak : readers) {
    if (const auto reader = weak.lock()) reader->abandonReading();
  }
  readers.clear();
  shapeByKey.clear();
  shapes.clear();
  if (statements) statements->shut();
  statements.reset();
  sqlite3_close_v2(std::exchange(database, nullptr));
  file.reset();
  harm.reset();
}

void Connection::Impl::requireOpen() const {
  if (database == nullptr) throw StoreError(ErrorKind::Misuse, "The database is closed.");
}

BoundStatement Connection::Impl::compile(std::string_view statement) {
  requireOpen();
  auto refused = [&](const sql::CompileError& error) {
    return StoreError(ErrorKind::Statement, error.describe(statement));
  };
  auto shape = sql::shapeOf(statement);
  if (!shape) throw refused(shape.error());
  if (const auto found = shapeByKey.find(shape->key); found != shapeByKey.end()) {
    shapes.splice(shapes.begin(), shapes, found->second);
    return {.compiled = shapes.front().compiled, .parameters = std::move(shape->parameters)};
  }
  auto compiled = sql::compile(statement, catalog);
  if (!compiled) throw refused(compiled.error());
  std::vector<Value> parameters = std::move(compiled->parameters);
  shapes.push_front(
      {.key = std::move(shape->key), .compiled = std::make_shared<const sql::CompiledStatement>(std::move(*compiled))});
  shapeByKey.emplace(shapes.front().key, shapes.begin());
  if (shapes.size() > mostShapes) {
    shapeByKey.erase(shapes.back().key);
    shapes.pop_back();
  }
  return {.compiled = shapes.front().compiled, .parameters = std::move(parameters)};
}

bool Connection::Impl::insideTransaction() const {
  return sqlite3_get_autocommit(database) == 0;
}

PreparedStatement Connection::Impl::prepare(std::string_view sql) {
  requireOpen();
  return statements->take(sql);
}

void Connection::Impl::run(const char* sql) {
  requireOpen();
  const int code = sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, fileName);
}

std::int64_t Connection::Impl::write(std::string_view sql, const std::vector<Value>& parameters) {
  PreparedStatement statement = prepare(sql);
  for (std::size_t i = 0; i < parameters.size(); ++i) statement.bindInPlace(static_cast<int>(i) + 1, parameters[i]);
  return write(statement);
}

std::int64_t Connection::Impl::write(PreparedStatement& statement) {
  finishReaders();
  if (transaction != 0 && !insideTransaction()) throw alreadyUndone();
  if (insideTransaction()) return run(statement);
  begin();
  try {
    const std::int64_t rows = run(statement);
    commit();
    return rows;
  } catch (...) {
    statement.reset();
    rollback();
    throw;
  }
}

std::int64_t Connection::Impl::run(PreparedStatement& statement) {
  while (statement.step()) {
  }
  statement.reset();
  return sqlite3_changes64(database);
}

// The log stays as it is as well: the next program to open the file takes it up.
void Connection::Impl::refuseWriting() {
  requireOpen();
  harm = StoreError(ErrorKind::Damaged, "The file \"" + fileName +
                                            "\" is damaged. Nothing is saved into it any more. Restore it from a "
                                            "back-up copy.");
  sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

std::optional<StoreError> Connection::Impl::refusalToWrite() {
  if (harm) return harm;
  if (auto displaced = file->displacement()) return displaced;
  if (number("PRAGMA user_version") <= schemaVersion) return std::nullopt;
  return StoreError(ErrorKind::Newer, "The file \"" + fileName +
                                          "\" was brought up to date by a newer version of this program. Nothing was "
                                          "saved. Close this program and start the newer version.");
}

void Connection::Impl::requireInPlace() const {
  if (const auto displaced = file->displacement()) throw *displaced;
}

void Connection::Impl::begin(Lock lock) {
  if (transaction != 0) throw StoreError(ErrorKind::Misuse, "A transaction is open already.");
  if (harm) throw *harm;  // a damaged file may not even let a transaction begin
  finishReaders();
  prepare(lock == Lock::Sole ? "BEGIN EXCLUSIVE" : "BEGIN IMMEDIATE").step();
  if (const auto refusal = refusalToWrite()) {
    sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
    throw *refusal;
  }
  transaction = ++transactionsBegun;
}

void Connection::Impl::commit() {
  if (!insideTransaction()) throw alreadyUndone();
  if (harm) throw *harm;
  requireInPlace();
  prepare("COMMIT").step();
  transaction = 0;
  for (const auto& weak : std::exchange(participants, {})) {
    if (const auto participant = weak.lock()) participant->committed();
  }
}

void Connection::Impl::rollback() noexcept {
  undo();
  transaction = 0;
  changes.noteRollback();
  for (const auto& weak : std::exchange(participants, {})) {
    if (const auto participant = weak.lock()) participant->rolledBack();
  }
}

// A failure here means that the database has undone the transaction by itself.
void Connection::Impl::undo() noexcept {
  for (const auto& weak : readers) {
    if (const auto reader = weak.lock()) reader->abandonReading();
  }
  readers.clear();
  if (insideTransaction()) sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
}

// A result that is being read must not see half of it, and what others write may wait for no idle moment of ours.
bool Connection::Impl::addLaterLines(std::int64_t atMost) {
  const auto isRead = [](const auto& reader) { return !reader.expired(); };
  if (harm || insideTransaction() || std::ranges::any_of(readers, isRead)) return false;
  for (const KeptTotals& kept : catalog.keptTotals()) {
    const std::int64_t left = laterLines(database, kept);
    if (left == 0 || (left < fewestAdded && !isAddingLines)) continue;
    isAddingLines = true;
    return addPortion(kept, atMost);
  }
  return isAddingLines = false;
}

// The disk need not hurry: the lines are there, and what is lost of the totals is added again.
bool Connection::Impl::addPortion(const KeptTotals& kept, std::int64_t atMost) {
  run("PRAGMA synchronous = NORMAL");
  sqlite3_wal_autocheckpoint(database, 0);
  sqlite3_busy_timeout(database, 0);
  bool isDone = sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK;
  try {
    if (isDone && !refusalToWrite()) {
      store::addLaterLines(database, kept, atMost);
      run("COMMIT");
    } else {
      isDone = false;  // told when something is saved
    }
  } catch (...) {
    goBackToWork();
    throw;
  }
  goBackToWork();
  return isDone;
}

void Connection::Impl::goBackToWork() {
  if (insideTransaction()) sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_busy_timeout(database, busyTimeout);
  sqlite3_wal_autocheckpoint(database, logPagesLimit);
  sqlite3_exec(database, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
}

void Connection::Impl::addReader(const std::shared_ptr<OpenReader>& reader) {
  std::erase_if(readers, [](const auto& weak) { return weak.expired(); });
  readers.push_back(reader);
}

void Connection::Impl::finishReaders() {
  for (const auto& weak : std::exchange(readers, {})) {
    if (const auto reader = weak.lock()) reader->finishReading();
  }
}

Connection::Connection(const Catalog& catalog, int newestSchemaVersion)
    : impl_(std::make_shared<Impl>(catalog, newestSchemaVersion)) {}

Connection::Connection(std::shared_ptr<Impl> impl) : impl_(std::move(impl)) {}

Connection::~Connection() {
  close();
}
Connection::Connection(Connection&&) noexcept = default;
Connection& Connection::operator=(Connection&& other) noexcept {
  if (this != &other) {
    close();
    impl_ = std::move(other.impl_);
  }
  return *this;
}

void Connection::open(std::string_view connectionString) {
  const ConnectionString parsed = parseConnectionString(connectionString);
  impl_->open(parsed.dataSource, parsed.password);
}

void Connection::close() {
  if (impl_) impl_->close();
}

bool Connection::isOpen() const {
  return impl_->database != nullptr;
}

Connection Connection::snapshot() const {
  return Connection(impl_->snapshot());
}

bool Connection::addLaterLines(double milliseconds) {
  impl_->requireOpen();
  const auto began = std::chrono::steady_clock::now();
  const bool isDone = impl_->addLaterLines(impl_->portion);
  const double took = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - began).count();
  if (isDone)
    impl_->portion = std::clamp(static_cast<std::int64_t>(static_cast<double>(impl_->portion) * milliseconds / took),
                                impl_->portion / 2, impl_->portion + smallestPortion);
  impl_->portion = std::max(impl_->portion, smallestPortion);
  return isDone;
}

void Connection::checkpoint() {
  impl_->requireOpen();
  while (impl_->addLaterLines(largestPortion)) {
  }
  foldLog();
}

void Connection::foldLog() {
  impl_->requireOpen();
  if (refusesWriting()) return;
  const int code = sqlite3_wal_checkpoint_v2(impl_->database, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
  if (code != SQLITE_OK && code != SQLITE_BUSY && code != SQLITE_LOCKED) {
    throw sqliteError(impl_->database, code, impl_->fileName);
  }
}

void Connection::refuseWriting() {
  impl_->refuseWriting();
}

bool Connection::refusesWriting() const {
  return impl_->harm.has_value();
}

std::int64_t Connection::execute(std::string_view statement) {
  const BoundStatement bound = impl_->compile(statement);
  if (bound.compiled->kind == sql::StatementKind::Select) {
    throw StoreError(ErrorKind::Statement, "A SELECT is opened as a recordset and cannot be executed.");
  }
  const std::int64_t rows = impl_->write(bound.compiled->sql, bound.parameters);
  if (bound.compiled->kind == sql::StatementKind::Delete) {
    for (const std::string& table : bound.compiled->tables) impl_->changes.noteEmptied(table);
  }
  return rows;
}

bool Connection::inTransaction() const {
  return impl_->transaction != 0;
}
const Catalog& Connection::catalog() const {
  return impl_->catalog;
}
std::int64_t Connection::generationOf(std::string_view table) const {
  impl_->requireOpen();
  return impl_->changes.generation(table);
}
std::int64_t Connection::generation() const {
  impl_->requireOpen();
  return impl_->changes.generation();
}

sqlite3* Connection::handle() const {
  return impl_->database;
}

Connection::Transaction::Transaction(Connection& connection) : connection_(connection.impl_) {
  connection_->begin();
  number_ = connection_->transaction;
}

Connection::Transaction::~Transaction() {
  if (isOpen()) connection_->rollback();
}

bool Connection::Transaction::isOpen() const {
  return connection_->transaction == number_;
}

void Connection::Transaction::commit() {
  if (!isOpen()) throw StoreError(ErrorKind::Misuse, "The transaction has ended already.");
  connection_->commit();
}

std::string quoted(std::string_view text) {
  std::string literal = "'";
  for (char c : text) {
    if (c == '\'') literal += '\'';
    literal += c;
  }
  return literal + '\'';
}

std::string quotedWhole(std::string_view text) {
  return store::quoted(text::escapedPattern(text));
}

std::string dateLiteral(const text::DateTime& date) {
  const text::DateTime::Calendar at = date.calendar();
  auto padded = [](int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
  };
  return "#" + padded(at.month, 2) + "-" + padded(at.dayOfMonth, 2) + "-" + padded(at.year, 4) + "#";
}

}  // namespace velmo::store
