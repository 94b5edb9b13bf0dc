#include "store/rows/row_set.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace velmo::store {
namespace {

constexpr RowId firstFetch = 256;  // a smaller result is read at once, so that its statement is free again

bool isThereIn(RowState state) {
  return state != RowState::Deleted && state != RowState::Gone;
}

}  // namespace

RowSet::RowSet(std::shared_ptr<const ResultSource> source)
    : source_(std::move(source)), stored_(source_->types.size()) {}

std::shared_ptr<RowSet> RowSet::open(std::shared_ptr<const ResultSource> source) {
  const BoundStatement& statement = source->statement;
  return open(std::move(source), statement.compiled->sql, statement.parameters);
}

std::shared_ptr<RowSet> RowSet::open(std::shared_ptr<const ResultSource> source, std::string_view sql,
                                     const std::vector<Value>& parameters) {
  PreparedStatement reader = source->connection->prepare(sql);
  reader.bindLiterals(parameters);
  std::shared_ptr<RowSet> rows(new RowSet(std::move(source)));
  rows->reader_.emplace(std::move(reader));
  rows->fetch(firstFetch);
  if (rows->hasMore()) rows->source_->connection->addReader(rows);
  return rows;
}

void RowSet::fetch(RowId rows) {
  if (!reader_) return;
  try {
    for (RowId i = 0; i < rows; ++i) {
      if (!reader_->step()) {
        reader_.reset();
        return;
      }
      stored_.append(reader_->handle(), source_->types);
      states_.push_back(RowState::Clean);
    }
  } catch (...) {
    reader_.reset();
    throw;
  }
}

void RowSet::fetchAll() {
  fetch(std::numeric_limits<RowId>::max());
}

Value RowSet::value(RowId row, int field) const {
  if (static_cast<std::size_t>(field) >= source_->types.size()) return Null{};  // a chapter
  if (const Edits* edits = pendingEdits(row)) {
    for (const auto& [edited, value] : *edits) {
      if (edited == field) return value;
    }
  }
  return storedValue(row, field);
}

bool RowSet::isBlank(RowId row, int field) const {
  const Edits* edits = pendingEdits(row);
  if (edits == nullptr) return state(row) == RowState::Inserted || store::isBlank(storedValue(row, field));
  const auto edited = std::ranges::find(*edits, field, &Edits::value_type::first);
  return edited == edits->end() ? store::isBlank(storedValue(row, field)) : store::isBlank(edited->second);
}

// A row that is not in the file yet holds nothing but its edits.
Value RowSet::storedValue(RowId row, int field) const {
  if (state(row) == RowState::Inserted) return Null{};
  return stored_.value(static_cast<std::size_t>(row), static_cast<std::size_t>(field));
}

int RowSet::compare(RowId left, RowId right, int field) const {
  const auto isAsStored = [this](RowId row) {
    return pendingEdits(row) == nullptr && state(row) != RowState::Inserted;
  };
  if (isAsStored(left) && isAsStored(right)) {
    return stored_.compare(static_cast<std::size_t>(left), static_cast<std::size_t>(right),
                           static_cast<std::size_t>(field));
  }
  return compareValues(value(left, field), value(right, field));
}

bool RowSet::hasPendingRows() const {
  for (RowId row = 0; row < fetched(); ++row) {
    if (isPending(row)) return true;
  }
  return false;
}

void RowSet::setState(RowId row, RowState state) {
  RowState& present = states_[static_cast<std::size_t>(row)];
  if (isThereIn(present) && !isThereIn(state)) ++losses_;
  if (!isThereIn(present) && isThereIn(state)) ++returns_;
  present = state;
}

RowId RowSet::append() {
  fetchAll();
  const RowId row = fetched();
  stored_.append();
  states_.push_back(RowState::Gone);
  remember(row);  // taken back, the row is no row at all
  states_.back() = RowState::Inserted;
  return row;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the values are moved out of it
void RowSet::edit(RowId row, FieldValues values) {
  if (values.empty()) return;
  Undo* const before = rememberEdit(row);
  if (pendingEdits(row) == nullptr) setEdits(row, std::make_unique<Edits>());
  Edits& edits = *edits_[static_cast<std::size_t>(row)];
  edits.reserve(edits.size() + values.size());
  for (auto& [field, value] : values) {
    const auto found = std::ranges::find(edits, field, &Edits::value_type::first);
    if (found == edits.end()) {
      edits.emplace_back(field, std::move(value));
      continue;
    }
    const bool wasBefore = before != nullptr && found - edits.begin() < *before->editsKept;
    if (wasBefore) keepReplaced(*before, *found);
    found->second = std::move(value);
  }
  if (state(row) == RowState::Clean) setState(row, RowState::Modified);
}

const RowSet::Edits* RowSet::pendingEdits(RowId row) const {
  const auto place = static_cast<std::size_t>(row);
  return place < edits_.size() ? edits_[place].get() : nullptr;
}

RowSet::Edits RowSet::edits(RowId row) const {
  const Edits* pending = pendingEdits(row);
  return pending == nullptr ? Edits{} : *pending;
}

void RowSet::restore(RowId row, RowState state, Edits edits) {
  remember(row);
  setState(row, state);
  setEdits(row, edits.empty() ? nullptr : std::make_unique<Edits>(std::move(edits)));
}

std::unique_ptr<RowSet::Edits> RowSet::takeEdits(RowId row) {
  const auto place = static_cast<std::size_t>(row);
  return place < edits_.size() ? std::move(edits_[place]) : nullptr;
}

void RowSet::setEdits(RowId row, std::unique_ptr<Edits> edits) {
  const auto place = static_cast<std::size_t>(row);
  if (edits_.size() <= place) {
    if (edits == nullptr) return;
    edits_.resize(place + 1);
  }
  edits_[place] = std::move(edits);
}

void RowSet::markDeleted(RowId row) {
  remember(row);
  takeEdits(row);
  setState(row, state(row) == RowState::Inserted ? RowState::Gone : RowState::Deleted);
}

// Most are new and blank, the rest of a sheet: one record holds for all of them.
void RowSet::markDeleted(const std::vector<RowId>& rows) {
  std::vector<RowId> blank;
  for (const RowId row : rows) {
    if (state(row) == RowState::Inserted && pendingEdits(row) == nullptr) {
      blank.push_back(row);
    } else {
      markDeleted(row);
    }
  }
  for (const RowId row : blank) setState(row, RowState::Gone);
  if (!blank.empty() && remembers()) {
    undo_.emplace_back(blank.front(), RowState::Inserted).others = std::move(blank);
  }
}

void RowSet::discard(RowId row) {
  if (state(row) == RowState::Gone) return;
  restore(row, state(row) == RowState::Inserted ? RowState::Gone : RowState::Clean, {});
}

void RowSet::write(RowId row) {
  write(row, RowWriter(*source_));
}

void RowSet::write(const std::vector<RowId>& rows) {
  const RowWriter writer(*source_);
  for (const RowId row : rows) write(row, writer);
}

void RowSet::write(RowId row, const RowWriter& writer) {
  if (!isPending(row)) return;
  const RowState present = state(row);
  const OriginalValue original = [&](int field) {
    return stored_.value(static_cast<std::size_t>(row), static_cast<std::size_t>(field));
  };
  if (present == RowState::Deleted) {
    writer.remove(original);
    remember(row);
    setState(row, RowState::Gone);
    return;
  }
  static const Edits nothing;
  const Edits* pending = pendingEdits(row);
  const Edits& changes = pending == nullptr ? nothing : *pending;
  if (present == RowState::Inserted) {
    store(row, writer.insert(changes));
    return;
  }
  Edits differing = changes;
  std::erase_if(differing, [&](const auto& change) { return change.second == original(change.first); });
  if (!differing.empty()) writer.update(differing, original);
  store(row, {});
}

// The pending values become the stored ones.
void RowSet::store(RowId row, const Edits& filledIn) {
  const auto place = static_cast<std::size_t>(row);
  const bool remembered = isToRemember(row, true);
  Undo before{.row = row, .state = state(row), .edits = takeEdits(row), .stored = {}};
  if (before.state == RowState::Inserted) {
    stored_.clear(place);
  } else if (remembered) {
    before.stored = std::make_unique<std::vector<Value>>();
    for (std::size_t i = 0; i < source_->types.size(); ++i) before.stored->push_back(stored_.value(place, i));
  }
  for (const Edits* written : {static_cast<const Edits*>(before.edits.get()), &filledIn}) {
    if (written == nullptr) continue;
    for (const auto& [field, value] : *written) stored_.set(place, static_cast<std::size_t>(field), value);
  }
  setState(row, RowState::Clean);
  if (remembered) undo_.push_back(std::move(before));
}

// Whether a transaction is open; from then on it is told to the rows how it ends.
bool RowSet::remembers() {
  Connection::Impl& connection = *source_->connection;
  if (connection.transaction == 0) return false;
  if (undoTransaction_ != connection.transaction) {
    forgetUndo();
    undoTransaction_ = connection.transaction;
    connection.enrol(shared_from_this());
  }
  return true;
}

// Whether the open transaction needs a record of the row as it is now. The first of several in a row is enough: winding
// back ends there. The stored values are part of it when they change, but for a row that was not in the file.
bool RowSet::isToRemember(RowId row, bool storedToo) {
  if (!remembers()) return false;
  if (undo_.empty() || undo_.back().row != row || undo_.back().editsKept) return true;
  const Undo& last = undo_.back();
  const bool wasInFile = last.state != RowState::Inserted && last.state != RowState::Gone;
  return storedToo && wasInFile && last.stored == nullptr;
}

void RowSet::remember(RowId row) {
  if (!isToRemember(row, false)) return;
  Undo& before = undo_.emplace_back(row, state(row));
  if (const Edits* pending = pendingEdits(row)) before.edits = std::make_unique<Edits>(*pending);
}

// The record that takes in what an edit replaces; nullptr when none is needed.
RowSet::Undo* RowSet::rememberEdit(RowId row) {
  const Edits* pending = pendingEdits(row);
  if (pending == nullptr) {
    remember(row);
    return nullptr;
  }
  if (!remembers()) return nullptr;
  if (undo_.empty() || undo_.back().row != row) {
    undo_.emplace_back(row, state(row)).editsKept = std::ssize(*pending);
  }
  return undo_.back().editsKept ? &undo_.back() : nullptr;
}

void RowSet::windBack() {
  while (!undo_.empty()) {
    Undo before = std::move(undo_.back());
    undo_.pop_back();
    setState(before.row, before.state);
    if (before.editsKept) {
      takeBackEdits(before);
      continue;
    }
    setEdits(before.row, std::move(before.edits));
    for (const RowId other : before.others) setState(other, before.state);
    if (before.stored == nullptr) continue;
    for (std::size_t i = 0; i < before.stored->size(); ++i) {
      stored_.set(static_cast<std::size_t>(before.row), i, (*before.stored)[i]);
    }
  }
}

void RowSet::keepReplaced(Undo& before, const Edits::value_type& replaced) {
  if (before.edits == nullptr) before.edits = std::make_unique<Edits>();
  const auto kept = std::ranges::find(*before.edits, replaced.first, &Edits::value_type::first);
  if (kept == before.edits->end()) before.edits->push_back(replaced);
}

void RowSet::takeBackEdits(const Undo& before) {
  Edits& edits = *edits_[static_cast<std::size_t>(before.row)];
  edits.resize(static_cast<std::size_t>(*before.editsKept));
  if (before.edits == nullptr) return;
  for (const auto& [field, value] : *before.edits) {
    std::ranges::find(edits, field, &Edits::value_type::first)->second = value;
  }
}

void RowSet::rolledBack() noexcept {
  windBack();
  forgetUndo();
}

void RowSet::forgetUndo() noexcept {
  undo_.clear();
  undoTransaction_ = 0;
}

}  // namespace velmo::store
