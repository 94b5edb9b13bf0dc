#include "store/connection/rewrite_rows.h"

#include <sqlite3.h>

#include <algorithm>
#include <exception>
#include <optional>
#include <ranges>

#include "store/connection/connection_impl.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

constexpr const char* pointerKind = "velmo rewriting";

// The rows as the pass comes to them.
class Rewriting {
 public:
  explicit Rewriting(const RowsToRewrite& rows) : rows_(rows) {}

  // Mostly the row behind the one before.
  std::optional<std::size_t> find(std::int64_t key) {
    if (!isAt(key) && !(++at_, isAt(key))) {
      const auto all = std::views::iota(std::size_t{0}, rows_.count);
      at_ = *std::ranges::lower_bound(all, key, {}, rows_.keyOf);
    }
    return isAt(key) ? std::optional(at_) : std::nullopt;
  }
  bool mayGoOn() { return !(stopped = stopped || (rows_.goesOn && !rows_.goesOn())); }
  Value value(std::size_t row, std::size_t column) const { return rows_.valueOf(row, column); }

  bool stopped = false;
  std::exception_ptr failure;

 private:
  bool isAt(std::int64_t key) const { return at_ < rows_.count && rows_.keyOf(at_) == key; }

  const RowsToRewrite& rows_;
  std::size_t at_ = 0;
};

// Runs work for a statement, through which nothing may be thrown.
template <class Work>
void within(sqlite3_context* context, sqlite3_value* pointer, Work work) {
  auto* rewriting = static_cast<Rewriting*>(sqlite3_value_pointer(pointer, pointerKind));
  if (rewriting == nullptr) return sqlite3_result_error(context, "no rows are being rewritten", -1);
  try {
    work(*rewriting);
  } catch (...) {
    rewriting->failure = std::current_exception();
    sqlite3_result_error(context, "failed", -1);
  }
}

// (key, rewriting): whether the row is one of them.
void isRewritten(sqlite3_context* context, int, sqlite3_value** values) {
  within(context, values[1], [&](Rewriting& rewriting) {
    const bool found = rewriting.find(sqlite3_value_int64(values[0])).has_value();
    if (found && !rewriting.mayGoOn()) return sqlite3_result_error(context, "stopped", -1);
    sqlite3_result_int(context, found ? 1 : 0);
  });
}

// (key, column, rewriting)
void newValue(sqlite3_context* context, int, sqlite3_value** values) {
  within(context, values[2], [&](Rewriting& rewriting) {
    const auto row = rewriting.find(sqlite3_value_int64(values[0]));
    if (!row) return;
    const Value value = rewriting.value(*row, static_cast<std::size_t>(sqlite3_value_int(values[1])));
    if (const auto* real = std::get_if<double>(&value)) return sqlite3_result_double(context, *real);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return sqlite3_result_int64(context, *whole);
    if (const auto* yes = std::get_if<bool>(&value)) return sqlite3_result_int(context, *yes ? -1 : 0);
    if (isNull(value)) return;
    const auto* date = std::get_if<text::DateTime>(&value);
    const std::string text = date == nullptr ? std::get<std::string>(value) : date->iso();
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  });
}

}  // namespace

void registerRewriting(sqlite3* database) {
  const int flags = SQLITE_UTF8 | SQLITE_DIRECTONLY;
  if (sqlite3_create_function_v2(database, "velmo_is_rewritten", 2, flags, nullptr, isRewritten, nullptr, nullptr,
                                 nullptr) != SQLITE_OK ||
      sqlite3_create_function_v2(database, "velmo_new_value", 3, flags, nullptr, newValue, nullptr, nullptr, nullptr) !=
          SQLITE_OK)
    throw StoreError(ErrorKind::Failed, "The functions that rewrite rows cannot be registered.");
}

bool rewriteRows(Connection& connection, std::string_view table, std::span<const std::string_view> columns,
                 const RowsToRewrite& rows) {
  if (rows.count == 0) return true;
  const Table* target = connection.catalog().find(table);
  if (target == nullptr || target->key.size() != 1)
    throw StoreError(ErrorKind::Misuse, "Rows of " + std::string(table) + " cannot be rewritten by a key.");
  const std::string key = quotedName(target->key.front());
  std::string sql = "UPDATE " + quotedName(target->name) + " SET ";
  for (std::size_t i = 0; i < columns.size(); ++i)
    sql += (i == 0 ? "" : ", ") + quotedName(columns[i]) + " = velmo_new_value(" + key + ", " + std::to_string(i) +
           ", ?3)";
  sql += " WHERE " + key + " BETWEEN ?1 AND ?2 AND velmo_is_rewritten(" + key + ", ?3)";
  Rewriting rewriting(rows);
  PreparedStatement statement = connection.impl()->prepare(sql);
  statement.bind(1, rows.keyOf(0));
  statement.bind(2, rows.keyOf(rows.count - 1));
  sqlite3_bind_pointer(statement.handle(), 3, &rewriting, pointerKind, nullptr);
  try {
    connection.impl()->write(statement);
  } catch (const StoreError&) {
    if (rewriting.failure) std::rethrow_exception(rewriting.failure);
    if (!rewriting.stopped) throw;
  }
  return !rewriting.stopped;
}

}  // namespace velmo::store
