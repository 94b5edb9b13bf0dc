#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/date_time.h"

// Dates that a document keeps as texts, as "22-11-2026".
namespace velmo::frame {

std::string dayText(const text::DateTime& day);
// As this program wrote it into older files: "11/22/2026".
std::string formerDayText(const text::DateTime& day);
// The year first, with "-" the day first, with "/" the month first. Nothing when the text is no date.
std::optional<text::DateTime> dayFrom(std::string_view text);

}  // namespace velmo::frame
