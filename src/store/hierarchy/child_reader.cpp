#include "store/hierarchy/child_reader.h"

#include <algorithm>

#include "store/sqlite/table_sql.h"
#include "text/number.h"

namespace velmo::store::shape {
namespace {

constexpr RowId mostKept = 32;  // parents whose rows are kept

bool isText(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Memo;
}

bool isWholeNumber(ColumnType type) {
  return type == ColumnType::Byte || type == ColumnType::Integer || type == ColumnType::Long;
}

// Whether the store's own comparison of the two fields finds the rows that keyOf() holds equal.
bool comparesAlike(const ResultSource& children, int field, const ResultSource& parents, int parentField) {
  const auto child = static_cast<std::size_t>(field);
  const auto parent = static_cast<std::size_t>(parentField);
  if (child >= children.sources.size() || parent >= parents.types.size()) return false;  // a chapter
  const Column* column = children.sources[child].column;
  if (column == nullptr) return false;
  const ColumnType type = parents.types[parent];
  return (isText(column->type) && isText(type)) || (isWholeNumber(column->type) && isWholeNumber(type));
}

// Two fields of one name cannot be told apart outside their statement.
bool isOnlyOne(const ResultSource& source, int field) {
  const std::string& name = source.fields[static_cast<std::size_t>(field)].name;
  return source.fieldIndex(name) == field &&
         std::ranges::count(source.fields, name, [](const FieldInfo& info) { return info.name; }) == 1;
}

Value keyValue(const RowSet& rows, RowId row, int field) {
  Value value = rows.value(row, field);
  if (auto* text = std::get_if<std::string>(&value)) text->erase(text->find_last_not_of(' ') + 1);
  return value;
}

}  // namespace

std::string keyOf(const RowSet& rows, RowId row, const std::vector<int>& fields) {
  std::string key;
  for (int field : fields) {
    const Value value = keyValue(rows, row, field);
    if (isNull(value)) return {};
    if (const auto* text = std::get_if<std::string>(&value)) {
      key += 't';
      for (char c : *text) key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    } else {
      key += 'n' + text::numberText(numberOf(value));
    }
    key += '\0';
  }
  return key;
}

ChildReader::ChildReader(std::shared_ptr<const ResultSource> children, const std::vector<int>& fields,
                         std::shared_ptr<const RowSet> parents, const std::vector<int>& parentFields)
    : children_(std::move(children)),
      parents_(std::move(parents)),
      parentFields_(parentFields),
      firstColumn_(children_->sources[static_cast<std::size_t>(fields.front())].column->name) {
  std::size_t parameter = children_->statement.parameters.size();
  sql_ = "SELECT * FROM (" + children_->statement.compiled->sql + ") AS child WHERE ";
  for (std::size_t i = 0; i < fields.size(); ++i) {
    sql_ += i == 0 ? "child." : " AND child.";
    sql_ += quotedName(children_->fields[static_cast<std::size_t>(fields[i])].name) + " = ?";
    sql_ += std::to_string(++parameter);
  }
}

std::shared_ptr<ChildReader> ChildReader::of(std::shared_ptr<const ResultSource> children,
                                             const std::vector<int>& fields, std::shared_ptr<const RowSet> parents,
                                             const std::vector<int>& parentFields) {
  if (children->connection->transaction != 0) return nullptr;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!comparesAlike(*children, fields[i], parents->source(), parentFields[i])) return nullptr;
    if (!isOnlyOne(*children, fields[i])) return nullptr;
  }
  std::shared_ptr<ChildReader> reader(new ChildReader(std::move(children), fields, std::move(parents), parentFields));
  // One parent's rows cost no more than all of them, whatever the plan.
  if (reader->parents_->fetched() > 1 && !reader->findsByIndex()) return nullptr;
  return reader;
}

// Whether the store begins with an index of the related column and searches from there.
bool ChildReader::findsByIndex() const {
  PreparedStatement plan = children_->connection->prepare("EXPLAIN QUERY PLAN " + sql_);
  constexpr int detail = 3;
  bool begun = false;
  while (plan.step()) {
    const std::string step = textOf(columnValue(plan.handle(), detail));
    if (begun && step.starts_with("USE TEMP B-TREE")) continue;
    if (!step.starts_with("SEARCH ")) return false;
    const bool byColumn = step.find("(" + firstColumn_ + "=?") != std::string::npos;
    if (!begun && !byColumn && step.find("(rowid=?") == std::string::npos) return false;
    begun = true;
  }
  return begun;
}

std::shared_ptr<RowSet> ChildReader::rowsOf(RowId parent) {
  std::string key = keyOf(*parents_, parent, parentFields_);
  const auto known = std::ranges::find(latest_, key, [](const auto& read) -> const std::string& { return read.first; });
  if (known != latest_.end()) return known->second;
  std::vector<Value> parameters = children_->statement.parameters;
  for (const int field : parentFields_) parameters.push_back(keyValue(*parents_, parent, field));
  std::shared_ptr<RowSet> rows = RowSet::open(children_, sql_, parameters);
  if (std::ssize(latest_) == mostKept) latest_.pop_front();
  latest_.emplace_back(std::move(key), rows);
  return rows;
}

bool ChildReader::readAllOfFew() {
  if (parents_->hasMore() || parents_->fetched() > mostKept) return false;
  for (RowId parent = 0; parent < parents_->fetched(); ++parent)
    if (rowsOf(parent)->hasMore()) return false;
  return true;
}

}  // namespace velmo::store::shape
