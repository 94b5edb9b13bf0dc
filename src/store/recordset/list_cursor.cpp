#include "store/recordset/list_cursor.h"

#include <algorithm>
#include <span>

namespace velmo::store {

ListCursor::ListCursor(std::shared_ptr<RowSet> rows) : rows_(std::move(rows)) {
  rebuild();
}

ListCursor::ListCursor(std::shared_ptr<const shape::Node> node, std::shared_ptr<const std::vector<RowId>> part)
    : rows_(node->rows), node_(std::move(node)), part_(std::move(part)) {
  rebuild();
}

std::shared_ptr<Cursor> ListCursor::clone() const {
  auto twin = node_ != nullptr ? std::make_shared<ListCursor>(node_, part_) : std::make_shared<ListCursor>(rows_);
  if (!sort_.empty()) twin->setSort(sort_);
  twin->moveFirst();
  return twin;
}

void ListCursor::requery() {
  remember();
  if (edit_) dropEdit();
  rows_ = RowSet::open(std::shared_ptr<const ResultSource>(rows_, &rows_->source()));
  if (filter_ || !sortItems_.empty()) rows_->fetchAll();
  rebuild();
  place_.position = 0;
  place_.onRemoved = false;
}

// --- what the cursor shows

bool ListCursor::passes(RowId row) const {
  return rows_->isThere(row) && (!filter_ || filter_->passes([&](int field) { return rows_->value(row, field); }));
}

void ListCursor::rebuild() const {
  const bool stood =
      !place_.onRemoved && place_.position >= 0 && place_.position < static_cast<std::int64_t>(place_.view.size());
  const RowId current = stood ? place_.view[static_cast<std::size_t>(place_.position)] : -1;
  place_.view.clear();
  if (part_ != nullptr) {
    std::ranges::copy_if(*part_, std::back_inserter(place_.view), [this](RowId row) { return passes(row); });
  } else {
    for (RowId row = 0; row < rows_->fetched(); ++row) {
      if (passes(row)) place_.view.push_back(row);
    }
  }
  if (!sortItems_.empty()) {
    std::ranges::stable_sort(place_.view, [this](RowId left, RowId right) {
      for (const SortItem& item : sortItems_) {
        const int order = rows_->compare(left, right, item.field);
        if (order != 0) return item.descending ? order > 0 : order < 0;
      }
      return false;
    });
  }
  place_.seen = rows_->fetched();
  place_.losses = rows_->losses();
  place_.returns = rows_->returns();
  if (!stood) return;
  const auto found = std::ranges::find(place_.view, current);
  if (found != place_.view.end()) {
    place_.position = found - place_.view.begin();
  } else {
    place_.position = std::min(place_.position, static_cast<std::int64_t>(place_.view.size()));
    place_.onRemoved = true;
  }
}

void ListCursor::dropLost() const {
  std::size_t kept = 0;
  std::int64_t position = place_.position;
  bool onRemoved = place_.onRemoved;
  for (std::size_t i = 0; i < place_.view.size(); ++i) {
    const RowId row = place_.view[i];
    if (rows_->isThere(row)) {
      place_.view[kept++] = row;
      continue;
    }
    if (static_cast<std::int64_t>(i) < place_.position) --position;
    if (static_cast<std::int64_t>(i) == place_.position && !place_.onRemoved) onRemoved = true;
  }
  place_.view.resize(kept);
  place_.position = position;
  place_.onRemoved = onRemoved;
  place_.losses = rows_->losses();
}

void ListCursor::catchUp() const {
  if (place_.returns != rows_->returns()) {
    rebuild();
    return;
  }
  if (place_.losses != rows_->losses()) dropLost();
  if (part_ != nullptr) return;
  for (; place_.seen < rows_->fetched(); ++place_.seen) {
    if (passes(place_.seen)) place_.view.push_back(place_.seen);
  }
}

bool ListCursor::reach(std::int64_t position) const {
  sync();
  while (static_cast<std::int64_t>(place_.view.size()) <= position && hasMoreRows()) {
    constexpr RowId atOnce = 256;
    rows_->fetch(atOnce);
    sync();
  }
  return position >= 0 && position < static_cast<std::int64_t>(place_.view.size());
}

bool ListCursor::hasCurrentRow() const {
  sync();
  return !place_.onRemoved && reach(place_.position);
}

RowId ListCursor::currentRow() const {
  if (!hasCurrentRow()) throw noCurrentRow();
  return place_.view[static_cast<std::size_t>(place_.position)];
}

RowId ListCursor::rowAt(std::int64_t position) const {
  if (!reach(position)) throw StoreError(ErrorKind::Misuse, "There is no record at this position of the list.");
  return place_.view[static_cast<std::size_t>(position)];
}

// --- position

bool ListCursor::isEmpty() const {
  return !reach(0);
}

bool ListCursor::bof() const {
  sync();
  return place_.onRemoved ? isEmpty() : place_.position < 0 || isEmpty();
}

bool ListCursor::eof() const {
  sync();
  if (place_.onRemoved || place_.position < 0) return isEmpty();
  return !reach(place_.position);
}

void ListCursor::leaveRemoved() {
  place_.onRemoved = false;
}

void ListCursor::moveFirst() {
  update();
  remember();
  leaveRemoved();
  place_.position = 0;
}

void ListCursor::moveLast() {
  update();
  remember();
  if (part_ == nullptr) rows_->fetchAll();
  sync();
  leaveRemoved();
  place_.position = std::max<std::int64_t>(0, static_cast<std::int64_t>(place_.view.size()) - 1);
}

void ListCursor::moveNext() {
  update();
  remember();
  sync();
  if (place_.onRemoved) {
    leaveRemoved();
  } else if (place_.position < 0 || reach(place_.position)) {
    ++place_.position;
  }
}

void ListCursor::movePrevious() {
  update();
  remember();
  sync();
  leaveRemoved();
  if (place_.position >= 0 && !isEmpty()) --place_.position;
}

std::int64_t ListCursor::recordCount() const {
  if (part_ == nullptr) rows_->fetchAll();
  sync();
  return static_cast<std::int64_t>(place_.view.size());
}

std::int64_t ListCursor::position() const {
  return hasCurrentRow() ? place_.position : -1;
}

void ListCursor::moveTo(std::int64_t position) {
  update();
  remember();
  rowAt(position);
  leaveRemoved();
  place_.position = position;
}

Bookmark ListCursor::bookmark() const {
  return currentRow();
}

void ListCursor::setBookmark(Bookmark row) {
  update();
  remember();
  if (part_ == nullptr && row >= rows_->fetched()) rows_->fetchAll();
  sync();
  const auto& view = place_.view;
  // Without sort and filter rows stand in the order of their ids.
  const bool ordered = sortItems_.empty() && part_ == nullptr;
  const auto found = ordered ? std::ranges::lower_bound(view, row) : std::ranges::find(view, row);
  if (found == view.end() || *found != row) {
    throw StoreError(ErrorKind::Misuse, "The marked record is not in the list any more.");
  }
  leaveRemoved();
  place_.position = found - view.begin();
}

bool ListCursor::find(std::string_view criterion, SearchFrom from) {
  const RowCondition wanted = RowCondition::ofCriterion(source(), criterion);
  update();
  remember();
  const bool stands = hasCurrentRow();
  std::int64_t at = std::max<std::int64_t>(0, place_.position);
  if (stands && from == SearchFrom::NextRow) ++at;
  leaveRemoved();
  for (; reach(at); ++at) {
    const RowId row = place_.view[static_cast<std::size_t>(at)];
    if (wanted.passes([&](int field) { return rows_->value(row, field); })) break;
  }
  place_.position = at;
  return reach(at);
}

void ListCursor::setFilter(std::string_view conditions) {
  std::optional<RowCondition> filter = RowCondition::ofFilter(source(), conditions);
  update();
  remember();
  filter_ = std::move(filter);
  if (filter_ && part_ == nullptr) rows_->fetchAll();
  rebuild();
  leaveRemoved();
  place_.position = 0;
}

void ListCursor::setSort(std::string_view columns) {
  std::vector<SortItem> items = parseSort(source(), columns);
  update();
  remember();
  sync();
  sort_ = columns;
  sortItems_ = std::move(items);
  if (part_ == nullptr && !sortItems_.empty()) rows_->fetchAll();
  rebuild();
}

Value ListCursor::value(int field) const {
  return rows_->value(currentRow(), field);
}
Value ListCursor::valueAt(std::int64_t position, int field) const {
  return rows_->value(rowAt(position), field);
}
Bookmark ListCursor::bookmarkAt(std::int64_t position) const {
  return rowAt(position);
}

std::int64_t ListCursor::nextFilled(std::int64_t from, int field) const {
  while (reach(from)) {
    const auto rest = std::span(place_.view).subspan(static_cast<std::size_t>(from));
    const auto filled = std::ranges::find_if(rest, [&](RowId row) { return !rows_->isBlank(row, field); });
    from += filled - rest.begin();
    if (filled != rest.end()) return from;
  }
  return static_cast<std::int64_t>(place_.view.size());
}

std::int64_t ListCursor::fetchedCount() const {
  sync();
  return static_cast<std::int64_t>(place_.view.size());
}

std::shared_ptr<Cursor> ListCursor::chapter(std::string_view name) const {
  if (node_ == nullptr) return Cursor::chapter(name);
  const shape::ChildRows rows = node_->requireChapter(name).rowsFor(*node_, currentRow());
  return std::make_shared<ListCursor>(rows.node, rows.part);
}

}  // namespace velmo::store
