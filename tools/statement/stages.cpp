#include "stages.h"

#include <array>

namespace velmo::statement {

using namespace store::sql;

namespace {

constexpr std::array operators{"negate", "+",  "-", "*",  "/",   "\\", "mod", "^",       "&",    "=",       "<>",
                               "<",      "<=", ">", ">=", "and", "or", "not", "is null", "like", "between", "in"};
static_assert(operators.size() == static_cast<std::size_t>(Operator::In) + 1);
constexpr std::array domains{"nothing", "Yes/No", "whole number", "real number", "date", "text"};
static_assert(domains.size() == static_cast<std::size_t>(Domain::Text) + 1);

std::string operatorWord(Operator operation, bool negated) {
  return (negated ? "not " : "") + std::string(operators[static_cast<std::size_t>(operation)]);
}

std::string parameterWord(int literal) {
  return "?" + std::to_string(literal + 1);
}

// Lines of a tree, each as deep as it stands.
class Outline {
 public:
  explicit Outline(std::string& words) : words_(words) {}
  void line(int depth, const std::string& text) {
    words_ += std::string(static_cast<std::size_t>(depth) * 2, ' ') + text + "\n";
  }

  void expression(int depth, const Expression& node) {
    line(depth, wordOf(node));
    for (const ExpressionPtr& operand : node.operands) expression(depth + 1, *operand);
  }
  void source(int depth, const SourceSyntax& node) {
    const std::string alias = node.alias.empty() ? "" : " as " + std::string(node.alias);
    if (node.left) {
      constexpr std::array joins{"inner join", "left join", "right join"};
      line(depth, joins[static_cast<std::size_t>(node.join)]);
      source(depth + 1, *node.left);
      source(depth + 1, *node.right);
      if (node.condition) expression(depth + 1, *node.condition);
    } else if (node.derived) {
      line(depth, "derived table" + alias);
      select(depth + 1, *node.derived);
    } else {
      line(depth, "table " + std::string(node.table) + alias);
    }
  }
  void select(int depth, const Select& node) {
    line(depth, node.distinct ? "select distinct" : "select");
    for (const SelectItem& item : node.items) {
      line(depth + 1, item.star ? "all columns" : item.alias.empty() ? "item" : "item as " + std::string(item.alias));
      if (item.expression) expression(depth + 2, *item.expression);
    }
    if (node.from) clause(depth + 1, "from", [&](int below) { source(below, *node.from); });
    if (node.where) clause(depth + 1, "where", [&](int below) { expression(below, *node.where); });
    for (const ExpressionPtr& group : node.groupBy)
      clause(depth + 1, "group by", [&](int below) { expression(below, *group); });
    if (node.having) clause(depth + 1, "having", [&](int below) { expression(below, *node.having); });
    for (const OrderSyntax& order : node.orderBy)
      clause(depth + 1, order.descending ? "order by, descending" : "order by",
             [&](int below) { expression(below, *order.expression); });
  }
  void assignments(const std::vector<Assignment>& all) {
    for (const Assignment& assignment : all)
      clause(1, "set " + std::string(assignment.column), [&](int below) {
        if (assignment.value) expression(below, *assignment.value);
      });
  }

  void bound(int depth, const BoundSelect& of, const Bound& node) {
    line(depth, wordOf(of, node) + ": " + domains[static_cast<std::size_t>(node.domain)]);
    for (const BoundPtr& operand : node.operands) bound(depth + 1, of, *operand);
  }
  void bound(int depth, const BoundSelect& select) {
    for (const BoundSource& source : select.sources) {
      const std::string kept = source.kept     ? ", read as the kept totals " + source.kept->totals->name
                               : source.groups ? ", read as the kept balances " + source.groups->balances->name
                                               : "";
      line(depth, "source " + source.name + kept);
      if (source.derived) bound(depth + 1, *source.derived);
    }
    for (const BoundItem& item : select.items)
      clause(depth, "item " + item.name, [&](int below) { bound(below, select, *item.expression); });
    boundClauses(depth, "where", select, select.where);
    boundClauses(depth, "group by", select, select.groupBy);
    boundClauses(depth, "having", select, select.having);
    for (const BoundOrder& order : select.orderBy)
      clause(depth, order.descending ? "order by, descending" : "order by",
             [&](int below) { bound(below, select, *order.expression); });
  }
  template <typename Below>
  void clause(int depth, const std::string& word, Below below) {
    line(depth, word);
    below(depth + 1);
  }

 private:
  static std::string wordOf(const Expression& node) {
    switch (node.kind) {
      case ExpressionKind::Literal:
        return parameterWord(node.literal);
      case ExpressionKind::Name:
        return (node.qualifier.empty() ? "" : std::string(node.qualifier) + ".") + std::string(node.name);
      case ExpressionKind::Operation:
        return operatorWord(node.operation, node.negated);
      case ExpressionKind::Call:
        return std::string(node.name) + (node.countsRows ? "(*)" : "()");
      case ExpressionKind::FixedNumber:
        return std::string(node.name);
      case ExpressionKind::Yes:
        return "Yes";
      case ExpressionKind::No:
        return "No";
      case ExpressionKind::Nothing:
        break;
    }
    return "Null";
  }
  static std::string wordOf(const BoundSelect& of, const Bound& node) {
    switch (node.meaning) {
      case Meaning::Parameter:
        return parameterWord(node.literal);
      case Meaning::FixedNumber:
        return std::string(node.digits);
      case Meaning::YesNo:
        return node.yes ? "Yes" : "No";
      case Meaning::Column: {
        const BoundSource& source = of.sources[static_cast<std::size_t>(node.source)];
        return source.name + "." + source.columns[static_cast<std::size_t>(node.column)].name;
      }
      case Meaning::Operation:
        return operatorWord(node.operation, node.negated);
      case Meaning::Choose:
        return "choose";
      case Meaning::Call:
      case Meaning::Aggregate:
        return std::string(node.function) + "()";
      case Meaning::Nothing:
        break;
    }
    return "Null";
  }
  void boundClauses(int depth, const char* word, const BoundSelect& select, const std::vector<BoundPtr>& parts) {
    for (const BoundPtr& part : parts) clause(depth, word, [&](int below) { bound(below, select, *part); });
  }

  std::string& words_;
};

void tell(Outline& outline, const Select& select) {
  outline.select(0, select);
}
void tell(Outline& outline, const Insert& insert) {
  outline.line(0, "insert into " + std::string(insert.table));
  outline.assignments(insert.columns);
  for (const ExpressionPtr& value : insert.values)
    outline.clause(1, "value", [&](int below) { outline.expression(below, *value); });
  if (insert.select) outline.select(1, *insert.select);
}
void tell(Outline& outline, const Update& update) {
  outline.line(0, "update");
  outline.source(1, *update.source);
  outline.assignments(update.assignments);
  if (update.where) outline.clause(1, "where", [&](int below) { outline.expression(below, *update.where); });
}
void tell(Outline& outline, const Delete& deletion) {
  outline.line(0, "delete");
  outline.source(1, *deletion.source);
  if (deletion.where) outline.clause(1, "where", [&](int below) { outline.expression(below, *deletion.where); });
}

void tell(Outline& outline, const BoundSelect& select) {
  outline.bound(0, select);
}
void tell(Outline& outline, const BoundChange& change) {
  outline.bound(0, change.rows);
  for (const BoundAssignment& assignment : change.assignments)
    outline.clause(0, "set " + assignment.column->name,
                   [&](int below) { outline.bound(below, change.rows, *assignment.value); });
}
void tell(Outline& outline, const BoundInsert& insert) {
  const BoundSelect none;
  outline.line(0, "into " + insert.table->name);
  for (const BoundAssignment& value : insert.values)
    outline.clause(0, "set " + value.column->name, [&](int below) { outline.bound(below, none, *value.value); });
  if (insert.select) outline.bound(0, *insert.select);
}

}  // namespace

std::string wordsOf(const Tokens& tokens, std::string_view statement) {
  std::string words;
  for (const Token& token : tokens.tokens) {
    if (token.kind == TokenKind::End) break;
    const std::string_view asWritten = statement.substr(token.place.position, token.place.length);
    words += (words.empty() ? "" : "  ") + (token.literal < 0 ? std::string(asWritten) : parameterWord(token.literal));
  }
  return words + "\n";
}

std::string wordsOf(const Statement& tree) {
  std::string words;
  Outline outline(words);
  std::visit([&](const auto& statement) { tell(outline, statement); }, tree);
  return words;
}

std::string wordsOf(const BoundStatement& bound) {
  std::string words;
  Outline outline(words);
  std::visit([&](const auto& statement) { tell(outline, statement); }, bound);
  return words;
}

}  // namespace velmo::statement
