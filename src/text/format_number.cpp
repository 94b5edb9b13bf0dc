#include <cmath>
#include <vector>

#include "text/decimal.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::text {
namespace {

bool isPlaceholder(char character) {
  return character == '0' || character == '#';
}

// One section of a pattern: literals stay in their places, the number's digits go to the places of "0" and "#".
struct Section {
  struct Piece {
    enum class Kind { Literal, WholePlace, Point, FractionPlace } kind;
    char character;
  };
  std::vector<Piece> pieces;
  int wholePlaces = 0;
  int requiredWhole = 0;  // digits shown even as leading zeros
  int fractionPlaces = 0;
  int requiredFraction = 0;
  bool grouped = false;
};

Section parsedSection(std::string_view pattern) {
  using Kind = Section::Piece::Kind;
  Section section;
  bool behindPoint = false;
  bool leadingZeroSeen = false;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const char character = pattern[at];
    if (isPlaceholder(character) && behindPoint) {
      ++section.fractionPlaces;
      if (character == '0') section.requiredFraction = section.fractionPlaces;
      section.pieces.push_back({Kind::FractionPlace, character});
    } else if (isPlaceholder(character)) {
      ++section.wholePlaces;
      leadingZeroSeen = leadingZeroSeen || character == '0';
      if (leadingZeroSeen) ++section.requiredWhole;
      section.pieces.push_back({Kind::WholePlace, character});
    } else if (character == '.' && !behindPoint) {
      behindPoint = true;
      section.pieces.push_back({Kind::Point, character});
    } else if (character == ',' && section.wholePlaces > 0 && !behindPoint) {
      section.grouped = true;
    } else if (character == '\\' && at + 1 < pattern.size()) {
      section.pieces.push_back({Kind::Literal, pattern[++at]});
    } else if (character != '"') {
      section.pieces.push_back({Kind::Literal, character});
    }
  }
  return section;
}

std::vector<Section> parsedSections(std::string_view pattern) {
  std::vector<Section> sections;
  std::size_t start = 0;
  bool quoted = false;
  for (std::size_t at = 0; at <= pattern.size(); ++at) {
    if (at < pattern.size() && pattern[at] == '"') quoted = !quoted;
    if (at < pattern.size() && (quoted || pattern[at] != ';')) continue;
    sections.push_back(parsedSection(pattern.substr(start, at - start)));
    start = at + 1;
  }
  return sections;
}

// Writes the digits that fall to one whole place: all surplus ones at the first, one at each other, with a comma
// before every third from the right.
class WholeDigits {
 public:
  WholeDigits(std::string digits, const Section& section) : digits_(std::move(digits)), grouped_(section.grouped) {
    const auto required = static_cast<std::size_t>(section.requiredWhole);
    if (digits_.size() < required) digits_.insert(0, required - digits_.size(), '0');
    placesLeft_ = static_cast<std::size_t>(section.wholePlaces);
  }

  void writePlace(std::string& text) {
    --placesLeft_;
    while (next_ < digits_.size() && digits_.size() - next_ > placesLeft_) {
      text += digits_[next_++];
      const std::size_t left = digits_.size() - next_;
      if (grouped_ && left > 0 && left % 3 == 0) text += ',';
    }
  }

 private:
  std::string digits_;
  bool grouped_;
  std::size_t placesLeft_ = 0;
  std::size_t next_ = 0;
};

std::string rendered(const Section& section, const Decimal::Fixed& number) {
  using Kind = Section::Piece::Kind;
  std::size_t shownFraction = number.fraction.find_last_not_of('0') + 1;
  shownFraction = std::max(shownFraction, static_cast<std::size_t>(section.requiredFraction));
  WholeDigits whole(number.whole, section);
  std::size_t fractionAt = 0;
  std::string text;
  for (const Section::Piece& piece : section.pieces) {
    if (piece.kind == Kind::WholePlace) {
      whole.writePlace(text);
    } else if (piece.kind == Kind::FractionPlace) {
      if (fractionAt < shownFraction) text += number.fraction[fractionAt];
      ++fractionAt;
    } else {
      text += piece.character;
    }
  }
  return text;
}

// The one place that decides how an amount below zero that rounds to zero is shown: as zero.
bool showsAsZero(const Decimal& number, const Section& section) {
  return number.rounded(section.fractionPlaces).isZero();
}

std::string_view namedPattern(std::string_view pattern) {
  if (pattern == "Fixed") return "0.00";
  if (pattern == "Standard") return "#,##0.00";
  return pattern;
}

}  // namespace

std::string formatNumber(double value, std::string_view pattern) {
  if (!std::isfinite(value)) return numberText(value);
  const std::vector<Section> sections = parsedSections(namedPattern(pattern));
  const Decimal number = Decimal::of(value);
  const bool ownNegative = sections.size() > 1 && !sections[1].pieces.empty();
  const Section& negativeSection = ownNegative ? sections[1] : sections[0];
  const bool negative = number.negative && !showsAsZero(number, negativeSection);
  if (negative) {
    const std::string text = rendered(negativeSection, number.rounded(negativeSection.fractionPlaces));
    return ownNegative ? text : "-" + text;
  }
  const bool zero = number.isZero() || number.negative;
  const Section& section = zero && sections.size() > 2 && !sections[2].pieces.empty() ? sections[2] : sections[0];
  return rendered(section, number.rounded(section.fractionPlaces));
}

std::string formatText(std::string_view value, std::string_view pattern) {
  const std::optional<double> number = numberFrom(value);
  return number ? formatNumber(*number, pattern) : std::string(value);
}

}  // namespace velmo::text
