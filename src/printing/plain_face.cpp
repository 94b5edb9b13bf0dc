#include "printing/plain_face.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <limits>

#include "printing/typesetter.h"

namespace velmo::printing {

namespace {

constexpr float NotMeasured = std::numeric_limits<float>::max();

}  // namespace

PlainFace::PlainFace(const QFont& font, RunKind kind)
    : font_(font), raw_(QRawFont::fromFont(font)), kerned_(kind == RunKind::Words) {
  const QFontMetricsF metrics(font);
  for (char16_t code = u' '; code <= u'~'; ++code) {
    const QList<quint32> glyph = raw_.glyphIndexesForString(QString(QChar(code)));
    if (glyph.size() != 1) continue;
    glyphs_[code] = glyph.front();
    advances_[code] = static_cast<float>(metrics.horizontalAdvance(QChar(code)));
  }
  if (kerned_) kerning_.assign(Count * Count, NotMeasured);
}

bool PlainFace::holds(QStringView text) const {
  return std::all_of(text.begin(), text.end(),
                     [&](QChar code) { return code.unicode() < Count && glyphs_[code.unicode()] != 0; });
}

float PlainFace::kerning(QChar first, QChar second) const {
  float& known = kerning_[first.unicode() * Count + second.unicode()];
  if (known == NotMeasured) {
    const auto together = static_cast<float>(QFontMetricsF(font_).horizontalAdvance(QString(first) + second));
    known = together - advances_[first.unicode()] - advances_[second.unicode()];
  }
  return known;
}

template <typename Visit>
float PlainFace::walk(QStringView text, Visit visit) const {
  float place = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (kerned_ && at > 0) place += kerning(text[at - 1], text[at]);
    visit(glyphs_[text[at].unicode()], place);
    place += advances_[text[at].unicode()];
  }
  return place;
}

float PlainFace::width(QStringView text) const {
  return walk(text, [](quint32, float) {});
}

// Whole Twips are finer than any printer, and short in a file.
void PlainFace::append(QStringView text, QPointF at, GlyphPlaces& glyphs) const {
  walk(text, [&](quint32 glyph, float place) {
    glyphs.indexes.push_back(glyph);
    glyphs.places.emplace_back(std::round(at.x() + place), at.y());
  });
}

const PlainFace& plainFace(const FontSpec& spec, RunKind kind) {
  static std::map<const QFont*, PlainFace> faces;
  const QFont& font = reportFont(spec, kind);
  auto found = faces.find(&font);
  if (found == faces.end()) found = faces.try_emplace(&font, font, kind).first;
  return found->second;
}

}  // namespace velmo::printing
