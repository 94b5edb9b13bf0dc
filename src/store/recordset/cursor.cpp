#include "store/recordset/cursor.h"

#include <algorithm>

namespace velmo::store {

StoreError noCurrentRow() {
  return {ErrorKind::Misuse,
          "There is no current record: the list is at its beginning or end, or the record is deleted."};
}

StoreError readOnlyRecordset() {
  return {ErrorKind::Misuse, "This list is for reading only."};
}

std::int64_t Cursor::nextFilled(std::int64_t from, int field) const {
  const std::int64_t count = recordCount();
  while (from < count && isBlank(valueAt(from, field))) ++from;
  return std::min(from, count);
}

void Cursor::removeBlank(int) {
  throw StoreError(ErrorKind::Misuse, "Only the rows of a batch can be deleted together.");
}

std::shared_ptr<Cursor> Cursor::chapter(std::string_view) const {
  throw StoreError(ErrorKind::Misuse, "The recordset has no chapters.");
}

void Cursor::requireWritable() const {
  if (source().lock == LockType::ReadOnly) throw readOnlyRecordset();
  source().connection->requireOpen();
}

}  // namespace velmo::store
