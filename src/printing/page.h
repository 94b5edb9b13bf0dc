#pragma once

#include <QImage>
#include <QString>
#include <vector>

#include "printing/geometry.h"
#include "printing/report_design.h"

// Pages as plain things to draw, placed for good: preview, printer and file draw the same list.
namespace velmo::printing {

enum class RunKind : quint8 {
  Words,
  Figures,     // drawn without kerning, so that columns of digits stand under each other
  TotalPages,  // holds TotalPagesMark, which the painter replaces, and aligns then
};

// Stands in a text for the count of pages, which is known only when the last page is.
inline constexpr QChar TotalPagesMark{0xE000};

// One line of text. Its characters stand in the pool of the drawing.
struct TextRun {
  Frame at = {};       // where the line stands: from its highest to its lowest ink, as wide as the text
  Twips baseline = 0;  // from the top of the page
  Twips boxLeft = 0;   // the frame that the line is aligned in
  Twips boxWidth = 0;
  quint32 first = 0;  // in the pool
  quint32 length = 0;
  FontSpec font = {};
  QRgb colour = ink::Black;
  Align align = Align::Left;
  RunKind kind = RunKind::Words;
  bool rightToLeft = false;

  bool operator==(const TextRun&) const = default;
};

struct Stroke {
  Frame at = {};  // the longer side is its direction
  Twips thickness = 0;
  QRgb colour = ink::Rule;

  bool operator==(const Stroke&) const = default;
};

struct Area {
  Frame at = {};
  QRgb fill = ink::None;
  QRgb outline = ink::None;
  Twips thickness = 0;

  bool operator==(const Area&) const = default;
};

struct PlacedPicture {
  Frame at = {};
  QImage image = {};  // shared with the report

  bool operator==(const PlacedPicture&) const = default;
};

// Drawn in this order: areas, pictures, strokes, texts.
struct Drawing {
  QString pool = {};
  std::vector<Area> areas = {};
  std::vector<PlacedPicture> pictures = {};
  std::vector<Stroke> strokes = {};
  std::vector<TextRun> texts = {};

  QString textOf(const TextRun& run) const { return pool.mid(run.first, run.length); }
  void add(const Drawing& other, Twips right, Twips down);  // other, moved
  bool operator==(const Drawing&) const = default;
};

struct Page {
  int number = 1;
  Twips width = 0;
  Twips height = 0;
  Drawing drawing = {};

  bool operator==(const Page&) const = default;
};

// A piece of a page before it has its place: what a section gives.
struct Block {
  Twips height = 0;
  Drawing drawing = {};

  // Takes off what stands in the upper `space`, without cutting through a line of text; the rest begins at 0.
  // Nothing is taken off when the first line is higher than that.
  Block takeTop(Twips space);
};

}  // namespace velmo::printing
