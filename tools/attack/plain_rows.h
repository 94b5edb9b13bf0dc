#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace velmo::attack {

// The rows of a statement of plain SQL, one after the other. Every step throws std::runtime_error when the file cannot
// be read.
class PlainRows {
 public:
  PlainRows(sqlite3* file, const std::string& statement);

  bool next();
  int columns() const;
  std::string name(int column) const;
  bool isNull(int column) const;
  bool isNumber(int column) const;
  std::int64_t integer(int column) const;
  double number(int column) const;
  std::string text(int column) const;     // its bytes; "" for none
  std::string written(int column) const;  // with its kind before it, so that 1 and '1' differ

 private:
  sqlite3* file_;
  std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_;
};

}  // namespace velmo::attack
