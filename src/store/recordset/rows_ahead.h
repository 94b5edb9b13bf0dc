#pragma once

#include <memory>
#include <string>

#include "store/recordset/recordset.h"

namespace velmo::store {

// A statement whose first row takes long, opened on a thread of its own while others work: its rows are those of the
// file at the moment when this object was made, whatever is written afterwards. For reading alone, and as long as the
// object lives.
class RowsAhead {
 public:
  // Throws StoreError when the file cannot be read.
  RowsAhead(const Connection& books, std::string statement);
  ~RowsAhead();  // comes back soon
  RowsAhead(const RowsAhead&) = delete;
  RowsAhead& operator=(const RowsAhead&) = delete;

  // Whether rows() would not wait; waits so long for that, in milliseconds.
  bool isReady(int patience = 0) const;
  // Throws StoreError when they could not be read.
  Recordset& rows();

 private:
  struct Work;
  std::unique_ptr<Work> work_;
};

}  // namespace velmo::store
