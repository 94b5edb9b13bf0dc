#include <utility>

#include "store/sql/bind/binder.h"

namespace velmo::store::sql {
namespace {

constexpr const char* mismatch = "A number, a text and a date cannot be put together like this.";

// Binds one operator over operands of known kinds.
class OperationBinder {
 public:
  OperationBinder(const Expression& expression, std::vector<BoundPtr> operands, const BindingContext& context,
                  std::string_view clause)
      : expression_(expression), operands_(std::move(operands)), context_(context), clause_(clause) {}

  BoundPtr run() {
    switch (expression_.operation) {
      case Operator::Negate:
        requireNumbers();
        return operation(first().domain == Domain::Real ? Domain::Real : Domain::Whole);
      case Operator::Add:
        return sum();
      case Operator::Subtract:
        return difference();
      case Operator::Multiply:
        requireNumbers();
        return operation(wider());
      case Operator::Divide:
        return numbersCall("velmo_divide", Domain::Real);
      case Operator::WholeDivide:
        return numbersCall("velmo_whole_divide", Domain::Whole);
      case Operator::Modulo:
        return numbersCall("velmo_modulo", Domain::Whole);
      case Operator::Power:
        return numbersCall("velmo_power", Domain::Real);
      case Operator::Concatenate:
        return concatenation();
      case Operator::And:
      case Operator::Or:
      case Operator::Not:
        for (const BoundPtr& operand : operands_) requireCondition(*operand, clause_);
        return operation(Domain::YesNo);
      case Operator::IsNull:
        return operation(Domain::YesNo);
      case Operator::Like:
        return pattern();
      default:
        makeComparable();
        return operation(Domain::YesNo);
    }
  }

 private:
  const Bound& first() const { return *operands_[0]; }
  const Bound& second() const { return *operands_[1]; }

  BoundPtr operation(Domain domain) {
    return finished({.meaning = Meaning::Operation,
                     .domain = domain,
                     .place = expression_.place,
                     .operation = expression_.operation,
                     .negated = expression_.negated,
                     .operands = std::move(operands_)},
                    clause_);
  }

  BoundPtr call(std::string_view name, Domain domain) {
    return callOf(name, domain, std::move(operands_), expression_.place, clause_);
  }

  void requireNumbers() const {
    for (const BoundPtr& operand : operands_) {
      if (!isNumeric(operand->domain)) refuse(clause_, operand->place, "Here a number is expected.");
    }
  }

  Domain wider() const {
    for (const BoundPtr& operand : operands_) {
      if (operand->domain == Domain::Real) return Domain::Real;
    }
    return Domain::Whole;
  }

  BoundPtr numbersCall(std::string_view name, Domain domain) {
    requireNumbers();
    return call(name, domain);
  }

  BoundPtr sum() {
    if (first().domain == Domain::Text || second().domain == Domain::Text) {
      for (const BoundPtr& operand : operands_) {
        if (operand->domain != Domain::Text && operand->domain != Domain::Nothing) {
          refuse(clause_, expression_.place, mismatch);
        }
      }
      return operation(Domain::Text);
    }
    if (second().domain == Domain::Date) std::swap(operands_[0], operands_[1]);
    if (first().domain == Domain::Date) {
      if (second().domain == Domain::Date) refuse(clause_, expression_.place, "Two dates cannot be added.");
      return call("velmo_add_days", Domain::Date);
    }
    return operation(wider());
  }

  BoundPtr difference() {
    if (first().domain != Domain::Date && second().domain != Domain::Date) {
      requireNumbers();
      return operation(wider());
    }
    if (second().domain == Domain::Date) {
      if (first().domain != Domain::Date && first().domain != Domain::Nothing) {
        refuse(clause_, expression_.place, mismatch);
      }
      return call("velmo_days_between", Domain::Real);
    }
    if (!isNumeric(second().domain)) refuse(clause_, second().place, "Here a number of days is expected.");
    operands_[1] = finished({.meaning = Meaning::Operation,
                             .domain = Domain::Real,
                             .place = second().place,
                             .operation = Operator::Negate,
                             .operands = {operands_[1]}},
                            clause_);
    return call("velmo_add_days", Domain::Date);
  }

  BoundPtr concatenation() {
    constexpr std::size_t mostArguments = 100;
    for (BoundPtr& operand : operands_) {
      if (!isNumeric(operand->domain)) operand = asText(std::move(operand), clause_);  // it writes numbers by itself
    }
    while (operands_.size() > mostArguments) {
      std::vector<BoundPtr> head(operands_.begin(), operands_.begin() + mostArguments);
      operands_.erase(operands_.begin(), operands_.begin() + mostArguments);
      operands_.insert(operands_.begin(),
                       callOf("velmo_concat", Domain::Text, std::move(head), expression_.place, clause_));
    }
    return call("velmo_concat", Domain::Text);
  }

  BoundPtr pattern() {
    const bool plainColumn = first().meaning == Meaning::Column && first().domain == Domain::Text;
    const LikeForm form = second().meaning == Meaning::Parameter
                              ? context_.literals[static_cast<std::size_t>(second().literal)].like
                              : LikeForm::NotPattern;
    operands_[0] = asText(std::move(operands_[0]), clause_);
    operands_[1] = asText(std::move(operands_[1]), clause_);
    return finished({.meaning = Meaning::Operation,
                     .domain = Domain::YesNo,
                     .place = expression_.place,
                     .operation = Operator::Like,
                     .negated = expression_.negated,
                     .like = plainColumn && isWhole(form) ? form : LikeForm::Wildcards,
                     .operands = std::move(operands_)},
                    clause_);
  }

  // A date beside a number is compared as a date, and a text that a function made as the number it spells:
  // Left(AccCode, 5) = 12001. Other kinds must be alike.
  void makeComparable() {
    bool number = false;
    for (const BoundPtr& operand : operands_) {
      number = number || operand->domain == Domain::Whole || operand->domain == Domain::Real;
    }
    for (BoundPtr& operand : operands_) {
      if (!number || operand->meaning != Meaning::Call || operand->domain != Domain::Text) continue;
      const Place place = operand->place;
      operand = callOf("velmo_number", Domain::Real, {std::move(operand)}, place, clause_);
    }
    bool dates = false;
    bool texts = false;
    bool numbers = false;
    for (const BoundPtr& operand : operands_) {
      dates = dates || operand->domain == Domain::Date;
      texts = texts || operand->domain == Domain::Text;
      numbers = numbers || (operand->domain != Domain::Nothing && isNumeric(operand->domain));
    }
    if (texts && (dates || numbers)) refuse(clause_, expression_.place, mismatch);
    if (!dates || !numbers) return;
    for (BoundPtr& operand : operands_) {
      if (operand->domain == Domain::Date || operand->domain == Domain::Nothing) continue;
      const Place place = operand->place;
      operand = callOf("velmo_date", Domain::Date, {std::move(operand)}, place, clause_);
    }
  }

  const Expression& expression_;
  std::vector<BoundPtr> operands_;
  const BindingContext& context_;
  std::string_view clause_;
};

}  // namespace

void requireCondition(const Bound& bound, std::string_view clause) {
  if (bound.domain == Domain::YesNo || bound.domain == Domain::Nothing) return;
  refuse(clause, bound.place, "Here a condition is expected.");
}

BoundPtr boundOperation(const Expression& expression, std::vector<BoundPtr> operands, const BindingContext& context,
                        std::string_view clause) {
  return OperationBinder(expression, std::move(operands), context, clause).run();
}

}  // namespace velmo::store::sql
