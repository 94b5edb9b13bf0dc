#include "store/shape/hierarchy.h"

#include <sqlite3.h>

#include "store/shape/parse_shape.h"
#include "text/number.h"

namespace velmo::store::shape {
namespace {

// The values of the fields as one text, equal for values that the store holds equal; "" when one is null.
std::string keyOf(const RowSet& rows, RowId row, const std::vector<int>& fields) {
  std::string key;
  for (int field : fields) {
    const Value value = rows.value(row, field);
    if (isNull(value)) return {};
    if (const auto* text = std::get_if<std::string>(&value)) {
      key += 't';
      for (char c : *text) key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
      key.erase(key.find_last_not_of(' ') + 1);
    } else {
      key += 'n' + text::numberText(numberOf(value));
    }
    key += '\0';
  }
  return key;
}

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

std::shared_ptr<const Node> openNode(const std::shared_ptr<Connection::Impl>& connection, const Command& command) {
  const std::shared_ptr<ResultSource> source =
      describeResult(connection, connection->compile(command.statement), LockType::ReadOnly);
  auto node = std::make_shared<Node>();
  for (const AppendedCommand& appended : command.chapters) {
    Chapter chapter{.name = appended.name, .parentFields = {}, .child = {}, .rowsByKey = {}};
    chapter.child = openNode(connection, *appended.command);
    std::vector<int> childFields;
    for (const Relation& relation : appended.relations) {
      chapter.parentFields.push_back(source->requireField(relation.parent));
      childFields.push_back(chapter.child->rows->source().requireField(relation.child));
    }
    indexChildren(chapter, childFields);
    node->chapters.push_back(std::move(chapter));
  }
  for (const Chapter& chapter : node->chapters) source->addChapter(chapter.name);
  node->rows = RowSet::open(source);
  node->rows->fetchAll();
  return node;
}

}  // namespace

std::shared_ptr<const std::vector<RowId>> Chapter::rowsFor(const Node& parent, RowId row) const {
  static const auto none = std::make_shared<const std::vector<RowId>>();
  const auto found = rowsByKey.find(keyOf(*parent.rows, row, parentFields));
  return found == rowsByKey.end() ? none : found->second;
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
  return openNode(connection, parseShape(shapeStatement));
}

}  // namespace velmo::store::shape
