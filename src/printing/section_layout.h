#pragma once

#include <map>

#include "printing/element_text.h"
#include "printing/page.h"
#include "printing/typesetter.h"

namespace velmo::printing {

// Sets one section for its current row: texts are broken, frames grow or fold, and what stands below a frame keeps its
// distance from it. Columns that stand side by side move on their own.
class SectionLayout {
 public:
  explicit SectionLayout(const Report& report) : report_(report) {}

  // Nothing but height 0 when the section does not show.
  Block set(const Section& section, const TextSource& source);

 private:
  // How the elements of a section depend on each other; worked out once for every section.
  struct Neighbours {
    std::vector<std::size_t> above;  // the row of elements that this one keeps its distance from
    std::optional<std::size_t> box;  // that stretches with this text
    bool holdsText = false;          // of a box
    Twips padding = 0;               // of a box, below its texts
  };
  struct Plan {
    std::vector<std::size_t> order;  // from top to bottom
    std::vector<Neighbours> neighbours;
    std::vector<std::size_t> lowest;  // the row above the section's end
  };
  struct Placed {
    Twips top = 0;
    Twips bottom = 0;  // as it is measured, the height
    bool shows = false;
    QString text;
    std::vector<TextLine> lines;
  };

  static Twips topBelow(const std::vector<std::size_t>& row, Twips designTop, const std::vector<Element>& elements,
                        const std::vector<Placed>& placed);
  static Plan planOf(const Section& section);
  bool shows(const std::string& name, const Condition& condition, const RowScope& rows) const;
  Placed measure(const Element& element, const TextSource& source);
  static void arrange(const std::vector<Element>& elements, const Plan& plan, std::vector<Placed>& placed);
  void drawElement(const Element& element, const Placed& placed, Drawing& drawing) const;
  void drawText(const Element& element, const Placed& placed, Drawing& drawing) const;
  void drawPicture(const Element& element, const Placed& placed, Drawing& drawing) const;

  const Report& report_;
  Typesetter typesetter_;
  std::map<const Section*, Plan> plans_ = {};
};

}  // namespace velmo::printing
