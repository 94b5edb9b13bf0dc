#include <gtest/gtest.h>

#include "store/connection/connection.h"
#include "store/sql/dialect_store.h"
#include "support/dice.h"
#include "text/like.h"

namespace velmo::test {
namespace {

struct ValueCase {
  std::string expression;
  std::string value;
};

void expectValues(const std::vector<ValueCase>& cases) {
  DialectStore store;
  for (const ValueCase& sample : cases) EXPECT_EQ(store.value(sample.expression), sample.value) << sample.expression;
}

TEST(Function, CalculatesAsTheDialectDoes) {
  expectValues({
      {"5/2", "2.5"},
      {"7\\2.5", "3"},
      {"7.5 Mod 3", "2"},
      {"2^3", "8.0"},
      {"-2^2", "-4.0"},
      {"2+3*4-1", "13"},
      {"1/0", "! A figure was divided by zero."},
      {"Null/0", "null"},
      {"Round(2.5)", "2.0"},
      {"Round(2.45,1)", "2.4"},
      {"CInt(1.5)", "2"},
      {"CLng('(5.00)')", "-5"},
      {"Int(-2.6)", "-3.0"},
      {"Fix(-2.6)", "-2.0"},
      {"Abs(-3)", "3"},
      {"Val('12 Pcs')", "12.0"},
      {"CDbl('abc')", "! The text \"abc\" is not a number."},
      {"True", "-1"},
      {"(2>1)+0", "-1"},
      {"Not (2>1)", "0"},
      {"IIf(Null,1,2)", "2"},
      {"IIf(2>1,'a')", "a"},
      {"IIf(1=2,1/0,3)", "3"},
      {"IsNull(Null)", "-1"},
      {"-Yes", "1"},
      {"- -(2>1)", "-1"},
      {"3--(2>1)", "2"},
  });
}

// To fifteen digits, and never to less than that by what cancels out.
TEST(Function, AddsFiguresAsDecimals) {
  expectValues({
      {"0.1+0.2-0.3", "0.0"},
      {"0.1+0.2", "0.3"},
      {"4009.53-2004.76-2004.77", "0.0"},
      {"99999999999999+120.37-99999999999999", "120.0"},
      {"99999999999999-99999999999999+120.37", "120.37"},
      {"1e300-1e300+0.5", "0.5"},
      {"IIf(1.1+2.2=3.3,'equal','not')", "equal"},
      {"1.5+Null", "null"},
      {"Null-1.5", "null"},
      {"5-2", "3"},
      {"9007199254740993-1", "9007199254740992"},
      {"0.5+No", "0.5"},
      {"'a' + 'b'", "ab"},
      {"#03-05-2024#+1.5-#03-05-2024#", "1.5"},
      {"Round(2.344+2.341,2)-Round(4.685,2)", "0.0"},
  });
}

TEST(Function, MakesTexts) {
  expectValues({
      {"'a' & Null & 5", "a5"},
      {"Null & Null", "null"},
      {"'" + std::string(255, 'x') + "' & 1 & 'end'", std::string(255, 'x') + "1end"},
      {"'' & '" + std::string(900, 'y') + "' & Null & -7.5", std::string(900, 'y') + "-7.5"},
      {"0.1+0.2 & ''", "0.3"},
      {"5/1 & ''", "5"},
      {"1e15 & ''", "1E+15"},
      {"(2>1) & ''", "-1"},
      {"#3/5/2024# & ''", "3/5/2024"},
      {"#03-05-2024 14:07:09# & '!'", "3/5/2024 2:07:09 PM!"},
      {"'a' + 'b'", "ab"},
      {"Format(-1234.565,'0.00;(0.00)')", "(1234.57)"},
      {"Format(2.675,'Fixed')", "2.68"},
      {"Format(#3/5/2024#,'dd-mm-yy')", "05-03-24"},
      {"Format(Null,'0.00')", ""},
      {"Left(12345678.5,5)", "12345"},
      {"Right('Émail',4) & Left('Émail',1)", "mailÉ"},
      {"Mid('abcdef',2,3) & Mid('abc',9)", "bcd"},
      {"Right('abc',0)", ""},
      {"Len('Émail') & Trim('  x ')", "5x"},
      {"Left('abcdef',2.6) & Mid('abcdef',1.5,0.6) & Right('abc',1e300)", "abcbabc"},
      {"CStr(2.50)", "2.5"},
      {"CStr(Null)", "! CStr was given nothing to convert."},
      {"'O''Brien' & \" \"\"x\"\"\"", "O'Brien \"x\""},
  });
}

TEST(Function, CountsDays) {
  expectValues({
      {"#03-05-2024#-#02-28-2024#", "6.0"},
      {"#03-05-2024#+10", "2024-03-15"},
      {"#03-05-2024 12:00#-0.5", "2024-03-05"},
      {"1+#12-31-2023#", "2024-01-01"},
      {"#03-05-2024#-Null", "null"},
      {"IIf(#03-05-2024#>45355,'after','before')", "after"},
      {"#01-01-9999#+400", "! A date lies outside the calendar."},
  });
}

TEST(Function, ComparesAndMatches) {
  DialectStore store;
  const std::pair<const char*, const char*> cases[] = {
      {"ItemName = 'ANCHOR '", "A1"},
      {"ItemName & '' = 'anchor'", "A1"},
      {"ItemName like '%100[%]'", "B2"},
      {"ItemName like 'émail'", "C3"},
      {"ItemName like 'ÉM%'", "C3"},
      {"ItemName like '[a-b]nchor'", "A1"},
      {"ItemName like '[!a-b]%'", "C3"},
      {"Price like '2_5'", "A1"},
      {"ItemCode not like 'A1' and ItemCode not like '%3'", "B2"},
      {"Price between 10 and 3", "B2"},
      {"ItemName in ('x','BOLT 100%')", "B2"},
      {"Price is null", "C3"},
      {"Blocked", "C3"},
      {"Blocked=Yes", "C3"},
      {"not Blocked and Left(ItemCode,1)='a'", "A1"},
      {"(ItemCode & '  (' & ItemName & ')') like '%2  (bolt%'", "B2"},
      {"Right(ItemCode,1) = 3", "C3"},
      {"Not (Price=10)", "A1"},
      {"'a1' = ItemCode", "A1"},
      {"ItemCode between 'b9' and 'a9'", "B2"},
      // Trailing blanks count for nothing where texts are compared, and for something where they are matched.
      {"Left(ItemName,5)='bolt'", "B2"},
      {"ItemCode & ' ' in ('a1','x') and not (Left(ItemName,1)+' '<>'A')", "A1"},
      {"Left(ItemName,5) between 'bolt' and 'bolt  '", "B2"},
      {"IIf(Blocked,'x ','y')='x'", "C3"},
      {"Left(ItemName,5) like 'bolt '", "B2"},
  };
  for (const auto& [condition, code] : cases) {
    EXPECT_EQ(store.rows(std::string("SELECT ItemCode FROM Items WHERE ") + condition), std::vector<std::string>{code})
        << condition;
  }
  EXPECT_EQ(store.rows("SELECT SaleNo FROM Sales WHERE SaleDate=#03-05-2024# ORDER BY Desc, SaleNo"),
            (std::vector<std::string>{"2", "3"}));
}

TEST(Function, MatchesPatterns) {
  struct LikeCase {
    const char* text;
    const char* pattern;
    bool matches;
  };
  const LikeCase cases[] = {
      {"abc", "a%c", true},   {"abc", "%B%", true},    {"abc", "a_c", true},  {"abc", "_", false},
      {"", "%", true},        {"", "", true},          {"a", "", false},      {"a ", "a", false},
      {"a*c", "a*c", true},   {"abc", "a*c", false},   {"x]", "x]", true},    {"x[", "x[", true},
      {"a-b", "a[-]b", true}, {"5", "[0-9]", true},    {"x", "[^0-9]", true}, {"aaab", "%aab", true},
      {"ÀÉ", "%àé%", true},   {"\xff\xfe", "%", true}, {"\xff", "_", true},   {"abab", "%ab", true},
  };
  for (const LikeCase& sample : cases) {
    EXPECT_EQ(text::LikePattern(sample.pattern).matches(sample.text), sample.matches)
        << sample.text << " like " << sample.pattern;
  }
}

// Codes of every kind of sign, in letters with one, two and three cases.
std::string anyCode(Dice& dice) {
  static const std::vector<std::string> signs = {"a", "A", "1", "[", "]", "%", "_", "!", "^", "-", "*",  "?",  "é",
                                                 "É", "ж", "Ж", "ß", "ẞ", "σ", "ς", "Σ", "ﺏ", "'", "\"", "\\", "#"};
  std::string code;
  for (std::size_t length = 1 + dice.below(4); length > 0; --length) code += dice.oneOf(signs);
  return code;
}

TEST(Function, FindsAWholeCodeByItsIndexWhateverSignsItHas) {
  DialectStore store;
  Dice dice(20);
  std::vector<std::string> codes;
  for (int sale = 5; sale < 405; ++sale) {
    codes.push_back(anyCode(dice));
    store.rows("INSERT INTO Sales (SaleNo, ItemCode) VALUES (" + std::to_string(sale) + ", " +
               store::quoted(codes.back()) + ")");
  }
  for (int search = 0; search < 400; ++search) {
    const std::string wanted = search % 2 == 0 ? dice.oneOf(codes) : anyCode(dice);
    const std::string pattern = store::quotedWhole(wanted);
    std::vector<std::string> found;
    std::vector<std::string> others;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      const bool same = text::foldedText(codes[i]) == text::foldedText(wanted);
      (same ? found : others).push_back(std::to_string(i + 5));
    }
    const std::string all = "SELECT SaleNo FROM Sales WHERE SaleNo > 4 and ";
    const std::string byIndex = "SELECT SaleNo FROM Sales WHERE ItemCode like " + pattern;
    ASSERT_EQ(store.rows(byIndex + " and SaleNo > 4 ORDER BY SaleNo"), found) << wanted;
    ASSERT_EQ(store.rows(all + "ItemCode not like " + pattern + " ORDER BY SaleNo"), others) << wanted;
    ASSERT_EQ(store.rows(all + "(ItemCode & '') like " + pattern + " ORDER BY SaleNo"), found) << wanted;
    const std::string plan = store.plan("SELECT Quantity FROM Sales WHERE ItemCode like " + pattern);
    ASSERT_TRUE(plan.find("SEARCH Sales USING INDEX SalesByItem (ItemCode=?)") != std::string::npos) << wanted << plan;
  }
}

TEST(Function, ReadsAPatternAsATextOnlyWhereItIsOne) {
  const std::pair<const char*, const char*> plain[] = {
      {"a[[]1]", "a[1]"}, {"[%][_]", "%_"}, {"", ""}, {"É-1", "É-1"}, {"a]", "a]"}};
  for (const auto& [pattern, text] : plain) EXPECT_EQ(text::plainText(pattern), text) << pattern;
  for (const char* pattern : {"a%", "_", "[ab]", "a[", "[]", "[!]", "[%", "[%-]", "[[]a[b]"})
    EXPECT_EQ(text::plainText(pattern), std::nullopt) << pattern;

  // More ways to write it than are worth trying: the same rows without the index.
  DialectStore store;
  store.rows("INSERT INTO Sales (SaleNo, ItemCode) VALUES (5, 'жжжжжжжжжжжж')");
  EXPECT_EQ(store.rows("SELECT SaleNo FROM Sales WHERE ItemCode like 'ЖЖЖжжжжжжжжж'"), std::vector<std::string>{"5"});
}

}  // namespace
}  // namespace velmo::test
