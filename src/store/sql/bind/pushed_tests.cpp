#include "store/sql/bind/pushed_tests.h"

#include <algorithm>

#include "store/sql/bind/select_parts.h"

namespace velmo::store::sql {
namespace {

bool compares(const Bound& test, const std::vector<Operator>& operations) {
  return test.meaning == Meaning::Operation && !test.negated && test.operands.size() == 2 &&
         std::ranges::find(operations, test.operation) != operations.end();
}

bool isPlainColumn(const Bound& bound) {
  return bound.meaning == Meaning::Column && bound.domain != Domain::Text;
}

// [column] <= literal
bool isRange(const Bound& test) {
  using enum Operator;
  return compares(test, {Equal, Less, LessOrEqual, Greater, GreaterOrEqual}) && isPlainColumn(*test.operands[0]) &&
         isLiteral(*test.operands[1]) && test.operands[1]->domain == test.operands[0]->domain;
}

bool groupsBy(const BoundSelect& select, const Bound& column) {
  return std::ranges::any_of(select.groupBy, [&](const BoundPtr& group) { return sameMeaning(*group, column); });
}

// The same test of another column.
BoundPtr testOf(const Bound& test, const BoundPtr& column) {
  auto other = std::make_shared<Bound>(test);
  other->operands[0] = column;
  return other;
}

void pushInto(const BoundSelect& select, int source, const std::vector<BoundPtr>& asked) {
  BoundSelect& derived = *select.sources[static_cast<std::size_t>(source)].derived;
  if (derived.groupBy.empty() || derived.top || derived.readsRowOrder) return;
  for (const BoundPtr& equal : testsOn(select, source)) {
    if (!compares(*equal, {Operator::Equal})) continue;
    for (std::size_t side = 0; side < 2; ++side) {
      const Bound& own = *equal->operands[side];
      const Bound& other = *equal->operands[1 - side];
      if (!isPlainColumn(own) || !isPlainColumn(other) || own.source != source || other.source == source ||
          own.domain != other.domain)
        continue;
      const BoundPtr& grouped = derived.items[static_cast<std::size_t>(own.column)].expression;
      if (!isPlainColumn(*grouped) || !groupsBy(derived, *grouped)) continue;
      for (const BoundPtr& test : asked)
        if (isRange(*test) && sameMeaning(*test->operands[0], other)) derived.where.push_back(testOf(*test, grouped));
    }
  }
}

}  // namespace

void pushTests(BoundSelect& select) {
  std::vector<BoundPtr> asked;
  for (const BoundPtr& condition : select.where) collectTests(condition, asked);
  for (std::size_t i = 0; i < select.sources.size(); ++i) {
    if (!select.sources[i].derived) continue;
    pushInto(select, static_cast<int>(i), asked);
    pushTests(*select.sources[i].derived);
  }
}

}  // namespace velmo::store::sql
