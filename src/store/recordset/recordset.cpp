#include "store/recordset/recordset.h"

#include "store/connection/connection_impl.h"
#include "store/hierarchy/hierarchy.h"
#include "store/recordset/keyset_cursor.h"
#include "store/recordset/list_cursor.h"

namespace velmo::store {

struct Recordset::Impl {
  std::shared_ptr<Cursor> cursor;                     // nullptr when closed
  std::string shapeStatement = {};                    // of a hierarchy, which is opened anew as a whole,
  std::shared_ptr<Connection::Impl> connection = {};  // from this connection

  Cursor& open() const {
    if (cursor == nullptr) throw StoreError(ErrorKind::Misuse, "The recordset is closed.");
    return *cursor;
  }
};

namespace {

std::shared_ptr<Cursor> openCursor(Connection& connection, std::string_view statement, LockType lock, Fetch fetch) {
  const std::shared_ptr<Connection::Impl>& impl = connection.impl();
  const std::shared_ptr<const ResultSource> source = describeResult(impl, impl->compile(statement), lock);
  if (fetch == Fetch::AsNeeded && lock != LockType::BatchOptimistic) {
    if (auto query = KeysetQuery::of(*source)) return std::make_shared<KeysetCursor>(source, std::move(*query));
  }
  return std::make_shared<ListCursor>(RowSet::open(source));
}

std::shared_ptr<Cursor> openHierarchy(const std::shared_ptr<Connection::Impl>& connection,
                                      std::string_view shapeStatement) {
  return std::make_shared<ListCursor>(shape::openHierarchy(connection, shapeStatement), nullptr);
}

FieldValues fittedValues(const ResultSource& source, std::span<const FieldValue> values) {
  FieldValues fitted;
  fitted.reserve(values.size());
  std::size_t next = 0;
  for (const FieldValue& value : values) {
    const int field = source.requireField(value.name, next);
    fitted.emplace_back(field, source.fittedFor(field, value.value));
    next = static_cast<std::size_t>(field) + 1;
  }
  return fitted;
}

}  // namespace

Recordset::Recordset() : impl_(std::make_shared<Impl>()) {}
Recordset::Recordset(std::shared_ptr<Impl> impl) : impl_(std::move(impl)) {}

Recordset::Recordset(Connection& connection, std::string_view statement, LockType lock, Fetch fetch) : Recordset() {
  open(connection, statement, lock, fetch);
}

void Recordset::open(Connection& connection, std::string_view statement, LockType lock, Fetch fetch) {
  impl_->cursor = openCursor(connection, statement, lock, fetch);
  impl_->shapeStatement.clear();
  impl_->connection.reset();
}

void Recordset::openShape(Connection& connection, std::string_view shapeStatement) {
  impl_->cursor = openHierarchy(connection.impl(), shapeStatement);
  impl_->shapeStatement = shapeStatement;
  impl_->connection = connection.impl();
}

void Recordset::close() {
  impl_->cursor.reset();
}
bool Recordset::isOpen() const {
  return impl_->cursor != nullptr;
}

void Recordset::requery() {
  Cursor& cursor = impl_->open();
  if (impl_->shapeStatement.empty()) {
    cursor.requery();
    return;
  }
  const std::shared_ptr<Cursor> anew = openHierarchy(impl_->connection, impl_->shapeStatement);
  anew->setSort(cursor.sort());
  anew->setFilter(cursor.filter());
  impl_->cursor = anew;
  impl_->cursor->moveFirst();
}

bool Recordset::bof() const {
  return impl_->open().bof();
}
bool Recordset::eof() const {
  return impl_->open().eof();
}
bool Recordset::isEmpty() const {
  return impl_->open().isEmpty();
}
void Recordset::moveFirst() {
  impl_->open().moveFirst();
}
void Recordset::moveLast() {
  impl_->open().moveLast();
}
void Recordset::moveNext() {
  impl_->open().moveNext();
}
void Recordset::movePrevious() {
  impl_->open().movePrevious();
}
std::int64_t Recordset::recordCount() const {
  return impl_->open().recordCount();
}
std::int64_t Recordset::position() const {
  return impl_->open().position();
}
void Recordset::moveTo(std::int64_t position) {
  impl_->open().moveTo(position);
}
Bookmark Recordset::bookmark() const {
  return impl_->open().bookmark();
}
void Recordset::setBookmark(Bookmark row) {
  impl_->open().setBookmark(row);
}

bool Recordset::find(std::string_view criterion, SearchFrom from) {
  return impl_->open().find(criterion, from);
}
void Recordset::setFilter(std::string_view conditions) {
  impl_->open().setFilter(conditions);
}
void Recordset::setSort(std::string_view columns) {
  impl_->open().setSort(columns);
}
std::string Recordset::sort() const {
  return impl_->open().sort();
}

Recordset Recordset::clone() const {
  auto twin = std::make_shared<Impl>();
  twin->cursor = impl_->open().clone();
  twin->shapeStatement = impl_->shapeStatement;
  twin->connection = impl_->connection;
  return Recordset(std::move(twin));
}

const std::vector<FieldInfo>& Recordset::fields() const {
  return impl_->open().source().fields;
}
int Recordset::fieldIndex(std::string_view name) const {
  return impl_->open().source().fieldIndex(name);
}

Value Recordset::value(std::string_view name) const {
  const Cursor& cursor = impl_->open();
  return cursor.value(cursor.source().requireField(name));
}

std::string Recordset::text(std::string_view name) const {
  return textOf(value(name));
}
double Recordset::number(std::string_view name) const {
  return numberOf(value(name));
}
std::int64_t Recordset::integer(std::string_view name) const {
  return integerOf(value(name));
}
bool Recordset::yes(std::string_view name) const {
  return isYes(value(name));
}
text::DateTime Recordset::date(std::string_view name) const {
  return dateOf(value(name));
}

Value Recordset::valueAt(std::int64_t position, int field) const {
  return impl_->open().valueAt(position, field);
}
Bookmark Recordset::bookmarkAt(std::int64_t position) const {
  return impl_->open().bookmarkAt(position);
}
std::int64_t Recordset::nextFilled(std::int64_t from, int field) const {
  return impl_->open().nextFilled(from, field);
}
bool Recordset::hasMoreRows() const {
  return impl_->open().hasMoreRows();
}
std::int64_t Recordset::fetchedCount() const {
  return impl_->open().fetchedCount();
}
void Recordset::fetchMore(int rows) {
  impl_->open().fetchMore(rows);
}

void Recordset::set(std::string_view name, const Value& value) {
  Cursor& cursor = impl_->open();
  cursor.set(cursor.source().requireField(name), value);
}

void Recordset::setAt(std::int64_t position, int field, const Value& value) {
  impl_->open().setAt(position, field, value);
}

void Recordset::addNew() {
  impl_->open().addNew();
}

void Recordset::addNew(std::span<const FieldValue> values) {
  Cursor& cursor = impl_->open();
  cursor.addNew(fittedValues(cursor.source(), values));
}

void Recordset::update() {
  impl_->open().update();
}

void Recordset::update(std::span<const FieldValue> values) {
  Cursor& cursor = impl_->open();
  cursor.update(fittedValues(cursor.source(), values));
}

void Recordset::cancelUpdate() {
  impl_->open().cancelUpdate();
}
void Recordset::remove() {
  impl_->open().remove();
}
void Recordset::removeBlank(std::string_view field) {
  Cursor& cursor = impl_->open();
  cursor.removeBlank(cursor.source().requireField(field));
}
void Recordset::updateBatch() {
  impl_->open().updateBatch();
}
void Recordset::cancelBatch() {
  impl_->open().cancelBatch();
}
bool Recordset::isEditing() const {
  return impl_->open().isEditing();
}

Recordset Recordset::chapter(std::string_view name) const {
  auto child = std::make_shared<Impl>();
  child->cursor = impl_->open().chapter(name);
  return Recordset(std::move(child));
}

}  // namespace velmo::store
