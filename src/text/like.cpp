#include "text/like.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace velmo::text {
namespace {

char32_t folded(char32_t character) {
  if (character < 0x80) return character >= 'A' && character <= 'Z' ? character + 0x20 : character;
  if (character > 0x10FFFF) return character;
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

constexpr char32_t strayByte = 0x110000;

// Hands on each character of a text, folded. Bytes that are no UTF-8 stand for themselves, above the range of
// characters.
template <class Take>
void eachFolded(std::string_view text, Take take) {
  const auto length = static_cast<std::int32_t>(text.size());
  for (std::int32_t at = 0; at < length;) {
    std::int32_t stray = at;
    UChar32 character = 0;
    U8_NEXT(text.data(), at, length, character);
    if (character >= 0) {
      take(folded(static_cast<char32_t>(character)));
      continue;
    }
    for (; stray < at; ++stray) take(strayByte + static_cast<unsigned char>(text[static_cast<std::size_t>(stray)]));
  }
}

std::vector<char32_t> foldedCharacters(std::string_view text) {
  std::vector<char32_t> characters;
  characters.reserve(text.size());
  eachFolded(text, [&](char32_t character) { characters.push_back(character); });
  return characters;
}

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

// An ASCII text as folded characters, without making them.
struct LowerAscii {
  std::string_view text;
  std::size_t size() const { return text.size(); }
  char32_t operator[](std::size_t at) const { return static_cast<unsigned char>(lower(text[at])); }
};

bool containsLower(std::string_view text, std::string_view wanted) {
  if (wanted.empty()) return true;
  if (text.size() < wanted.size()) return false;
  const std::size_t last = text.size() - wanted.size();
  for (std::size_t start = 0; start <= last; ++start) {
    std::size_t i = 0;
    while (i < wanted.size() && lower(text[start + i]) == wanted[i]) ++i;
    if (i == wanted.size()) return true;
  }
  return false;
}

}  // namespace

bool isAscii(std::string_view text) {
  unsigned bits = 0;
  for (const char c : text) bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

LikePattern::LikePattern(std::string_view pattern) {
  const std::vector<char32_t> characters = foldedCharacters(pattern);
  const auto lastClose = std::ranges::find(characters.rbegin(), characters.rend(), U']');
  const auto closedUpTo = static_cast<std::size_t>(characters.rend() - lastClose);
  for (std::size_t at = 0; at < characters.size(); ++at) {
    switch (characters[at]) {
      case U'%':
        if (steps_.empty() || steps_.back().kind != Kind::AnyMany) steps_.push_back({.kind = Kind::AnyMany});
        break;
      case U'_':
        steps_.push_back({.kind = Kind::AnyOne});
        break;
      case U'[':  // one that nothing closes is an ordinary character
        if (at < closedUpTo)
          at = readList(characters, at);
        else
          steps_.push_back({.character = U'['});
        break;
      default:
        steps_.push_back({.character = characters[at]});
    }
  }
  if (pattern.size() >= 2 && pattern.front() == '%' && pattern.back() == '%' &&
      isPlainPattern(pattern.substr(1, pattern.size() - 2))) {
    containsOnly_ = true;
    for (const char c : pattern.substr(1, pattern.size() - 2)) contained_ += lower(c);
  }
}

// Of a bracket that is closed. Returns the place of the list's last character.
std::size_t LikePattern::readList(const std::vector<char32_t>& pattern, std::size_t open) {
  Step list{.kind = Kind::List};
  std::size_t at = open + 1;
  if ((pattern[at] == U'!' || pattern[at] == U'^') && pattern[at + 1] != U']') {
    list.negated = true;
    ++at;
  }
  while (pattern[at] != U']') {
    const bool range = at + 2 < pattern.size() && pattern[at + 1] == U'-' && pattern[at + 2] != U']';
    list.ranges.push_back({pattern[at], range ? pattern[at + 2] : pattern[at]});
    at += range ? 3 : 1;
  }
  if (!list.ranges.empty()) steps_.push_back(std::move(list));
  return at;
}

bool LikePattern::accepts(const Step& step, char32_t character) {
  if (step.kind == Kind::AnyOne) return true;
  if (step.kind == Kind::Character) return step.character == character;
  for (const Range& range : step.ranges) {
    if (character >= range.first && character <= range.last) return !step.negated;
  }
  return step.negated;
}

// Only the last % needs to be taken back, so that the work is at worst the product of the two lengths.
template <class Characters>
bool LikePattern::matchesFolded(const Characters& text) const {
  constexpr std::size_t none = static_cast<std::size_t>(-1);
  std::size_t step = 0;
  std::size_t at = 0;
  std::size_t stepAfterMany = none;
  std::size_t retryAt = 0;
  while (at < text.size()) {
    if (step < steps_.size() && steps_[step].kind == Kind::AnyMany) {
      stepAfterMany = ++step;
      retryAt = at;
    } else if (step < steps_.size() && accepts(steps_[step], text[at])) {
      ++step;
      ++at;
    } else if (stepAfterMany != none) {
      step = stepAfterMany;
      at = ++retryAt;
    } else {
      return false;
    }
  }
  while (step < steps_.size() && steps_[step].kind == Kind::AnyMany) ++step;
  return step == steps_.size();
}

bool LikePattern::matches(std::string_view text) const {
  if (!isAscii(text)) return matchesFolded(foldedCharacters(text));
  return containsOnly_ ? containsLower(text, contained_) : matchesFolded(LowerAscii{text});
}

void appendFolded(std::string& result, std::string_view text) {
  if (isAscii(text)) {
    const std::size_t begin = result.size();
    result.resize(begin + text.size());
    std::ranges::transform(text, result.begin() + static_cast<std::ptrdiff_t>(begin), lower);
    return;
  }
  eachFolded(text, [&](char32_t character) {
    if (character >= strayByte) {
      result += static_cast<char>(character - strayByte);
      return;
    }
    char bytes[U8_MAX_LENGTH];
    std::int32_t count = 0;
    U8_APPEND_UNSAFE(bytes, count, static_cast<UChar32>(character));
    result.append(bytes, static_cast<std::size_t>(count));
  });
}

std::string foldedText(std::string_view text) {
  std::string result;
  appendFolded(result, text);
  return result;
}

bool isPlainPattern(std::string_view pattern) {
  return isAscii(pattern) && pattern.find_first_of("%_[") == std::string_view::npos;
}

std::string escapedPattern(std::string_view text) {
  std::string pattern;
  for (const char c : text) {
    const bool isSign = c == '[' || c == '%' || c == '_';
    if (isSign) pattern += '[';
    pattern += c;
    if (isSign) pattern += ']';
  }
  return pattern;
}

std::optional<std::string> plainText(std::string_view pattern) {
  std::string text;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const char c = pattern[at];
    if (c == '%' || c == '_') return std::nullopt;
    if (c != '[') {
      text += c;
      continue;
    }
    const std::string_view list = pattern.substr(at, 3);
    if (list != "[[]" && list != "[%]" && list != "[_]") return std::nullopt;
    text += list[1];
    at += 2;
  }
  return text;
}

}  // namespace velmo::text
