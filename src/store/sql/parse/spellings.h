#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::store::sql {

// Every text that a text without wildcards matches, each once but for the case of ASCII letters, which indexes know
// of. Nothing when they are too many to be looked up one by one, or when the text holds what is no character of a text.
std::optional<std::vector<std::string>> spellingsOf(std::string_view text);

}  // namespace velmo::store::sql
