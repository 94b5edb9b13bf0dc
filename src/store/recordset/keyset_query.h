#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/rows/result_source.h"
#include "store/rows/row_condition.h"
#include "store/rows/sort_order.h"

namespace velmo::store {

// A row of a walked table: the result's fields, then its row number and key, then what else orders it.
using WalkedRow = std::vector<Value>;

enum class Direction { Forward, Backward };

// The statements of a walk through one table in the order of some columns and, among equals, of its row number: the
// number that the file gives a row, and the key itself where that is one whole number. A step is a few index
// searches: among the rows that equal this one in all but the last column of the order, then in fewer.
class KeysetQuery {
 public:
  // Nothing when the statement cannot be walked: several tables or calculated columns.
  static std::optional<KeysetQuery> of(const ResultSource& source);

  // None: the statement's own order.
  void orderBy(Connection::Impl& connection, const std::vector<SortItem>& items);
  void setFilter(std::optional<RowCondition> filter) { filter_ = std::move(filter); }
  const std::optional<RowCondition>& filter() const { return filter_; }

  // The first or last row in the order; with a condition the first or last that fits it.
  std::optional<WalkedRow> end(Connection::Impl& connection, Direction from,
                               const RowCondition* condition = nullptr) const;
  std::optional<WalkedRow> next(Connection::Impl& connection, const WalkedRow& row, Direction direction,
                                const RowCondition* condition = nullptr) const;
  std::optional<WalkedRow> byNumber(Connection::Impl& connection, std::int64_t number) const;
  // So many rows, fewer at the end of the list: from a place in the order, or beyond a row, the nearest first.
  std::vector<WalkedRow> from(Connection::Impl& connection, std::int64_t position, std::int64_t most) const;
  std::vector<WalkedRow> neighbours(Connection::Impl& connection, const WalkedRow& row, Direction direction,
                                    std::int64_t most) const;
  std::int64_t count(Connection::Impl& connection) const;
  std::int64_t countBefore(Connection::Impl& connection, const WalkedRow& row) const;

  std::int64_t numberOf(const WalkedRow& row) const { return std::get<std::int64_t>(row[numberSlot_]); }
  bool isNumber(std::size_t slot) const { return columns_[slot] == columns_[numberSlot_]; }
  const std::vector<int>& keySlots() const { return keySlots_; }  // of the key's columns; none in a table without key
  std::size_t slotCount() const { return columns_.size(); }

 private:
  struct OrderColumn {
    std::size_t slot = 0;
    bool descending = false;
  };
  // A condition with all parameters that it and what stands before it need, numbered in their order.
  struct Condition {
    std::string sql;
    std::vector<Value> parameters;
  };

  std::size_t addSlot(const std::string& alias, const std::string& column, ColumnType type);
  // That of a field which reads the column, if there is one.
  std::size_t slotOf(const std::string& alias, const std::string& column, ColumnType type);
  bool isUnique(std::size_t slot) const;
  std::vector<Condition> beyond(const Condition& rest, const WalkedRow& row, Direction direction) const;
  Condition base(const RowCondition* condition) const;
  bool sortsInPassing(Connection::Impl& connection) const;
  std::string selectSql(const Condition& condition, const std::string& tail) const;
  std::string orderSql(Direction direction) const;
  std::vector<WalkedRow> fetch(Connection::Impl& connection, const Condition& condition, const std::string& tail) const;
  std::optional<WalkedRow> fetchOne(Connection::Impl& connection, const Condition& condition,
                                    const std::string& tail) const;
  std::int64_t fetchCount(Connection::Impl& connection, const Condition& condition) const;

  const Table* table_ = nullptr;
  std::string from_;
  std::string select_;  // "SELECT ... FROM ..."
  bool numberOrderNeedsTheTable_ = false;
  std::vector<std::string> columns_;  // of each slot, as SQL
  std::vector<ColumnType> types_;
  std::size_t numberSlot_ = 0;
  std::vector<int> keySlots_;
  Condition where_;
  std::optional<RowCondition> filter_;
  std::vector<OrderColumn> statementOrder_;
  std::vector<OrderColumn> order_;
};

}  // namespace velmo::store
