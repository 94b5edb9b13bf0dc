#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "store/sql/bind/function_table.h"
#include "store/sql/parse/syntax.h"
#include "store/values/catalog.h"

// The tree of a statement with every name, type and alias settled. Conversions that the dialect makes by itself stand
// in it as calls, so that the emitter decides nothing.
namespace velmo::store::sql {

enum class Meaning {
  Parameter,  // a literal
  FixedNumber,
  YesNo,  // the words Yes and No
  Nothing,
  Column,
  Operation,
  Choose,  // IIf: condition, then, else
  Call,
  Aggregate
};

struct Bound;
using BoundPtr = std::shared_ptr<const Bound>;

struct Bound {
  Meaning meaning = Meaning::Nothing;
  Domain domain = Domain::Nothing;
  Place place = {};
  int literal = -1;              // of a parameter
  std::string_view digits = {};  // of a fixed number
  bool yes = false;              // of a Yes/No word
  int source = -1;               // of a column: index into the sources of its select
  int column = -1;               // of a column: index into the source's columns
  Operator operation = Operator::Add;
  bool negated = false;
  LikeForm like = LikeForm::NotPattern;
  std::string_view function = {};  // the store's name, of a call or aggregate
  std::vector<BoundPtr> operands = {};
  int depth = 1;
  std::size_t weight = 1;   // nodes below and including this one, the bounds of BETWEEN twice, as they are written
  bool aggregated = false;  // an aggregate stands in it
};

// True of comparisons and their combinations, which the store writes as 1 and 0.
bool isCondition(const Bound& bound);
// True of a number that can be calculated with.
bool isNumeric(Domain domain);
// The same with each column of one source that `other` gives another for; null where it has one that it gives none for.
BoundPtr withColumns(const BoundPtr& bound, int source, const std::function<BoundPtr(const Bound&)>& other);
// The same columns, literals and operations.
bool sameMeaning(const Bound& a, const Bound& b);
// Whether it names any column of a source, or no column of another.
bool names(const Bound& bound, int source);
bool namesOnly(const Bound& bound, int source);
// An expression over a group of one row without its sums: they are rounded only.
BoundPtr ofOneRow(const BoundPtr& expression);

struct SourceColumn {
  std::string name;
  ColumnType type = ColumnType::Text;
};

struct BoundSelect;

// Stands for the lines of KeptTotals under their source's name: their sums by subject, of one group, of some kinds and
// of the days between two literals. Where nulls are told, the sums are by kind, too, which is one more column then.
struct KeptRange {
  struct End {
    BoundPtr day = {};  // a literal; none leaves this side open
    bool included = false;
  };
  const KeptTotals* totals = nullptr;
  BoundPtr group = {};               // a literal
  std::vector<BoundPtr> kinds = {};  // literals; one of them, where the totals are kept by kind
  End from = {};
  End to = {};
  std::vector<BoundPtr> tests = {};  // of subjects and places; all hold
};

// Stands for the lines of KeptBalances under their source's name: their sums by group, one row of each.
struct KeptGroups {
  const KeptBalances* balances = nullptr;
  std::vector<BoundPtr> tests = {};  // of columns of the groups; all hold
  bool openOnly = false;             // what is not open may be left out
};

struct BoundSource {
  std::string name;                               // alias, or the table's name
  const Table* table = nullptr;                   // of a base table
  std::shared_ptr<BoundSelect> derived;           // of a derived table
  std::shared_ptr<const KeptRange> kept = {};     // where a table's rows are read from instead
  std::shared_ptr<const KeptGroups> groups = {};  // likewise
  std::vector<SourceColumn> columns;
  Place place = {};
};

struct BoundJoin {
  int source = -1;     // of a leaf
  bool outer = false;  // LEFT JOIN
  std::unique_ptr<BoundJoin> left, right;
  BoundPtr condition;
};

struct BoundItem {
  std::string name = {};
  ColumnType type = ColumnType::Text;
  BoundPtr expression = {};
};

struct BoundOrder {
  BoundPtr expression = {};
  bool descending = false;
};

struct BoundSelect {
  std::vector<BoundSource> sources;
  std::unique_ptr<BoundJoin> from;  // none without FROM
  std::vector<BoundItem> items;
  std::vector<BoundPtr> where;  // all hold
  std::vector<BoundPtr> groupBy;
  std::vector<BoundPtr> having;  // all hold
  std::vector<BoundOrder> orderBy;
  bool distinct = false;
  bool aggregated = false;  // grouped, or one row of aggregates
  std::optional<std::int64_t> top;
  bool readsRowOrder = false;  // First or Last stands in it
};

struct BoundAssignment {
  const Column* column = nullptr;
  BoundPtr value;
};

// An UPDATE or DELETE: `rows` holds sources and conditions, `target` the source that is written.
struct BoundChange {
  BoundSelect rows;
  int target = 0;
  std::vector<BoundAssignment> assignments;
  bool deletes = false;
};

struct BoundInsert {
  const Table* table = nullptr;
  std::vector<BoundAssignment> values;  // of VALUES
  std::vector<const Column*> columns;   // of a select, beside its items
  std::shared_ptr<BoundSelect> select;
};

using BoundStatement = std::variant<BoundSelect, BoundChange, BoundInsert>;

}  // namespace velmo::store::sql
