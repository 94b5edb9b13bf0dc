#include "store/sql/bind/select_parts.h"

#include <utility>

namespace velmo::store::sql {

const BoundSource& sourceOf(const BoundSelect& select, const Bound& column) {
  return select.sources[static_cast<std::size_t>(column.source)];
}

bool isColumn(const Bound& bound, const BoundSelect& select, int source, std::string_view name) {
  return bound.meaning == Meaning::Column && bound.source == source &&
         sameWord(sourceOf(select, bound).columns[static_cast<std::size_t>(bound.column)].name, name);
}

bool isLiteral(const Bound& bound) {
  return bound.meaning == Meaning::Parameter || bound.meaning == Meaning::FixedNumber;
}

bool isNo(const Bound& bound, const Tokens& tokens) {
  if (bound.meaning == Meaning::YesNo) return !bound.yes;
  return bound.meaning == Meaning::Parameter && isZero(tokens.literals[static_cast<std::size_t>(bound.literal)]);
}

bool isNothing(const Bound& bound, const Tokens& tokens) {
  if (bound.meaning == Meaning::FixedNumber) return bound.digits == "0";
  return bound.meaning == Meaning::Parameter && isZero(tokens.literals[static_cast<std::size_t>(bound.literal)]);
}

int sourceNamed(const BoundSelect& select, std::string_view table) {
  int found = -1;
  for (std::size_t i = 0; i < select.sources.size(); ++i) {
    const BoundSource& source = select.sources[i];
    if (source.table == nullptr || source.table->name != table) continue;
    if (found >= 0) return -1;
    found = static_cast<int>(i);
  }
  return found;
}

bool isInnerOnly(const BoundJoin& join) {
  return join.source >= 0 || (!join.outer && isInnerOnly(*join.left) && isInnerOnly(*join.right));
}

void collectTests(const BoundPtr& condition, std::vector<BoundPtr>& tests) {
  if (!condition) return;
  if (condition->meaning == Meaning::Operation && condition->operation == Operator::And)
    for (const BoundPtr& operand : condition->operands) collectTests(operand, tests);
  else
    tests.push_back(condition);
}

void collectConditions(const BoundJoin& join, std::vector<BoundPtr>& tests) {
  if (join.source >= 0) return;
  collectConditions(*join.left, tests);
  collectConditions(*join.right, tests);
  collectTests(join.condition, tests);
}

namespace {

bool holds(const BoundJoin& join, int source) {
  return join.source >= 0 ? join.source == source : holds(*join.left, source) || holds(*join.right, source);
}

void collectTestsOn(const BoundJoin& join, int source, std::vector<BoundPtr>& tests) {
  if (join.source >= 0) return;
  const bool onTheRight = holds(*join.right, source);
  collectTestsOn(onTheRight ? *join.right : *join.left, source, tests);
  if (onTheRight || !join.outer) collectTests(join.condition, tests);
}

}  // namespace

std::vector<BoundPtr> testsOn(const BoundSelect& select, int source) {
  std::vector<BoundPtr> tests;
  for (const BoundPtr& condition : select.where) collectTests(condition, tests);
  if (select.from) collectTestsOn(*select.from, source, tests);
  return tests;
}

std::unique_ptr<BoundJoin> without(std::unique_ptr<BoundJoin> join, int source) {
  if (join->source == source) return nullptr;
  if (join->source >= 0) return join;
  join->condition = nullptr;
  join->left = without(std::move(join->left), source);
  join->right = without(std::move(join->right), source);
  if (!join->left) return std::move(join->right);
  if (!join->right) return std::move(join->left);
  return join;
}

}  // namespace velmo::store::sql
