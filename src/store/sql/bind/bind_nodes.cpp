#include <utility>

#include "store/sql/bind/binder.h"

namespace velmo::store::sql {

Domain domainOf(ColumnType type) {
  switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return Domain::Text;
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
      return Domain::Whole;
    case ColumnType::Double:
      return Domain::Real;
    case ColumnType::Date:
      return Domain::Date;
    case ColumnType::YesNo:
      return Domain::YesNo;
  }
  return Domain::Text;
}

ColumnType columnTypeOf(Domain domain) {
  switch (domain) {
    case Domain::YesNo:
      return ColumnType::YesNo;
    case Domain::Whole:
      return ColumnType::Long;
    case Domain::Real:
      return ColumnType::Double;
    case Domain::Date:
      return ColumnType::Date;
    case Domain::Nothing:
    case Domain::Text:
      break;
  }
  return ColumnType::Text;
}

BoundPtr finished(Bound node, std::string_view clause) {
  for (const BoundPtr& operand : node.operands) {
    node.depth = std::max(node.depth, operand->depth + 1);
    const bool writtenTwice = node.operation == Operator::Between && operand != node.operands.front();
    node.weight += writtenTwice ? 2 * operand->weight : operand->weight;
    node.aggregated = node.aggregated || operand->aggregated;
  }
  node.aggregated = node.aggregated || node.meaning == Meaning::Aggregate;
  if (node.depth > deepestExpression || node.weight > heaviestExpression) {
    refuse(clause, node.place, "The expression is too large.");
  }
  return std::make_shared<const Bound>(std::move(node));
}

BoundPtr callOf(std::string_view storeName, Domain domain, std::vector<BoundPtr> operands, const Place& place,
                std::string_view clause) {
  return finished({.meaning = Meaning::Call,
                   .domain = domain,
                   .place = place,
                   .function = storeName,
                   .operands = std::move(operands)},
                  clause);
}

BoundPtr asText(BoundPtr value, std::string_view clause) {
  switch (value->domain) {
    case Domain::Nothing:
    case Domain::Text:
      return value;
    case Domain::Date: {
      const Place place = value->place;
      return callOf("velmo_date_text", Domain::Text, {std::move(value)}, place, clause);
    }
    default: {
      const Place place = value->place;
      return callOf("velmo_text", Domain::Text, {std::move(value)}, place, clause);
    }
  }
}

BoundPtr convertedTo(ColumnType type, BoundPtr value, std::string_view clause) {
  const Place place = value->place;
  const auto mismatch = [&] { refuse(clause, place, "This value does not fit the type of its column."); };
  if (value->domain == Domain::Nothing) return value;
  switch (domainOf(type)) {
    case Domain::Text:
      return callOf("rtrim", Domain::Text, {asText(std::move(value), clause)}, place, clause);
    case Domain::Whole:
      if (value->domain == Domain::Date) mismatch();
      if (value->domain == Domain::Whole || value->domain == Domain::YesNo) return value;
      return callOf("velmo_whole", Domain::Whole, {std::move(value)}, place, clause);
    case Domain::Real:
      if (value->domain == Domain::Date) mismatch();
      if (value->domain != Domain::Text) return value;
      return callOf("velmo_number", Domain::Real, {std::move(value)}, place, clause);
    case Domain::Date:
      if (value->domain == Domain::Text) mismatch();
      if (value->domain == Domain::Date) return value;
      return callOf("velmo_date", Domain::Date, {std::move(value)}, place, clause);
    case Domain::YesNo:
      if (!isNumeric(value->domain)) mismatch();
      if (value->domain == Domain::YesNo) return value;
      return callOf("velmo_yes_no", Domain::YesNo, {std::move(value)}, place, clause);
    case Domain::Nothing:
      break;
  }
  return value;
}

std::vector<BoundPtr> conjuncts(BoundPtr condition) {
  if (condition->meaning != Meaning::Operation || condition->operation != Operator::And) return {std::move(condition)};
  std::vector<BoundPtr> all;
  for (const BoundPtr& operand : condition->operands) {
    for (BoundPtr& part : conjuncts(operand)) all.push_back(std::move(part));
  }
  return all;
}

}  // namespace velmo::store::sql
