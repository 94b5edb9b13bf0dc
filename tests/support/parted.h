#pragma once

#include <string_view>
#include <vector>

namespace velmo::test {

// What stands between the marks of a text, which must outlive it.
inline std::vector<std::string_view> parted(std::string_view text, char mark = '|') {
  std::vector<std::string_view> parts;
  for (std::size_t at; (at = text.find(mark)) != text.npos; text.remove_prefix(at + 1))
    parts.push_back(text.substr(0, at));
  parts.push_back(text);
  return parts;
}

}  // namespace velmo::test
