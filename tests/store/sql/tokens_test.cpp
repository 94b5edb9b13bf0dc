#include "store/sql/parse/tokens.h"

#include <gtest/gtest.h>

#include "store/sql/dialect_store.h"
#include "store/sql/parse/criterion.h"
#include "store/sql/parse/statement_shape.h"

namespace velmo::test {
namespace {

using namespace store::sql;

TEST(Tokens, TellsNumbersFromNames) {
  const std::pair<const char*, TokenKind> cases[] = {
      {"010Days", TokenKind::Word},
      {"1e3", TokenKind::Literal},
      {"1e", TokenKind::Word},
      {".5", TokenKind::Literal},
      {"5.", TokenKind::Literal},
      {"[Desc]", TokenKind::BracketedName},
      {"#1/5/24#", TokenKind::Literal},
      {"Code\u00A0\u00A0", TokenKind::Word},
      {"[SELECT ", TokenKind::OpenDerived},
      {"!", TokenKind::Dot},
  };
  for (const auto& [text, kind] : cases) {
    const auto tokens = tokenize(text);
    ASSERT_TRUE(tokens.has_value()) << text;
    EXPECT_EQ(tokens->tokens.front().kind, kind) << text;
    EXPECT_EQ(tokens->tokens.size(), text == std::string_view("[SELECT ") ? 3u : 2u) << text;
  }
}

TEST(Shape, IsTheSameForOtherValuesOfTheSameKinds) {
  struct ShapeCase {
    const char* first;
    const char* second;
    bool same;
  };
  const ShapeCase cases[] = {
      {"select 1 from Sales where Party=5 and Rate=2.5", "select 9 from Sales where Party=7 and Rate=0.5", true},
      {"select 1 from Sales where Rate=2", "select 1 from Sales where Rate=2.5", false},
      {"select 1 from Sales where ItemCode like 'A'", "select 1 from Sales where ItemCode like 'O''B'", true},
      {"select 1 from Sales where ItemCode like 'A'", "select 1 from Sales where ItemCode like 'A%'", false},
      {"select 1 from Sales where ItemCode like 'A'", "select 1 from Sales where ItemCode like 'É'", false},
      {"select top 4 Rate from Sales order by 1", "select top 5 Rate from Sales order by 1", false},
      {"select Rate, Party from Sales order by Rate, 2", "select Rate, Party from Sales order by Rate, 1", false},
      {"select #1/1/2024#", "select #12-31-2023 1:00#", true},
      {"select Rate & 'a' from Sales group by Rate & 'a'", "select Rate & 'b' from Sales group by Rate & 'b'", true},
      {"select Rate & 'a' from Sales group by Rate & 'a'", "select Rate & 'a' from Sales group by Rate & 'b'", false},
      {"select 'a'", "select #1/1/2024#", false},
  };
  const DialectStore store;
  for (const ShapeCase& sample : cases) {
    auto first = shapeOf(sample.first);
    auto second = shapeOf(sample.second);
    ASSERT_TRUE(first.has_value() && second.has_value());
    EXPECT_EQ(first->key == second->key, sample.same) << sample.first << " and " << sample.second;
    if (!sample.same) continue;
    const CompiledStatement fresh = store.compiled(sample.second);
    EXPECT_EQ(store.compiled(sample.first).sql, fresh.sql);
    EXPECT_EQ(second->parameters, fresh.parameters);
  }
}

std::string written(const Filter& filter) {
  static constexpr const char* symbols[] = {"=", "<>", "<", "<=", ">", ">=", " like "};
  std::string text;
  for (const auto& alternative : filter.alternatives) {
    if (!text.empty()) text += " | ";
    for (const Criterion& criterion : alternative) {
      text += "{" + criterion.column + symbols[static_cast<int>(criterion.comparison)] +
              store::textOf(criterion.literal) + "}";
    }
  }
  return text;
}

TEST(Criterion, ReadsFilters) {
  const std::pair<const char*, const char*> cases[] = {
      {"itemcode like 'x*'", "{itemcode like x%}"},       {"itemcode like '*x*'", "{itemcode like %x%}"},
      {"[Acc Name] = 'O''Brien'", "{Acc Name=O'Brien}"},  {"a >= -5 and b <> 2.5", "{a>=-5}{b<>2.5}"},
      {"a = 1 or b < 2 and c > 3", "{a=1} | {b<2}{c>3}"}, {"(a = 1 and b = 2) or (c = 3)", "{a=1}{b=2} | {c=3}"},
      {"((a <= #01-15-2024#))", "{a<=1/15/2024}"},
  };
  for (const auto& [text, expected] : cases) {
    const auto filter = parseFilter(text);
    ASSERT_TRUE(filter.has_value()) << text << filter.error().describe(text);
    EXPECT_EQ(written(*filter), expected);
  }
  EXPECT_EQ(std::get<bool>(parseCriterion("Cancel = Yes")->literal), true);
}

TEST(Criterion, RefusesTheRest) {
  for (const char* text : {"(a=1 or b=2) and c=3", "c=3 and (a=1 or b=2)", "a=null", "a", "a=", "a=b", "1=1",
                           "a like 5", "a=1 b=2", "a=1 and", "(a=1", "a='x", "a=-'x'", ""}) {
    EXPECT_FALSE(parseFilter(text).has_value()) << text;
  }
  EXPECT_FALSE(parseCriterion("a=1 and b=2").has_value());
}

}  // namespace
}  // namespace velmo::test
