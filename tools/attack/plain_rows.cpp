#include "attack/plain_rows.h"

#include <sqlite3.h>

#include <cstdio>
#include <stdexcept>

namespace velmo::attack {
namespace {

sqlite3_stmt* prepared(sqlite3* file, const std::string& statement) {
  sqlite3_stmt* made = nullptr;
  if (sqlite3_prepare_v2(file, statement.c_str(), -1, &made, nullptr) != SQLITE_OK)
    throw std::runtime_error(statement + ": " + sqlite3_errmsg(file));
  return made;
}

}  // namespace

PlainRows::PlainRows(sqlite3* file, const std::string& statement)
    : file_(file), statement_(prepared(file, statement), sqlite3_finalize) {}

bool PlainRows::next() {
  const int code = sqlite3_step(statement_.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE)
    throw std::runtime_error(std::string(sqlite3_sql(statement_.get())) + ": " + sqlite3_errmsg(file_));
  return code == SQLITE_ROW;
}

int PlainRows::columns() const {
  return sqlite3_column_count(statement_.get());
}

std::string PlainRows::name(int column) const {
  return sqlite3_column_name(statement_.get(), column);
}

bool PlainRows::isNull(int column) const {
  return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

bool PlainRows::isNumber(int column) const {
  const int type = sqlite3_column_type(statement_.get(), column);
  return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

std::int64_t PlainRows::integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

double PlainRows::number(int column) const {
  return sqlite3_column_double(statement_.get(), column);
}

std::string PlainRows::text(int column) const {
  const void* bytes = sqlite3_column_blob(statement_.get(), column);
  const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  return bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), length);
}

std::string PlainRows::written(int column) const {
  switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_INTEGER:
      return "i" + std::to_string(integer(column));
    case SQLITE_FLOAT: {
      char digits[32];
      std::snprintf(digits, sizeof digits, "f%.17g", number(column));
      return digits;
    }
    case SQLITE_TEXT:
      return "t" + text(column);
    case SQLITE_BLOB:
      return "b" + text(column);
    default:
      return "n";
  }
}

}  // namespace velmo::attack
