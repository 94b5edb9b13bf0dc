#include "store/sql/parse/spellings.h"

#include <unicode/uchar.h>
#include <unicode/uset.h>
#include <unicode/utf8.h>

#include <memory>

#include "text/like.h"

namespace velmo::store::sql {
namespace {

constexpr std::size_t mostSpellings = 1024;

std::string utf8Of(UChar32 character) {
  char bytes[U8_MAX_LENGTH];
  std::int32_t count = 0;
  U8_APPEND_UNSAFE(bytes, count, character);
  return std::string(bytes, static_cast<std::size_t>(count));
}

// The characters that fold to this one; of ASCII letters the small one alone.
std::vector<std::string> spellingsOf(UChar32 folded) {
  const std::unique_ptr<USet, decltype(&uset_close)> alike(uset_openEmpty(), &uset_close);
  uset_add(alike.get(), folded);
  uset_closeOver(alike.get(), USET_CASE_INSENSITIVE);
  std::vector<std::string> spellings;
  for (std::int32_t item = 0; item < uset_getItemCount(alike.get()); ++item) {
    UChar32 first = 0;
    UChar32 last = -1;
    UErrorCode failure = U_ZERO_ERROR;
    if (uset_getItem(alike.get(), item, &first, &last, nullptr, 0, &failure) != 0) continue;  // several characters
    for (UChar32 each = first; each <= last; ++each) {
      const bool isCapital = each < 0x80 && each != folded;
      if (!isCapital && u_foldCase(each, U_FOLD_CASE_DEFAULT) == folded) spellings.push_back(utf8Of(each));
    }
  }
  return spellings;
}

}  // namespace

std::optional<std::vector<std::string>> spellingsOf(std::string_view text) {
  const std::string folded = text::foldedText(text);
  const auto length = static_cast<std::int32_t>(folded.size());
  std::vector<std::string> spellings{{}};
  for (std::int32_t at = 0; at < length;) {
    UChar32 character = 0;
    U8_NEXT(folded.data(), at, length, character);
    if (character < 0x20) return std::nullopt;
    const std::vector<std::string> ways = spellingsOf(character);
    if (spellings.size() * ways.size() > mostSpellings) return std::nullopt;
    std::vector<std::string> longer;
    for (const std::string& begun : spellings)
      for (const std::string& way : ways) longer.push_back(begun + way);
    spellings = std::move(longer);
  }
  return spellings;
}

}  // namespace velmo::store::sql
