#pragma once

#include <string>
#include <vector>

#include "store/sql/compile.h"

struct sqlite3;

namespace velmo::test {

// Every cell as one text that tells type and value apart: null, 5, 2.5, 'text'.
struct Answer {
  std::vector<std::string> columns;
  std::vector<std::vector<std::string>> rows;
  std::string error;  // of a statement that failed; "" otherwise

  std::string describe() const;
};

// A fixed company in memory with two years: five parties of which two differ by case and a trailing blank alone,
// items with quotes, patterns and null prices in them, and documents of nearly every type, cancelled, empty, tied and
// on the edges of the year among them. Year 2 runs from 2025-07-01 to 2026-06-30.
class SmallCompany {
 public:
  SmallCompany();
  ~SmallCompany();
  SmallCompany(const SmallCompany&) = delete;
  SmallCompany& operator=(const SmallCompany&) = delete;

  sqlite3* handle() const { return handle_; }
  Answer run(const store::sql::CompiledStatement& compiled) const;
  Answer compileAndRun(std::string_view statement) const;
  Answer runPlain(std::string_view sql) const;  // SQLite's own language

 private:
  sqlite3* handle_ = nullptr;
};

}  // namespace velmo::test
