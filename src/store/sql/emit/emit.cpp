#include "store/sql/emit/emit.h"

#include <utility>

#include "store/sql/emit/emitter.h"

namespace velmo::store::sql {
namespace {

void addTable(const std::string& name, CompiledStatement& compiled) {
  for (const std::string& known : compiled.tables) {
    if (known == name) return;
  }
  compiled.tables.push_back(name);
}

void addTables(const BoundSelect& select, CompiledStatement& compiled) {
  for (const BoundSource& source : select.sources) {
    if (source.table != nullptr) {
      addTable(source.table->name, compiled);
    } else {
      addTables(*source.derived, compiled);
    }
  }
}

ResultColumn resultColumn(const BoundSelect& select, const BoundItem& item) {
  ResultColumn result{.name = item.name, .type = item.type};
  const Bound& expression = *item.expression;
  if (expression.meaning != Meaning::Column || select.aggregated || select.distinct) return result;
  const BoundSource& source = select.sources[static_cast<std::size_t>(expression.source)];
  if (source.table == nullptr) return result;
  result.table = source.table->name;
  result.tableAlias = source.name;
  result.column = source.columns[static_cast<std::size_t>(expression.column)].name;
  return result;
}

// The pieces of a select that a cursor can walk by key: one table under its own name, ordered by its columns.
std::optional<SingleTableSelect> singleTable(const BoundSelect& select) {
  if (select.sources.size() != 1 || select.aggregated || select.distinct || select.top) return std::nullopt;
  const BoundSource& source = select.sources[0];
  if (source.table == nullptr || source.name != source.table->name) return std::nullopt;
  SingleTableSelect single{.table = source.table->name};
  for (const BoundOrder& order : select.orderBy) {
    if (order.expression->meaning != Meaning::Column) return std::nullopt;
    single.order.push_back({.column = source.columns[static_cast<std::size_t>(order.expression->column)].name,
                            .descending = order.descending});
  }
  writeItems(select, single.columnsSql);
  if (!select.where.empty()) ExpressionWriter(select, single.whereSql).all(select.where);
  return single;
}

void emitSelect(const BoundSelect& select, CompiledStatement& compiled) {
  compiled.kind = StatementKind::Select;
  addTables(select, compiled);
  for (const BoundItem& item : select.items) compiled.columns.push_back(resultColumn(select, item));
  writeSelect(select, RowOrder::Unneeded, compiled.sql);
  compiled.singleTable = singleTable(select);
}

void writeSet(const BoundChange& change, std::string& sql) {
  std::string_view separator = " SET ";
  for (const BoundAssignment& assignment : change.assignments) {
    sql += std::exchange(separator, ", ");
    writeName(assignment.column->name, sql);
    sql += " = ";
    ExpressionWriter(change.rows, sql).value(*assignment.value);
  }
}

// A change of joined tables finds the rows and their new values first: a row that joins several others takes one of
// their values.
void writeJoinedUpdate(const BoundChange& change, std::string& sql) {
  const BoundSource& target = change.rows.sources[static_cast<std::size_t>(change.target)];
  std::string set = " SET ";
  std::string values;
  for (std::size_t i = 0; i < change.assignments.size(); ++i) {
    const std::string value = "\"value" + std::to_string(i + 1) + "\"";
    if (i > 0) set += ", ";
    writeName(change.assignments[i].column->name, set);
    set += " = \"changed\"." + value;
    values += ", ";
    ExpressionWriter(change.rows, values).value(*change.assignments[i].value);
    values += " AS " + value;
  }
  sql += set + " FROM (SELECT ";
  writeRowKey(change.rows, change.target, sql);
  sql += " AS \"row\"" + values;
  writeFrom(change.rows, RowOrder::Exposed, sql);
  writeWhere(change.rows, sql);
  sql += ") AS \"changed\" WHERE ";
  writeName(target.table->name, sql);
  sql += ".rowid = \"changed\".\"row\"";
}

void writeJoinedDelete(const BoundChange& change, std::string& sql) {
  sql += " WHERE rowid IN (SELECT ";
  writeRowKey(change.rows, change.target, sql);
  writeFrom(change.rows, RowOrder::Exposed, sql);
  writeWhere(change.rows, sql);
  sql += ')';
}

void emitChange(const BoundChange& change, CompiledStatement& compiled) {
  compiled.kind = change.deletes ? StatementKind::Delete : StatementKind::Update;
  const BoundSource& target = change.rows.sources[static_cast<std::size_t>(change.target)];
  addTable(target.table->name, compiled);
  addTables(change.rows, compiled);
  std::string& sql = compiled.sql;
  sql = change.deletes ? "DELETE FROM " : "UPDATE ";
  writeName(target.table->name, sql);
  if (change.rows.sources.size() > 1) {
    return change.deletes ? writeJoinedDelete(change, sql) : writeJoinedUpdate(change, sql);
  }
  if (target.name != target.table->name) {
    sql += " AS ";
    writeName(target.name, sql);
  }
  if (!change.deletes) writeSet(change, sql);
  writeWhere(change.rows, sql);
}

void emitInsert(const BoundInsert& insert, CompiledStatement& compiled) {
  compiled.kind = StatementKind::Insert;
  addTable(insert.table->name, compiled);
  std::string& sql = compiled.sql;
  sql = "INSERT INTO ";
  writeName(insert.table->name, sql);
  std::string_view separator = " (";
  for (const Column* column : insert.columns) {
    sql += std::exchange(separator, ", ");
    writeName(column->name, sql);
  }
  sql += ") ";
  if (insert.select) {
    addTables(*insert.select, compiled);
    return writeSelect(*insert.select, RowOrder::Unneeded, sql);
  }
  const BoundSelect nothing;
  separator = "VALUES (";
  for (const BoundAssignment& assignment : insert.values) {
    sql += std::exchange(separator, ", ");
    ExpressionWriter(nothing, sql).value(*assignment.value);
  }
  sql += ')';
}

}  // namespace

CompiledStatement emit(const BoundStatement& statement, const Tokens& tokens) {
  CompiledStatement compiled;
  compiled.parameters.reserve(tokens.literals.size());
  for (const Literal& literal : tokens.literals) compiled.parameters.push_back(literal.value);
  if (const auto* select = std::get_if<BoundSelect>(&statement)) {
    emitSelect(*select, compiled);
  } else if (const auto* change = std::get_if<BoundChange>(&statement)) {
    emitChange(*change, compiled);
  } else {
    emitInsert(std::get<BoundInsert>(statement), compiled);
  }
  return compiled;
}

}  // namespace velmo::store::sql
