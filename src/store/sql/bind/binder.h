#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/sql/bind/bind.h"

namespace velmo::store::sql {

// What all parts of a statement share while it is bound.
struct BindingContext {
  const Catalog& catalog;
  const std::vector<Literal>& literals;
};

// How large one expression may grow when aliases stand in each other's definitions.
inline constexpr std::size_t heaviestExpression = 20'000;  // nodes
inline constexpr int deepestExpression = 400;

// An expression for assignment to a column, with the conversion that the column's type asks for.
BoundPtr convertedTo(ColumnType type, BoundPtr value, std::string_view clause);

// Nodes (bind_nodes.cpp). A node that grows beyond the limits is refused.
BoundPtr finished(Bound node, std::string_view clause);
BoundPtr callOf(std::string_view storeName, Domain domain, std::vector<BoundPtr> operands, const Place& place,
                std::string_view clause);
BoundPtr asText(BoundPtr value, std::string_view clause);

// The meaning of operators and functions (bind_operations.cpp, bind_calls.cpp), operands being bound already.
BoundPtr boundOperation(const Expression& expression, std::vector<BoundPtr> operands, const BindingContext& context,
                        std::string_view clause);
BoundPtr boundCall(const Expression& expression, std::vector<BoundPtr> operands, std::string_view clause);
void requireCondition(const Bound& bound, std::string_view clause);

// Binds one select: its sources, then the clauses in the order in which they take effect.
class SelectBinder {
 public:
  explicit SelectBinder(const BindingContext& context) : context_(context) {}

  BoundSelect select(const Select& syntax);

  // For statements that write: sources and WHERE alone, then single expressions over those sources.
  void bindSources(const SourceSyntax* from);
  void bindWhere(const Expression* where);
  BoundPtr expression(const Expression& expression, std::string_view clause);
  BoundSelect& bound() { return bound_; }
  int findSource(std::string_view name) const;  // -1 when there is none

 private:
  enum class AliasUse { None, BeforeColumns, BehindColumns };
  enum class AliasState { Unbound, Binding, Bound };
  struct Alias {
    std::string_view name;
    Place place = {};
    const Expression* definition = nullptr;
    BoundPtr bound = {};
    AliasState state = AliasState::Unbound;
    bool namesItself = false;  // means a column of the same name wherever it stands
  };

  std::unique_ptr<BoundJoin> join(const SourceSyntax& syntax);
  std::unique_ptr<BoundJoin> leaf(const SourceSyntax& syntax);
  void addSource(BoundSource source);

  void collectAliases(const Select& syntax);
  void bindItems(const Select& syntax);
  void addStar(const SelectItem& item);
  void addItem(const SelectItem& item, std::size_t& unnamed);
  void nameClashes();
  void bindGroups(const Select& syntax);
  void bindHaving(const Select& syntax);
  void bindOrder(const Select& syntax);
  void checkGrouping();
  void requireGrouped(const Bound& bound, std::string_view clause) const;

  BoundPtr bindExpression(const Expression& expression);
  BoundPtr bindName(const Expression& expression);
  BoundPtr bindAlias(Alias& alias, const Expression& use);
  Alias* findAlias(std::string_view name);
  BoundPtr findColumn(const Expression& expression) const;
  BoundPtr columnOf(int source, int column, const Place& place) const;
  BoundPtr condition(const Expression& expression, std::string_view clause);

  const BindingContext& context_;
  BoundSelect bound_;
  std::vector<Alias> aliases_;
  Alias* defining_ = nullptr;
  AliasUse aliasUse_ = AliasUse::None;
  bool aggregatesAllowed_ = false;
  std::string_view clause_;
  std::size_t firstVisible_ = 0;  // sources that an ON may name
};

Domain domainOf(ColumnType type);
ColumnType columnTypeOf(Domain domain);
std::vector<BoundPtr> conjuncts(BoundPtr condition);

}  // namespace velmo::store::sql
