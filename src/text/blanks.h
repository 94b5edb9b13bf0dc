#pragma once

#include <string_view>

namespace velmo::text {

// The text without the blanks around it: spaces of every width, tabs, line ends.
std::string_view trimmed(std::string_view text);
// Nothing, or nothing but blanks.
bool isBlank(std::string_view text);

}  // namespace velmo::text
