#pragma once

#include <functional>
#include <string_view>

#include "session/prompts.h"

namespace velmo::session {

// Runs what a person asked for. A failure of the store is told under the title, once `failed` has run; then false.
bool attempt(
    Prompts& prompts, std::string_view title, const std::function<void()>& action,
    const std::function<void()>& failed = [] {});

}  // namespace velmo::session
