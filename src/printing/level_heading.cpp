#include "printing/level_heading.h"

namespace velmo::printing {
namespace {

constexpr Twips Inset = mm(0.9);

struct HeadingStyle {
  Twips above = 0;  // white, before the heading
  Twips height = 0;
  FontSpec font = {};
  QRgb ground = ink::None;
};

HeadingStyle styleOf(std::size_t depth) {
  if (depth == 0) return {mm(2), mm(6.6), {.size = 9.5, .weight = Weight::Bold}, ink::Band};
  return {mm(1), mm(5.6), {.size = 8.5, .weight = Weight::SemiBold}, ink::None};
}

}  // namespace

Section levelHeading(const LevelHeading& heading, std::size_t depth, Twips width) {
  const HeadingStyle style = styleOf(depth);
  const Twips textHeight = points(style.font.size * 1.28);
  const Twips top = style.above + (style.height - textHeight) / 2;
  Section section{
      .name = heading.name, .height = style.above + style.height, .keep = Keep::WithNext, .repeat = Repeat::EveryPage};
  if (style.ground != ink::None)
    section.elements.push_back({.at = {0, style.above, width, style.height},
                                .content = Box{.fill = style.ground},
                                .stretch = Stretch::WithContents});
  for (const HeadingField& field : heading.fields)
    section.elements.push_back({.at = {field.left + Inset, top, field.width - 2 * Inset, textHeight},
                                .content = Field{field.dataField, field.format, {}},
                                .font = style.font,
                                .align = field.align,
                                .colour = ink::Accent});
  if (style.ground == ink::None)
    section.elements.push_back({.at = {0, section.height, width, 0}, .content = Line{10, ink::Quiet}});
  return section;
}

}  // namespace velmo::printing
