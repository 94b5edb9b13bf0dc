#include <gtest/gtest.h>

#include "store/sql/dialect_store.h"

namespace velmo::test {
namespace {

TEST(Refusal, PointsAtThePlace) {
  struct RefusalCase {
    const char* statement;
    const char* clause;
    const char* piece;
    const char* words;  // of the message
  };
  const RefusalCase cases[] = {
      {"SELECT Colour FROM Sales", "SELECT", "Colour", "no column Colour"},
      {"SELECT x.Rate FROM Sales", "SELECT", "x.Rate", "no table x"},
      {"SELECT * FROM Nowhere", "FROM", "Nowhere", "no table Nowhere"},
      {"SELECT ItemCode FROM Sales, Items", "SELECT", "ItemCode", "Both Sales and Items"},
      {"SELECT a+1 AS b, b+1 AS a FROM Sales", "SELECT", "b", "defined by itself"},
      {"SELECT Rate AS a, Party AS a FROM Sales", "SELECT", "a", "Two columns"},
      {"SELECT Rate, Sum(Party) FROM Sales", "SELECT", "Rate", "neither grouped"},
      {"SELECT Party FROM Sales GROUP BY Party HAVING Rate>1", "HAVING", "Rate", "neither grouped"},
      {"SELECT Party FROM Sales GROUP BY Party ORDER BY Rate", "ORDER BY", "Rate", "neither grouped"},
      {"SELECT Rate & 'x' FROM Sales GROUP BY Rate & 'y'", "SELECT", "Rate", "neither grouped"},
      {"SELECT * FROM Sales GROUP BY Rate", "SELECT", "*", "groups"},
      {"SELECT Sum(Sum(Rate)) FROM Sales", "SELECT", "Sum(Rate)", "inside another"},
      {"SELECT 1 FROM Sales WHERE Sum(Rate)>1", "WHERE", "Sum(Rate)", "cannot stand here"},
      {"SELECT Rate*2 AS r FROM Sales WHERE r>1", "WHERE", "r", "no column r"},
      {"SELECT 1 FROM Sales WHERE Rate='x'", "WHERE", "Rate='x'", "put together"},
      {"SELECT 1 FROM Sales WHERE ItemCode>5", "WHERE", "ItemCode>5", "put together"},
      {"SELECT ItemCode*2 FROM Sales", "SELECT", "ItemCode", "number is expected"},
      {"SELECT #01-01-2024#+#01-01-2024#", "SELECT", "#01-01-2024#+#01-01-2024#", "cannot be added"},
      {"SELECT 1 FROM Sales WHERE ItemCode", "WHERE", "ItemCode", "condition is expected"},
      {"SELECT Nz(Rate,0) FROM Sales", "SELECT", "Nz(Rate,0)", "no function Nz"},
      {"SELECT load_extension('x')", "SELECT", "load_extension('x')", "no function"},
      {"SELECT Left('a')", "SELECT", "Left('a')", "takes 2 values"},
      {"SELECT 1 FROM Sales WHERE SaleDate=#02-30-2024#", "", "#02-30-2024#", "calendar"},
      {"SELECT 'open", "", "'open", "closing quote"},
      {"SELECT 1 ~ 2", "", "~", "no meaning"},
      {"SELECT Rate Party FROM Sales", "SELECT", "Party", "should end here"},
      {"SELECT Rate FROM Sales WHERE", "WHERE", "", "expected"},
      {"SELECT Rate FROM Sales WHERE docno = and 1=1", "WHERE", "and", "expected"},
      {"SELECT a FROM Sales UNION SELECT 1", "FROM", "UNION", "no UNION"},
      {"DROP TABLE Sales", "", "DROP", "starts with"},
      {"SELECT 1; DELETE FROM Sales", "SELECT", "DELETE", "should end here"},
      {"SELECT 1 FROM Sales WHERE Rate IN (SELECT 1)", "WHERE", "SELECT", "cannot stand in a condition"},
      {"SELECT SaleNo FROM Sales ORDER BY 2", "ORDER BY", "2", "no column of this number"},
      {"SELECT 1 FROM (SELECT Rate FROM Sales)", "FROM", "", "needs a name"},
      {"SELECT 1 FROM Sales INNER JOIN Items ON Money.Serial=1", "ON", "Money.Serial", "no table Money"},
      {"UPDATE Sales SET Colour=1", "SET", "Colour", "Colour"},
      {"UPDATE Sales SET SaleDate='x'", "SET", "'x'", "does not fit"},
      {"INSERT INTO Sales (Rate) VALUES (1,2)", "VALUES", "1", "number of values"},
      {"DELETE * FROM Sales, Items", "DELETE", "DELETE", "must be named"},
  };
  const DialectStore store;
  for (const RefusalCase& sample : cases) {
    const std::string_view statement = sample.statement;
    const auto result = store::sql::compile(statement, store.catalog());
    ASSERT_FALSE(result.has_value()) << statement;
    const auto& error = result.error();
    EXPECT_EQ(error.clause, sample.clause) << statement;
    EXPECT_EQ(statement.substr(std::min(error.position, statement.size()), error.length), sample.piece) << statement;
    EXPECT_NE(error.message.find(sample.words), std::string::npos) << statement << ": " << error.message;
    EXPECT_NE(error.describe(statement).find(*sample.piece != '\0' ? sample.piece : "too early"), std::string::npos);
  }
}

std::string repeated(std::string_view piece, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text += piece;
  return text;
}

TEST(Refusal, HoldsAgainstSizeAndDepth) {
  DialectStore store;
  const std::size_t deep = 30'000;
  for (const std::string& statement :
       {"SELECT " + repeated("(", deep) + "1" + repeated(")", deep), "SELECT " + repeated("-", deep) + "1",
        "SELECT 1 WHERE " + repeated("NOT ", deep) + "True", "SELECT 1" + repeated("+1", 5'000),
        "SELECT 1 FROM " + repeated("(", deep) + "Sales" + repeated(")", deep),
        "SELECT 1 FROM " + repeated("(SELECT 1 FROM ", 10'000), "SELECT " + repeated("Abs(", deep),
        "SELECT 1 FROM Sales" + repeated(" INNER JOIN Sales ON 1=1", 8'000), repeated("[SELECT ", 20'000)}) {
    EXPECT_EQ(store.rows(statement).front().substr(0, 2), "! ") << statement.substr(0, 40);
  }
  std::string doubling = "SELECT Rate AS a0";
  for (int i = 1; i < 40; ++i) {
    const std::string before = "a" + std::to_string(i - 1);
    doubling += ", " + before + "+" + before + " AS a" + std::to_string(i);
  }
  EXPECT_NE(store.rows(doubling + " FROM Sales").front().find("too large"), std::string::npos);
  // Wide is not deep.
  EXPECT_EQ(store.rows("SELECT SaleNo FROM Sales WHERE SaleNo=1" + repeated(" OR SaleNo=1", 5'000)).size(), 1u);
  EXPECT_EQ(store.rows("SELECT SaleNo FROM Sales WHERE SaleNo IN (1" + repeated(",1", 20'000) + ")").size(), 1u);
  EXPECT_EQ(store.value("'x'" + repeated(" & 'x'", 999)).size(), 1'000u);
}

// What would nest too deep for SQLite's parser is refused, and what is accepted is prepared.
TEST(Refusal, StaysWithinTheParserOfTheStore) {
  DialectStore store;
  for (const auto& [before, after] : {std::pair{"-", ""},
                                      {"Abs(", ")"},
                                      {"(1=1 And Not ", ")"},
                                      {"IIf(1>0,0,", ")"},
                                      {"Left('a' & ", ",5)"},
                                      {"IIf(2 in (1,", "),1,2)"},
                                      {"IIf(3 between 4 and ", ",1,2)"},
                                      {"(3*(2+", "))"}}) {
    std::size_t refused = 0;
    for (std::size_t depth = 1; depth < 60; ++depth) {
      const std::string value = repeated(before, depth) + "(1=2)" + repeated(after, depth);
      const std::string outcome =
          store
              .rows("SELECT Sum(q.n) FROM (SELECT Count(*) AS n FROM Sales WHERE Cancel And IsNull(" + value +
                    ") GROUP BY Party) AS q")
              .front();
      if (!outcome.starts_with("! ")) continue;
      ++refused;
      EXPECT_NE(outcome.find("too large"), std::string::npos) << outcome;
      EXPECT_GT(depth, 4u) << outcome;
    }
    EXPECT_GT(refused, 10u) << before;
  }
}

TEST(Refusal, CarriesOddBytesAsData) {
  DialectStore store;
  using namespace std::string_literals;
  EXPECT_EQ(store.value("'a\0b'"s), "a\0b"s);
  EXPECT_EQ(store.value("'\xff\xfe'"), "\xff\xfe");
  EXPECT_EQ(store.value("'x'' OR ''1''=''1'"), "x' OR '1'='1");
  EXPECT_EQ(store.value("1\0"s).substr(0, 2), "! ");
  EXPECT_EQ(store.value("1 AS [a\0b]"s).substr(0, 2), "! ");
  EXPECT_EQ(store.rows("").front().substr(0, 2), "! ");
}

}  // namespace
}  // namespace velmo::test
