#include "store/sql/statements.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cctype>

#include "schema/company_schema.h"
#include "store/sql/small_company.h"

namespace velmo::test {
namespace {

std::string lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

// What a command's own text promises, "*" written out from the catalogue.
std::vector<std::string> expectedColumns(const std::string& command) {
  std::vector<std::string> names;
  for (const auto& name : promisedColumns(command)) {
    if (name != "*") {
      names.push_back(lower(name));
      continue;
    }
    const auto start = lower(command).find(" from ") + 6;
    const auto* table = schema::companyCatalog().find(command.substr(start, command.find(' ', start) - start));
    if (table == nullptr) return {"no such table"};
    for (const auto& column : table->columns) names.push_back(lower(column.name));
  }
  return names;
}

std::vector<std::string> lowered(std::vector<std::string> names) {
  for (auto& name : names) name = lower(name);
  return names;
}

TEST(Statements, AreUniqueByName) {
  std::set<std::string> names;
  for (const auto& statement : allStatements()) EXPECT_TRUE(names.insert(statement.name).second) << statement.name;
}

TEST(Statements, CompileRunAndReturnTheColumnsTheyName) {
  const SmallCompany company;
  int selects = 0, withRows = 0;
  for (const auto& [name, text] : allStatements()) {
    SCOPED_TRACE(name);
    for (const auto& command : commandsOf(text)) {
      const auto compiled = store::sql::compile(command, schema::companyCatalog());
      if (!compiled) {
        ADD_FAILURE() << compiled.error().describe(command) << "\n  in " << command;
        continue;
      }
      sqlite3_exec(company.handle(), "SAVEPOINT untouched", nullptr, nullptr, nullptr);
      const Answer answer = company.run(*compiled);
      sqlite3_exec(company.handle(), "ROLLBACK TO untouched; RELEASE untouched", nullptr, nullptr, nullptr);
      EXPECT_EQ(answer.error, "") << command;
      if (compiled->kind != store::sql::StatementKind::Select) continue;
      EXPECT_EQ(lowered(answer.columns), expectedColumns(command));
      std::vector<std::string> described;
      for (const auto& column : compiled->columns) described.push_back(lower(column.name));
      EXPECT_EQ(described, expectedColumns(command));
      ++selects;
      withRows += !answer.rows.empty();
    }
  }
  EXPECT_GT(withRows, selects * 9 / 10) << "the small company leaves too many statements without rows";
}

}  // namespace
}  // namespace velmo::test
