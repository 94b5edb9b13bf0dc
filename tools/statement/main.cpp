// velmo_statement "<statement>" [<company's file>]: follows a statement of the program's dialect through the stages of
// the compiler, and says how SQLite goes about it. The file is one that ends with ".MDB"; without one, an empty company
// in a folder that goes with the program.

#include <sqlite3.h>

#include <cstdio>
#include <exception>
#include <filesystem>

#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "stages.h"
#include "store/connection/connection.h"
#include "store/sql/bind/bind.h"
#include "store/sql/bind/kept_select.h"
#include "store/sql/bind/pushed_tests.h"
#include "store/sql/emit/emit.h"
#include "store/sql/parse/parse.h"

namespace velmo::statement {
namespace {

namespace fs = std::filesystem;

void say(const char* heading, const std::string& words) {
  std::printf("-- %s\n%s%s\n", heading, words.c_str(), words.empty() || words.back() != '\n' ? "\n" : "");
}

int refused(const store::sql::CompileError& error, std::string_view statement) {
  std::fprintf(stderr, "%s\n", error.describe(statement).c_str());
  return 1;
}

std::string planOf(store::Connection& company, const std::string& sql) {
  sqlite3_stmt* explained = nullptr;
  if (sqlite3_prepare_v2(company.handle(), ("EXPLAIN QUERY PLAN " + sql).c_str(), -1, &explained, nullptr) != SQLITE_OK)
    return sqlite3_errmsg(company.handle());
  std::string plan;
  while (sqlite3_step(explained) == SQLITE_ROW)
    plan += reinterpret_cast<const char*>(sqlite3_column_text(explained, 3)) + std::string("\n");
  sqlite3_finalize(explained);
  return plan;
}

int follow(const std::string& statement, const fs::path& file) {
  const store::Catalog& catalog = schema::companyCatalog();
  const auto tokens = store::sql::tokenize(statement);
  if (!tokens) return refused(tokens.error(), statement);
  say("tokens", wordsOf(*tokens, statement));
  const auto tree = store::sql::parse(*tokens);
  if (!tree) return refused(tree.error(), statement);
  say("tree", wordsOf(*tree));
  auto bound = store::sql::bind(*tree, *tokens, catalog);
  if (!bound) return refused(bound.error(), statement);
  say("bound tree", wordsOf(*bound));
  if (auto* select = std::get_if<store::sql::BoundSelect>(&*bound)) {
    const std::string before = wordsOf(*bound);
    store::sql::pushTests(*select);
    store::sql::readKeptTotals(*select, *tokens, catalog);
    if (wordsOf(*bound) != before) say("bound tree with tests in derived tables and kept totals", wordsOf(*bound));
  }
  const store::sql::CompiledStatement compiled = store::sql::emit(*bound, *tokens);
  say("SQL", compiled.sql);
  std::string parameters;
  for (std::size_t i = 0; i < compiled.parameters.size(); ++i)
    parameters += "?" + std::to_string(i + 1) + " = " + store::textOf(compiled.parameters[i]) + "\n";
  say("parameters", parameters);
  store::Connection company(catalog);
  company.open(schema::connectionStringFor(file));
  say("plan", planOf(company, compiled.sql));
  return 0;
}

class EmptyCompany {
 public:
  EmptyCompany() {
    std::string pattern = (fs::temp_directory_path() / "velmo-statement-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no folder for an empty company");
    folder_ = pattern;
    schema::prepareCompanyFile(schema::connectionStringFor(file()), text::DateTime::fromCalendar(2026, 11, 22));
  }
  ~EmptyCompany() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  EmptyCompany(const EmptyCompany&) = delete;
  EmptyCompany& operator=(const EmptyCompany&) = delete;
  fs::path file() const { return folder_ / "Company.MDB"; }

 private:
  fs::path folder_;
};

}  // namespace
}  // namespace velmo::statement

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2 && argumentCount != 3) {
    std::fprintf(stderr, "usage: velmo_statement \"<statement>\" [<company's file>]\n");
    return 2;
  }
  try {
    if (argumentCount == 3) return velmo::statement::follow(arguments[1], arguments[2]);
    return velmo::statement::follow(arguments[1], velmo::statement::EmptyCompany().file());
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
