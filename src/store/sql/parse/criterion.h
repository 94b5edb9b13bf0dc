#pragma once

#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <vector>

#include "store/sql/parse/statement.h"
#include "store/values/value.h"

// The small language of searches and filters over rows that are already read: "column op literal", joined by AND and
// OR. Literals are texts with doubled quotes, numbers, #dates# and Yes/No.
namespace velmo::store::sql {

enum class Comparison { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like };

struct Criterion {
  std::string column;
  Comparison comparison = Comparison::Equal;
  // Never null. Behind Like a text in the pattern of text::LikePattern: a * at either end stands there as %.
  Value literal = {};
};

// A row passes when all criteria of one alternative hold.
struct Filter {
  std::vector<std::vector<Criterion>> alternatives;
};

// Exactly one criterion.
tl::expected<Criterion, CompileError> parseCriterion(std::string_view text);

// "(a AND b) OR c" is a filter; "(a OR b) AND c" is refused.
tl::expected<Filter, CompileError> parseFilter(std::string_view text);

}  // namespace velmo::store::sql
