#include "store/hierarchy/hierarchy.h"

#include <sqlite3.h>

#include <algorithm>

#include "store/hierarchy/parse_shape.h"

namespace velmo::store::shape {
namespace {

std::shared_ptr<ResultSource> describe(const std::shared_ptr<Connection::Impl>& connection, const Command& command) {
  return describeResult(connection, connection->compile(command.statement), LockType::ReadOnly);
}

std::shared_ptr<const Node> openNode(const std::shared_ptr<ResultSource>& source, const Command& command);

void indexChildren(Chapter& chapter, const std::vector<int>& childFields) {
  const RowSet& rows = *chapter.child->rows;
  std::unordered_map<std::string, std::vector<RowId>> found;
  for (RowId row = 0; row < rows.fetched(); ++row) {
    std::string key = keyOf(rows, row, childFields);
    if (!key.empty()) found[std::move(key)].push_back(row);
  }
  for (auto& [key, ids] : found) {
    chapter.rowsByKey.emplace(key, std::make_shared<const std::vector<RowId>>(std::move(ids)));
  }
}

Chapter openChapter(const std::shared_ptr<RowSet>& parents, const AppendedCommand& appended) {
  const ResultSource& parent = parents->source();
  const std::shared_ptr<ResultSource> source = describe(parent.connection, *appended.command);
  Chapter chapter{.name = appended.name, .parentFields = {}, .reader = {}, .child = {}, .rowsByKey = {}};
  std::vector<int> childFields;
  for (const Relation& relation : appended.relations) {
    chapter.parentFields.push_back(parent.requireField(relation.parent));
    childFields.push_back(source->requireField(relation.child));
  }
  if (appended.command->chapters.empty())
    chapter.reader = ChildReader::of(source, childFields, parents, chapter.parentFields);
  if (chapter.reader == nullptr) {
    chapter.child = openNode(source, *appended.command);
    chapter.child->rows->fetchAll();
    indexChildren(chapter, childFields);
  }
  return chapter;
}

std::shared_ptr<const Node> openNode(const std::shared_ptr<ResultSource>& source, const Command& command) {
  auto node = std::make_shared<Node>();
  node->rows = RowSet::open(source);
  for (const AppendedCommand& appended : command.chapters) node->chapters.push_back(openChapter(node->rows, appended));
  for (const Chapter& chapter : node->chapters) source->addChapter(chapter.name);
  return node;
}

// Reads all of a hierarchy where that is little. False where it is more.
bool readWhole(const Node& node) {
  return !node.rows->hasMore() && std::ranges::all_of(node.chapters, [](const Chapter& chapter) {
    return chapter.reader != nullptr ? chapter.reader->readAllOfFew() : readWhole(*chapter.child);
  });
}

}  // namespace

ChildRows Chapter::rowsFor(const Node& parent, RowId row) const {
  static const auto none = std::make_shared<const std::vector<RowId>>();
  if (reader != nullptr) return {std::make_shared<const Node>(Node{reader->rowsOf(row), {}}), nullptr};
  const auto found = rowsByKey.find(keyOf(*parent.rows, row, parentFields));
  return {child, found == rowsByKey.end() ? none : found->second};
}

const Chapter& Node::requireChapter(std::string_view name) const {
  for (const Chapter& chapter : chapters) {
    if (chapter.name.size() == name.size() &&
        sqlite3_strnicmp(chapter.name.data(), name.data(), static_cast<int>(name.size())) == 0) {
      return chapter;
    }
  }
  throw StoreError(ErrorKind::Misuse, "The recordset has no chapter named \"" + std::string(name) + "\".");
}

std::shared_ptr<const Node> openHierarchy(const std::shared_ptr<Connection::Impl>& connection,
                                          std::string_view shapeStatement) {
  const Command command = parseShape(shapeStatement);
  // What an open transaction has written is seen by its own connection alone; there everything is read at once.
  const std::shared_ptr<Connection::Impl> reading = connection->transaction == 0 ? connection->snapshot() : connection;
  std::shared_ptr<const Node> node = openNode(describe(reading, command), command);
  if (reading != connection && readWhole(*node)) reading->run("COMMIT");  // the log may be emptied
  return node;
}

}  // namespace velmo::store::shape
