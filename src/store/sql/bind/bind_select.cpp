#include <utility>

#include "store/sql/bind/binder.h"

namespace velmo::store::sql {
namespace {

// A grouped test that needs no aggregate holds for all rows of a group or for none, and is asked of the rows: an index
// can then find the group.
bool canAskRows(const Bound& test, const BoundSelect& select) {
  return !test.aggregated && !select.groupBy.empty();
}

}  // namespace

BoundSelect SelectBinder::select(const Select& syntax) {
  bound_.distinct = syntax.distinct;
  bound_.top = syntax.top;
  bindSources(syntax.from.get());
  bindWhere(syntax.where.get());
  bindGroups(syntax);
  collectAliases(syntax);
  aggregatesAllowed_ = true;
  aliasUse_ = AliasUse::BeforeColumns;
  bindItems(syntax);
  aliasUse_ = AliasUse::BehindColumns;
  bindHaving(syntax);
  bindOrder(syntax);
  checkGrouping();
  return std::move(bound_);
}

void SelectBinder::bindWhere(const Expression* where) {
  if (where != nullptr) bound_.where = conjuncts(condition(*where, "WHERE"));
}

void SelectBinder::bindGroups(const Select& syntax) {
  for (const ExpressionPtr& group : syntax.groupBy) bound_.groupBy.push_back(expression(*group, "GROUP BY"));
  bound_.aggregated = !syntax.groupBy.empty();
}

void SelectBinder::collectAliases(const Select& syntax) {
  for (const SelectItem& item : syntax.items) {
    if (item.alias.empty()) continue;
    if (findAlias(item.alias) != nullptr) {
      refuse("SELECT", item.aliasPlace, "Two columns have the name " + std::string(item.alias) + ".");
    }
    aliases_.push_back({.name = item.alias, .place = item.aliasPlace, .definition = item.expression.get()});
  }
}

void SelectBinder::bindItems(const Select& syntax) {
  clause_ = "SELECT";
  std::size_t unnamed = 0;
  for (const SelectItem& item : syntax.items) {
    if (item.star) {
      addStar(item);
    } else {
      addItem(item, unnamed);
    }
  }
  nameClashes();
  for (const BoundItem& item : bound_.items) bound_.aggregated = bound_.aggregated || item.expression->aggregated;
}

void SelectBinder::addStar(const SelectItem& item) {
  if (!item.starQualifier.empty() && findSource(item.starQualifier) < 0) {
    refuse(clause_, item.place, "There is no table " + std::string(item.starQualifier) + " in this statement.");
  }
  if (bound_.sources.empty()) refuse(clause_, item.place, "There is no table to take all columns of.");
  if (bound_.aggregated) refuse(clause_, item.place, "All columns cannot be taken of groups.");
  for (std::size_t s = 0; s < bound_.sources.size(); ++s) {
    const BoundSource& source = bound_.sources[s];
    if (!item.starQualifier.empty() && !sameWord(source.name, item.starQualifier)) continue;
    for (std::size_t c = 0; c < source.columns.size(); ++c) {
      bound_.items.push_back({.name = source.columns[c].name,
                              .type = source.columns[c].type,
                              .expression = columnOf(static_cast<int>(s), static_cast<int>(c), item.place)});
    }
  }
}

void SelectBinder::addItem(const SelectItem& item, std::size_t& unnamed) {
  constexpr std::size_t firstUnnamed = 1000;
  BoundItem bound;
  if (item.alias.empty()) {
    bound.expression = bindExpression(*item.expression);
  } else {
    Expression use;
    use.place = item.aliasPlace;
    bound.expression = bindAlias(*findAlias(item.alias), use);
    bound.name = item.alias;
  }
  bound.type = columnTypeOf(bound.expression->domain);
  const Bound& expression = *bound.expression;
  if (expression.meaning == Meaning::Column) {
    const SourceColumn& column = bound_.sources[static_cast<std::size_t>(expression.source)]
                                     .columns[static_cast<std::size_t>(expression.column)];
    bound.type = column.type;
    if (bound.name.empty()) bound.name = column.name;
  }
  if (bound.name.empty()) bound.name = "Expr" + std::to_string(firstUnnamed + unnamed++);
  bound_.items.push_back(std::move(bound));
}

// Columns of the same name that have no alias take their table's name before their own.
void SelectBinder::nameClashes() {
  std::vector<std::size_t> clashing;
  for (std::size_t i = 0; i < bound_.items.size(); ++i) {
    for (std::size_t other = 0; other < bound_.items.size(); ++other) {
      if (other == i || !sameWord(bound_.items[i].name, bound_.items[other].name)) continue;
      clashing.push_back(i);
      break;
    }
  }
  for (const std::size_t i : clashing) {
    BoundItem& item = bound_.items[i];
    const Bound& expression = *item.expression;
    if (expression.meaning != Meaning::Column || findAlias(item.name) != nullptr) continue;
    item.name = bound_.sources[static_cast<std::size_t>(expression.source)].name + "." + item.name;
  }
}

void SelectBinder::bindHaving(const Select& syntax) {
  if (!syntax.having) return;
  for (BoundPtr& test : conjuncts(condition(*syntax.having, "HAVING"))) {
    bound_.aggregated = bound_.aggregated || test->aggregated;
    if (!bound_.aggregated) refuse("HAVING", test->place, "HAVING needs groups or an aggregate.");
    requireGrouped(*test, "HAVING");
    (canAskRows(*test, bound_) ? bound_.where : bound_.having).push_back(std::move(test));
  }
}

void SelectBinder::bindOrder(const Select& syntax) {
  clause_ = "ORDER BY";
  for (const OrderSyntax& order : syntax.orderBy) {
    const Expression& key = *order.expression;
    if (key.kind != ExpressionKind::FixedNumber) {
      bound_.orderBy.push_back({.expression = bindExpression(key), .descending = order.descending});
      continue;
    }
    std::size_t ordinal = 0;
    for (const char digit : key.name) {
      if (digit < '0' || digit > '9' || ordinal > bound_.items.size()) {
        ordinal = 0;
        break;
      }
      ordinal = ordinal * 10 + static_cast<std::size_t>(digit - '0');
    }
    if (ordinal == 0 || ordinal > bound_.items.size()) refuse(clause_, key.place, "There is no column of this number.");
    bound_.orderBy.push_back({.expression = bound_.items[ordinal - 1].expression, .descending = order.descending});
  }
}

void SelectBinder::checkGrouping() {
  for (const BoundOrder& order : bound_.orderBy) {
    bound_.aggregated = bound_.aggregated || order.expression->aggregated;
  }
  if (bound_.aggregated) {
    for (const BoundItem& item : bound_.items) requireGrouped(*item.expression, "SELECT");
    for (const BoundOrder& order : bound_.orderBy) requireGrouped(*order.expression, "ORDER BY");
  }
  if (!bound_.distinct) return;
  for (const BoundOrder& order : bound_.orderBy) {
    bool selected = false;
    for (const BoundItem& item : bound_.items) selected = selected || sameMeaning(*item.expression, *order.expression);
    if (!selected || bound_.top) {
      refuse("ORDER BY", order.expression->place,
             bound_.top ? "TOP cannot stand beside DISTINCT in an ordered select."
                        : "A distinct select is ordered by its own columns.");
    }
  }
}

void SelectBinder::requireGrouped(const Bound& bound, std::string_view clause) const {
  if (bound.meaning == Meaning::Aggregate) return;
  for (const BoundPtr& group : bound_.groupBy) {
    if (sameMeaning(*group, bound)) return;
  }
  if (bound.meaning == Meaning::Column) {
    const BoundSource& source = bound_.sources[static_cast<std::size_t>(bound.source)];
    refuse(clause, bound.place,
           "The column " + source.columns[static_cast<std::size_t>(bound.column)].name +
               " is neither grouped nor in an aggregate.");
  }
  for (const BoundPtr& operand : bound.operands) requireGrouped(*operand, clause);
}

}  // namespace velmo::store::sql
