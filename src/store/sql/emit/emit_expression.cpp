#include "store/sql/emit/emitter.h"

namespace velmo::store::sql {
namespace {

std::string_view symbolOf(Operator operation) {
  switch (operation) {
    case Operator::Multiply:
      return " * ";
    case Operator::Equal:
      return " = ";
    case Operator::NotEqual:
      return " <> ";
    case Operator::Less:
      return " < ";
    case Operator::LessOrEqual:
      return " <= ";
    case Operator::Greater:
      return " > ";
    case Operator::GreaterOrEqual:
      return " >= ";
    case Operator::And:
      return " AND ";
    case Operator::Or:
      return " OR ";
    default:
      return "";
  }
}

}  // namespace

void writeName(std::string_view name, std::string& sql) {
  sql += '"';
  for (const char c : name) {
    if (c == '"') sql += '"';
    sql += c;
  }
  sql += '"';
}

void ExpressionWriter::column(int source, int column) {
  const BoundSource& from = select_.sources[static_cast<std::size_t>(source)];
  writeName(from.name, sql_);
  sql_ += '.';
  writeName(from.columns[static_cast<std::size_t>(column)].name, sql_);
}

void ExpressionWriter::value(const Bound& bound) {
  switch (bound.meaning) {
    case Meaning::Parameter:
      sql_ += '?';
      sql_ += std::to_string(bound.literal + 1);
      return;
    case Meaning::FixedNumber:
      sql_ += bound.digits;
      return;
    case Meaning::YesNo:
      sql_ += bound.yes ? "-1" : "0";
      return;
    case Meaning::Nothing:
      sql_ += "NULL";
      return;
    case Meaning::Column:
      return column(bound.source, bound.column);
    case Meaning::Operation:
      if (!isCondition(bound)) return operation(bound);
      sql_ += "-(";
      condition(bound);
      sql_ += ')';
      return;
    case Meaning::Choose:
      return choice(bound);
    case Meaning::Call:
      sql_ += bound.function;
      return arguments(bound.operands);
    case Meaning::Aggregate:
      return aggregate(bound);
  }
}

void ExpressionWriter::condition(const Bound& bound) {
  if (isCondition(bound)) return operation(bound);
  sql_ += '(';
  value(bound);
  sql_ += " <> 0)";
}

// A whole number alone, whatever its sign, would mean the column of that place.
void ExpressionWriter::key(const Bound& bound) {
  caseless(bound);
  const bool negated = bound.meaning == Meaning::Operation && bound.operation == Operator::Negate;
  if (bound.meaning == Meaning::YesNo || bound.meaning == Meaning::FixedNumber || negated) sql_ += " + 0";
}

void ExpressionWriter::all(const std::vector<BoundPtr>& conditions) {
  balanced(conditions, 0, conditions.size(), " AND ");
}

void ExpressionWriter::caseless(const Bound& bound) {
  value(bound);
  if (needsCollation(bound)) sql_ += " COLLATE NOCASE";
}

// Columns of base tables carry their own collation. Those of derived tables do so only where SQLite sees a column
// through them.
bool ExpressionWriter::isTextColumn(const Bound& bound) const {
  if (bound.meaning != Meaning::Column || bound.domain != Domain::Text) return false;
  const BoundSource& source = select_.sources[static_cast<std::size_t>(bound.source)];
  return source.table != nullptr && !source.kept && !source.groups;
}

void ExpressionWriter::operation(const Bound& bound) {
  switch (bound.operation) {
    case Operator::Negate:
      sql_ += "(- ";  // the blank keeps a negated -1 from becoming a comment
      value(*bound.operands[0]);
      sql_ += ')';
      return;
    case Operator::Add:
      if (bound.domain == Domain::Real) return decimal(bound, "velmo_add");
      return infix(bound, bound.domain == Domain::Text ? " || " : " + ");
    case Operator::Subtract:
      if (bound.domain == Domain::Real) return decimal(bound, "velmo_subtract");
      return infix(bound, " - ");
    case Operator::Multiply:
      return infix(bound, symbolOf(bound.operation));
    case Operator::And:
    case Operator::Or:
      return balanced(bound.operands, 0, bound.operands.size(), symbolOf(bound.operation));
    case Operator::Not:
      sql_ += "(NOT ";
      condition(*bound.operands[0]);
      sql_ += ')';
      return;
    case Operator::IsNull:
      sql_ += '(';
      value(*bound.operands[0]);
      sql_ += bound.negated ? " IS NOT NULL)" : " IS NULL)";
      return;
    case Operator::Like:
      return pattern(bound);
    case Operator::Between:
      return range(bound);
    case Operator::In:
      return list(bound);
    default:
      return comparison(bound);
  }
}

void ExpressionWriter::decimal(const Bound& bound, std::string_view function) {
  sql_ += function;
  arguments(bound.operands);
}

void ExpressionWriter::infix(const Bound& bound, std::string_view symbol) {
  sql_ += '(';
  value(*bound.operands[0]);
  sql_ += symbol;
  value(*bound.operands[1]);
  sql_ += ')';
}

// In halves, so that long lists do not nest deeper than SQLite allows.
void ExpressionWriter::balanced(const std::vector<BoundPtr>& operands, std::size_t from, std::size_t to,
                                std::string_view symbol) {
  constexpr std::size_t longestChain = 64;
  if (to - from == 1) return condition(*operands[from]);
  sql_ += '(';
  if (to - from > longestChain) {
    const std::size_t middle = from + (to - from) / 2;
    balanced(operands, from, middle, symbol);
    sql_ += symbol;
    balanced(operands, middle, to, symbol);
  } else {
    for (std::size_t i = from; i < to; ++i) {
      if (i > from) sql_ += symbol;
      condition(*operands[i]);
    }
  }
  sql_ += ')';
}

// A text without the trailing blanks that comparisons ignore. Columns hold none, and stay plain for the indexes.
void ExpressionWriter::comparand(const Bound& bound) {
  const bool mayTrail = bound.domain == Domain::Text && bound.meaning != Meaning::Column;
  if (mayTrail) sql_ += "rtrim(";
  value(bound);
  if (mayTrail) sql_ += ')';
}

void ExpressionWriter::caselessComparand(const Bound& bound) {
  comparand(bound);
  if (needsCollation(bound)) sql_ += " COLLATE NOCASE";
}

void ExpressionWriter::comparison(const Bound& bound) {
  const Bound& left = *bound.operands[0];
  const Bound& right = *bound.operands[1];
  const bool text = left.domain == Domain::Text || right.domain == Domain::Text;
  const bool derivedLeft = left.meaning == Meaning::Column && !isTextColumn(left);
  const bool columnDecides = isTextColumn(left) || (isTextColumn(right) && !derivedLeft);
  sql_ += '(';
  comparand(left);
  if (text && !columnDecides) sql_ += " COLLATE NOCASE";
  sql_ += symbolOf(bound.operation);
  comparand(right);
  sql_ += ')';
}

void ExpressionWriter::pattern(const Bound& bound) {
  const Bound& tested = *bound.operands[0];
  if (bound.like == LikeForm::Plain || bound.like == LikeForm::Escaped) {
    const bool escaped = bound.like == LikeForm::Escaped;
    sql_ += '(';
    caseless(tested);
    sql_ += bound.negated ? " <> " : " = ";
    if (escaped) sql_ += "velmo_plain_text(";
    value(*bound.operands[1]);
    sql_ += escaped ? "))" : ")";
    return;
  }
  if (bound.like == LikeForm::Spellings) {
    sql_ += '(';
    caseless(tested);
    sql_ += bound.negated ? " NOT" : "";
    sql_ += " IN (SELECT value FROM json_each(velmo_spellings(";
    value(*bound.operands[1]);
    sql_ += "))))";
    return;
  }
  sql_ += bound.negated ? "(NOT velmo_like(" : "velmo_like(";
  value(tested);
  sql_ += ", ";
  value(*bound.operands[1]);
  sql_ += bound.negated ? "))" : ")";
}

// The bounds may stand in either order.
void ExpressionWriter::range(const Bound& bound) {
  const auto bounds = [&](std::string_view function) {
    sql_ += function;
    comparand(*bound.operands[1]);
    if (bound.operands[1]->domain == Domain::Text) sql_ += " COLLATE NOCASE";
    sql_ += ", ";
    comparand(*bound.operands[2]);
    sql_ += ')';
  };
  sql_ += '(';
  caselessComparand(*bound.operands[0]);
  sql_ += bound.negated ? " NOT BETWEEN " : " BETWEEN ";
  bounds("min(");
  sql_ += " AND ";
  bounds("max(");
  sql_ += ')';
}

void ExpressionWriter::list(const Bound& bound) {
  sql_ += '(';
  caselessComparand(*bound.operands[0]);
  sql_ += bound.negated ? " NOT IN (" : " IN (";
  for (std::size_t i = 1; i < bound.operands.size(); ++i) {
    if (i > 1) sql_ += ", ";
    comparand(*bound.operands[i]);
  }
  sql_ += "))";
}

void ExpressionWriter::choice(const Bound& bound) {
  sql_ += "iif(";
  condition(*bound.operands[0]);
  for (std::size_t i = 1; i < bound.operands.size(); ++i) {
    sql_ += ", ";
    value(*bound.operands[i]);
  }
  sql_ += ')';
}

void ExpressionWriter::aggregate(const Bound& bound) {
  sql_ += bound.function;
  sql_ += '(';
  if (bound.operands.empty()) {
    sql_ += '*';
  } else {
    caseless(*bound.operands[0]);
  }
  if (bound.function == "velmo_first" || bound.function == "velmo_last") writeRowOrderKeys(select_, sql_);
  sql_ += ')';
}

void ExpressionWriter::arguments(const std::vector<BoundPtr>& operands) {
  sql_ += '(';
  for (std::size_t i = 0; i < operands.size(); ++i) {
    if (i > 0) sql_ += ", ";
    value(*operands[i]);
  }
  sql_ += ')';
}

}  // namespace velmo::store::sql
