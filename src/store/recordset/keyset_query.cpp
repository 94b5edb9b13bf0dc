#include "store/recordset/keyset_query.h"

#include <algorithm>

#include "store/rows/cell_table.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

bool isWholeNumber(ColumnType type) {
  return type == ColumnType::Long || type == ColumnType::Integer || type == ColumnType::Byte;
}

// The name of the row number: the key where that is one whole number, else one that no column of the table hides.
std::string numberColumn(const Table& table) {
  if (table.key.size() == 1) {
    const Column* key = table.find(table.key.front());
    if (key != nullptr && isWholeNumber(key->type)) return key->name;
  }
  for (const char* name : {"rowid", "oid", "_rowid_"}) {
    if (table.find(name) == nullptr) return name;
  }
  return "";
}

}  // namespace

std::size_t KeysetQuery::addSlot(const std::string& alias, const std::string& column, ColumnType type) {
  columns_.push_back(quotedName(alias) + "." + quotedName(column));
  types_.push_back(type);
  return columns_.size() - 1;
}

std::size_t KeysetQuery::slotOf(const std::string& alias, const std::string& column, ColumnType type) {
  const auto read = std::ranges::find(columns_, quotedName(alias) + "." + quotedName(column));
  return read == columns_.end() ? addSlot(alias, column, type) : static_cast<std::size_t>(read - columns_.begin());
}

std::optional<KeysetQuery> KeysetQuery::of(const ResultSource& source) {
  const sql::CompiledStatement& statement = *source.statement.compiled;
  if (!statement.singleTable || source.tables.size() != 1) return std::nullopt;
  const Table* table = source.connection->catalog.find(statement.singleTable->table);
  if (table == nullptr || numberColumn(*table).empty()) return std::nullopt;
  if (std::ranges::any_of(source.sources, [](const SourceField& field) { return field.column == nullptr; })) {
    return std::nullopt;
  }
  KeysetQuery query;
  query.table_ = table;
  const std::string& alias = source.tables.front().alias;
  query.from_ = quotedName(table->name) + " AS " + quotedName(alias);
  for (const SourceField& field : source.sources) query.addSlot(alias, field.column->name, field.column->type);
  query.numberSlot_ = query.slotOf(alias, numberColumn(*table), ColumnType::Long);
  for (const std::string& name : table->key) {
    query.keySlots_.push_back(static_cast<int>(query.slotOf(alias, name, table->find(name)->type)));
  }
  query.where_ = {.sql = statement.singleTable->whereSql, .parameters = source.statement.parameters};
  for (const auto& item : statement.singleTable->order) {
    const Column* column = table->find(item.column);
    if (column == nullptr) return std::nullopt;
    query.statementOrder_.push_back(
        {.slot = query.slotOf(alias, column->name, column->type), .descending = item.descending});
  }
  query.select_ = "SELECT ";
  for (const std::string& column : query.columns_)
    query.select_ += (&column == &query.columns_.front() ? "" : ", ") + column;
  query.select_ += " FROM " + query.from_;
  query.orderBy(*source.connection, {});
  return query;
}

void KeysetQuery::orderBy(Connection::Impl& connection, const std::vector<SortItem>& items) {
  numberOrderNeedsTheTable_ = false;
  order_ = items.empty() ? statementOrder_ : std::vector<OrderColumn>{};
  for (const SortItem& item : items) {
    order_.push_back({.slot = static_cast<std::size_t>(item.field), .descending = item.descending});
  }
  // Nothing can tie behind what is unique. Among equals the number runs the way of the last column, as in an index.
  const auto last = std::ranges::find_if(order_, [this](const OrderColumn& column) { return isUnique(column.slot); });
  if (last != order_.end()) {
    order_.erase(last + 1, order_.end());
  } else {
    order_.push_back({.slot = numberSlot_, .descending = !order_.empty() && order_.back().descending});
  }
  // An index that finds the rows of the statement but not in the order of the number makes every step sort all of them;
  // the table itself stands in that order, and the rows looked for are mostly near its end.
  numberOrderNeedsTheTable_ = isNumber(order_.front().slot) && sortsInPassing(connection);
}

bool KeysetQuery::isUnique(std::size_t slot) const {
  const bool isWholeKey =
      keySlots_.size() == 1 && columns_[slot] == columns_[static_cast<std::size_t>(keySlots_.front())];
  return isWholeKey || isNumber(slot);
}

// Whether the store would sort rows to find the first one.
bool KeysetQuery::sortsInPassing(Connection::Impl& connection) const {
  const std::string sql = selectSql(base(nullptr), orderSql(Direction::Forward) + " LIMIT 1");
  PreparedStatement plan = connection.prepare("EXPLAIN QUERY PLAN " + sql);
  constexpr int detail = 3;
  while (plan.step()) {
    if (textOf(columnValue(plan.handle(), detail)).find("TEMP B-TREE") != std::string::npos) return true;
  }
  return false;
}

KeysetQuery::Condition KeysetQuery::base(const RowCondition* condition) const {
  Condition all = where_;
  for (const RowCondition* each : {filter_ ? &*filter_ : nullptr, condition}) {
    if (each == nullptr) continue;
    const std::string sql =
        each->sql([this](int field) { return columns_[static_cast<std::size_t>(field)]; }, all.parameters);
    all.sql = all.sql.empty() ? sql : "(" + all.sql + ") AND (" + sql + ")";
  }
  return all;
}

// The conditions that together hold for all rows beyond this one that fit `rest`, the nearest rows first.
std::vector<KeysetQuery::Condition> KeysetQuery::beyond(const Condition& rest, const WalkedRow& row,
                                                        Direction direction) const {
  std::vector<Condition> conditions;
  auto add = [&](Condition& condition, std::size_t slot, const char* test) {
    if (!condition.sql.empty()) condition.sql += " AND ";
    condition.sql += columns_[slot] + test;
  };
  auto addValue = [&](Condition& condition, std::size_t slot, const char* test) {
    condition.parameters.push_back(row[slot]);
    add(condition, slot, test);
    condition.sql += "?" + std::to_string(condition.parameters.size());
  };
  for (std::size_t same = order_.size(); same-- > 0;) {
    Condition equal{.sql = rest.sql.empty() ? "" : "(" + rest.sql + ")", .parameters = rest.parameters};
    for (std::size_t i = 0; i < same; ++i) {
      const std::size_t slot = order_[i].slot;
      isNull(row[slot]) ? add(equal, slot, " IS NULL") : addValue(equal, slot, " = ");
    }
    const std::size_t slot = order_[same].slot;
    const bool greater = order_[same].descending == (direction == Direction::Backward);
    // Null is less than everything.
    if (greater) {
      conditions.push_back(equal);
      isNull(row[slot]) ? add(conditions.back(), slot, " IS NOT NULL") : addValue(conditions.back(), slot, " > ");
    } else if (!isNull(row[slot])) {
      conditions.push_back(equal);
      addValue(conditions.back(), slot, " < ");
      if (isUnique(slot)) continue;  // and never null
      conditions.push_back(equal);
      add(conditions.back(), slot, " IS NULL");
    }
  }
  return conditions;
}

std::string KeysetQuery::orderSql(Direction direction) const {
  std::string sql = " ORDER BY ";
  const char* separator = "";
  for (const OrderColumn& column : order_) {
    const bool descending = column.descending == (direction == Direction::Forward);
    sql += separator + columns_[column.slot] + (descending ? " DESC" : " ASC");
    separator = ", ";
  }
  return sql;
}

std::string KeysetQuery::selectSql(const Condition& condition, const std::string& tail) const {
  std::string sql = select_;
  if (numberOrderNeedsTheTable_) sql += " NOT INDEXED";
  if (!condition.sql.empty()) sql += " WHERE " + condition.sql;
  return sql + tail;
}

std::vector<WalkedRow> KeysetQuery::fetch(Connection::Impl& connection, const Condition& condition,
                                          const std::string& tail) const {
  PreparedStatement statement = connection.prepare(selectSql(condition, tail));
  for (std::size_t i = 0; i < condition.parameters.size(); ++i) {
    statement.bind(static_cast<int>(i) + 1, condition.parameters[i]);
  }
  std::vector<WalkedRow> rows;
  while (statement.step()) {
    WalkedRow& row = rows.emplace_back();
    row.reserve(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      row.push_back(resultValue(statement.handle(), static_cast<int>(i), types_[i]));
    }
  }
  return rows;
}

std::optional<WalkedRow> KeysetQuery::fetchOne(Connection::Impl& connection, const Condition& condition,
                                               const std::string& tail) const {
  std::vector<WalkedRow> rows = fetch(connection, condition, tail);
  if (rows.empty()) return std::nullopt;
  return std::move(rows.front());
}

std::int64_t KeysetQuery::fetchCount(Connection::Impl& connection, const Condition& condition) const {
  std::string sql = "SELECT count(*) FROM " + from_;
  if (!condition.sql.empty()) sql += " WHERE " + condition.sql;
  PreparedStatement statement = connection.prepare(sql);
  for (std::size_t i = 0; i < condition.parameters.size(); ++i) {
    statement.bind(static_cast<int>(i) + 1, condition.parameters[i]);
  }
  statement.step();
  return std::get<std::int64_t>(columnValue(statement.handle(), 0));
}

std::optional<WalkedRow> KeysetQuery::end(Connection::Impl& connection, Direction from,
                                          const RowCondition* condition) const {
  return fetchOne(connection, base(condition), orderSql(from) + " LIMIT 1");
}

std::optional<WalkedRow> KeysetQuery::next(Connection::Impl& connection, const WalkedRow& row, Direction direction,
                                           const RowCondition* condition) const {
  for (const Condition& step : beyond(base(condition), row, direction)) {
    if (auto found = fetchOne(connection, step, orderSql(direction) + " LIMIT 1")) return found;
  }
  return std::nullopt;
}

std::optional<WalkedRow> KeysetQuery::byNumber(Connection::Impl& connection, std::int64_t number) const {
  return fetchOne(connection, {.sql = columns_[numberSlot_] + " = ?1", .parameters = {number}}, "");
}

std::vector<WalkedRow> KeysetQuery::from(Connection::Impl& connection, std::int64_t position, std::int64_t most) const {
  Condition all = base(nullptr);
  all.parameters.push_back(most);
  all.parameters.push_back(position);
  const std::size_t last = all.parameters.size();
  return fetch(
      connection, all,
      orderSql(Direction::Forward) + " LIMIT ?" + std::to_string(last - 1) + " OFFSET ?" + std::to_string(last));
}

std::vector<WalkedRow> KeysetQuery::neighbours(Connection::Impl& connection, const WalkedRow& row, Direction direction,
                                               std::int64_t most) const {
  std::vector<WalkedRow> found;
  for (Condition& step : beyond(base(nullptr), row, direction)) {
    const std::int64_t missing = most - static_cast<std::int64_t>(found.size());
    if (missing <= 0) break;
    step.parameters.push_back(missing);
    for (WalkedRow& each :
         fetch(connection, step, orderSql(direction) + " LIMIT ?" + std::to_string(step.parameters.size())))
      found.push_back(std::move(each));
  }
  return found;
}

std::int64_t KeysetQuery::count(Connection::Impl& connection) const {
  return fetchCount(connection, base(nullptr));
}

std::int64_t KeysetQuery::countBefore(Connection::Impl& connection, const WalkedRow& row) const {
  std::int64_t total = 0;
  for (const Condition& step : beyond(base(nullptr), row, Direction::Backward)) total += fetchCount(connection, step);
  return total;
}

}  // namespace velmo::store
