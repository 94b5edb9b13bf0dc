#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "store/values/catalog.h"
#include "store/values/value.h"

struct sqlite3_stmt;

namespace velmo::store {

// Rows in little memory: 16 bytes a field, texts side by side in large blocks, and those that come again and again in a
// long table once for many rows. A text that is replaced leaves its old place unused. Rows stand in blocks as well, so
// that a long table grows without being moved.
class CellTable {
 public:
  explicit CellTable(std::size_t columns) : columns_(columns) {}
  ~CellTable();
  CellTable(const CellTable&) = delete;
  CellTable& operator=(const CellTable&) = delete;

  void append();                                                               // a row of nulls
  void append(sqlite3_stmt* statement, const std::vector<ColumnType>& types);  // the row the statement stands on
  Value value(std::size_t row, std::size_t column) const;
  void set(std::size_t row, std::size_t column, const Value& value);
  void clear(std::size_t row);  // nulls

  // Nulls first, numbers and dates by size, texts without regard to the case of A to Z.
  int compare(std::size_t leftRow, std::size_t rightRow, std::size_t column) const;

 private:
  enum class Kind : std::uint8_t { Nothing, YesNo, Whole, Real, Text, Date };
  // Made by `Cell{}`, of nothing.
  struct Cell {
    union {
      std::int64_t whole;
      double real;
      const char* text;
    };
    std::uint32_t size;
    Kind kind;
  };
  static constexpr std::size_t rowsInBlock = 256;

  Cell* newRow();  // not filled in
  Cell* rowAt(std::size_t row) { return rowBlocks_[row / rowsInBlock].get() + row % rowsInBlock * columns_; }
  const Cell& cellAt(std::size_t row, std::size_t column) const {
    return rowBlocks_[row / rowsInBlock][row % rowsInBlock * columns_ + column];
  }
  Cell cellOf(const Value& value);
  Cell cellOf(sqlite3_stmt* statement, int column, ColumnType type);
  Cell textCell(std::string_view text);
  const char* placeOf(std::string_view text);
  static Cell dateCell(const text::DateTime& date);

  std::size_t columns_;
  std::size_t rows_ = 0;
  std::vector<std::unique_ptr<Cell[]>> rowBlocks_;
  std::size_t rowsInLastBlock_ = 0;  // that it has room for; those before are full
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t blockUsed_ = 0;
  std::size_t blockSize_ = 0;
  std::vector<std::string_view> latestTexts_;  // by their hash; of a long table alone
};

// The same order for values, as the store sorts them.
int compareValues(const Value& left, const Value& right);

// A field of the row that a statement stands on, as the result column's type has it. What does not look like the type
// is given as it is.
Value resultValue(sqlite3_stmt* statement, int column, ColumnType type);

}  // namespace velmo::store
