#pragma once

#include <deque>
#include <optional>

#include "store/recordset/cursor.h"
#include "store/recordset/keyset_query.h"
#include "store/rows/row_writer.h"

namespace velmo::store {

// A cursor that holds one row and finds its neighbours by index: it costs the same in a table of any size. It sees what
// others write as soon as it moves.
class KeysetCursor : public Cursor, public TransactionParticipant, public std::enable_shared_from_this<KeysetCursor> {
 public:
  KeysetCursor(const std::shared_ptr<const ResultSource>& source, KeysetQuery query);

  const ResultSource& source() const override { return *source_; }
  std::shared_ptr<Cursor> clone() const override;
  void requery() override;

  bool bof() const override;
  bool eof() const override;
  bool isEmpty() const override;
  void moveFirst() override;
  void moveLast() override;
  void moveNext() override;
  void movePrevious() override;
  std::int64_t recordCount() const override;
  std::int64_t position() const override;
  void moveTo(std::int64_t position) override;
  Bookmark bookmark() const override;
  void setBookmark(Bookmark row) override;
  bool find(std::string_view criterion, SearchFrom from) override;
  void setFilter(std::string_view conditions) override;
  std::string filter() const override { return query_->filter() ? query_->filter()->text() : std::string(); }
  void setSort(std::string_view columns) override;
  std::string sort() const override { return sort_; }

  Value value(int field) const override;
  Value valueAt(std::int64_t position, int field) const override;
  Bookmark bookmarkAt(std::int64_t position) const override;
  bool hasMoreRows() const override { return false; }
  std::int64_t fetchedCount() const override { return recordCount(); }
  void fetchMore(int) override {}

  void set(int field, const Value& value) override;
  void setAt(std::int64_t position, int field, const Value& value) override;
  void addNew() override;
  void addNew(FieldValues values) override;
  void update() override;
  void update(FieldValues values) override;
  void cancelUpdate() override;
  void remove() override;
  void updateBatch() override { update(); }
  void cancelBatch() override { cancelUpdate(); }
  bool isEditing() const override { return edit_.has_value(); }

  void committed() noexcept override { saved_.reset(); }
  void rolledBack() noexcept override;

 private:
  enum class Where { Before, On, OnRemoved, After };
  struct Place {
    Where where = Where::After;
    WalkedRow row;  // of On and OnRemoved
  };
  struct Edit {
    bool adding = false;
    FieldValues changes;
    Place before;
  };
  struct Saved {
    Place place;
    std::optional<Edit> edit;
    std::string sort;
    std::shared_ptr<const KeysetQuery> query;
  };

  Connection::Impl& connection() const;
  void requireRow() const;
  void stand(std::optional<WalkedRow> row, Where otherwise);
  void remember();
  void beginEdit();
  void change(int field, Value value);
  void reload(std::int64_t number);
  std::optional<WalkedRow> wholeRow(const FieldValues& given, const FieldValues& filledIn) const;
  const WalkedRow& rowAt(std::int64_t position) const;
  void forgetLooked() noexcept;

  std::shared_ptr<ResultSource> source_;
  std::shared_ptr<const KeysetQuery> query_;
  std::string sort_;
  Place place_;
  std::optional<Edit> edit_;
  std::optional<Saved> saved_;
  std::int64_t savedFor_ = 0;
  // The rows lately looked at by their positions, one behind the other, and the number of all: good until the program
  // writes, and for a move until another one does.
  struct Looked {
    std::int64_t changes = -1;     // by this program, to any table
    std::int64_t generation = -1;  // of the table, when the first of them were read
    std::int64_t first = 0;        // position of the first
    std::deque<WalkedRow> rows;
    std::int64_t end() const { return first + static_cast<std::int64_t>(rows.size()); }
    bool holds(std::int64_t position) const { return position >= first && position < end(); }
  };
  struct Counted {
    std::int64_t generation = -1;
    std::int64_t rows = 0;
  };
  std::int64_t generation() const;
  void lookAround(std::int64_t position) const;
  mutable Looked looked_;
  mutable Counted counted_;
};

}  // namespace velmo::store
