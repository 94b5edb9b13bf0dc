#include "store/sql/bind/bound.h"

#include <algorithm>

namespace velmo::store::sql {

bool isCondition(const Bound& bound) {
  if (bound.meaning != Meaning::Operation) return false;
  switch (bound.operation) {
    case Operator::Negate:
    case Operator::Add:
    case Operator::Subtract:
    case Operator::Multiply:
    case Operator::Divide:
    case Operator::WholeDivide:
    case Operator::Modulo:
    case Operator::Power:
    case Operator::Concatenate:
      return false;
    default:
      return true;
  }
}

bool isNumeric(Domain domain) {
  return domain != Domain::Text && domain != Domain::Date;
}

bool sameMeaning(const Bound& a, const Bound& b) {
  if (&a == &b) return true;
  if (a.meaning != b.meaning || a.weight != b.weight || a.literal != b.literal || a.digits != b.digits ||
      a.yes != b.yes || a.source != b.source || a.column != b.column || a.operation != b.operation ||
      a.negated != b.negated || a.function != b.function || a.operands.size() != b.operands.size()) {
    return false;
  }
  for (std::size_t i = 0; i < a.operands.size(); ++i) {
    if (!sameMeaning(*a.operands[i], *b.operands[i])) return false;
  }
  return true;
}

bool names(const Bound& bound, int source) {
  if (bound.meaning == Meaning::Column) return bound.source == source;
  return std::ranges::any_of(bound.operands, [source](const BoundPtr& operand) { return names(*operand, source); });
}

bool namesOnly(const Bound& bound, int source) {
  if (bound.meaning == Meaning::Column) return bound.source == source;
  return std::ranges::all_of(bound.operands, [source](const BoundPtr& operand) { return namesOnly(*operand, source); });
}

BoundPtr withColumns(const BoundPtr& bound, int source, const std::function<BoundPtr(const Bound&)>& other) {
  if (bound->meaning == Meaning::Column) return bound->source == source ? other(*bound) : bound;
  if (!names(*bound, source)) return bound;
  auto changed = std::make_shared<Bound>(*bound);
  for (BoundPtr& operand : changed->operands)
    if (operand = withColumns(operand, source, other); !operand) return nullptr;
  return changed;
}

BoundPtr ofOneRow(const BoundPtr& expression) {
  if (!expression->aggregated) return expression;
  auto alone = std::make_shared<Bound>(*expression);
  alone->aggregated = false;
  if (expression->meaning == Meaning::Aggregate) {
    alone->meaning = Meaning::Operation;
    alone->operation = Operator::Add;
    alone->function = {};
    const Bound nothing{.meaning = Meaning::FixedNumber, .domain = Domain::Real, .digits = "0"};
    alone->operands.push_back(std::make_shared<const Bound>(nothing));
  } else {
    for (BoundPtr& operand : alone->operands) operand = ofOneRow(operand);
  }
  return alone;
}

}  // namespace velmo::store::sql
