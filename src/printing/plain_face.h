#pragma once

#include <QPointF>
#include <QRawFont>
#include <array>
#include <vector>

#include "printing/page.h"

namespace velmo::printing {

// Glyphs of one font with their places on the page.
struct GlyphPlaces {
  std::vector<quint32> indexes = {};
  std::vector<QPointF> places = {};
};

// Glyphs and widths of the plain characters, blank to tilde, of one font. Most texts of a report hold nothing else, and
// need no shaping then: their glyphs stand side by side, closer or wider by what the pair asks for.
class PlainFace {
 public:
  PlainFace(const QFont& font, RunKind kind);

  bool holds(QStringView text) const;
  // In Twips. Of a text that the face holds.
  float width(QStringView text) const;
  // Puts the text on a baseline, behind what the run of glyphs holds already.
  void append(QStringView text, QPointF at, GlyphPlaces& glyphs) const;
  const QRawFont& rawFont() const { return raw_; }

 private:
  static constexpr std::size_t Count = 128;

  float kerning(QChar first, QChar second) const;
  template <typename Visit>
  float walk(QStringView text, Visit visit) const;

  QFont font_;
  QRawFont raw_;
  bool kerned_ = false;
  std::array<quint32, Count> glyphs_{};  // 0: not held
  std::array<float, Count> advances_{};
  mutable std::vector<float> kerning_;  // of pairs, measured when they are first met
};

// Made once for every font.
const PlainFace& plainFace(const FontSpec& spec, RunKind kind);

}  // namespace velmo::printing
