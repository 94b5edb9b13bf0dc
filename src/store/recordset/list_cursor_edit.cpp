#include <algorithm>
#include <limits>

#include "store/recordset/list_cursor.h"

// The writing half of ListCursor: edits of the current row, new rows, deletions and batches.
namespace velmo::store {
void ListCursor::remember() {
  Connection::Impl& connection = *source().connection;
  if (connection.transaction == 0 || savedFor_ == connection.transaction) return;
  savedFor_ = connection.transaction;
  sync();
  saved_ =
      Saved{.rows = rows_, .place = place_, .edit = edit_, .sort = sort_, .sortItems = sortItems_, .filter = filter_};
  connection.enrol(shared_from_this());
}

void ListCursor::rolledBack() noexcept {
  if (!saved_) return;
  rows_ = std::move(saved_->rows);
  place_ = std::move(saved_->place);
  edit_ = std::move(saved_->edit);
  sort_ = std::move(saved_->sort);
  sortItems_ = std::move(saved_->sortItems);
  filter_ = std::move(saved_->filter);
  saved_.reset();
  savedFor_ = 0;
}

void ListCursor::beginEdit() {
  if (edit_) return;
  const RowId row = currentRow();
  edit_ = Edit{.row = row,
               .adding = false,
               .stateBefore = rows_->state(row),
               .before = rows_->edits(row),
               .positionBefore = place_.position};
}

// A row that is written as it is changed stays as it was when that fails; the values themselves fit already.
void ListCursor::change(RowId row, FieldValues values) {
  if (source().lock != LockType::Optimistic) {
    rows_->edit(row, std::move(values));
    return;
  }
  const RowState stateBefore = rows_->state(row);
  const RowSet::Edits before = rows_->edits(row);
  try {
    rows_->edit(row, std::move(values));
    rows_->write(row);
  } catch (...) {
    rows_->restore(row, stateBefore, before);
    throw;
  }
}

void ListCursor::dropEdit() {
  const Edit edit = std::move(*edit_);
  edit_.reset();
  if (!edit.adding) {
    rows_->restore(edit.row, edit.stateBefore, edit.before);
    return;
  }
  rows_->discard(edit.row);
  sync();
  leaveRemoved();
  place_.position = edit.positionBefore;
}

void ListCursor::set(int field, const Value& value) {
  requireWritable();
  FieldValues kept{{field, source().fittedFor(field, value)}};
  remember();
  beginEdit();
  rows_->edit(edit_->row, std::move(kept));
}

void ListCursor::setAt(std::int64_t position, int field, const Value& value) {
  requireWritable();
  const RowId row = rowAt(position);
  if (hasCurrentRow() && row == currentRow()) {
    set(field, value);
    return;
  }
  FieldValues kept{{field, source().fittedFor(field, value)}};
  remember();
  change(row, std::move(kept));
}

RowId ListCursor::appendRow() {
  requireWritable();
  if (part_ != nullptr) throw readOnlyRecordset();
  update();
  remember();
  sync();
  const std::int64_t positionBefore = place_.onRemoved ? place_.position : position();
  const RowId row = rows_->append();
  while (place_.seen < row) {
    if (passes(place_.seen)) place_.view.push_back(place_.seen);
    ++place_.seen;
  }
  place_.view.push_back(row);
  place_.seen = row + 1;
  leaveRemoved();
  place_.position = static_cast<std::int64_t>(place_.view.size()) - 1;
  edit_ = Edit{.row = row,
               .adding = true,
               .stateBefore = RowState::Gone,
               .before = {},
               .positionBefore = std::max<std::int64_t>(0, positionBefore)};
  return row;
}

void ListCursor::addNew() {
  appendRow();
}

void ListCursor::addNew(FieldValues values) {
  const RowId row = appendRow();
  try {
    change(row, std::move(values));
  } catch (...) {
    dropEdit();
    throw;
  }
  edit_.reset();
}

void ListCursor::update() {
  if (!edit_) return;
  if (source().lock == LockType::Optimistic) {
    remember();
    rows_->write(edit_->row);
  }
  edit_.reset();
}

void ListCursor::update(FieldValues values) {
  requireWritable();
  const RowId row = currentRow();
  remember();
  change(row, std::move(values));
  edit_.reset();
}

void ListCursor::cancelUpdate() {
  if (!edit_) return;
  remember();
  dropEdit();
}

void ListCursor::remove() {
  requireWritable();
  const RowId row = currentRow();
  remember();
  const bool adding = edit_ && edit_->adding;
  if (edit_ && !adding) dropEdit();
  edit_.reset();
  const RowState stateBefore = rows_->state(row);
  const RowSet::Edits before = rows_->edits(row);
  rows_->markDeleted(row);
  if (source().lock == LockType::Optimistic && !adding) {
    try {
      rows_->write(row);
    } catch (...) {
      rows_->restore(row, stateBefore, before);
      throw;
    }
  }
  sync();
}

void ListCursor::removeBlank(int field) {
  requireWritable();
  if (source().lock != LockType::BatchOptimistic) return Cursor::removeBlank(field);
  if (edit_) update();
  remember();
  reach(std::numeric_limits<std::int64_t>::max() - 1);
  std::vector<RowId> blank;
  std::ranges::copy_if(place_.view, std::back_inserter(blank), [&](RowId row) { return rows_->isBlank(row, field); });
  rows_->markDeleted(blank);
  sync();
  if (!isEmpty()) moveFirst();
}

// Deleted rows first, then changed ones, then new ones; among each as they are shown, and then those that are not.
std::vector<RowId> ListCursor::pendingRowsInOrder() const {
  sync();
  const auto isPending = [this](RowId row) { return rows_->isPending(row); };
  std::vector<RowId> pending;
  std::ranges::copy_if(place_.view, std::back_inserter(pending), isPending);
  std::vector<RowId> shown = pending;
  std::ranges::sort(shown);
  for (RowId row = 0; row < rows_->fetched(); ++row) {
    if (isPending(row) && !std::ranges::binary_search(shown, row)) pending.push_back(row);
  }
  std::ranges::stable_sort(pending, {}, [this](RowId row) {
    const RowState state = rows_->state(row);
    return state == RowState::Deleted ? 0 : state == RowState::Modified ? 1 : 2;
  });
  return pending;
}

void ListCursor::writeBatch() {
  remember();
  rows_->write(pendingRowsInOrder());
}

void ListCursor::updateBatch() {
  requireWritable();
  update();
  if (source().lock != LockType::BatchOptimistic || !rows_->hasPendingRows()) return;
  Connection::Impl& connection = *source().connection;
  const bool ownTransaction = connection.transaction == 0;
  if (ownTransaction) connection.begin();
  try {
    writeBatch();
    if (ownTransaction) connection.commit();
  } catch (...) {
    if (ownTransaction) {
      connection.rollback();
    } else {
      connection.undo();
    }
    throw;
  }
}

void ListCursor::cancelBatch() {
  requireWritable();
  remember();
  if (edit_) dropEdit();
  if (source().lock == LockType::BatchOptimistic) {
    for (RowId row = 0; row < rows_->fetched(); ++row) {
      if (rows_->state(row) != RowState::Clean) rows_->discard(row);
    }
  }
  moveFirst();
}

}  // namespace velmo::store
