#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace velmo::store {

// Names of tables, columns and fields are compared as SQLite compares them: A to Z alone without regard to case.
inline bool sameName(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [&](char one, char other) { return lower(one) == lower(other); });
}

// The place of the item of that name, or -1. The search begins at `from` and goes round: names that are asked for in
// the order of the items are found at once when it is told where the last one stood.
template <class Items, class NameOf>
int placeOfName(const Items& items, std::string_view name, std::size_t from, NameOf nameOf) {
  const std::size_t count = std::size(items);
  std::size_t place = from < count ? from : 0;
  for (std::size_t seen = 0; seen < count; ++seen) {
    if (sameName(nameOf(items[place]), name)) return static_cast<int>(place);
    if (++place == count) place = 0;
  }
  return -1;
}

}  // namespace velmo::store
