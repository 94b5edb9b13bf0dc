#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "store/sql/bind/select_parts.h"

namespace velmo::store::sql {

// What a select asks of the documents and lines that it joins.
class LinesReader {
 public:
  LinesReader(const BoundSelect& select, const Tokens& tokens, const KeptTotals& totals)
      : select_(select), tokens_(tokens), totals_(totals) {}

  // Whether kept totals can stand for what it reads; the range is then known.
  bool read() {
    if (!select_.from || !isInnerOnly(*select_.from)) return false;
    documents_ = sourceNamed(select_, totals_.documents);
    lines_ = sourceNamed(select_, totals_.lines);
    if (documents_ < 0 || lines_ < 0) return false;
    std::vector<BoundPtr> tests;
    collectConditions(*select_.from, tests);
    for (const BoundPtr& condition : select_.where) collectTests(condition, tests);
    for (const BoundPtr& test : tests)
      if (names(*test, documents_)) {
        if (!takes(*test)) return false;
      } else if (asksForPlaces(*test)) {
        range_.tests.push_back(test);
      } else if (!passesOver(*test)) {
        rest_.push_back(test);
      }
    return linked_ && std::ranges::find(notExcluded_, false) == notExcluded_.end() && range_.group &&
           range_.kinds.empty() == totals_.kind.empty() && range_.tests.empty() == totals_.place.empty() &&
           passedOver_ != totals_.counted.empty();
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
  bool isKind(const Bound& bound) const {
    return !totals_.kind.empty() && isColumn(bound, select_, documents_, totals_.kind);
  }

 private:
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

  // [place] = 1, which no null is.
  bool asksForPlaces(const Bound& test) const {
    if (totals_.place.empty() || test.meaning != Meaning::Operation || test.negated || test.operands.size() != 2)
      return false;
    const Bound& value = *test.operands[1];
    switch (test.operation) {
      case Operator::Equal:
      case Operator::Less:
      case Operator::LessOrEqual:
      case Operator::Greater:
      case Operator::GreaterOrEqual:
        return isColumn(*test.operands[0], select_, lines_, totals_.place) && isLiteral(value) &&
               isNumeric(value.domain);
      default:
        return false;
    }
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
      return notExcluded_[static_cast<std::size_t>(excluded)] = isNo(right, tokens_);
    return linked_ = (isKey(left) && isLink(right)) || (isLink(left) && isKey(right));
  }
  bool isKey(const Bound& bound) const { return isColumn(bound, select_, documents_, totals_.key); }
  bool isLink(const Bound& bound) const { return isColumn(bound, select_, lines_, totals_.link); }
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
    if (test.operation != Operator::Equal || !isKind(*test.operands[0])) return false;
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

}  // namespace velmo::store::sql
