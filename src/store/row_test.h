#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/result_source.h"
#include "store/sql/like.h"

namespace velmo::store {

// A condition on the fields of a row: "field op literal" with = <> < <= > >= like, as Find takes one and Filter takes
// several with AND, OR and parentheses. Texts compare without regard to case; * and % stand for any characters; a null
// fits nothing. Statements that do not fit throw StoreError (Statement).
class RowTest {
 public:
  static RowTest criterion(const ResultSource& source, std::string_view text);
  static std::optional<RowTest> filter(const ResultSource& source, std::string_view text);  // nothing for ""

  bool passes(const std::function<Value(int field)>& valueOf) const;
  // The same as SQL over the columns of one table, its literals added to `parameters` and numbered there.
  std::string sql(const std::function<std::string(int field)>& columnOf, std::vector<Value>& parameters) const;

  enum class Kind { Comparison, And, Or };
  enum class Operator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like };
  struct Condition {
    Kind kind = Kind::Comparison;
    std::vector<Condition> parts = {};  // of And, Or
    int field = 0;                      // of a comparison
    Operator op = Operator::Equal;
    Value literal = {};
    std::shared_ptr<const sql::LikePattern> pattern = {};
  };

 private:
  explicit RowTest(Condition condition) : condition_(std::move(condition)) {}
  Condition condition_;
};

}  // namespace velmo::store
