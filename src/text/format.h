#pragma once

#include <string>
#include <string_view>

#include "text/date_time.h"

namespace velmo::text {

// A number in a pattern of up to three sections: "0.00", "0.00;(0.00)", "#,##0.00; (#,##0.00)", "00", "Fixed".
// Digits are rounded half away from zero on the 15-digit text of the number, so that 1.005 is "1.01". A negative
// amount that rounds to zero prints as zero, without sign or parentheses.
std::string formatNumber(double value, std::string_view pattern);

// The text is converted when it is numeric and otherwise returned as it is.
std::string formatText(std::string_view value, std::string_view pattern);

// A date in a pattern of d, m, y, h, n, s and am/pm: "dd-mm-yyyy", "mmm d, yyyy", "hh-mm-ss am/pm". m straight
// after h is minutes.
std::string formatDate(const DateTime& value, std::string_view pattern);

}  // namespace velmo::text
