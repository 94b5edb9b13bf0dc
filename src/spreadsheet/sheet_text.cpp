#include "spreadsheet/sheet_text.h"

#include <unicode/utf8.h>

#include <charconv>
#include <optional>

namespace velmo::spreadsheet {
namespace {

constexpr std::string_view ellipsis = "…";
constexpr std::string_view escapedUnderscore = "_x005F_";
constexpr std::size_t escapeLength = escapedUnderscore.size();

// The character that an escape at the head of the text stands for.
std::optional<UChar32> escapeAt(std::string_view text) {
  if (text.size() < escapeLength || text[0] != '_' || text[1] != 'x' || text[escapeLength - 1] != '_') return {};
  unsigned code = 0;
  const char* const end = text.data() + escapeLength - 1;
  const auto [behind, error] = std::from_chars(text.data() + 2, end, code, 16);
  if (error != std::errc() || behind != end) return {};
  return static_cast<UChar32>(code);
}

bool isLeftOut(UChar32 character) {
  return (character < 0x20 && character != '\t' && character != '\n') || (character >= 0x7F && character < 0xA0) ||
         character == 0xFFFE || character == 0xFFFF;
}

void append(std::string& text, UChar32 character) {
  char bytes[U8_MAX_LENGTH];
  std::int32_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, character);
  text.append(bytes, static_cast<std::size_t>(length));
}

}  // namespace

std::string toCellText(std::string_view text) {
  std::string cell;
  cell.reserve(text.size());
  std::size_t units = 0;
  std::size_t cut = 0;  // where the ellipsis stands if the text turns out too long
  const auto length = static_cast<std::int32_t>(text.size());
  for (std::int32_t at = 0; at < length;) {
    const auto start = static_cast<std::size_t>(at);
    UChar32 character = 0;
    U8_NEXT_OR_FFFD(text.data(), at, length, character);
    if (character == '\r') {
      if (static_cast<std::size_t>(at) < text.size() && text[static_cast<std::size_t>(at)] == '\n') continue;
      character = '\n';
    }
    if (isLeftOut(character)) continue;
    const bool escaped = character == '_' && escapeAt(text.substr(start));
    if (units < longestCellText) cut = cell.size();
    units += escaped ? escapeLength : character > 0xFFFF ? 2 : 1;
    if (units > longestCellText) {
      cell.resize(cut);
      return cell.append(ellipsis);
    }
    if (escaped)
      cell += escapedUnderscore;
    else
      append(cell, character);
  }
  return cell;
}

std::string fromCellText(std::string_view escaped) {
  if (escaped.find("_x") == std::string_view::npos) return std::string(escaped);
  std::string text;
  text.reserve(escaped.size());
  for (std::size_t at = 0; at < escaped.size();) {
    const auto character = escapeAt(escaped.substr(at));
    if (!character || U_IS_SURROGATE(*character)) {
      text += escaped[at++];
      continue;
    }
    append(text, *character);
    at += escapeLength;
  }
  return text;
}

}  // namespace velmo::spreadsheet
