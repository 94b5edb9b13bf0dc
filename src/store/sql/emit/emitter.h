#pragma once

#include <string>
#include <string_view>

#include "store/sql/emit/emit.h"

namespace velmo::store::sql {

// The hidden column by which a derived table tells the order of its rows.
inline constexpr std::string_view rowOrderColumn = "\"row order\"";

// Writes expressions over the sources of one select.
class ExpressionWriter {
 public:
  ExpressionWriter(const BoundSelect& select, std::string& sql) : select_(select), sql_(sql) {}

  void value(const Bound& bound);      // Yes and No are -1 and 0
  void condition(const Bound& bound);  // anything but 0 and null holds
  void all(const std::vector<BoundPtr>& conditions);
  // For DISTINCT and aggregates: texts that differ by case alone are equal.
  void caseless(const Bound& bound);
  void key(const Bound& bound);  // the same, for GROUP BY and ORDER BY
  void column(int source, int column);

 private:
  void operation(const Bound& bound);
  void comparison(const Bound& bound);
  void comparand(const Bound& bound);
  void caselessComparand(const Bound& bound);
  void pattern(const Bound& bound);
  void range(const Bound& bound);
  void list(const Bound& bound);
  void choice(const Bound& bound);
  void aggregate(const Bound& bound);
  void arguments(const std::vector<BoundPtr>& operands);
  void infix(const Bound& bound, std::string_view symbol);
  void decimal(const Bound& bound, std::string_view function);
  void balanced(const std::vector<BoundPtr>& operands, std::size_t from, std::size_t to, std::string_view symbol);
  bool isTextColumn(const Bound& bound) const;
  bool needsCollation(const Bound& bound) const { return bound.domain == Domain::Text && !isTextColumn(bound); }

  const BoundSelect& select_;
  std::string& sql_;
};

enum class RowOrder { Unneeded, Exposed };

// emit_select.cpp
void writeSelect(const BoundSelect& select, RowOrder rowOrder, std::string& sql);
void writeFrom(const BoundSelect& select, RowOrder sourceOrder, std::string& sql);
void writeWhere(const BoundSelect& select, std::string& sql);
// What tells a source's row from its other rows. Where the source stands in a join's parentheses, its order must have
// been exposed.
void writeRowKey(const BoundSelect& select, int source, std::string& sql);
// The expressions that tell in which order rows come out of the sources, each with ", " before it.
void writeRowOrderKeys(const BoundSelect& select, std::string& sql);
bool tellsRowOrder(const BoundSelect& select);
void writeItems(const BoundSelect& select, std::string& sql);
void writeName(std::string_view name, std::string& sql);

// emit_kept.cpp
void writeKept(const BoundSelect& select, int source, std::string& sql);

// emit_kept_groups.cpp
void writeKeptGroups(const BoundSelect& select, int source, std::string& sql);

}  // namespace velmo::store::sql
