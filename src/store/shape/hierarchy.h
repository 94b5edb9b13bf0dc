#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/row_set.h"

// Hierarchies: each command runs once, whole; the children of a row are found by key in memory.
namespace velmo::store::shape {

struct Node;

// Child rows by the values that relate them to their parents.
struct Chapter {
  std::string name;
  std::vector<int> parentFields;
  std::shared_ptr<const Node> child;
  std::unordered_map<std::string, std::shared_ptr<const std::vector<RowId>>> rowsByKey;

  // In the child statement's order; none for a parent with a null in its fields.
  std::shared_ptr<const std::vector<RowId>> rowsFor(const Node& parent, RowId row) const;
};

struct Node {
  std::shared_ptr<RowSet> rows;
  std::vector<Chapter> chapters;

  const Chapter& requireChapter(std::string_view name) const;  // throws StoreError (Misuse)
};

// Runs the commands of a SHAPE statement. Throws StoreError.
std::shared_ptr<const Node> openHierarchy(const std::shared_ptr<Connection::Impl>& connection,
                                          std::string_view shapeStatement);

}  // namespace velmo::store::shape
