#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Matching of texts with wildcards: % any characters, _ one character, [abc] one of a list, [a-f] a range, [!x] or
// [^x] none of a list, [%] the character itself. All of Unicode is folded, blanks count.
namespace velmo::text {

// A pattern made ready for many texts.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);
  bool matches(std::string_view text) const;

 private:
  enum class Kind { Character, AnyOne, AnyMany, List };
  struct Range {
    char32_t first, last;
  };
  struct Step {
    Kind kind = Kind::Character;
    char32_t character = 0;
    bool negated = false;
    std::vector<Range> ranges = {};
  };

  std::size_t readList(const std::vector<char32_t>& pattern, std::size_t open);
  template <class Characters>
  bool matchesFolded(const Characters& text) const;
  static bool accepts(const Step& step, char32_t character);

  std::vector<Step> steps_;
  std::string contained_;  // of an ASCII pattern of the form %text%, in lower case; most searches are of this kind
  bool containsOnly_ = false;
};

// The text with each of its characters folded as patterns fold theirs: a folded text without wildcards stands in
// another text exactly where it stands, byte for byte, in the other's folded form. Stray bytes stay as they are.
std::string foldedText(std::string_view text);
void appendFolded(std::string& result, std::string_view text);

bool isAscii(std::string_view text);

// True when the pattern has no wildcards and is ASCII, so that it equals the text it matches but for case.
bool isPlainPattern(std::string_view pattern);

// The text as a pattern that it alone fits, whatever the case of its letters: [, % and _ as [[], [%] and [_].
std::string escapedPattern(std::string_view text);

// What a pattern without wildcards stands for, an escaped one without its brackets. Nothing of other patterns.
std::optional<std::string> plainText(std::string_view pattern);

}  // namespace velmo::text
