#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/date_time.h"

// Dates that a document keeps as texts, as "11/22/2026".
namespace velmo::frame {

std::string dayText(const text::DateTime& day);
std::optional<text::DateTime> dayFrom(std::string_view text);  // nothing when the text is no date

}  // namespace velmo::frame
