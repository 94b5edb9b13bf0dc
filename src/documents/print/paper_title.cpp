#include "documents/print/paper_title.h"

#include "printing/pieces.h"

namespace velmo::documents {

using namespace printing;

void addPaperTitle(Section& head, Twips width) {
  const FontSpec font{.size = 14, .weight = Weight::Bold};
  const Twips half = width * 3 / 5;
  head.elements.push_back({.name = "vlabel", .at = {0, head.height, half, mm(7)}, .font = font, .colour = ink::Accent});
  head.elements.push_back({.name = "clbl",
                           .at = {half, head.height, width - half, mm(7)},
                           .content = Label{"CANCELLED"},
                           .font = font,
                           .align = Align::Right,
                           .colour = ink::Alarm});
  head.height += mm(9);
}

}  // namespace velmo::documents
