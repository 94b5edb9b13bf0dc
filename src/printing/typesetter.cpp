#include "printing/typesetter.h"

#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "printing/plain_face.h"

namespace velmo::printing {

namespace {

// Of a line of Latin text, in parts of the font's size. A line of another script is as high as its own fonts ask.
constexpr double LatinAscent = 1.0;
constexpr double LatinDescent = 0.28;
constexpr char16_t FirstBeyondLatin = 0x0250;

using FontKey = std::tuple<int, Weight, Slant>;

FontKey keyOf(const FontSpec& spec) {
  return {static_cast<int>(std::lround(spec.size * 10)), spec.weight, spec.slant};
}

QFont makeFont(const FontSpec& spec, RunKind kind) {
  QFont font;
  font.setFamilies({QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans"), QStringLiteral("Noto Sans Arabic"),
                    QStringLiteral("Noto Naskh Arabic")});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(points(spec.size));
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(kind == RunKind::Words);
  font.setItalic(spec.slant == Slant::Italic);
  switch (spec.weight) {
    case Weight::Regular:
      font.setWeight(QFont::Normal);
      break;
    case Weight::SemiBold:
      font.setWeight(QFont::DemiBold);
      break;
    case Weight::Bold:
      font.setWeight(QFont::Bold);
      break;
  }
  return font;
}

bool isFigure(QChar character) {
  return character.isDigit() || QStringView(u" .,()-+/:%").contains(character);
}

}  // namespace

const QFont& reportFont(const FontSpec& spec, RunKind kind) {
  static std::map<std::pair<FontKey, bool>, QFont> fonts;
  const auto key = std::make_pair(keyOf(spec), kind == RunKind::Words);
  auto found = fonts.find(key);
  if (found == fonts.end()) found = fonts.emplace(key, makeFont(spec, kind)).first;
  return found->second;
}

RunKind Typesetter::kindOf(const QString& text) {
  if (text.contains(TotalPagesMark)) return RunKind::TotalPages;
  return std::all_of(text.begin(), text.end(), isFigure) ? RunKind::Figures : RunKind::Words;
}

bool Typesetter::setOneLine(const QString& text, const FontSpec& font, Twips width, RunKind kind) {
  const PlainFace& face = plainFace(font, kind);
  if (!face.holds(text)) return false;
  const float needed = face.width(text);
  if (needed > static_cast<float>(width)) return false;
  const double size = points(font.size);
  lines_.push_back({0, text.size(), static_cast<Twips>(std::lround(needed)), static_cast<Twips>(size * LatinAscent),
                    static_cast<Twips>(size * LatinDescent), false});
  return true;
}

void Typesetter::setParagraph(const QString& text, qsizetype first, const FontSpec& font, Twips width, RunKind kind) {
  const bool latin = std::all_of(text.begin(), text.end(), [](QChar character) {
    return character.unicode() < FirstBeyondLatin || character == TotalPagesMark;
  });
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(text, reportFont(font, kind));
  layout.setTextOption(option);
  layout.beginLayout();
  const double size = points(font.size);
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    const double ascent = latin ? size * LatinAscent : std::max(size * LatinAscent, line.ascent());
    const double descent = latin ? size * LatinDescent : std::max(size * LatinDescent, line.descent());
    qsizetype length = line.textLength();
    while (length > 0 && text[line.textStart() + length - 1].isSpace()) --length;
    lines_.push_back({first + line.textStart(), length, static_cast<Twips>(std::ceil(line.naturalTextWidth())),
                      static_cast<Twips>(std::ceil(ascent)), static_cast<Twips>(std::ceil(descent)),
                      text.isRightToLeft()});
  }
  layout.endLayout();
}

const std::vector<TextLine>& Typesetter::lines(const QString& text, const FontSpec& font, Twips width) {
  lines_.clear();
  if (text.trimmed().isEmpty()) return lines_;
  const RunKind kind = kindOf(text);
  if (setOneLine(text, font, width, kind)) return lines_;
  for (qsizetype first = 0; first <= text.size();) {
    qsizetype end = text.indexOf(u'\n', first);
    if (end < 0) end = text.size();
    qsizetype length = end - first;
    if (length > 0 && text[end - 1] == u'\r') --length;
    setParagraph(length > 0 ? text.mid(first, length) : QStringLiteral(" "), first, font, width, kind);
    if (length <= 0) lines_.back().length = 0;
    first = end + 1;
  }
  return lines_;
}

}  // namespace velmo::printing
