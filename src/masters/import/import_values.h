#pragma once

#include <optional>
#include <string>

#include "masters/import/import_mapping.h"
#include "spreadsheet/sheet.h"

// What the cells of a file mean to the books.
namespace velmo::masters {

inline constexpr int longestImportText = 255;  // characters of a text column

// On one line, without the blanks around it and the marks that are not seen.
std::string cleanText(const std::string& text);

// A number of digits, at most one decimal sign and groups of three digits: "1,234.50", "1.234,50". Nothing for what is
// no such number, and for negative ones.
std::optional<double> amountFrom(const std::string& text, DecimalSign sign);

std::optional<bool> yesNoFrom(const std::string& text);
// True for the weighted average, false for a cost that is kept by hand.
std::optional<bool> costMethodFrom(const std::string& text);

}  // namespace velmo::masters
