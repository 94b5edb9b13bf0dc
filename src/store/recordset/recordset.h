#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/connection/connection.h"
#include "store/rows/fields.h"
#include "store/values/catalog.h"
#include "store/values/value.h"

namespace velmo::store {

// AsNeeded keeps no copy of a large single-table list: the cursor walks it by index and reads rows when they are looked
// at, so that it sees what others write when it moves and takes new rows into their place of the order. A statement
// that cannot be walked so, and a batch, are read as All. All keeps its rows, and reads a large result as its rows are
// looked at.
enum class Fetch { All, AsNeeded };

enum class SearchFrom { CurrentRow, NextRow };

struct FieldValue {
  std::string_view name;
  Value value;
};

// A cursor (order, filter, position) over shared rows: the result of a statement, held at the client, edited row by row
// or as a batch. Copies of a Recordset object are the same cursor; clone() makes another cursor over the same rows.
// Field names are case-insensitive. Every operation throws StoreError on failure; reading or writing without a current
// row is ErrorKind::Misuse.
class Recordset {
 public:
  Recordset();
  Recordset(Connection& connection, std::string_view statement, LockType lock = LockType::Optimistic,
            Fetch fetch = Fetch::All);

  void open(Connection& connection, std::string_view statement, LockType lock = LockType::Optimistic,
            Fetch fetch = Fetch::All);
  // A "SHAPE {...} APPEND ({...} RELATE a TO b) AS c" statement: a read-only hierarchy, see chapter().
  void openShape(Connection& connection, std::string_view shapeStatement);
  void close();
  bool isOpen() const;
  // What was typed and not yet written is dropped. Reads the statement again: first row, new rows appear, the sort and
  // filter are kept.
  void requery();

  // Position. The cursor stands on a row, before the first (bof) or behind the last (eof); on an empty set both hold.
  bool bof() const;
  bool eof() const;
  bool isEmpty() const;
  void moveFirst();
  void moveLast();
  void moveNext();
  void movePrevious();
  std::int64_t recordCount() const;  // of the rows that pass the filter
  std::int64_t position() const;     // 0-based in the present order; -1 without a current row
  void moveTo(std::int64_t position);
  Bookmark bookmark() const;
  void setBookmark(Bookmark row);

  // One criterion "column op literal" (= <> < <= > >= like), searched forward; a miss leaves the cursor at eof.
  bool find(std::string_view criterion, SearchFrom from = SearchFrom::CurrentRow);
  void setFilter(std::string_view conditions);  // "" for none; moves to the first match
  void setSort(std::string_view columns);       // "docno asc, trandate desc"; "" restores the statement's order
  std::string sort() const;
  Recordset clone() const;  // no filter, stands on the first row

  // Fields of the current row.
  const std::vector<FieldInfo>& fields() const;
  int fieldIndex(std::string_view name) const;  // -1 when absent
  Value value(std::string_view name) const;
  std::string text(std::string_view name) const;      // textOf(value)
  double number(std::string_view name) const;         // numberOf(value)
  std::int64_t integer(std::string_view name) const;  // integerOf(value)
  bool yes(std::string_view name) const;
  text::DateTime date(std::string_view name) const;

  // Fields of any row, for item views: no movement of the cursor. Positions are of the present order.
  Value valueAt(std::int64_t position, int field) const;
  Bookmark bookmarkAt(std::int64_t position) const;
  // The position, `from` or behind it, of the next row that has something in the field, neither null nor "";
  // recordCount() when there is none.
  std::int64_t nextFilled(std::int64_t from, int field) const;

  // Large results, for item views: the rows read so far, and more of them on demand. recordCount() reads them all.
  bool hasMoreRows() const;
  std::int64_t fetchedCount() const;
  void fetchMore(int rows);

  // Writing. A value that does not fit its column is ErrorKind::Value and changes nothing. Optimistic locks write at
  // update(); batches keep rows pending until updateBatch(), which writes all of them or none: in a transaction of its
  // own, or in the one that is open. That one is lost then: it writes and commits nothing any more.
  void set(std::string_view name, const Value& value);
  void setAt(std::int64_t position, int field, const Value& value);
  void addNew();                                    // a blank current row at the end
  void addNew(std::span<const FieldValue> values);  // inserted at once unless in a batch
  void addNew(std::initializer_list<FieldValue> values) { addNew(std::span(values.begin(), values.size())); }
  void update();
  void update(std::span<const FieldValue> values);
  void update(std::initializer_list<FieldValue> values) { update(std::span(values.begin(), values.size())); }
  void cancelUpdate();
  void remove();  // deletes the current row; it stays current but unreadable until a move
  // Of a batch: deletes every row that has nothing in the field, null or empty. The cursor stands on the first row.
  void removeBlank(std::string_view field);
  void updateBatch();
  void cancelBatch();
  bool isEditing() const;

  // The child rows of the current row of a hierarchy, by the chapter's name; empty when it has none.
  Recordset chapter(std::string_view name) const;

  struct Impl;

 private:
  explicit Recordset(std::shared_ptr<Impl> impl);
  std::shared_ptr<Impl> impl_;
};

}  // namespace velmo::store
