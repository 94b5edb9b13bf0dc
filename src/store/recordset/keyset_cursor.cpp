#include "store/recordset/keyset_cursor.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace velmo::store {

KeysetCursor::KeysetCursor(const std::shared_ptr<const ResultSource>& source, KeysetQuery query)
    : source_(std::make_shared<ResultSource>(*source)), query_(std::make_shared<KeysetQuery>(std::move(query))) {
  // The key is read beside the fields, selected or not.
  source_->tables.front().keyFields = query_->keySlots();
  source_->tables.front().keySelected = !query_->keySlots().empty();
  stand(query_->end(connection(), Direction::Forward), Where::After);
}

std::shared_ptr<Cursor> KeysetCursor::clone() const {
  KeysetQuery query = *query_;
  query.setFilter(std::nullopt);
  auto twin = std::make_shared<KeysetCursor>(source_, std::move(query));
  twin->sort_ = sort_;
  return twin;
}

Connection::Impl& KeysetCursor::connection() const {
  return *source_->connection;
}

void KeysetCursor::requireRow() const {
  if (place_.where != Where::On) throw noCurrentRow();
}

void KeysetCursor::remember() {
  if (connection().transaction == 0 || savedFor_ == connection().transaction) return;
  savedFor_ = connection().transaction;
  saved_ = Saved{.place = place_, .edit = edit_, .sort = sort_, .query = query_};
  connection().enrol(shared_from_this());
}

void KeysetCursor::rolledBack() noexcept {
  if (!saved_) return;
  place_ = std::move(saved_->place);
  edit_ = std::move(saved_->edit);
  sort_ = std::move(saved_->sort);
  query_ = std::move(saved_->query);
  saved_.reset();
  savedFor_ = 0;
  forgetLooked();
}

void KeysetCursor::stand(std::optional<WalkedRow> row, Where otherwise) {
  place_.where = row ? Where::On : otherwise;
  place_.row = row ? std::move(*row) : WalkedRow{};
}

// --- position

void KeysetCursor::requery() {
  remember();
  edit_.reset();
  forgetLooked();
  stand(query_->end(connection(), Direction::Forward), Where::After);
}

bool KeysetCursor::isEmpty() const {
  if (place_.where == Where::On) return false;
  return !query_->end(connection(), Direction::Forward).has_value();
}

bool KeysetCursor::bof() const {
  if (place_.where == Where::On) return false;
  return place_.where == Where::Before || isEmpty();
}

bool KeysetCursor::eof() const {
  if (place_.where == Where::On) return false;
  return place_.where == Where::After || isEmpty();
}

void KeysetCursor::moveFirst() {
  update();
  remember();
  stand(query_->end(connection(), Direction::Forward), Where::After);
}

void KeysetCursor::moveLast() {
  update();
  remember();
  stand(query_->end(connection(), Direction::Backward), Where::After);
}

void KeysetCursor::moveNext() {
  update();
  remember();
  if (place_.where == Where::Before) {
    stand(query_->end(connection(), Direction::Forward), Where::After);
  } else if (place_.where != Where::After) {
    stand(query_->next(connection(), place_.row, Direction::Forward), Where::After);
  }
}

void KeysetCursor::movePrevious() {
  update();
  remember();
  if (place_.where == Where::After) {
    stand(query_->end(connection(), Direction::Backward), Where::After);
  } else if (place_.where != Where::Before) {
    stand(query_->next(connection(), place_.row, Direction::Backward), Where::Before);
  }
}

// Also when another program wrote to the file.
std::int64_t KeysetCursor::generation() const {
  return connection().changes.generation(source_->tables.front().table->name);
}

std::int64_t KeysetCursor::recordCount() const {
  const std::int64_t now = generation();
  if (counted_.generation != now) counted_ = {.generation = now, .rows = query_->count(connection())};
  return counted_.rows;
}

std::int64_t KeysetCursor::position() const {
  return place_.where == Where::On && !(edit_ && edit_->adding) ? query_->countBefore(connection(), place_.row) : -1;
}

void KeysetCursor::forgetLooked() noexcept {
  looked_.rows.clear();
  counted_.generation = -1;
}

// A place near those that were looked at is reached from them by index; any other by counting the rows before it.
void KeysetCursor::lookAround(std::int64_t position) const {
  constexpr std::int64_t portion = 64;
  constexpr std::int64_t most = 8 * portion;
  std::deque<WalkedRow>& rows = looked_.rows;
  const bool isBehind = !rows.empty() && position >= looked_.end() && position < looked_.end() + portion;
  const bool isBefore = !rows.empty() && position < looked_.first && position >= looked_.first - portion;
  if (isBehind) {
    for (WalkedRow& row : query_->neighbours(connection(), rows.back(), Direction::Forward, portion))
      rows.push_back(std::move(row));
    for (; looked_.end() - looked_.first > most; ++looked_.first) rows.pop_front();
  } else if (isBefore) {
    for (WalkedRow& row :
         query_->neighbours(connection(), rows.front(), Direction::Backward, std::min(portion, looked_.first))) {
      rows.push_front(std::move(row));
      --looked_.first;
    }
    while (looked_.end() - looked_.first > most) rows.pop_back();
  } else {
    looked_.generation = generation();
    std::vector<WalkedRow> found = query_->from(connection(), position, portion);
    looked_.first = position;
    rows.assign(std::move_iterator(found.begin()), std::move_iterator(found.end()));
  }
}

const WalkedRow& KeysetCursor::rowAt(std::int64_t position) const {
  const std::int64_t changes = sqlite3_total_changes64(connection().database);
  if (looked_.changes != changes) looked_.rows.clear();
  looked_.changes = changes;
  if (position >= 0 && !looked_.holds(position)) lookAround(position);
  if (!looked_.holds(position)) throw StoreError(ErrorKind::Misuse, "There is no record at this position of the list.");
  return looked_.rows[static_cast<std::size_t>(position - looked_.first)];
}

void KeysetCursor::moveTo(std::int64_t position) {
  update();
  remember();
  if (looked_.generation != generation()) forgetLooked();
  stand(rowAt(position), Where::After);
}

Bookmark KeysetCursor::bookmark() const {
  requireRow();
  if (edit_ && edit_->adding) throw noCurrentRow();
  return query_->numberOf(place_.row);
}

void KeysetCursor::setBookmark(Bookmark row) {
  update();
  remember();
  std::optional<WalkedRow> found = query_->byNumber(connection(), row);
  if (!found) throw StoreError(ErrorKind::Misuse, "The marked record is not in the list any more.");
  stand(std::move(found), Where::After);
}

bool KeysetCursor::find(std::string_view criterion, SearchFrom from) {
  const RowCondition wanted = RowCondition::ofCriterion(*source_, criterion);
  update();
  remember();
  if (place_.where == Where::Before) {
    stand(query_->end(connection(), Direction::Forward, &wanted), Where::After);
  } else if (place_.where != Where::After) {
    const bool stays = place_.where == Where::On && from == SearchFrom::CurrentRow &&
                       wanted.passes([this](int field) { return place_.row[static_cast<std::size_t>(field)]; });
    if (!stays) stand(query_->next(connection(), place_.row, Direction::Forward, &wanted), Where::After);
  }
  return place_.where == Where::On;
}

void KeysetCursor::setFilter(std::string_view conditions) {
  std::optional<RowCondition> filter = RowCondition::ofFilter(*source_, conditions);
  update();
  remember();
  auto filtered = std::make_shared<KeysetQuery>(*query_);
  filtered->setFilter(std::move(filter));
  query_ = std::move(filtered);
  forgetLooked();
  moveFirst();
}

void KeysetCursor::setSort(std::string_view columns) {
  const std::vector<SortItem> items = parseSort(*source_, columns);
  update();
  remember();
  sort_ = columns;
  auto ordered = std::make_shared<KeysetQuery>(*query_);
  ordered->orderBy(connection(), items);
  query_ = std::move(ordered);
  forgetLooked();
}

Value KeysetCursor::value(int field) const {
  requireRow();
  if (edit_) {
    const auto found = std::ranges::find(edit_->changes, field, &FieldValues::value_type::first);
    if (found != edit_->changes.end()) return found->second;
  }
  return place_.row[static_cast<std::size_t>(field)];
}

Value KeysetCursor::valueAt(std::int64_t position, int field) const {
  const WalkedRow& row = rowAt(position);
  if (place_.where == Where::On && edit_ && !edit_->adding && query_->numberOf(row) == query_->numberOf(place_.row)) {
    return value(field);
  }
  return row[static_cast<std::size_t>(field)];
}

Bookmark KeysetCursor::bookmarkAt(std::int64_t position) const {
  return query_->numberOf(rowAt(position));
}

// --- writing

void KeysetCursor::beginEdit() {
  requireRow();
  if (!edit_) edit_ = Edit{.adding = false, .changes = {}, .before = place_};
}

void KeysetCursor::change(int field, Value value) {
  const auto found = std::ranges::find(edit_->changes, field, &FieldValues::value_type::first);
  if (found != edit_->changes.end()) {
    found->second = std::move(value);
  } else {
    edit_->changes.emplace_back(field, std::move(value));
  }
}

void KeysetCursor::set(int field, const Value& value) {
  requireWritable();
  Value kept = source_->fittedFor(field, value);
  remember();
  beginEdit();
  change(field, std::move(kept));
}

void KeysetCursor::setAt(std::int64_t position, int field, const Value& value) {
  requireWritable();
  const WalkedRow row = rowAt(position);
  if (place_.where == Where::On && query_->numberOf(row) == query_->numberOf(place_.row)) {
    set(field, value);
    return;
  }
  const FieldValues changes{{field, source_->fittedFor(field, value)}};
  remember();
  RowWriter(*source_).update(changes, [&](int asked) { return row[static_cast<std::size_t>(asked)]; });
}

void KeysetCursor::addNew() {
  requireWritable();
  update();
  remember();
  edit_ = Edit{.adding = true, .changes = {}, .before = place_};
  place_ = {.where = Where::On, .row = WalkedRow(query_->slotCount())};
}

void KeysetCursor::addNew(FieldValues values) {
  addNew();
  edit_->changes.reserve(values.size());
  for (auto& [field, value] : values) change(field, std::move(value));
  try {
    update();
  } catch (...) {
    cancelUpdate();
    throw;
  }
}

// What the store made of a written row, computed order columns and defaults included.
void KeysetCursor::reload(std::int64_t number) {
  std::optional<WalkedRow> row = query_->byNumber(connection(), number);
  if (!row) throw StoreError(ErrorKind::Conflict, "The record was deleted by another program.");
  place_ = {.where = Where::On, .row = std::move(*row)};
}

// A new row as it stands in the file, when all of it was given or filled in and nothing is computed.
std::optional<WalkedRow> KeysetCursor::wholeRow(const FieldValues& given, const FieldValues& filledIn) const {
  WalkedRow row(query_->slotCount());
  if (given.size() + filledIn.size() < row.size()) return std::nullopt;
  std::vector<bool> known(row.size());
  for (const FieldValues* values : {&given, &filledIn}) {
    for (const auto& [field, value] : *values) {
      row[static_cast<std::size_t>(field)] = value;
      known[static_cast<std::size_t>(field)] = true;
    }
  }
  if (!std::ranges::all_of(known, std::identity())) return std::nullopt;
  return row;
}

void KeysetCursor::update() {
  if (!edit_) return;
  remember();
  const RowWriter writer(*source_);
  if (edit_->adding) {
    const FieldValues filledIn = writer.insert(edit_->changes);
    const std::int64_t number = sqlite3_last_insert_rowid(connection().database);
    std::optional<WalkedRow> row = wholeRow(edit_->changes, filledIn);
    edit_.reset();
    if (row)
      place_ = {.where = Where::On, .row = std::move(*row)};
    else
      reload(number);
    return;
  }
  const OriginalValue original = [this](int slot) { return place_.row[static_cast<std::size_t>(slot)]; };
  FieldValues changes = edit_->changes;
  std::erase_if(changes, [&](const auto& each) { return each.second == original(each.first); });
  if (!changes.empty()) {
    writer.update(changes, original);
    std::int64_t number = query_->numberOf(place_.row);
    for (const auto& [field, value] : changes) {
      if (query_->isNumber(static_cast<std::size_t>(field))) number = std::get<std::int64_t>(value);
    }
    edit_.reset();
    reload(number);
  }
  edit_.reset();
}

void KeysetCursor::update(FieldValues values) {
  requireWritable();
  requireRow();
  remember();
  const std::optional<Edit> before = edit_;
  beginEdit();
  for (auto& [field, value] : values) change(field, std::move(value));
  try {
    update();
  } catch (...) {
    edit_ = before;
    throw;
  }
}

void KeysetCursor::cancelUpdate() {
  if (!edit_) return;
  remember();
  place_ = std::move(edit_->before);
  edit_.reset();
}

void KeysetCursor::remove() {
  requireWritable();
  requireRow();
  remember();
  if (edit_ && edit_->adding) {
    cancelUpdate();
    return;
  }
  RowWriter(*source_).remove([this](int slot) { return place_.row[static_cast<std::size_t>(slot)]; });
  edit_.reset();
  place_.where = Where::OnRemoved;
}

}  // namespace velmo::store
