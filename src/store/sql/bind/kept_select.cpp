#include "store/sql/bind/kept_select.h"

#include <algorithm>
#include <utility>

namespace velmo::store::sql {
namespace {

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

// Takes one source out of inner joins, and their conditions.
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

// What a select asks of the documents and lines that it joins.
class LinesReader {
 public:
  LinesReader(const BoundSelect& select, const Tokens& tokens, const KeptTotals& totals)
      : select_(select), tokens_(tokens), totals_(totals) {}

  // Whether kept totals can stand for what it reads; the range is then known.
  bool read() {
    if (!select_.from || !isInnerOnly(*select_.from)) return false;
    documents_ = tableNamed(totals_.documents);
    lines_ = tableNamed(totals_.lines);
    if (documents_ < 0 || lines_ < 0) return false;
    std::vector<BoundPtr> tests;
    collectConditions(*select_.from, tests);
    for (const BoundPtr& condition : select_.where) collectTests(condition, tests);
    for (const BoundPtr& test : tests)
      if (names(*test, documents_)) {
        if (!takes(*test)) return false;
      } else if (!passesOver(*test)) {
        rest_.push_back(test);
      }
    return linked_ && std::ranges::find(notExcluded_, false) == notExcluded_.end() && range_.group &&
           range_.kinds.empty() == totals_.kind.empty() && passedOver_ != totals_.counted.empty();
  }

  int documents() const { return documents_; }
  int lines() const { return lines_; }
  const std::vector<BoundPtr>& rest() const { return rest_; }  // tests that name no document

  // Lets `select`, which is the one that was read, take the range in place of documents and lines.
  void replaceIn(BoundSelect& select) {
    select.where.clear();
    for (const BoundPtr& test : rest_) (namesOnly(*test, lines_) ? range_.tests : select.where).push_back(test);
    select.from = without(std::move(select.from), documents_);
    select.sources[static_cast<std::size_t>(lines_)].kept = std::make_shared<const KeptRange>(std::move(range_));
  }
  bool isFixed(const Bound& bound) const { return isGroup(bound) || excludedBy(bound) >= 0; }

 private:
  // The one source that reads this table.
  int tableNamed(std::string_view table) const {
    int found = -1;
    for (std::size_t i = 0; i < select_.sources.size(); ++i) {
      const BoundSource& source = select_.sources[i];
      if (source.table == nullptr || source.table->name != table) continue;
      if (found >= 0) return -1;
      found = static_cast<int>(i);
    }
    return found;
  }

  bool isGroup(const Bound& bound) const { return isColumn(bound, select_, documents_, totals_.group); }
  // The number of the column among those that exclude; -1 of any other.
  int excludedBy(const Bound& bound) const {
    for (std::size_t i = 0; i < totals_.excluded.size(); ++i)
      if (isColumn(bound, select_, documents_, totals_.excluded[i])) return static_cast<int>(i);
    return -1;
  }

  // [counted] Is Not Null
  bool passesOver(const Bound& test) {
    const bool asks = !totals_.counted.empty() && test.meaning == Meaning::Operation &&
                      test.operation == Operator::IsNull && test.negated &&
                      isColumn(*test.operands[0], select_, lines_, totals_.counted);
    passedOver_ = passedOver_ || asks;
    return asks;
  }

  bool takes(const Bound& test) {
    if (test.meaning != Meaning::Operation || test.negated) return false;
    if (range_.kinds.empty() && takesKinds(test)) return true;
    if (test.operands.size() != 2) return false;
    const Bound& left = *test.operands[0];
    const Bound& right = *test.operands[1];
    if (isColumn(left, select_, documents_, totals_.day)) return takesDay(test.operation, test.operands[1]);
    if (test.operation != Operator::Equal) return false;
    if (isGroup(left)) return takesGroup(test.operands[1]);
    if (const int excluded = excludedBy(left); excluded >= 0)
      return notExcluded_[static_cast<std::size_t>(excluded)] = isNo(right);
    return linked_ = (isKey(left) && isLink(right)) || (isLink(left) && isKey(right));
  }
  bool isKey(const Bound& bound) const { return isColumn(bound, select_, documents_, totals_.key); }
  bool isLink(const Bound& bound) const { return isColumn(bound, select_, lines_, totals_.link); }
  bool isNo(const Bound& bound) const {
    if (bound.meaning == Meaning::YesNo) return !bound.yes;
    return bound.meaning == Meaning::Parameter && isZero(tokens_.literals[static_cast<std::size_t>(bound.literal)]);
  }

  bool takesGroup(const BoundPtr& value) {
    if (range_.group || !isLiteral(*value) || !isNumeric(value->domain)) return false;
    range_.group = value;
    return true;
  }

  // [kind]=1 Or [kind]=2
  bool takesKinds(const Bound& test) {
    std::vector<BoundPtr> kinds;
    const bool takes = !totals_.kind.empty() && collectKinds(test, kinds);
    if (takes) range_.kinds = std::move(kinds);
    return takes;
  }
  bool collectKinds(const Bound& test, std::vector<BoundPtr>& kinds) const {
    if (test.meaning != Meaning::Operation || test.negated) return false;
    if (test.operation == Operator::Or)
      return std::ranges::all_of(test.operands, [&](const BoundPtr& one) { return collectKinds(*one, kinds); });
    if (test.operands.size() != 2) return false;
    const BoundPtr& value = test.operands[1];
    if (test.operation != Operator::Equal || !isColumn(*test.operands[0], select_, documents_, totals_.kind))
      return false;
    if (!isLiteral(*value) || !isNumeric(value->domain)) return false;
    kinds.push_back(value);
    return true;
  }

  bool takesDay(Operator operation, const BoundPtr& day) {
    switch (operation) {
      case Operator::Less:
      case Operator::LessOrEqual:
        return takesEnd(range_.to, day, operation == Operator::LessOrEqual);
      case Operator::Greater:
      case Operator::GreaterOrEqual:
        return takesEnd(range_.from, day, operation == Operator::GreaterOrEqual);
      default:
        return false;
    }
  }
  static bool takesEnd(KeptRange::End& end, const BoundPtr& day, bool included) {
    if (end.day || !isLiteral(*day) || day->domain != Domain::Date) return false;
    end = {.day = day, .included = included};
    return true;
  }

  const BoundSelect& select_;
  const Tokens& tokens_;
  const KeptTotals& totals_;
  int documents_ = -1;
  int lines_ = -1;
  bool linked_ = false;
  bool passedOver_ = false;
  std::vector<bool> notExcluded_ = std::vector<bool>(totals_.excluded.size());
  std::vector<BoundPtr> rest_;
  KeptRange range_{.totals = &totals_};
};

// What a column of a source is, as far as kept totals can stand for it.
enum class Role {
  Other,
  Subject,
  Amount,       // null counts as nothing, and must be made to
  GivenAmount,  // the same, and a bare sum of it is kept, too
  NetAmount     // made of amounts in which null counts as nothing
};

// The columns of a source by their number.
using Roles = std::vector<Role>;

Roles rolesOf(const BoundSource& lines, const KeptTotals& totals) {
  Roles roles(lines.columns.size());
  for (std::size_t i = 0; i < roles.size(); ++i) {
    const std::string& name = lines.columns[i].name;
    if (sameWord(name, totals.subject)) roles[i] = Role::Subject;
    if (std::ranges::any_of(totals.amounts, [&](const std::string& amount) { return sameWord(name, amount); }))
      roles[i] = totals.counted.empty() ? Role::Amount : Role::GivenAmount;
  }
  return roles;
}

// How a select reads one source: fit for kept totals are subjects, and sums of what grows with the amounts alone.
class Usage {
 public:
  Usage(const BoundSelect& select, const Tokens& tokens, int source, Roles roles)
      : select_(select), tokens_(tokens), source_(source), roles_(std::move(roles)) {}

  bool fits(const Bound& bound) const {
    if (bound.meaning == Meaning::Column) return bound.source != source_ || roleOf(bound) == Role::Subject;
    // Any other aggregate would tell how many lines there are.
    if (bound.meaning == Meaning::Aggregate)
      return bound.function == "velmo_sum" && bound.operands.size() == 1 &&
             (isGiven(*bound.operands[0]) || growsWithAmounts(*bound.operands[0]));
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

  // IIf(IsNull([x]),0,[x])
  bool isNetAmount(const Bound& choice) const {
    const Bound& test = *choice.operands[0];
    if (test.meaning != Meaning::Operation || test.operation != Operator::IsNull || test.negated) return false;
    const Bound& column = *test.operands[0];
    const bool isAmount = column.meaning == Meaning::Column && column.source == source_ &&
                          roleOf(column) != Role::Other && roleOf(column) != Role::Subject;
    return isAmount && isNothing(*choice.operands[1]) && sameMeaning(column, *choice.operands[2]);
  }
  bool isNothing(const Bound& bound) const {
    if (bound.meaning == Meaning::FixedNumber) return bound.digits == "0";
    return bound.meaning == Meaning::Parameter && isZero(tokens_.literals[static_cast<std::size_t>(bound.literal)]);
  }

  const BoundSelect& select_;
  const Tokens& tokens_;
  int source_;
  Roles roles_;
};

// Only a select that asks for the subject itself passes over the lines without one.
bool asksForSubject(const std::vector<BoundPtr>& tests, const Usage& usage, int source) {
  const auto isSubject = [&](const Bound& bound) {
    return bound.meaning == Meaning::Column && bound.source == source && usage.roleOf(bound) == Role::Subject;
  };
  return std::ranges::any_of(tests, [&](const BoundPtr& test) {
    if (test->meaning != Meaning::Operation) return false;
    if (test->operation == Operator::IsNull) return test->negated && isSubject(*test->operands[0]);
    if (test->negated) return false;
    const bool isEqual =
        test->operation == Operator::Equal || (test->operation == Operator::Like && isWhole(test->like));
    return isEqual && (isSubject(*test->operands[0]) || isSubject(*test->operands[1]));
  });
}

// A select from kept totals alone, grouped by what they are kept by: they have one row of each.
void ungroup(BoundSelect& select, const Usage& usage) {
  const bool bySubject = select.groupBy.size() == 1 && select.groupBy[0]->meaning == Meaning::Column &&
                         usage.roleOf(*select.groupBy[0]) == Role::Subject;
  if (!bySubject || !select.having.empty()) return;
  for (BoundItem& item : select.items) item.expression = ofOneRow(item.expression);
  for (BoundOrder& order : select.orderBy) order.expression = ofOneRow(order.expression);
  select.groupBy.clear();
  select.aggregated = false;
}

// A select that joins documents, lines and other tables and groups them.
bool sumsLines(BoundSelect& select, const Tokens& tokens, const KeptTotals& totals) {
  if (!select.aggregated || select.groupBy.empty() || select.readsRowOrder) return false;
  LinesReader reader(select, tokens, totals);
  if (!reader.read()) return false;
  const Usage usage(select, tokens, reader.lines(),
                    rolesOf(select.sources[static_cast<std::size_t>(reader.lines())], totals));
  if (!usage.fits(reader.rest()) || !asksForSubject(reader.rest(), usage, reader.lines())) return false;
  const std::vector<BoundPtr> groups = select.groupBy;
  std::erase_if(select.groupBy, [&](const BoundPtr& group) { return reader.isFixed(*group); });
  const auto namesDocuments = [&](const BoundPtr& expression) { return names(*expression, reader.documents()); };
  const bool fits = !select.groupBy.empty() && usage.fitsClauses() &&
                    std::ranges::none_of(select.items, namesDocuments, &BoundItem::expression) &&
                    std::ranges::none_of(select.groupBy, namesDocuments) &&
                    std::ranges::none_of(select.having, namesDocuments) &&
                    std::ranges::none_of(select.orderBy, namesDocuments, &BoundOrder::expression);
  if (!fits) {
    select.groupBy = groups;
    return false;
  }
  reader.replaceIn(select);
  if (select.from->source == reader.lines()) ungroup(select, usage);
  return true;
}

// What the columns of a derived table are that holds the lines one by one.
Roles rolesOf(const BoundSelect& derived, const Usage& usage, int lines) {
  Roles roles(derived.items.size());
  for (std::size_t i = 0; i < roles.size(); ++i) {
    const Bound& expression = *derived.items[i].expression;
    const bool isColumn = expression.meaning == Meaning::Column && expression.source == lines;
    if (isColumn && usage.roleOf(expression) != Role::Other)
      roles[i] = usage.roleOf(expression);
    else if (usage.growsWithAmounts(expression))
      roles[i] = Role::NetAmount;
  }
  return roles;
}

// A select that groups, and joins a derived table that holds the lines.
bool sumsDerived(const BoundSelect& select, const Tokens& tokens, int source, const KeptTotals& totals) {
  BoundSelect& derived = *select.sources[static_cast<std::size_t>(source)].derived;
  if (derived.aggregated || derived.distinct || derived.top || derived.readsRowOrder || !derived.orderBy.empty() ||
      derived.sources.size() < 2)
    return false;
  LinesReader reader(derived, tokens, totals);
  if (!reader.read()) return false;
  const Usage ofLines(derived, tokens, reader.lines(),
                      rolesOf(derived.sources[static_cast<std::size_t>(reader.lines())], totals));
  const Roles roles = rolesOf(derived, ofLines, reader.lines());
  const Usage usage(select, tokens, source, roles);
  std::vector<BoundPtr> tests = select.where;
  collectConditions(*select.from, tests);
  if (!ofLines.fits(reader.rest()) || !usage.fitsClauses() || !usage.fits(tests)) return false;
  if (!asksForSubject(tests, usage, source) && !asksForSubject(reader.rest(), ofLines, reader.lines())) return false;
  // What nobody reads, and could not be told any more.
  for (std::size_t i = 0; i < roles.size(); ++i)
    if (roles[i] == Role::Other) derived.items[i].expression = std::make_shared<const Bound>();
  reader.replaceIn(derived);
  return true;
}

}  // namespace

void readKeptTotals(BoundSelect& select, const Tokens& tokens, const Catalog& catalog) {
  for (const BoundSource& source : select.sources)
    if (source.derived) readKeptTotals(*source.derived, tokens, catalog);
  for (const KeptTotals& totals : catalog.keptTotals()) {
    if (sumsLines(select, tokens, totals)) return;
    if (!select.aggregated || select.readsRowOrder) continue;
    for (std::size_t i = 0; i < select.sources.size(); ++i)
      if (select.sources[i].derived) sumsDerived(select, tokens, static_cast<int>(i), totals);
  }
}

}  // namespace velmo::store::sql
