#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/hierarchy/child_reader.h"

// Hierarchies: the rows of a parent are found among those of the appended command by their key. A command that the
// store can search by that key is read parent by parent, every other one once, whole. A hierarchy reads the file as it
// was when it was opened, however late its rows are asked for.
namespace velmo::store::shape {

struct Node;

// The rows below one row: those of a node, or a part of them.
struct ChildRows {
  std::shared_ptr<const Node> node;
  std::shared_ptr<const std::vector<RowId>> part;  // nullptr for all
};

// Child rows by the values that relate them to their parents.
struct Chapter {
  std::string name;
  std::vector<int> parentFields;
  std::shared_ptr<ChildReader> reader;  // or else the command as it was read whole:
  std::shared_ptr<const Node> child;
  std::unordered_map<std::string, std::shared_ptr<const std::vector<RowId>>> rowsByKey;

  // In the child statement's order; none for a parent with a null in its fields.
  ChildRows rowsFor(const Node& parent, RowId row) const;
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
