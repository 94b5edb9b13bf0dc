#pragma once

#include <string_view>

#include "spreadsheet/sheet_builder.h"

namespace velmo::spreadsheet {

// What is known of a file of separated values; the rest is found out.
struct TextChoice {
  std::string encoding = {};  // an ICU name, "" to find out
  char separator = '\0';      // ',', ';' or a tab, NUL to find out
  bool operator==(const TextChoice&) const = default;
};

// The rows of separated values (RFC 4180, also with ; or tabs). Every cell is text, without the blanks around it unless
// it stands in quotes. Throws ReadFailure.
Sheet readSeparatedValues(std::string_view bytes, const TextChoice& choice, const Progress& progress);

}  // namespace velmo::spreadsheet
