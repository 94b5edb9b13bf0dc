#include <utility>

#include "store/sql/emit/emitter.h"

namespace velmo::store::sql {
namespace {

constexpr std::string_view rankColumn = "\"row rank\"";

bool isInnerOnly(const BoundJoin& join) {
  return join.source >= 0 || (!join.outer && isInnerOnly(*join.left) && isInnerOnly(*join.right));
}

// True of an inner join that is written in a row with its sides.
bool standsInRow(const BoundJoin& join) {
  return !join.outer && (isInnerOnly(*join.left) || isInnerOnly(*join.right));
}

bool holds(const BoundJoin& join, int source) {
  return join.source >= 0 ? join.source == source : holds(*join.left, source) || holds(*join.right, source);
}

// Whether a source stands in the parentheses of a join, through which SQLite sees columns but no rowid.
bool isEnclosed(const BoundJoin& join, int source) {
  if (join.source >= 0) return false;
  if (holds(*join.left, source)) return isEnclosed(*join.left, source);
  if (!holds(*join.right, source)) return false;
  return (join.right->source < 0 && !standsInRow(join)) || isEnclosed(*join.right, source);
}

void writeSource(const BoundSelect& select, int index, RowOrder rowOrder, std::string& sql) {
  const BoundSource& source = select.sources[static_cast<std::size_t>(index)];
  if (source.kept) {
    writeKept(select, index, sql);
  } else if (source.groups) {
    writeKeptGroups(select, index, sql);
  } else if (source.table == nullptr) {
    sql += '(';
    writeSelect(*source.derived, rowOrder, sql);
    sql += ')';
  } else if (rowOrder == RowOrder::Exposed && isEnclosed(*select.from, index)) {
    sql += "(SELECT *, rowid AS ";
    sql += rowOrderColumn;
    sql += " FROM ";
    writeName(source.table->name, sql);
    sql += ')';
  } else {
    writeName(source.table->name, sql);
    if (source.name == source.table->name) return;
  }
  sql += " AS ";
  writeName(source.name, sql);
}

void collectLeaves(const BoundJoin& join, std::vector<int>& sources, std::vector<BoundPtr>& conditions) {
  if (join.source >= 0) {
    sources.push_back(join.source);
    return;
  }
  collectLeaves(*join.left, sources, conditions);
  collectLeaves(*join.right, sources, conditions);
  if (join.condition) conditions.push_back(join.condition);
}

// Joins are written without parentheses where they mean the same, since SQLite plans a row of joins as a whole but
// may run a parenthesised one on its own: inner joins on the right are put behind the left ones, and an inner join's
// sides change places where the right one holds an outer join.
class JoinWriter {
 public:
  JoinWriter(const BoundSelect& select, RowOrder rowOrder, std::string& sql)
      : select_(select), rowOrder_(rowOrder), sql_(sql) {}

  void write(const BoundJoin& join) {
    if (join.source >= 0) return writeSource(select_, join.source, rowOrder_, sql_);
    if (join.outer) {
      write(*join.left);
      sql_ += " LEFT JOIN ";
      operand(*join.right);
      return on(join.condition ? std::vector{join.condition} : std::vector<BoundPtr>());
    }
    if (isInnerOnly(*join.right)) return writeInner(*join.left, *join.right, join.condition);
    if (isInnerOnly(*join.left)) return writeInner(*join.right, *join.left, join.condition);
    write(*join.left);
    sql_ += " INNER JOIN ";
    operand(*join.right);
    on(join.condition ? std::vector{join.condition} : std::vector<BoundPtr>());
  }

 private:
  void writeInner(const BoundJoin& first, const BoundJoin& innerOnly, const BoundPtr& condition) {
    write(first);
    std::vector<int> sources;
    std::vector<BoundPtr> conditions;
    collectLeaves(innerOnly, sources, conditions);
    if (condition) conditions.push_back(condition);
    for (const int source : sources) {
      sql_ += " INNER JOIN ";
      writeSource(select_, source, rowOrder_, sql_);
    }
    on(conditions);
  }

  void operand(const BoundJoin& join) {
    if (join.source >= 0) return writeSource(select_, join.source, rowOrder_, sql_);
    sql_ += '(';
    write(join);
    sql_ += ')';
  }

  void on(const std::vector<BoundPtr>& conditions) {
    if (conditions.empty()) return;
    sql_ += " ON ";
    ExpressionWriter(select_, sql_).all(conditions);
  }

  const BoundSelect& select_;
  RowOrder rowOrder_;
  std::string& sql_;
};

void writeOrder(const BoundSelect& select, std::string& sql) {
  std::string_view separator = " ORDER BY ";
  for (const BoundOrder& order : select.orderBy) {
    sql += separator;
    separator = ", ";
    ExpressionWriter(select, sql).key(*order.expression);
    if (order.descending) sql += " DESC";
  }
}

void writeGroups(const BoundSelect& select, std::string& sql) {
  std::string_view separator = " GROUP BY ";
  for (const BoundPtr& group : select.groupBy) {
    sql += separator;
    separator = ", ";
    ExpressionWriter(select, sql).key(*group);
  }
  if (select.having.empty()) return;
  sql += " HAVING ";
  ExpressionWriter(select, sql).all(select.having);
}

std::string rankedName(std::size_t item) {
  return "\"value" + std::to_string(item + 1) + '"';
}

// The order in which a select gives its rows, as a window that numbers them.
void writeRowNumber(const BoundSelect& select, std::string& sql) {
  sql += ", row_number() OVER (";
  std::string keys;
  if (!select.orderBy.empty()) {
    writeOrder(select, keys);
  } else if (!select.groupBy.empty()) {
    for (const BoundPtr& group : select.groupBy) {
      keys += keys.empty() ? " ORDER BY " : ", ";
      ExpressionWriter(select, keys).key(*group);
    }
  } else if (!select.aggregated) {
    writeRowOrderKeys(select, keys);
    if (!keys.empty()) keys = " ORDER BY " + keys.substr(2);
  }
  if (!keys.empty()) sql += keys.substr(1);
  sql += ") AS ";
  sql += rowOrderColumn;
}

// A select that neither orders nor groups gives its rows in the order of its sources, which must then tell theirs.
bool readsSourceOrder(const BoundSelect& select, RowOrder rowOrder) {
  const bool follows = select.orderBy.empty() && select.groupBy.empty() && !select.aggregated;
  return select.readsRowOrder || (rowOrder == RowOrder::Exposed && follows);
}

void writeBody(const BoundSelect& select, RowOrder rowOrder, std::string& sql) {
  writeFrom(select, readsSourceOrder(select, rowOrder) ? RowOrder::Exposed : RowOrder::Unneeded, sql);
  writeWhere(select, sql);
  writeGroups(select, sql);
}

// TOP n gives all rows that tie with the n-th, so rows are ranked by the order. Inside, columns have names of their
// own, since the select's may clash.
void writeRanked(const BoundSelect& select, RowOrder rowOrder, std::string& sql) {
  sql += "SELECT ";
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    if (i > 0) sql += ", ";
    sql += rankedName(i) + " AS ";
    writeName(select.items[i].name, sql);
  }
  if (rowOrder == RowOrder::Exposed) {
    sql += ", ";
    sql += rowOrderColumn;
  }
  sql += " FROM (SELECT ";
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    ExpressionWriter(select, sql).value(*select.items[i].expression);
    sql += " AS " + rankedName(i) + ", ";
  }
  sql += "rank() OVER (";
  std::string order;
  writeOrder(select, order);
  sql += order.substr(1);
  sql += ") AS ";
  sql += rankColumn;
  if (rowOrder == RowOrder::Exposed) writeRowNumber(select, sql);
  writeBody(select, rowOrder, sql);
  sql += ") WHERE ";
  sql += rankColumn;
  sql += " <= " + std::to_string(*select.top) + " ORDER BY ";
  sql += rankColumn;
}

}  // namespace

bool tellsRowOrder(const BoundSelect& select) {
  return !select.distinct;
}

void writeRowKey(const BoundSelect& select, int source, std::string& sql) {
  const BoundSource& from = select.sources[static_cast<std::size_t>(source)];
  writeName(from.name, sql);
  sql += '.';
  const bool hasRowid = from.table != nullptr && !isEnclosed(*select.from, source);
  sql += hasRowid ? std::string_view("rowid") : rowOrderColumn;
}

void writeRowOrderKeys(const BoundSelect& select, std::string& sql) {
  for (std::size_t i = 0; i < select.sources.size(); ++i) {
    const BoundSource& source = select.sources[i];
    if (source.table == nullptr && !tellsRowOrder(*source.derived)) continue;
    sql += ", ";
    writeRowKey(select, static_cast<int>(i), sql);
  }
}

void writeItems(const BoundSelect& select, std::string& sql) {
  std::string_view separator;
  for (const BoundItem& item : select.items) {
    sql += std::exchange(separator, ", ");
    ExpressionWriter writer(select, sql);
    if (select.distinct) {
      writer.caseless(*item.expression);
    } else {
      writer.value(*item.expression);
    }
    sql += " AS ";
    writeName(item.name, sql);
  }
}

void writeFrom(const BoundSelect& select, RowOrder sourceOrder, std::string& sql) {
  if (!select.from) return;
  sql += " FROM ";
  JoinWriter(select, sourceOrder, sql).write(*select.from);
}

void writeWhere(const BoundSelect& select, std::string& sql) {
  if (select.where.empty()) return;
  sql += " WHERE ";
  ExpressionWriter(select, sql).all(select.where);
}

void writeSelect(const BoundSelect& select, RowOrder rowOrder, std::string& sql) {
  const RowOrder exposed = tellsRowOrder(select) ? rowOrder : RowOrder::Unneeded;
  if (select.top && !select.orderBy.empty()) return writeRanked(select, exposed, sql);
  sql += select.distinct ? "SELECT DISTINCT " : "SELECT ";
  writeItems(select, sql);
  if (exposed == RowOrder::Exposed) writeRowNumber(select, sql);
  writeBody(select, exposed, sql);
  writeOrder(select, sql);
  if (select.top) sql += " LIMIT " + std::to_string(*select.top);
}

}  // namespace velmo::store::sql
