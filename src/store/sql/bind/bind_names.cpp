#include <utility>

#include "store/sql/bind/binder.h"

namespace velmo::store::sql {

int SelectBinder::findSource(std::string_view name) const {
  for (std::size_t i = 0; i < bound_.sources.size(); ++i) {
    if (sameWord(bound_.sources[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

BoundPtr SelectBinder::columnOf(int source, int column, const Place& place) const {
  const SourceColumn& found =
      bound_.sources[static_cast<std::size_t>(source)].columns[static_cast<std::size_t>(column)];
  return finished(
      {.meaning = Meaning::Column, .domain = domainOf(found.type), .place = place, .source = source, .column = column},
      clause_);
}

// Nothing when no source has such a column.
BoundPtr SelectBinder::findColumn(const Expression& name) const {
  int foundSource = -1;
  int foundColumn = -1;
  for (std::size_t s = firstVisible_; s < bound_.sources.size(); ++s) {
    const BoundSource& source = bound_.sources[s];
    if (!name.qualifier.empty() && !sameWord(source.name, name.qualifier)) continue;
    for (std::size_t c = 0; c < source.columns.size(); ++c) {
      if (!sameWord(source.columns[c].name, name.name)) continue;
      if (foundSource >= 0) {
        refuse(clause_, name.place,
               "Both " + bound_.sources[static_cast<std::size_t>(foundSource)].name + " and " + source.name +
                   " have a column " + source.columns[c].name + ".");
      }
      foundSource = static_cast<int>(s);
      foundColumn = static_cast<int>(c);
    }
  }
  return foundSource < 0 ? nullptr : columnOf(foundSource, foundColumn, name.place);
}

SelectBinder::Alias* SelectBinder::findAlias(std::string_view name) {
  for (Alias& alias : aliases_) {
    if (sameWord(alias.name, name)) return &alias;
  }
  return nullptr;
}

BoundPtr SelectBinder::bindAlias(Alias& alias, const Expression& use) {
  if (alias.state == AliasState::Binding) {
    refuse(clause_, use.place, "The name " + std::string(alias.name) + " is defined by itself.");
  }
  if (alias.state == AliasState::Unbound) {
    alias.state = AliasState::Binding;
    Alias* const outer = std::exchange(defining_, &alias);
    alias.bound = bindExpression(*alias.definition);
    defining_ = outer;
    alias.state = AliasState::Bound;
  }
  return alias.bound;
}

// In the select list an alias goes before a column. An alias that uses its own name means a column by it, and then
// the column is meant wherever else the name stands: iif(isnull(stockin), unit, '') as unit, unit & '' as other.
BoundPtr SelectBinder::bindName(const Expression& name) {
  Alias* alias = name.qualifier.empty() && aliasUse_ != AliasUse::None ? findAlias(name.name) : nullptr;
  if (alias != nullptr && aliasUse_ == AliasUse::BeforeColumns) {
    if (alias == defining_) {
      alias->namesItself = true;
    } else {
      BoundPtr bound = bindAlias(*alias, name);
      if (!alias->namesItself) return bound;
    }
  }
  if (BoundPtr column = findColumn(name)) return column;
  if (alias != nullptr && alias != defining_) return bindAlias(*alias, name);
  if (alias != nullptr) {
    refuse(clause_, name.place, "The name " + std::string(name.name) + " is defined by itself.");
  }
  if (!name.qualifier.empty() && findSource(name.qualifier) < 0) {
    refuse(clause_, name.place, "There is no table " + std::string(name.qualifier) + " in this statement.");
  }
  refuse(clause_, name.place, "There is no column " + std::string(name.name) + " here.");
}

BoundPtr SelectBinder::bindExpression(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::Literal: {
      const Value& value = context_.literals[static_cast<std::size_t>(expression.literal)].value;
      const Domain domain = std::holds_alternative<std::int64_t>(value)  ? Domain::Whole
                            : std::holds_alternative<double>(value)      ? Domain::Real
                            : std::holds_alternative<std::string>(value) ? Domain::Text
                                                                         : Domain::Date;
      return finished(
          {.meaning = Meaning::Parameter, .domain = domain, .place = expression.place, .literal = expression.literal},
          clause_);
    }
    case ExpressionKind::FixedNumber:
      return finished(
          {.meaning = Meaning::FixedNumber,
           .domain =
               expression.name.find_first_not_of("0123456789") == std::string_view::npos ? Domain::Whole : Domain::Real,
           .place = expression.place,
           .digits = expression.name},
          clause_);
    case ExpressionKind::Yes:
    case ExpressionKind::No:
      return finished({.meaning = Meaning::YesNo,
                       .domain = Domain::YesNo,
                       .place = expression.place,
                       .yes = expression.kind == ExpressionKind::Yes},
                      clause_);
    case ExpressionKind::Nothing:
      return finished({.place = expression.place}, clause_);
    case ExpressionKind::Name:
      return bindName(expression);
    case ExpressionKind::Operation:
    case ExpressionKind::Call:
      break;
  }
  const Function* function = expression.kind == ExpressionKind::Call ? findFunction(expression.name) : nullptr;
  const bool aggregate = function != nullptr && function->aggregate;
  if (aggregate && !aggregatesAllowed_) {
    refuse(clause_, expression.place, std::string(function->name) + " cannot stand here.");
  }
  std::vector<BoundPtr> operands;
  operands.reserve(expression.operands.size());
  for (const ExpressionPtr& operand : expression.operands) {
    operands.push_back(bindExpression(*operand));
    if (aggregate && operands.back()->aggregated) {
      refuse(clause_, operand->place, "An aggregate cannot stand inside another.");
    }
  }
  if (aggregate && (function->storeName == "velmo_first" || function->storeName == "velmo_last")) {
    bound_.readsRowOrder = true;
  }
  return expression.kind == ExpressionKind::Call ? boundCall(expression, std::move(operands), clause_)
                                                 : boundOperation(expression, std::move(operands), context_, clause_);
}

BoundPtr SelectBinder::expression(const Expression& syntax, std::string_view clause) {
  clause_ = clause;
  return bindExpression(syntax);
}

BoundPtr SelectBinder::condition(const Expression& syntax, std::string_view clause) {
  BoundPtr bound = expression(syntax, clause);
  requireCondition(*bound, clause);
  return bound;
}

}  // namespace velmo::store::sql
