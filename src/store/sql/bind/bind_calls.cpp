#include <string>
#include <utility>

#include "store/sql/bind/binder.h"

namespace velmo::store::sql {
namespace {

void requireCount(const Expression& call, std::size_t given, std::size_t fewest, std::size_t most,
                  std::string_view clause) {
  if (given >= fewest && given <= most) return;
  std::string wanted = std::to_string(fewest);
  if (most != fewest) wanted += " to " + std::to_string(most);
  refuse(clause, call.place, std::string(call.name) + " takes " + wanted + (most == 1 ? " value." : " values."));
}

// What both branches of an IIf have in common: text where one of them is text.
Domain commonDomain(Domain a, Domain b) {
  if (a == Domain::Nothing || a == b) return b;
  if (b == Domain::Nothing) return a;
  if (a == Domain::Text || b == Domain::Text) return Domain::Text;
  if (a == Domain::Date || b == Domain::Date) return Domain::Date;
  return a == Domain::Real || b == Domain::Real ? Domain::Real : Domain::Whole;
}

BoundPtr inDomain(Domain domain, BoundPtr value, std::string_view clause) {
  if (domain == Domain::Text) return asText(std::move(value), clause);
  if (domain == Domain::Date && value->domain != Domain::Date && value->domain != Domain::Nothing) {
    const Place place = value->place;
    return callOf("velmo_date", Domain::Date, {std::move(value)}, place, clause);
  }
  return value;
}

BoundPtr choice(const Expression& call, std::vector<BoundPtr> operands, std::string_view clause) {
  requireCount(call, operands.size(), 2, 3, clause);
  if (!isNumeric(operands[0]->domain)) refuse(clause, operands[0]->place, "Here a condition is expected.");
  if (operands.size() == 2) operands.push_back(finished({.place = call.place}, clause));
  const Domain domain = commonDomain(operands[1]->domain, operands[2]->domain);
  operands[1] = inDomain(domain, std::move(operands[1]), clause);
  operands[2] = inDomain(domain, std::move(operands[2]), clause);
  return finished({.meaning = Meaning::Choose, .domain = domain, .place = call.place, .operands = std::move(operands)},
                  clause);
}

BoundPtr nullTest(const Expression& call, std::vector<BoundPtr> operands, std::string_view clause) {
  requireCount(call, operands.size(), 1, 1, clause);
  return finished({.meaning = Meaning::Operation,
                   .domain = Domain::YesNo,
                   .place = call.place,
                   .operation = Operator::IsNull,
                   .operands = std::move(operands)},
                  clause);
}

BoundPtr formatted(const Expression& call, std::vector<BoundPtr> operands, std::string_view clause) {
  requireCount(call, operands.size(), 1, 2, clause);
  if (operands.size() == 1) {
    operands[0] = asText(std::move(operands[0]), clause);
    return callOf("velmo_text_or_empty", Domain::Text, std::move(operands), call.place, clause);
  }
  if (operands[1]->domain != Domain::Text) refuse(clause, operands[1]->place, "Here a pattern is expected.");
  const bool date = operands[0]->domain == Domain::Date;
  return callOf(date ? "velmo_format_date" : "velmo_format", Domain::Text, std::move(operands), call.place, clause);
}

BoundPtr argumentFor(Argument argument, BoundPtr value, std::string_view clause) {
  switch (argument) {
    case Argument::Number:
      if (!isNumeric(value->domain)) refuse(clause, value->place, "Here a number is expected.");
      return value;
    case Argument::Convertible:
      if (value->domain == Domain::Date) refuse(clause, value->place, "Here a number is expected.");
      return value;
    case Argument::Text:
      return asText(std::move(value), clause);
    case Argument::None:
    case Argument::Any:
      break;
  }
  return value;
}

Domain resultOf(const Function& function, const std::vector<BoundPtr>& operands) {
  switch (function.result) {
    case Result::Whole:
      return Domain::Whole;
    case Result::Real:
      return Domain::Real;
    case Result::Text:
      return Domain::Text;
    case Result::SameAsFirst:
      break;
  }
  const Domain first = operands[0]->domain;
  return !function.aggregate && first == Domain::YesNo ? Domain::Whole : first;
}

}  // namespace

BoundPtr boundCall(const Expression& call, std::vector<BoundPtr> operands, std::string_view clause) {
  if (sameWord(call.name, "IIf")) return choice(call, std::move(operands), clause);
  if (sameWord(call.name, "IsNull")) return nullTest(call, std::move(operands), clause);
  if (sameWord(call.name, "Format")) return formatted(call, std::move(operands), clause);
  const Function* function = findFunction(call.name);
  if (function == nullptr) refuse(clause, call.place, "There is no function " + std::string(call.name) + ".");
  if (call.countsRows) {
    if (function->storeName != "count") refuse(clause, call.place, "Only Count takes *.");
    return finished({.meaning = Meaning::Aggregate, .domain = Domain::Whole, .place = call.place, .function = "count"},
                    clause);
  }
  requireCount(call, operands.size(), function->fewest, function->most, clause);
  for (std::size_t i = 0; i < operands.size(); ++i) {
    operands[i] = argumentFor(i == 0 ? function->first : function->others, std::move(operands[i]), clause);
  }
  const Domain domain = resultOf(*function, operands);
  if (!function->aggregate) return callOf(function->storeName, domain, std::move(operands), call.place, clause);
  return finished({.meaning = Meaning::Aggregate,
                   .domain = domain,
                   .place = call.place,
                   .function = function->storeName,
                   .operands = std::move(operands)},
                  clause);
}

}  // namespace velmo::store::sql
