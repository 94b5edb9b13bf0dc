#include "store/sql/kept_select.h"

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

bool names(const Bound& bound, int source) {
  if (bound.meaning == Meaning::Column) return bound.source == source;
  return std::ranges::any_of(bound.operands, [source](const BoundPtr& operand) { return names(*operand, source); });
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
      if (!names(*test, documents_))
        rest_.push_back(test);
      else if (!takes(*test))
        return false;
    return linked_ && notExcluded_ && range_.group;
  }

  int documents() const { return documents_; }
  int lines() const { return lines_; }
  const std::vector<BoundPtr>& rest() const { return rest_; }  // tests that name no document
  KeptRange range() const { return range_; }
  bool isFixed(const Bound& bound) const { return isGroup(bound) || isExcluded(bound); }

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
  bool isExcluded(const Bound& bound) const { return isColumn(bound, select_, documents_, totals_.excluded); }

  bool takes(const Bound& test) {
    if (test.meaning != Meaning::Operation || test.negated) return false;
    if (test.operands.size() != 2) return false;
    const Bound& left = *test.operands[0];
    const Bound& right = *test.operands[1];
    if (isColumn(left, select_, documents_, totals_.day)) return takesDay(test.operation, test.operands[1]);
    if (test.operation != Operator::Equal) return false;
    if (isGroup(left)) return takesGroup(test.operands[1]);
    if (isExcluded(left)) return notExcluded_ = isNo(right);
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
  bool notExcluded_ = false;
  std::vector<BoundPtr> rest_;
  KeptRange range_{.totals = &totals_};
};

// How a select that groups reads one source: fit for kept totals are the subject, and sums of amounts.
class Usage {
 public:
  Usage(const BoundSelect& select, const Tokens& tokens, int source, std::string_view subject,
        const std::vector<std::string>& amounts)
      : select_(select), tokens_(tokens), source_(source), subject_(subject), amounts_(amounts) {}

  bool fits(const Bound& bound) const {
    if (bound.meaning == Meaning::Column) return bound.source != source_ || isColumn(bound, select_, source_, subject_);
    if (bound.meaning == Meaning::Aggregate) return isSum(bound);
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

 private:
  // Any other aggregate would tell how many lines there are.
  bool isSum(const Bound& bound) const {
    if (bound.function != "sum" || bound.operands.size() != 1) return false;
    const Bound& choice = *bound.operands[0];
    if (choice.meaning != Meaning::Choose) return false;
    const Bound& test = *choice.operands[0];
    return test.meaning == Meaning::Operation && test.operation == Operator::IsNull && !test.negated &&
           isAmount(*test.operands[0]) && isNothing(*choice.operands[1]) &&
           sameMeaning(*test.operands[0], *choice.operands[2]);
  }
  bool isAmount(const Bound& bound) const {
    return std::ranges::any_of(amounts_, [&](const std::string& amount) {
      return !amount.empty() && isColumn(bound, select_, source_, amount);
    });
  }
  bool isNothing(const Bound& bound) const {
    if (bound.meaning == Meaning::FixedNumber) return bound.digits == "0";
    return bound.meaning == Meaning::Parameter && isZero(tokens_.literals[static_cast<std::size_t>(bound.literal)]);
  }

  const BoundSelect& select_;
  const Tokens& tokens_;
  int source_;
  std::string_view subject_;
  const std::vector<std::string>& amounts_;
};

// Only a select that asks for the subject itself passes over the lines without one.
bool asksForSubject(const BoundSelect& select, const std::vector<BoundPtr>& tests, int source,
                    std::string_view subject) {
  return std::ranges::any_of(tests, [&](const BoundPtr& test) {
    return test->meaning == Meaning::Operation && test->operation == Operator::Equal && !test->negated &&
           (isColumn(*test->operands[0], select, source, subject) ||
            isColumn(*test->operands[1], select, source, subject));
  });
}

bool isPlain(const BoundSelect& select) {
  return !select.distinct && !select.top && !select.readsRowOrder;
}

// A select that joins documents, lines and other tables and groups them.
bool sumsLines(BoundSelect& select, const Tokens& tokens, const KeptTotals& totals) {
  if (!select.aggregated || select.groupBy.empty() || select.readsRowOrder) return false;
  LinesReader reader(select, tokens, totals);
  if (!reader.read() || !asksForSubject(select, reader.rest(), reader.lines(), totals.subject)) return false;
  const Usage usage(select, tokens, reader.lines(), totals.subject, totals.amounts);
  std::vector<BoundPtr> groups = select.groupBy;
  std::erase_if(groups, [&](const BoundPtr& group) { return reader.isFixed(*group); });
  std::swap(groups, select.groupBy);
  const auto namesDocuments = [&](const BoundPtr& expression) { return names(*expression, reader.documents()); };
  const bool fits = !select.groupBy.empty() && usage.fitsClauses() && usage.fits(reader.rest()) &&
                    std::ranges::none_of(select.items, namesDocuments, &BoundItem::expression) &&
                    std::ranges::none_of(select.groupBy, namesDocuments) &&
                    std::ranges::none_of(select.having, namesDocuments) &&
                    std::ranges::none_of(select.orderBy, namesDocuments, &BoundOrder::expression);
  if (!fits) {
    std::swap(groups, select.groupBy);
    return false;
  }
  KeptRange range = reader.range();
  range.subject = totals.subject;
  range.amounts = totals.amounts;
  select.where = reader.rest();
  select.from = without(std::move(select.from), reader.documents());
  select.sources[static_cast<std::size_t>(reader.lines())].kept = std::make_shared<const KeptRange>(std::move(range));
  return true;
}

// The range of a derived table that holds the lines, column by column.
std::optional<KeptRange> linesOf(const BoundSelect& derived, const Tokens& tokens, const KeptTotals& totals) {
  if (derived.aggregated || !isPlain(derived) || !derived.orderBy.empty() || derived.sources.size() != 2) return {};
  LinesReader reader(derived, tokens, totals);
  if (!reader.read() || !reader.rest().empty()) return {};
  KeptRange range = reader.range();
  range.amounts.resize(totals.amounts.size());
  const auto nameOf = [&](std::string_view column) -> std::string {
    for (const BoundItem& item : derived.items)
      if (isColumn(*item.expression, derived, reader.lines(), column)) return item.name;
    return {};
  };
  range.subject = nameOf(totals.subject);
  for (std::size_t i = 0; i < totals.amounts.size(); ++i) range.amounts[i] = nameOf(totals.amounts[i]);
  if (range.subject.empty()) return {};
  return range;
}

// A select that groups, and joins a derived table that holds the lines.
void sumsDerivedLines(BoundSelect& select, const Tokens& tokens, const KeptTotals& totals) {
  if (!select.aggregated || select.readsRowOrder) return;
  std::vector<BoundPtr> tests = select.where;
  if (select.from) collectConditions(*select.from, tests);
  for (std::size_t i = 0; i < select.sources.size(); ++i) {
    BoundSource& source = select.sources[i];
    if (source.kept || !source.derived) continue;
    std::optional<KeptRange> range = linesOf(*source.derived, tokens, totals);
    if (!range) continue;
    const int index = static_cast<int>(i);
    const Usage usage(select, tokens, index, range->subject, range->amounts);
    if (usage.fitsClauses() && usage.fits(tests) && asksForSubject(select, tests, index, range->subject))
      source.kept = std::make_shared<const KeptRange>(std::move(*range));
  }
}

}  // namespace

void readKeptTotals(BoundSelect& select, const Tokens& tokens, const Catalog& catalog) {
  for (const BoundSource& source : select.sources)
    if (source.derived) readKeptTotals(*source.derived, tokens, catalog);
  for (const KeptTotals& totals : catalog.keptTotals())
    if (!sumsLines(select, tokens, totals)) sumsDerivedLines(select, tokens, totals);
}

}  // namespace velmo::store::sql
