#pragma once

#include <QFont>
#include <QString>
#include <vector>

#include "printing/page.h"

namespace velmo::printing {

// The font of the print-outs, as high as the layout unit says: one pixel of it is one Twip. Its digits are of equal
// width; scripts that it lacks come from the system's fonts.
const QFont& reportFont(const FontSpec& spec, RunKind kind);

struct TextLine {
  qsizetype first = 0;
  qsizetype length = 0;
  Twips width = 0;
  Twips ascent = 0;
  Twips descent = 0;
  bool rightToLeft = false;

  Twips height() const { return ascent + descent; }
};

// Breaks texts into lines, the same for every device.
class Typesetter {
 public:
  // The lines of a text in a width, broken at line feeds and where the width ends, at the worst inside a word. A blank
  // text has no lines. Valid until the next call.
  const std::vector<TextLine>& lines(const QString& text, const FontSpec& font, Twips width);

  static RunKind kindOf(const QString& text);

 private:
  bool setOneLine(const QString& text, const FontSpec& font, Twips width, RunKind kind);
  void setParagraph(const QString& text, qsizetype first, const FontSpec& font, Twips width, RunKind kind);

  std::vector<TextLine> lines_;
};

}  // namespace velmo::printing
