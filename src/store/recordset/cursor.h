#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/recordset/recordset.h"
#include "store/rows/result_source.h"

namespace velmo::store {

// What stands behind a Recordset; its operations mean what they mean there. Two kinds: ListCursor over rows that are
// held, KeysetCursor over a table that is walked.
class Cursor {
 public:
  virtual ~Cursor() = default;

  virtual const ResultSource& source() const = 0;
  virtual std::shared_ptr<Cursor> clone() const = 0;
  virtual void requery() = 0;

  virtual bool bof() const = 0;
  virtual bool eof() const = 0;
  virtual bool isEmpty() const = 0;
  virtual void moveFirst() = 0;
  virtual void moveLast() = 0;
  virtual void moveNext() = 0;
  virtual void movePrevious() = 0;
  virtual std::int64_t recordCount() const = 0;
  virtual std::int64_t position() const = 0;
  virtual void moveTo(std::int64_t position) = 0;
  virtual Bookmark bookmark() const = 0;
  virtual void setBookmark(Bookmark row) = 0;
  virtual bool find(std::string_view criterion, SearchFrom from) = 0;
  virtual void setFilter(std::string_view conditions) = 0;
  virtual std::string filter() const = 0;  // as it was set
  virtual void setSort(std::string_view columns) = 0;
  virtual std::string sort() const = 0;

  virtual Value value(int field) const = 0;
  virtual Value valueAt(std::int64_t position, int field) const = 0;
  virtual Bookmark bookmarkAt(std::int64_t position) const = 0;
  virtual std::int64_t nextFilled(std::int64_t from, int field) const;
  virtual bool hasMoreRows() const = 0;
  virtual std::int64_t fetchedCount() const = 0;
  virtual void fetchMore(int rows) = 0;

  virtual void set(int field, const Value& value) = 0;
  virtual void setAt(std::int64_t position, int field, const Value& value) = 0;
  virtual void addNew() = 0;
  virtual void addNew(FieldValues values) = 0;
  virtual void update() = 0;
  virtual void update(FieldValues values) = 0;
  virtual void cancelUpdate() = 0;
  virtual void remove() = 0;
  virtual void removeBlank(int field);  // refused: for batches alone
  virtual void updateBatch() = 0;
  virtual void cancelBatch() = 0;
  virtual bool isEditing() const = 0;

  virtual std::shared_ptr<Cursor> chapter(std::string_view name) const;  // refused: for hierarchies alone

 protected:
  void requireWritable() const;
};

StoreError noCurrentRow();
StoreError readOnlyRecordset();

}  // namespace velmo::store
