#pragma once

#include <cmath>

namespace velmo::printing {

// The one unit of length of designs and pages: 1/20 point, 1440 to the inch, counted from the upper left corner to the
// right and down. It is fine enough to keep positions whole, and a font of n points is exactly 20 n of them high.
using Twips = int;

constexpr Twips mm(double millimetres) {
  return static_cast<Twips>(millimetres * 1440.0 / 25.4 + (millimetres < 0 ? -0.5 : 0.5));
}
constexpr Twips points(double count) {
  return static_cast<Twips>(count * 20.0 + 0.5);
}

struct Frame {
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;

  constexpr Twips right() const { return left + width; }
  constexpr Twips bottom() const { return top + height; }
  bool operator==(const Frame&) const = default;
};

// An endless paper is a roll: its pages are as long as what stands on them.
struct Paper {
  Twips width = 0;
  Twips height = 0;  // 0 for a roll

  constexpr bool endless() const { return height == 0; }
};

inline constexpr Paper A4{mm(210), mm(297)};
inline constexpr Paper A4Landscape{mm(297), mm(210)};
inline constexpr Paper A5{mm(148), mm(210)};
inline constexpr Paper A5Landscape{mm(210), mm(148)};
inline constexpr Paper Roll80{mm(80), 0};

struct Margins {
  Twips left = mm(12);
  Twips top = mm(12);
  Twips right = mm(12);
  Twips bottom = mm(12);
};

}  // namespace velmo::printing
