#include "text/blanks.h"

#include <algorithm>
#include <array>

namespace velmo::text {
namespace {

// In UTF-8; U+2000 to U+200B, of which the last has no width at all, differ in their last byte.
constexpr std::array<std::string_view, 9> blanks = {" ",  "\t",       "\n",           "\r",          "\v",
                                                    "\f", "\xC2\xA0", "\xE3\x80\x80", "\xEF\xBB\xBF"};

bool isGeneralBlank(std::string_view character) {
  if (!character.starts_with("\xE2\x80") || character.size() != 3) return false;
  const auto last = static_cast<unsigned char>(character[2]);
  return (last >= 0x80 && last <= 0x8B) || last == 0xAF;
}

std::size_t blankAtStart(std::string_view text) {
  if (isGeneralBlank(text.substr(0, 3))) return 3;
  const auto found = std::ranges::find_if(blanks, [&](std::string_view blank) { return text.starts_with(blank); });
  return found == blanks.end() ? 0 : found->size();
}

std::size_t blankAtEnd(std::string_view text) {
  if (text.size() >= 3 && isGeneralBlank(text.substr(text.size() - 3))) return 3;
  const auto found = std::ranges::find_if(blanks, [&](std::string_view blank) { return text.ends_with(blank); });
  return found == blanks.end() ? 0 : found->size();
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  while (const std::size_t length = blankAtStart(text)) text.remove_prefix(length);
  while (const std::size_t length = blankAtEnd(text)) text.remove_suffix(length);
  return text;
}

bool isBlank(std::string_view text) {
  return trimmed(text).empty();
}

}  // namespace velmo::text
