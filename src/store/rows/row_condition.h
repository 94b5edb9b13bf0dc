#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/rows/result_source.h"
#include "store/sql/parse/criterion.h"
#include "text/like.h"

namespace velmo::store {

// A condition on the fields of a row, as Find takes one and Filter takes several (sql/criterion.h has the language),
// with its literals made comparable to the fields. Texts compare without regard to case; a null fits nothing.
class RowCondition {
 public:
  // Both throw StoreError (Statement) when the text does not fit, Misuse when there is no such field.
  static RowCondition ofCriterion(const ResultSource& source, std::string_view text);
  static std::optional<RowCondition> ofFilter(const ResultSource& source, std::string_view text);  // nothing for ""

  const std::string& text() const { return text_; }  // that it was made from

  bool passes(const std::function<Value(int field)>& valueOf) const;
  // The same as SQL over the columns of one table, its literals added to `parameters` and numbered there.
  std::string sql(const std::function<std::string(int field)>& columnOf, std::vector<Value>& parameters) const;

 private:
  struct Comparison {
    int field = 0;
    sql::Comparison comparison = sql::Comparison::Equal;
    Value literal;
    std::shared_ptr<const text::LikePattern> pattern;  // of Like
    bool hasSpellings = false;                         // of Like: an index finds them
  };

  static Comparison bound(const ResultSource& source, const sql::Criterion& criterion, std::string_view text);

  std::string text_;
  std::vector<std::vector<Comparison>> alternatives_;
};

}  // namespace velmo::store
