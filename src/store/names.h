#pragma once

#include <algorithm>
#include <string_view>

namespace velmo::store {

// Names of tables, columns and fields are compared as SQLite compares them: A to Z alone without regard to case.
inline bool sameName(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [&](char one, char other) { return lower(one) == lower(other); });
}

}  // namespace velmo::store
