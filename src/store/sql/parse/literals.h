#pragma once

#include <optional>
#include <string_view>

#include "store/values/value.h"
#include "text/date_time.h"

namespace velmo::store::sql {

// The inside of a #...# literal: month-day-year whatever the locale, with "-" or "/" between, or an ISO date; a time
// of day may follow ("14:07", "2:07:09 PM"). Nothing when it is no date of the calendar.
std::optional<text::DateTime> dateFromLiteral(std::string_view inside);

// Digits with an optional point and exponent: std::int64_t when it is whole and fits, otherwise double.
std::optional<Value> numberFromLiteral(std::string_view digits);

// The inside of a quoted literal with doubled quotes made single.
std::string textFromLiteral(std::string_view inside, char quote);

}  // namespace velmo::store::sql
