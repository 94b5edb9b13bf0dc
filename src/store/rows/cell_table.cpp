#include "store/rows/cell_table.h"

#include <malloc.h>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

#include "store/sqlite/statement_cache.h"

namespace velmo::store {
namespace {

constexpr std::size_t smallestBlock = 256;
constexpr std::size_t largestBlock = std::size_t{1024} * 1024;
constexpr std::size_t rememberedTexts = 1024;
constexpr std::size_t manyRows = 50'000;

int compareTexts(std::string_view left, std::string_view right) {
  const int order = sqlite3_strnicmp(left.data(), right.data(), static_cast<int>(std::min(left.size(), right.size())));
  if (order != 0) return order < 0 ? -1 : 1;
  return left.size() < right.size() ? -1 : left.size() > right.size() ? 1 : 0;
}

template <class Number>
int compareNumbers(Number left, Number right) {
  return left < right ? -1 : right < left ? 1 : 0;
}

std::string_view textColumn(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

bool isText(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Memo;
}

bool isWhole(ColumnType type) {
  return type == ColumnType::Byte || type == ColumnType::Integer || type == ColumnType::Long;
}

}  // namespace

Value resultValue(sqlite3_stmt* statement, int column, ColumnType type) {
  const int stored = sqlite3_column_type(statement, column);
  if (stored == SQLITE_NULL) return Null{};
  if (isText(type)) return std::string(textColumn(statement, column));
  if (type == ColumnType::Date && stored == SQLITE_TEXT) {
    if (const auto date = text::DateTime::fromIso(textColumn(statement, column))) return *date;
  }
  const bool isNumber = stored == SQLITE_INTEGER || stored == SQLITE_FLOAT;
  if (type == ColumnType::Date && isNumber) return text::DateTime::fromSerial(sqlite3_column_double(statement, column));
  if (type == ColumnType::YesNo && isNumber) return sqlite3_column_double(statement, column) != 0;
  if (type == ColumnType::Double && isNumber) return sqlite3_column_double(statement, column);
  return columnValue(statement, column);
}

int compareValues(const Value& left, const Value& right) {
  if (isNull(left) || isNull(right)) return compareNumbers(isNull(right), isNull(left));
  const auto* leftText = std::get_if<std::string>(&left);
  const auto* rightText = std::get_if<std::string>(&right);
  if (leftText != nullptr && rightText != nullptr) return compareTexts(*leftText, *rightText);
  if (leftText != nullptr || rightText != nullptr) return leftText != nullptr ? 1 : -1;
  const auto* leftWhole = std::get_if<std::int64_t>(&left);
  const auto* rightWhole = std::get_if<std::int64_t>(&right);
  if (leftWhole != nullptr && rightWhole != nullptr) return compareNumbers(*leftWhole, *rightWhole);
  return compareNumbers(numberOf(left), numberOf(right));
}

// What a long table took, the system has back.
CellTable::~CellTable() {
  rowBlocks_.clear();
  blocks_.clear();
  if (rows_ > manyRows) malloc_trim(0);
}

CellTable::Cell* CellTable::newRow() {
  const std::size_t used = rows_ % rowsInBlock;
  const auto room = [this](std::size_t rows) {
    rowsInLastBlock_ = rows;
    return std::make_unique_for_overwrite<Cell[]>(rows * columns_);
  };
  if (used == 0) {
    rowBlocks_.push_back(room(rows_ == 0 ? 1 : rowsInBlock));
  } else if (used == rowsInLastBlock_) {  // the first one begins small
    std::unique_ptr<Cell[]> larger = room(used * 2);
    std::copy_n(rowBlocks_.back().get(), used * columns_, larger.get());
    rowBlocks_.back() = std::move(larger);
  }
  return rowAt(rows_++);
}

void CellTable::append() {
  std::fill_n(newRow(), columns_, Cell{});
}

void CellTable::append(sqlite3_stmt* statement, const std::vector<ColumnType>& types) {
  Cell* const row = newRow();
  for (std::size_t i = 0; i < columns_; ++i) row[i] = cellOf(statement, static_cast<int>(i), types[i]);
}

Value CellTable::value(std::size_t row, std::size_t column) const {
  const Cell& cell = cellAt(row, column);
  switch (cell.kind) {
    case Kind::Nothing:
      return Null{};
    case Kind::YesNo:
      return cell.whole != 0;
    case Kind::Whole:
      return cell.whole;
    case Kind::Real:
      return cell.real;
    case Kind::Text:
      return std::string(cell.text, cell.size);
    case Kind::Date:
      return text::DateTime{.day = static_cast<std::int32_t>(cell.whole),
                            .second = static_cast<std::int32_t>(cell.size)};
  }
  return Null{};
}

void CellTable::set(std::size_t row, std::size_t column, const Value& value) {
  rowAt(row)[column] = cellOf(value);
}

void CellTable::clear(std::size_t row) {
  std::fill_n(rowAt(row), columns_, Cell{});
}

int CellTable::compare(std::size_t leftRow, std::size_t rightRow, std::size_t column) const {
  const Cell& left = cellAt(leftRow, column);
  const Cell& right = cellAt(rightRow, column);
  if (left.kind == right.kind) {
    switch (left.kind) {
      case Kind::Nothing:
        return 0;
      case Kind::Whole:
        return compareNumbers(left.whole, right.whole);
      case Kind::Real:
        return compareNumbers(left.real, right.real);
      case Kind::Text:
        return compareTexts({left.text, left.size}, {right.text, right.size});
      case Kind::Date:
        return left.whole == right.whole ? compareNumbers(left.size, right.size)
                                         : compareNumbers(left.whole, right.whole);
      case Kind::YesNo:
        return compareNumbers(right.whole, left.whole);  // Yes is -1
    }
  }
  return compareValues(value(leftRow, column), value(rightRow, column));
}

CellTable::Cell CellTable::textCell(std::string_view text) {
  Cell cell{};
  cell.kind = Kind::Text;
  cell.size = static_cast<std::uint32_t>(text.size());
  cell.text = text.empty() ? "" : placeOf(text);
  return cell;
}

// Names of accounts and what belongs to one document stand in many rows, mostly near each other.
const char* CellTable::placeOf(std::string_view text) {
  std::string_view* latest = nullptr;
  if (rows_ > rowsInBlock) {
    latestTexts_.resize(rememberedTexts);
    latest = &latestTexts_[std::hash<std::string_view>()(text) % rememberedTexts];
    if (*latest == text) return latest->data();
  }
  if (blockUsed_ + text.size() > blockSize_) {
    blockSize_ = std::max(text.size(), std::clamp(blockSize_ * 2, smallestBlock, largestBlock));
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(blockSize_));
    blockUsed_ = 0;
  }
  char* place = blocks_.back().get() + blockUsed_;
  std::memcpy(place, text.data(), text.size());
  blockUsed_ += text.size();
  if (latest != nullptr) *latest = {place, text.size()};
  return place;
}

CellTable::Cell CellTable::cellOf(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return textCell(*text);
  if (const auto* date = std::get_if<text::DateTime>(&value)) return dateCell(*date);
  Cell cell{};
  if (const auto* yes = std::get_if<bool>(&value)) {
    cell.kind = Kind::YesNo;
    cell.whole = *yes ? 1 : 0;
  } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    cell.kind = Kind::Whole;
    cell.whole = *whole;
  } else if (const auto* real = std::get_if<double>(&value)) {
    cell.kind = Kind::Real;
    cell.real = *real;
  }
  return cell;
}

CellTable::Cell CellTable::dateCell(const text::DateTime& date) {
  Cell cell{};
  cell.kind = Kind::Date;
  cell.whole = date.day;
  cell.size = static_cast<std::uint32_t>(date.second);
  return cell;
}

CellTable::Cell CellTable::cellOf(sqlite3_stmt* statement, int column, ColumnType type) {
  const int stored = sqlite3_column_type(statement, column);
  Cell cell{};
  if (stored == SQLITE_NULL) return cell;
  if (stored == SQLITE_TEXT && isText(type)) return textCell(textColumn(statement, column));
  if (stored == SQLITE_TEXT && type == ColumnType::Date) {
    const std::string_view text = textColumn(statement, column);
    const auto date = text::DateTime::fromIso(text);
    return date ? dateCell(*date) : textCell(text);
  }
  if (stored != SQLITE_TEXT && stored != SQLITE_BLOB && type == ColumnType::Double) {
    cell.kind = Kind::Real;
    cell.real = sqlite3_column_double(statement, column);
    return cell;
  }
  if (stored == SQLITE_INTEGER && isWhole(type)) {
    cell.kind = Kind::Whole;
    cell.whole = sqlite3_column_int64(statement, column);
    return cell;
  }
  return cellOf(resultValue(statement, column, type));
}

}  // namespace velmo::store
