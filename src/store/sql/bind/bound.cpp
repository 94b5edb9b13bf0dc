#include "store/sql/bind/bound.h"

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

}  // namespace velmo::store::sql
