#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <sstream>

#include "schema/company_schema.h"
#include "store/sql/emission_audit.h"
#include "store/sql/random_select.h"
#include "store/sql/small_company.h"
#include "store/sql/statements.h"
#include "support/dice.h"

namespace velmo::test {
namespace {

bool isWordByte(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || static_cast<signed char>(c) < 0;
}

// Words, quoted texts, dates, two-sign operators and single signs; blanks stay pieces of their own.
std::vector<std::string> piecesOf(std::string_view text) {
  std::vector<std::string> pieces;
  while (!text.empty()) {
    std::size_t length = 1;
    if (isWordByte(text[0]))
      while (length < text.size() && isWordByte(text[length])) ++length;
    else if (text[0] == '\'' || text[0] == '#')
      length = std::min(text.find(text[0], 1), text.size() - 1) + 1;
    else if (text.starts_with("<=") || text.starts_with(">=") || text.starts_with("<>") || text.starts_with("]."))
      length = 2;
    pieces.emplace_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return pieces;
}

// Parts that do not belong where they land, between bars.
const std::vector<std::string>& hostile() {
  static const std::vector<std::string> parts = [] {
    std::vector<std::string> split = {std::string("\0", 1),
                                      std::string("a\0b", 3),
                                      "\xff\xfe",
                                      "\xc3",
                                      "\xf8\x88\x80\x80\x80",
                                      "\u00A0",
                                      "\u2028",
                                      "\u212A"};
    std::istringstream list(
        R"('|''|"|#|#13-45-2025#|#2-30-2025#|#1-1-99999#|[|]|].|(|)|,|.|!|;|--|/*|*/|\|^|&|*|- -|-Yes|-(1>0)|0/0|1e309|)"
        R"(9223372036854775808|-9223372036854775808|1e-400|1..2|select|union|union all select 1|from|exists (select 1)|)"
        R"((select 1)|case when 1 then 2 end|sqlite_version()|load_extension('x')|randomblob(1000000000)|sqlite_master|)"
        R"(rowid|oid|pragma|attach|collate binary|?1|:a|@x|$y|x'00'|IIf(|Not|Yes|Null|is not null|like '%'|like '['|in ()|)"
        R"(between|TOP 0|TOP 99999999999999999999|TOP -1|distinct|[row order]|["]|[a.b]|Last(|Count(*)|Sum(|Users|Users.*|)"
        R"('; DROP TABLE Users; --|"x" OR 1=1|as|order by 1|order by -Yes)");
    for (std::string part; std::getline(list, part, '|');) split.push_back(part);
    return split;
  }();
  return parts;
}

std::string nested(Dice& dice, const std::string& inner) {
  const std::pair<const char*, const char*> wraps[] = {{"(", ")"},    {"-", ""},     {"Not ", ""}, {"IIf(1>0,", ",0)"},
                                                       {"Abs(", ")"}, {"0+", ""},    {"''&", ""},  {"(SELECT ", ")"},
                                                       {"1^", ""},    {"a And ", ""}};
  const auto& [before, after] = wraps[dice.below(std::size(wraps))];
  const std::size_t depths[] = {3, 60, 400, 20000};
  const std::size_t depth = depths[dice.below(std::size(depths))];
  std::string text;
  for (std::size_t i = 0; i < depth; ++i) text += before;
  text += inner;
  for (std::size_t i = 0; i < depth; ++i) text += after;
  return text;
}

std::string mutated(Dice& dice, const std::vector<std::vector<std::string>>& corpus) {
  auto pieces = dice.oneOf(corpus);
  for (std::size_t change = 1 + dice.below(3); change > 0 && !pieces.empty(); --change) {
    const std::size_t at = dice.below(pieces.size());
    const auto here = pieces.begin() + static_cast<std::ptrdiff_t>(at);
    const auto& other = dice.oneOf(corpus);
    switch (dice.below(10)) {
      case 0:
        pieces.erase(here);
        break;
      case 1:
        pieces.insert(here, pieces[at]);
        break;
      case 2:
        std::swap(*here, pieces[dice.below(pieces.size())]);
        break;
      case 3:
        *here = dice.oneOf(hostile());
        break;
      case 4:
        pieces.insert(here, dice.oneOf(hostile()));
        break;
      case 5:
      case 6:
        *here = dice.oneOf(other);
        break;
      case 7:
        pieces.resize(at);
        pieces.insert(pieces.end(), other.begin() + static_cast<std::ptrdiff_t>(dice.below(other.size())), other.end());
        break;
      case 8:
        if (dice.oneIn(8)) *here = nested(dice, *here);
        break;
      default:
        pieces.resize(at + 1);
        break;
    }
  }
  std::string text;
  for (const auto& piece : pieces) text += piece;
  return text;
}

class StatementFuzz : public testing::Test {
 protected:
  // Whether the statement was accepted.
  bool tries(const std::string& statement) {
    const auto compiled = store::sql::compile(statement, schema::companyCatalog());
    if (!compiled) {
      const auto& error = compiled.error();
      EXPECT_FALSE(error.message.empty()) << statement;
      EXPECT_LE(error.position, statement.size()) << statement;
      EXPECT_FALSE(error.describe(statement).empty());
      return false;
    }
    EXPECT_EQ(emissionProblem(*compiled, statement), "") << statement << "\n  became " << compiled->sql;
    sqlite3_stmt* prepared = nullptr;
    const int outcome = sqlite3_prepare_v2(company_.handle(), compiled->sql.data(),
                                           static_cast<int>(compiled->sql.size()), &prepared, nullptr);
    EXPECT_EQ(outcome, SQLITE_OK) << sqlite3_errmsg(company_.handle()) << "\n  for " << statement.substr(0, 4000)
                                  << "\n  became " << compiled->sql.substr(0, 4000);
    sqlite3_finalize(prepared);
    if (compiled->kind != store::sql::StatementKind::Select || outcome != SQLITE_OK) return true;
    // A run may fail, as by a division by zero, or take too long; it may not crash.
    sqlite3_progress_handler(
        company_.handle(), 200'000, [](void*) { return 1; }, nullptr);
    const Answer answer = company_.run(*compiled);
    sqlite3_progress_handler(company_.handle(), 0, nullptr, nullptr);
    EXPECT_EQ(answer.columns.size(), compiled->columns.size()) << statement;
    return true;
  }

  SmallCompany company_;
};

TEST_F(StatementFuzz, CollectedStatementsPassTheAudit) {
  for (const auto& [name, text] : allStatements())
    for (const auto& command : commandsOf(text)) tries(command);
}

TEST_F(StatementFuzz, ManglesNeverCrashAndNothingPassesUnread) {
  std::vector<std::vector<std::string>> corpus;
  for (const auto& [name, text] : allStatements())
    for (const auto& command : commandsOf(text)) corpus.push_back(piecesOf(command));
  Dice dice(20251122);
  int accepted = 0;
  for (int round = 0; round < 4000 && !HasFailure(); ++round) accepted += tries(mutated(dice, corpus));
  EXPECT_GT(accepted, 200) << "the mangles are too coarse to reach the emitter";
}

TEST_F(StatementFuzz, RandomSelectsPrepareWhenAccepted) {
  Dice dice(19991230);
  int accepted = 0;
  for (int round = 0; round < 4000 && !HasFailure(); ++round) accepted += tries(randomSelect(dice, 2));
  EXPECT_GT(accepted, 200) << "too few random selects are accepted";
}

}  // namespace
}  // namespace velmo::test
