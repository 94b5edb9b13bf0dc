#pragma once

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/rows/row_set.h"

namespace velmo::store::shape {

// The values of the fields as one text, equal for values that the store holds equal; "" when one is null.
std::string keyOf(const RowSet& rows, RowId row, const std::vector<int>& fields);

// The rows of an appended command, read for one parent after the other as they are asked for. Those of the latest
// parents are kept, so that a long walk needs no more memory than a short one.
class ChildReader {
 public:
  // Nothing where it is better to read all rows of the command at once: the store cannot find a parent's rows without
  // going through the others, or a transaction is going to change them.
  static std::shared_ptr<ChildReader> of(std::shared_ptr<const ResultSource> children, const std::vector<int>& fields,
                                         std::shared_ptr<const RowSet> parents, const std::vector<int>& parentFields);

  // In the command's order; none for a parent with a null in its fields.
  std::shared_ptr<RowSet> rowsOf(RowId parent);

  // Reads and keeps all of them where there are few. False where there are more.
  bool readAllOfFew();

 private:
  ChildReader(std::shared_ptr<const ResultSource> children, const std::vector<int>& fields,
              std::shared_ptr<const RowSet> parents, const std::vector<int>& parentFields);
  bool findsByIndex() const;

  std::shared_ptr<const ResultSource> children_;
  std::shared_ptr<const RowSet> parents_;
  std::vector<int> parentFields_;
  std::string firstColumn_;  // of the related ones
  std::string sql_;
  std::deque<std::pair<std::string, std::shared_ptr<RowSet>>> latest_;  // with the parent's key
};

}  // namespace velmo::store::shape
