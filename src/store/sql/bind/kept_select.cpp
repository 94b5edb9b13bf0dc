#include "store/sql/bind/kept_select.h"

#include <algorithm>
#include <utility>

#include "store/sql/bind/kept_balances_select.h"
#include "store/sql/bind/kept_lines.h"
#include "store/sql/bind/kept_usage.h"
#include "store/sql/bind/select_parts.h"

namespace velmo::store::sql {
namespace {

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

// What reads a select from outside.
struct Outside {
  bool isOrderTold = false;
  std::vector<bool> asked = {};  // of which items by their number rows without a value are passed over
};

Outside outsideOf(const BoundSelect& select, int source, bool isOrderTold) {
  Outside outside{.isOrderTold = isOrderTold};
  outside.asked.resize(select.sources[static_cast<std::size_t>(source)].columns.size());
  for (const BoundPtr& test : testsOn(select, source)) {
    if (test->meaning != Meaning::Operation || test->operation != Operator::Equal || test->negated) continue;
    for (const BoundPtr& side : test->operands)
      if (side->meaning == Meaning::Column && side->source == source)
        outside.asked[static_cast<std::size_t>(side->column)] = true;
  }
  return outside;
}

bool asksForSubject(const BoundSelect& select, const Usage& usage, int lines, const Outside& outside) {
  for (std::size_t i = 0; i < outside.asked.size() && i < select.items.size(); ++i) {
    const Bound& item = *select.items[i].expression;
    const bool isSubject =
        item.meaning == Meaning::Column && item.source == lines && usage.roleOf(item) == Role::Subject;
    if (outside.asked[i] && isSubject) return true;
  }
  return false;
}

// The clauses of a select in which columns of documents may stand.
struct Clauses {
  std::vector<BoundItem> items;
  std::vector<BoundPtr> groupBy, having;
  std::vector<BoundOrder> orderBy;

  static Clauses of(const BoundSelect& select) {
    return {.items = select.items, .groupBy = select.groupBy, .having = select.having, .orderBy = select.orderBy};
  }
  void putIn(BoundSelect& select) && {
    select.items = std::move(items);
    select.groupBy = std::move(groupBy);
    select.having = std::move(having);
    select.orderBy = std::move(orderBy);
  }
};

// Takes out groups that all lines of the range have in common, and lets the kind be a column of the lines where it is
// told. Whether no other column of the documents stands in the clauses.
bool leavesDocuments(BoundSelect& select, const LinesReader& reader, const KeptTotals& totals) {
  std::erase_if(select.groupBy, [&](const BoundPtr& group) { return reader.isFixed(*group); });
  const auto kindColumn = static_cast<int>(select.sources[static_cast<std::size_t>(reader.lines())].columns.size());
  bool leaves = true;
  const auto moved = [&](BoundPtr& expression) {
    expression = withColumns(expression, reader.documents(), [&](const Bound& column) -> BoundPtr {
      if (!totals.tellsNulls() || !reader.isKind(column)) return nullptr;
      auto kind = std::make_shared<Bound>(column);
      kind->source = reader.lines();
      kind->column = kindColumn;
      return kind;
    });
    leaves = leaves && expression;
  };
  for (BoundItem& item : select.items) moved(item.expression);
  for (BoundPtr& group : select.groupBy) moved(group);
  for (BoundPtr& condition : select.having) moved(condition);
  for (BoundOrder& order : select.orderBy) moved(order.expression);
  return leaves && !select.groupBy.empty();
}

// A select that joins documents, lines and other tables and groups them.
bool sumsLines(BoundSelect& select, const Tokens& tokens, const KeptTotals& totals, const Outside& outside) {
  if (!select.aggregated || select.groupBy.empty() || select.readsRowOrder) return false;
  LinesReader reader(select, tokens, totals);
  if (!reader.read()) return false;
  BoundSource& lines = select.sources[static_cast<std::size_t>(reader.lines())];
  const Usage usage(select, tokens, reader.lines(), rolesOf(lines, totals));
  if (!usage.fits(reader.rest()) ||
      !(asksForSubject(reader.rest(), usage, reader.lines()) || asksForSubject(select, usage, reader.lines(), outside)))
    return false;
  Clauses asTheyWere = Clauses::of(select);
  if (!leavesDocuments(select, reader, totals) || !usage.fitsClauses()) {
    std::move(asTheyWere).putIn(select);
    return false;
  }
  if (totals.tellsNulls()) lines.columns.push_back({.name = totals.kind, .type = ColumnType::Integer});
  reader.replaceIn(select);
  if (select.from->source == reader.lines() && !outside.isOrderTold && !totals.tellsNulls()) ungroup(select, usage);
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
  if (totals.tellsNulls() || derived.aggregated || derived.distinct || derived.top || derived.readsRowOrder ||
      !derived.orderBy.empty() || derived.sources.size() < 2)
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
  if (!asksForSubject(testsOn(select, source), usage, source) &&
      !asksForSubject(reader.rest(), ofLines, reader.lines()))
    return false;
  // What nobody reads, and could not be told any more.
  for (std::size_t i = 0; i < roles.size(); ++i)
    if (roles[i] == Role::Other) derived.items[i].expression = std::make_shared<const Bound>();
  reader.replaceIn(derived);
  return true;
}

// Kept sums have no order of their own: where the order of rows is told, by `select` or by one around it, lines are
// grouped by what they are.
void readKept(BoundSelect& select, const Tokens& tokens, const Catalog& catalog, const Outside& outside) {
  const bool isOrderTold = outside.isOrderTold || select.readsRowOrder;
  for (std::size_t i = 0; i < select.sources.size(); ++i) {
    if (!select.sources[i].derived) continue;
    const int source = static_cast<int>(i);
    readKept(*select.sources[i].derived, tokens, catalog, outsideOf(select, source, isOrderTold));
    for (const KeptBalances& balances : catalog.keptBalances())
      if (!isOrderTold && readsBalances(select, source, tokens, balances)) break;
  }
  for (const KeptTotals& totals : catalog.keptTotals()) {
    if (sumsLines(select, tokens, totals, outside)) return;
    if (!select.aggregated || select.readsRowOrder) continue;
    for (std::size_t i = 0; i < select.sources.size(); ++i)
      if (select.sources[i].derived) sumsDerived(select, tokens, static_cast<int>(i), totals);
  }
}

}  // namespace

void readKeptTotals(BoundSelect& select, const Tokens& tokens, const Catalog& catalog) {
  readKept(select, tokens, catalog, {});
}

}  // namespace velmo::store::sql
