#pragma once

#include <string>
#include <string_view>

namespace velmo::spreadsheet {

// The longest text that a cell of a spreadsheet holds, in UTF-16 code units.
inline constexpr std::size_t longestCellText = 32767;

// A text as the cell of a spreadsheet keeps it: line breaks are line feeds, other control characters are left out,
// bytes that are no UTF-8 become U+FFFD, what looks like the format's escape of a character ("_x0041_") is escaped
// itself. A text that would be longer than a cell holds ends with "…".
std::string toCellText(std::string_view text);

// The text that an escaped one stands for: "_x0009_" is a tab.
std::string fromCellText(std::string_view escaped);

}  // namespace velmo::spreadsheet
