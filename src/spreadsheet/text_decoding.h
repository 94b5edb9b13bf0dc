#pragma once

#include <string>
#include <string_view>

namespace velmo::spreadsheet {

struct DecodedText {
  std::string text;      // UTF-8 without a byte order mark, lines ended by line feeds
  std::string encoding;  // what it was in: "UTF-8", "UTF-16LE", "windows-1252"
};

// The text of a file's bytes. Without an encoding it is found out: by a byte order mark, as UTF-8 when the bytes are
// sound UTF-8, otherwise by what languages look like, with Windows-1252 for what stays unsure. For "UTF-16" the byte
// order is found out. Throws ReadFailure when
// the bytes are no text, or do not fit the encoding.
DecodedText decoded(std::string_view bytes, const std::string& encoding = {});

}  // namespace velmo::spreadsheet
