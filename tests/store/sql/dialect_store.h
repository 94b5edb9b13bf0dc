#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/sql/compile.h"
#include "store/values/catalog.h"

namespace velmo::test {

// A few rows with nulls, ties, names that clash and letters of several alphabets, in memory, and the compiled
// dialect run over them.
class DialectStore {
 public:
  DialectStore();

  const store::Catalog& catalog() const { return catalog_; }
  // Rows of a select, fields joined by "|", null as "null". A refusal or failure is the one row, after "! ".
  std::vector<std::string> rows(std::string_view statement);
  // The same after a statement that writes.
  std::vector<std::string> rowsAfter(std::string_view change, std::string_view select);
  // The value of one expression.
  std::string value(const std::string& expression);
  std::string plan(std::string_view statement);
  store::sql::CompiledStatement compiled(std::string_view statement) const;  // throws the refusal's sentence

 private:
  void run(const std::string& sql);
  std::vector<std::string> step(const store::sql::CompiledStatement& compiled, const std::string& prefix);

  store::Catalog catalog_;
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
};

}  // namespace velmo::test
