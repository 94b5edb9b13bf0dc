#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "store/sql/parse/refusal.h"
#include "store/sql/parse/statement.h"
#include "store/sql/parse/tokens.h"

// The tree of a statement as it is written, before names and types are known. Texts are views of the statement.
namespace velmo::store::sql {

enum class Operator {
  Negate,
  Add,
  Subtract,
  Multiply,
  Divide,
  WholeDivide,
  Modulo,
  Power,
  Concatenate,
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
  And,
  Or,
  Not,
  IsNull,
  Like,
  Between,
  In
};

enum class ExpressionKind { Literal, FixedNumber, Yes, No, Nothing, Name, Operation, Call };

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

struct Expression {
  ExpressionKind kind = ExpressionKind::Nothing;
  Place place;
  int depth = 1;
  int literal = -1;            // of a literal
  std::string_view qualifier;  // of a name: the table or alias before the dot, "" when there is none
  std::string_view name;       // of a name or call; the digits of a fixed number
  Operator operation = Operator::Add;
  bool negated = false;                 // NOT LIKE, NOT IN, NOT BETWEEN, IS NOT NULL
  bool countsRows = false;              // Count(*)
  std::vector<ExpressionPtr> operands;  // And, Or and & hold all their operands side by side
};

struct Select;

struct SourceSyntax;
using SourcePtr = std::unique_ptr<SourceSyntax>;

enum class JoinKind { Inner, Left, Right };

// A table, a derived table or a join of two sources.
struct SourceSyntax {
  Place place;
  std::string_view table;           // of a table
  std::string_view alias;           // "" when there is none
  std::unique_ptr<Select> derived;  // of a derived table
  JoinKind join = JoinKind::Inner;  // of a join
  SourcePtr left, right;
  ExpressionPtr condition;  // none between the members of a list with commas
};

struct SelectItem {
  Place place;
  bool star = false;  // * or table.*
  std::string_view starQualifier;
  ExpressionPtr expression;
  std::string_view alias;
  Place aliasPlace;
};

struct OrderSyntax {
  ExpressionPtr expression;
  bool descending = false;
};

struct Select {
  Place place;
  bool distinct = false;
  std::optional<std::int64_t> top;
  std::vector<SelectItem> items;
  SourcePtr from;
  ExpressionPtr where;
  std::vector<ExpressionPtr> groupBy;
  ExpressionPtr having;
  std::vector<OrderSyntax> orderBy;
};

struct Assignment {
  Place place;
  std::string_view qualifier;
  std::string_view column;
  ExpressionPtr value;
};

struct Update {
  SourcePtr source;
  std::vector<Assignment> assignments;
  ExpressionPtr where;
};

struct Delete {
  std::string_view target;  // the table before ".*", "" when there is none
  Place place;
  SourcePtr source;
  ExpressionPtr where;
};

struct Insert {
  std::string_view table;
  Place place;
  std::vector<Assignment> columns;    // without values
  std::vector<ExpressionPtr> values;  // of VALUES
  std::unique_ptr<Select> select;     // or of a select
};

using Statement = std::variant<Select, Insert, Update, Delete>;

}  // namespace velmo::store::sql
