#include "store/sql/bind/kept_balances_select.h"

#include <algorithm>
#include <utility>

#include "store/sql/bind/select_parts.h"

namespace velmo::store::sql {
namespace {

// What a grouping select asks of the documents and lines that it joins.
class GroupsReader {
 public:
  GroupsReader(const BoundSelect& select, const Tokens& tokens, const KeptBalances& balances)
      : select_(select), tokens_(tokens), balances_(balances) {}

  // Whether kept sums can stand for what it reads.
  bool read() {
    if (!groupsPlainly() || !isInnerOnly(*select_.from) || select_.sources.size() != 2) return false;
    documents_ = sourceNamed(select_, balances_.documents);
    lines_ = sourceNamed(select_, balances_.lines);
    if (documents_ < 0 || lines_ < 0) return false;
    std::vector<BoundPtr> tests;
    collectConditions(*select_.from, tests);
    for (const BoundPtr& condition : select_.where) collectTests(condition, tests);
    for (const BoundPtr& condition : select_.having) collectTests(condition, tests);
    return std::ranges::all_of(tests, [this](const BoundPtr& test) { return takes(test); }) && linked_ &&
           std::ranges::find(notExcluded_, false) == notExcluded_.end() && groupsByAll() &&
           std::ranges::all_of(select_.items, [this](const BoundItem& item) { return fits(*item.expression); });
  }

  // Sum([due]) - Sum([settled])
  bool isOpenAmount(const Bound& bound) const {
    return bound.meaning == Meaning::Operation && bound.operation == Operator::Subtract &&
           isSumOf(*bound.operands[0], balances_.due) && isSumOf(*bound.operands[1], balances_.settled);
  }

  // Lets `select`, which is the one that was read, take the groups in place of documents and lines.
  void replaceIn(BoundSelect& select, bool openOnly) {
    select.where.clear();
    select.having.clear();
    select.groupBy.clear();
    select.aggregated = false;
    for (BoundItem& item : select.items) item.expression = ofOneRow(item.expression);
    select.from = without(std::move(select.from), documents_);
    select.sources[static_cast<std::size_t>(lines_)].groups = std::make_shared<const KeptGroups>(
        KeptGroups{.balances = &balances_, .tests = std::move(tests_), .openOnly = openOnly});
  }

 private:
  bool groupsPlainly() const {
    return select_.from && select_.aggregated && !select_.groupBy.empty() && select_.orderBy.empty() &&
           !select_.readsRowOrder && !select_.distinct && !select_.top;
  }

  bool isGroup(const Bound& bound) const {
    return std::ranges::any_of(balances_.groups,
                               [&](const Column& group) { return isColumn(bound, select_, lines_, group.name); });
  }
  bool groupsByAll() const {
    return std::ranges::all_of(select_.groupBy, [this](const BoundPtr& group) { return isGroup(*group); }) &&
           std::ranges::all_of(balances_.groups, [this](const Column& column) {
             return std::ranges::any_of(select_.groupBy, [&](const BoundPtr& group) {
               return isColumn(*group, select_, lines_, column.name);
             });
           });
  }

  bool takes(const BoundPtr& test) {
    if (names(*test, documents_)) return isLink(*test) || isNotExcluded(*test);
    if (!namesGroupsOnly(*test)) return false;
    tests_.push_back(test);
    return true;
  }
  bool namesGroupsOnly(const Bound& bound) const {
    if (bound.meaning == Meaning::Column) return isGroup(bound);
    return bound.meaning != Meaning::Aggregate &&
           std::ranges::all_of(bound.operands, [this](const BoundPtr& operand) { return namesGroupsOnly(*operand); });
  }
  bool isLink(const Bound& test) {
    if (!isEqual(test)) return false;
    const auto isKey = [&](const Bound& one) { return isColumn(one, select_, documents_, balances_.key); };
    const auto isOfLine = [&](const Bound& one) { return isColumn(one, select_, lines_, balances_.link); };
    const Bound& left = *test.operands[0];
    const Bound& right = *test.operands[1];
    if (!(isKey(left) && isOfLine(right)) && !(isOfLine(left) && isKey(right))) return false;
    return linked_ = true;
  }
  bool isNotExcluded(const Bound& test) {
    if (!isEqual(test) || !isNo(*test.operands[1], tokens_)) return false;
    for (std::size_t i = 0; i < notExcluded_.size(); ++i)
      if (isColumn(*test.operands[0], select_, documents_, balances_.excluded[i])) return notExcluded_[i] = true;
    return false;
  }
  static bool isEqual(const Bound& test) {
    return test.meaning == Meaning::Operation && test.operation == Operator::Equal && !test.negated &&
           test.operands.size() == 2;
  }

  bool fits(const Bound& bound) const {
    if (bound.meaning == Meaning::Column) return isGroup(bound);
    if (bound.meaning == Meaning::Aggregate) return isSumOf(bound, balances_.due) || isSumOf(bound, balances_.settled);
    return std::ranges::all_of(bound.operands, [this](const BoundPtr& operand) { return fits(*operand); });
  }
  bool isSumOf(const Bound& bound, std::string_view amount) const {
    return bound.meaning == Meaning::Aggregate && bound.function == "velmo_sum" && bound.operands.size() == 1 &&
           isColumn(*bound.operands[0], select_, lines_, amount);
  }

  const BoundSelect& select_;
  const Tokens& tokens_;
  const KeptBalances& balances_;
  int documents_ = -1;
  int lines_ = -1;
  bool linked_ = false;
  std::vector<bool> notExcluded_ = std::vector<bool>(balances_.excluded.size());
  std::vector<BoundPtr> tests_;
};

// Whether `select` leaves out every row of a source with an amount of its own that is not more than nothing.
bool asksForOpen(const BoundSelect& select, int source, const GroupsReader& reader, const Tokens& tokens) {
  std::vector<BoundPtr> tests;
  for (const BoundPtr& condition : select.where) collectTests(condition, tests);
  const std::vector<BoundItem>& items = select.sources[static_cast<std::size_t>(source)].derived->items;
  return std::ranges::any_of(tests, [&](const BoundPtr& test) {
    if (test->meaning != Meaning::Operation || test->operation != Operator::Greater || test->negated) return false;
    const Bound& column = *test->operands[0];
    return column.meaning == Meaning::Column && column.source == source && isNothing(*test->operands[1], tokens) &&
           reader.isOpenAmount(*items[static_cast<std::size_t>(column.column)].expression);
  });
}

}  // namespace

bool readsBalances(BoundSelect& select, int source, const Tokens& tokens, const KeptBalances& balances) {
  BoundSelect& derived = *select.sources[static_cast<std::size_t>(source)].derived;
  if (select.readsRowOrder) return false;
  GroupsReader reader(derived, tokens, balances);
  if (!reader.read()) return false;
  reader.replaceIn(derived, asksForOpen(select, source, reader, tokens));
  return true;
}

}  // namespace velmo::store::sql
