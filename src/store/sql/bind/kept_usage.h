#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "store/sql/bind/select_parts.h"

namespace velmo::store::sql {

// What a column of a source is, as far as kept totals can stand for it.
enum class Role {
  Other,
  Subject,
  Amount,       // null counts as nothing, and must be made to
  GivenAmount,  // the same, and a bare sum of it is kept, too
  ToldAmount,   // null is told, as that of the lines of a kind
  Kind,         // of the document, where nulls are told
  NetAmount     // made of amounts in which null counts as nothing
};

// The columns of a source by their number.
using Roles = std::vector<Role>;

inline Roles rolesOf(const BoundSource& lines, const KeptTotals& totals) {
  Roles roles(lines.columns.size());
  for (std::size_t i = 0; i < roles.size(); ++i) {
    const std::string& name = lines.columns[i].name;
    if (sameWord(name, totals.subject)) roles[i] = Role::Subject;
    if (std::ranges::any_of(totals.amounts, [&](const std::string& amount) { return sameWord(name, amount); }))
      roles[i] = totals.tellsNulls() ? Role::ToldAmount : totals.counted.empty() ? Role::Amount : Role::GivenAmount;
  }
  if (totals.tellsNulls()) roles.push_back(Role::Kind);
  return roles;
}

// How a select reads one source: fit for kept totals are subjects, and sums of what grows with the amounts alone.
class Usage {
 public:
  Usage(const BoundSelect& select, const Tokens& tokens, int source, Roles roles)
      : select_(select), tokens_(tokens), source_(source), roles_(std::move(roles)) {}

  bool fits(const Bound& bound) const {
    if (bound.meaning == Meaning::Column)
      return bound.source != source_ || roleOf(bound) == Role::Subject || roleOf(bound) == Role::Kind;
    // Any other aggregate would tell how many lines there are.
    if (bound.meaning == Meaning::Aggregate)
      return bound.function == "velmo_sum" && bound.operands.size() == 1 &&
             (isGiven(*bound.operands[0]) || isTold(*bound.operands[0]) || growsWithAmounts(*bound.operands[0]));
    return std::ranges::all_of(bound.operands, [this](const BoundPtr& operand) { return fits(*operand); });
  }
  bool fits(const std::vector<BoundPtr>& expressions) const {
    return std::ranges::all_of(expressions, [this](const BoundPtr& expression) { return fits(*expression); });
  }
  // All but its sources and conditions.
  bool fitsClauses() const {
    return std::ranges::all_of(select_.items, [this](const BoundItem& item) { return fits(*item.expression); }) &&
           fits(select_.groupBy) && fits(select_.having) &&
           std::ranges::all_of(select_.orderBy, [this](const BoundOrder& order) { return fits(*order.expression); });
  }

  Role roleOf(const Bound& column) const { return roles_[static_cast<std::size_t>(column.column)]; }

  // Whether twice the amounts give twice the value, so that the value of a sum is the sum of the values.
  bool growsWithAmounts(const Bound& bound) const {
    if (bound.meaning == Meaning::Column) return bound.source == source_ && roleOf(bound) == Role::NetAmount;
    if (bound.meaning == Meaning::Choose) return isNetAmount(bound);
    if (bound.meaning != Meaning::Operation) return false;
    switch (bound.operation) {
      case Operator::Negate:
        return growsWithAmounts(*bound.operands[0]);
      case Operator::Add:
      case Operator::Subtract:
        return growsWithAmounts(*bound.operands[0]) && growsWithAmounts(*bound.operands[1]);
      case Operator::Multiply:
        return isScaled(*bound.operands[0], *bound.operands[1]) || isScaled(*bound.operands[1], *bound.operands[0]);
      default:
        return false;
    }
  }

 private:
  bool isScaled(const Bound& amount, const Bound& factor) const {
    return growsWithAmounts(amount) && !factor.aggregated && !names(factor, source_);
  }

  bool isGiven(const Bound& bound) const {
    return bound.meaning == Meaning::Column && bound.source == source_ && roleOf(bound) == Role::GivenAmount;
  }

  // IIf([kind]=1,-[x],[y]): as null as the amount of a kind is.
  bool isTold(const Bound& bound) const {
    if (bound.meaning == Meaning::Column) return bound.source == source_ && roleOf(bound) == Role::ToldAmount;
    if (bound.meaning == Meaning::Operation) return bound.operation == Operator::Negate && isTold(*bound.operands[0]);
    const auto isPart = [this](const BoundPtr& part) {
      return isTold(*part) || growsWithAmounts(*part) || isNothing(*part, tokens_);
    };
    return bound.meaning == Meaning::Choose && asksForKinds(*bound.operands[0]) && isPart(bound.operands[1]) &&
           isPart(bound.operands[2]);
  }
  bool asksForKinds(const Bound& bound) const {
    if (bound.meaning == Meaning::Column) return bound.source == source_ && roleOf(bound) == Role::Kind;
    return bound.meaning != Meaning::Aggregate &&
           std::ranges::all_of(bound.operands, [this](const BoundPtr& operand) { return asksForKinds(*operand); });
  }

  // IIf(IsNull([x]),0,[x])
  bool isNetAmount(const Bound& choice) const {
    const Bound& test = *choice.operands[0];
    if (test.meaning != Meaning::Operation || test.operation != Operator::IsNull || test.negated) return false;
    const Bound& column = *test.operands[0];
    const bool isAmount = column.meaning == Meaning::Column && column.source == source_ &&
                          roleOf(column) != Role::Other && roleOf(column) != Role::Subject &&
                          roleOf(column) != Role::Kind;
    return isAmount && isNothing(*choice.operands[1], tokens_) && sameMeaning(column, *choice.operands[2]);
  }

  const BoundSelect& select_;
  const Tokens& tokens_;
  int source_;
  Roles roles_;
};

}  // namespace velmo::store::sql
