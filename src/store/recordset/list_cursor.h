#pragma once

#include <optional>

#include "store/hierarchy/hierarchy.h"
#include "store/recordset/cursor.h"
#include "store/rows/row_condition.h"
#include "store/rows/row_set.h"
#include "store/rows/sort_order.h"

namespace velmo::store {

// A cursor over rows that are held at the client: an order and a filter are a list of row ids.
class ListCursor : public Cursor, public TransactionParticipant, public std::enable_shared_from_this<ListCursor> {
 public:
  explicit ListCursor(std::shared_ptr<RowSet> rows);
  // Over a part of the rows of a node of a hierarchy; nullptr for all of them.
  ListCursor(std::shared_ptr<const shape::Node> node, std::shared_ptr<const std::vector<RowId>> part);

  const ResultSource& source() const override { return rows_->source(); }
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
  std::string filter() const override { return filter_ ? filter_->text() : std::string(); }
  void setSort(std::string_view columns) override;
  std::string sort() const override { return sort_; }

  Value value(int field) const override;
  Value valueAt(std::int64_t position, int field) const override;
  Bookmark bookmarkAt(std::int64_t position) const override;
  std::int64_t nextFilled(std::int64_t from, int field) const override;
  bool hasMoreRows() const override { return part_ == nullptr && rows_->hasMore(); }
  std::int64_t fetchedCount() const override;
  void fetchMore(int rows) override { rows_->fetch(rows); }

  void set(int field, const Value& value) override;
  void setAt(std::int64_t position, int field, const Value& value) override;
  void addNew() override;
  void addNew(FieldValues values) override;
  void update() override;
  void update(FieldValues values) override;
  void cancelUpdate() override;
  void remove() override;
  void removeBlank(int field) override;
  void updateBatch() override;
  void cancelBatch() override;
  bool isEditing() const override { return edit_.has_value(); }

  std::shared_ptr<Cursor> chapter(std::string_view name) const override;

  void committed() noexcept override { saved_.reset(); }
  void rolledBack() noexcept override;

 private:
  // Where the cursor stands and what it shows; copied when a transaction is going to change it.
  struct Place {
    std::vector<RowId> view;
    RowId seen = 0;  // rows of the set that the view has taken in
    std::int64_t losses = 0;
    std::int64_t returns = 0;
    std::int64_t position = 0;  // -1 before the first row
    bool onRemoved = false;     // on a row that is gone; `position` is the next one's
  };
  // An edit of the current row that update() ends.
  struct Edit {
    RowId row = 0;
    bool adding = false;
    RowState stateBefore = RowState::Clean;
    RowSet::Edits before;
    std::int64_t positionBefore = 0;
  };
  struct Saved {
    std::shared_ptr<RowSet> rows;
    Place place;
    std::optional<Edit> edit;
    std::string sort;
    std::vector<SortItem> sortItems;
    std::optional<RowCondition> filter;
  };

  // Takes in what others added to or removed from the rows.
  void sync() const {
    if (!isInStep()) catchUp();
  }
  bool isInStep() const {
    return place_.returns == rows_->returns() && place_.losses == rows_->losses() &&
           (part_ != nullptr || place_.seen == rows_->fetched());
  }
  void catchUp() const;
  bool reach(std::int64_t position) const;  // reads on until there is such a row
  void dropLost() const;
  void rebuild() const;  // the view anew, from sort and filter
  bool passes(RowId row) const;
  RowId currentRow() const;
  bool hasCurrentRow() const;
  RowId rowAt(std::int64_t position) const;

  void remember();
  void beginEdit();
  void change(RowId row, FieldValues values);
  void dropEdit();
  RowId appendRow();
  void leaveRemoved();
  void writeBatch();
  std::vector<RowId> pendingRowsInOrder() const;

  std::shared_ptr<RowSet> rows_;
  std::shared_ptr<const shape::Node> node_;
  std::shared_ptr<const std::vector<RowId>> part_;
  std::string sort_;
  std::vector<SortItem> sortItems_;
  std::optional<RowCondition> filter_;
  mutable Place place_;
  std::optional<Edit> edit_;
  std::optional<Saved> saved_;
  std::int64_t savedFor_ = 0;
};

}  // namespace velmo::store
