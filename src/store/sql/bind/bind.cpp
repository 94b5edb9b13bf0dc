#include "store/sql/bind/bind.h"

#include <utility>

#include "store/sql/bind/binder.h"

namespace velmo::store::sql {
namespace {

const Column& columnNamed(const Table& table, const Assignment& assignment, std::string_view clause) {
  const Column* column = table.find(assignment.column);
  if (column == nullptr) {
    refuse(clause, assignment.place,
           "The table " + table.name + " has no column " + std::string(assignment.column) + ".");
  }
  return *column;
}

int targetNamed(const SelectBinder& binder, const BoundSelect& rows, std::string_view name, const Place& place,
                std::string_view clause) {
  const int target = binder.findSource(name);
  if (target < 0 || rows.sources[static_cast<std::size_t>(target)].table == nullptr) {
    refuse(clause, place, "There is no table " + std::string(name) + " to write to.");
  }
  return target;
}

int targetWithColumn(const BoundSelect& rows, const Assignment& assignment) {
  int found = -1;
  for (std::size_t i = 0; i < rows.sources.size(); ++i) {
    const Table* table = rows.sources[i].table;
    if (table == nullptr || table->find(assignment.column) == nullptr) continue;
    if (found >= 0) refuse("SET", assignment.place, "Several tables have this column.");
    found = static_cast<int>(i);
  }
  if (found < 0) {
    refuse("SET", assignment.place, "No table has a column " + std::string(assignment.column) + ".");
  }
  return found;
}

BoundChange bindUpdate(const Update& update, const BindingContext& context) {
  SelectBinder binder(context);
  binder.bindSources(update.source.get());
  binder.bindWhere(update.where.get());
  BoundChange change;
  const BoundSelect& rows = binder.bound();
  for (const Assignment& assignment : update.assignments) {
    const int target = assignment.qualifier.empty()
                           ? targetWithColumn(rows, assignment)
                           : targetNamed(binder, rows, assignment.qualifier, assignment.place, "SET");
    if (!change.assignments.empty() && target != change.target) {
      refuse("SET", assignment.place, "A statement writes to one table.");
    }
    change.target = target;
    const Column& column = columnNamed(*rows.sources[static_cast<std::size_t>(target)].table, assignment, "SET");
    for (const BoundAssignment& earlier : change.assignments) {
      if (earlier.column == &column) refuse("SET", assignment.place, "A column is set once.");
    }
    change.assignments.push_back(
        {&column, convertedTo(column.type, binder.expression(*assignment.value, "SET"), "SET")});
  }
  change.rows = std::move(binder.bound());
  return change;
}

BoundChange bindDelete(const Delete& syntax, const BindingContext& context) {
  SelectBinder binder(context);
  binder.bindSources(syntax.source.get());
  binder.bindWhere(syntax.where.get());
  BoundChange change;
  change.deletes = true;
  const BoundSelect& rows = binder.bound();
  if (!syntax.target.empty()) {
    change.target = targetNamed(binder, rows, syntax.target, syntax.place, "DELETE");
  } else if (rows.sources.size() > 1) {
    refuse("DELETE", syntax.place, "The table to delete from must be named before the star.");
  } else if (rows.sources[0].table == nullptr) {
    refuse("FROM", rows.sources[0].place, "Rows are deleted from a table.");
  }
  change.rows = std::move(binder.bound());
  return change;
}

void bindInsertedSelect(const Insert& syntax, const BindingContext& context, BoundInsert& insert) {
  insert.select = std::make_shared<BoundSelect>(SelectBinder(context).select(*syntax.select));
  std::vector<BoundItem>& items = insert.select->items;
  if (items.size() != insert.columns.size()) {
    refuse("SELECT", syntax.select->place, "The number of values is not the number of columns.");
  }
  for (std::size_t i = 0; i < items.size(); ++i) {
    items[i].expression = convertedTo(insert.columns[i]->type, std::move(items[i].expression), "SELECT");
  }
}

BoundInsert bindInsert(const Insert& syntax, const BindingContext& context) {
  BoundInsert insert;
  insert.table = context.catalog.find(syntax.table);
  if (insert.table == nullptr) {
    refuse("INSERT", syntax.place, "There is no table " + std::string(syntax.table) + ".");
  }
  for (const Assignment& name : syntax.columns) {
    const Column& column = columnNamed(*insert.table, name, "INSERT");
    for (const Column* earlier : insert.columns) {
      if (earlier == &column) refuse("INSERT", name.place, "A column is named once.");
    }
    insert.columns.push_back(&column);
  }
  if (syntax.columns.empty()) {
    for (const Column& column : insert.table->columns) insert.columns.push_back(&column);
  }
  if (syntax.select) {
    bindInsertedSelect(syntax, context, insert);
    return insert;
  }
  if (syntax.values.size() != insert.columns.size()) {
    refuse("VALUES", syntax.values.front()->place, "The number of values is not the number of columns.");
  }
  SelectBinder binder(context);
  for (std::size_t i = 0; i < insert.columns.size(); ++i) {
    BoundPtr value = binder.expression(*syntax.values[i], "VALUES");
    insert.values.push_back({insert.columns[i], convertedTo(insert.columns[i]->type, std::move(value), "VALUES")});
  }
  return insert;
}

BoundStatement bound(const Statement& statement, const BindingContext& context) {
  if (const auto* select = std::get_if<Select>(&statement)) return SelectBinder(context).select(*select);
  if (const auto* insert = std::get_if<Insert>(&statement)) return bindInsert(*insert, context);
  if (const auto* update = std::get_if<Update>(&statement)) return bindUpdate(*update, context);
  return bindDelete(std::get<Delete>(statement), context);
}

}  // namespace

tl::expected<BoundStatement, CompileError> bind(const Statement& statement, const Tokens& tokens,
                                                const Catalog& catalog) {
  try {
    return bound(statement, BindingContext{catalog, tokens.literals});
  } catch (const Refusal& refusal) {
    return tl::unexpected(refusal.error);
  }
}

}  // namespace velmo::store::sql
