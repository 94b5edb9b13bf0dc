#include "store/rows/sort_order.h"

#include <sqlite3.h>

#include <string>

namespace velmo::store {
namespace {

StoreError refused(std::string_view columns) {
  return {ErrorKind::Statement, "The sort \"" + std::string(columns) + "\" is not a list of fields with asc or desc."};
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// The name at the front of an item, with or without brackets.
std::string_view takeName(std::string_view& item, std::string_view columns) {
  const bool bracketed = item.starts_with('[');
  const std::size_t end = bracketed ? item.find(']') : std::min(item.find(' '), item.size());
  if (end == std::string_view::npos) throw refused(columns);
  const std::string_view name = bracketed ? item.substr(1, end - 1) : item.substr(0, end);
  item = trimmed(item.substr(bracketed ? end + 1 : end));
  return name;
}

bool isWord(std::string_view text, std::string_view word) {
  return text.size() == word.size() && sqlite3_strnicmp(text.data(), word.data(), static_cast<int>(word.size())) == 0;
}

}  // namespace

std::vector<SortItem> parseSort(const ResultSource& source, std::string_view columns) {
  std::vector<SortItem> items;
  std::string_view rest = trimmed(columns);
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    std::string_view item = trimmed(rest.substr(0, comma));
    const bool more = comma < rest.size();
    rest = more ? trimmed(rest.substr(comma + 1)) : std::string_view{};
    if (item.empty() || (more && rest.empty())) throw refused(columns);
    const int field = source.requireField(takeName(item, columns));
    const bool descending = isWord(item, "desc");
    if (!descending && !item.empty() && !isWord(item, "asc")) throw refused(columns);
    items.push_back({.field = field, .descending = descending});
  }
  return items;
}

}  // namespace velmo::store
