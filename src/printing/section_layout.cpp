#include "printing/section_layout.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

namespace velmo::printing {

namespace {

bool isText(const Element& element) {
  return std::holds_alternative<Label>(element.content) || std::holds_alternative<Field>(element.content) ||
         std::holds_alternative<Function>(element.content);
}

bool shareColumn(const Frame& one, const Frame& other) {
  return one.left < std::max(other.right(), other.left + 1) && other.left < std::max(one.right(), one.left + 1);
}

bool encloses(const Frame& outer, const Frame& inner) {
  return outer.left <= inner.left && inner.right() <= outer.right() && outer.top <= inner.top &&
         inner.bottom() <= outer.bottom();
}

// The nearest row of elements above a frame, in its columns. The candidates stand from top to bottom.
std::vector<std::size_t> rowAbove(const Frame& frame, std::vector<std::size_t> candidates,
                                  const std::vector<Element>& elements) {
  std::erase_if(candidates, [&](std::size_t index) {
    const Element& element = elements[index];
    return element.stretch == Stretch::WithSection || element.at.bottom() > frame.top ||
           !shareColumn(element.at, frame);
  });
  if (candidates.empty()) return candidates;
  const auto nearest = std::max_element(candidates.begin(), candidates.end(), [&](std::size_t one, std::size_t other) {
    return elements[one].at.bottom() < elements[other].at.bottom();
  });
  const Frame row = elements[*nearest].at;
  std::erase_if(candidates, [&](std::size_t index) {
    const Twips bottom = elements[index].at.bottom();
    return bottom <= row.top && bottom != row.bottom();
  });
  return candidates;
}

// The box that stretches with a text, if one does.
std::optional<std::size_t> boxAround(std::size_t index, const std::vector<Element>& elements) {
  if (!isText(elements[index])) return std::nullopt;
  for (std::size_t box = 0; box < elements.size(); ++box)
    if (elements[box].stretch == Stretch::WithContents && encloses(elements[box].at, elements[index].at)) return box;
  return std::nullopt;
}

}  // namespace

SectionLayout::Plan SectionLayout::planOf(const Section& section) {
  const std::vector<Element>& elements = section.elements;
  Plan plan;
  plan.order.resize(elements.size());
  std::iota(plan.order.begin(), plan.order.end(), std::size_t{0});
  std::stable_sort(plan.order.begin(), plan.order.end(),
                   [&](std::size_t one, std::size_t other) { return elements[one].at.top < elements[other].at.top; });
  plan.neighbours.resize(elements.size());
  for (std::size_t index = 0; index < elements.size(); ++index) {
    plan.neighbours[index].box = boxAround(index, elements);
    if (plan.neighbours[index].box) plan.neighbours[*plan.neighbours[index].box].holdsText = true;
  }
  const auto peersOf = [&](std::optional<std::size_t> box, std::size_t count) {
    std::vector<std::size_t> peers(plan.order.begin(), plan.order.begin() + static_cast<std::ptrdiff_t>(count));
    std::erase_if(peers, [&](std::size_t peer) { return plan.neighbours[peer].box != box; });
    return peers;
  };
  for (std::size_t place = 0; place < plan.order.size(); ++place) {
    const std::size_t index = plan.order[place];
    Neighbours& neighbours = plan.neighbours[index];
    neighbours.above = rowAbove(elements[index].at, peersOf(neighbours.box, place), elements);
    neighbours.padding = elements[index].at.height;
    if (!neighbours.box) continue;
    Twips& padding = plan.neighbours[*neighbours.box].padding;
    padding = std::min(padding, elements[*neighbours.box].at.bottom() - elements[index].at.bottom());
  }
  const Frame end{std::numeric_limits<Twips>::min() / 2, section.height, std::numeric_limits<Twips>::max(), 0};
  plan.lowest = rowAbove(end, peersOf(std::nullopt, plan.order.size()), elements);
  return plan;
}

bool SectionLayout::shows(const std::string& name, const Condition& condition, const RowScope& rows) const {
  if (!name.empty() && report_.hidden.contains(name)) return false;
  return !condition || condition(rows);
}

SectionLayout::Placed SectionLayout::measure(const Element& element, const TextSource& source) {
  Placed placed;
  placed.shows = shows(element.name, element.visibleWhen, source.rows);
  placed.bottom = element.at.height;
  if (!placed.shows) {
    if (element.whenEmpty == WhenEmpty::Fold) placed.bottom = 0;
  } else if (isText(element)) {
    placed.text = elementText(element, source);
    placed.lines = typesetter_.lines(placed.text, element.font, element.at.width);
    Twips height = 0;
    for (const TextLine& line : placed.lines) height += line.height();
    const bool folds = placed.lines.empty() && element.whenEmpty == WhenEmpty::Fold;
    placed.bottom = folds ? 0 : std::max(height, element.at.height);
  } else if (std::holds_alternative<Picture>(element.content)) {
    placed.shows = report_.pictures.contains(element.name);
    if (!placed.shows && element.whenEmpty == WhenEmpty::Fold) placed.bottom = 0;
  }
  return placed;
}

// Where a frame comes to stand below a row: it follows the row upwards whole, and downwards as far as it must.
Twips SectionLayout::topBelow(const std::vector<std::size_t>& row, Twips designTop,
                              const std::vector<Element>& elements, const std::vector<Placed>& placed) {
  constexpr Twips LeastGap = mm(2.5);
  if (row.empty()) return designTop;
  Twips top = std::numeric_limits<Twips>::min();
  for (const std::size_t index : row) {
    const Twips bottom = elements[index].at.bottom();
    const Twips moved = placed[index].bottom - bottom;
    const Twips gap = std::min(designTop - bottom, LeastGap);
    top = std::max(top, moved <= 0 ? designTop + moved : std::max(designTop, placed[index].bottom + gap));
  }
  return top;
}

// From heights to places. Texts in a box that stretches stand by the box and give it its height: in the order of tops
// a box comes before its texts, and these before anything that stands below the box.
void SectionLayout::arrange(const std::vector<Element>& elements, const Plan& plan, std::vector<Placed>& placed) {
  for (const std::size_t index : plan.order) {
    const Neighbours& neighbours = plan.neighbours[index];
    const Twips height = neighbours.holdsText ? 0 : placed[index].bottom;
    Twips top = topBelow(neighbours.above, elements[index].at.top, elements, placed);
    if (neighbours.box && neighbours.above.empty())
      top += placed[*neighbours.box].top - elements[*neighbours.box].at.top;
    placed[index].top = top;
    placed[index].bottom = top + height;
    if (!neighbours.box) continue;
    Twips& boxBottom = placed[*neighbours.box].bottom;
    const bool folded = height == 0;
    boxBottom = std::max(boxBottom, placed[index].bottom + (folded ? 0 : plan.neighbours[*neighbours.box].padding));
  }
}

Block SectionLayout::set(const Section& section, const TextSource& source) {
  Block block;
  if (section.height == 0 || !shows(section.name, section.visibleWhen, source.rows)) return block;
  auto known = plans_.find(&section);
  if (known == plans_.end()) known = plans_.emplace(&section, planOf(section)).first;
  const Plan& plan = known->second;

  const std::vector<Element>& elements = section.elements;
  std::vector<Placed> placed;
  placed.reserve(elements.size());
  for (const Element& element : elements) placed.push_back(measure(element, source));
  arrange(elements, plan, placed);
  block.height = topBelow(plan.lowest, section.height, elements, placed);
  for (std::size_t index = 0; index < elements.size(); ++index)
    if (elements[index].stretch != Stretch::WithSection) block.height = std::max(block.height, placed[index].bottom);

  for (std::size_t index = 0; index < elements.size(); ++index) {
    if (!placed[index].shows) continue;
    if (elements[index].stretch == Stretch::WithSection) {
      placed[index].top = elements[index].at.top;
      placed[index].bottom = block.height - (section.height - elements[index].at.bottom());
    }
    drawElement(elements[index], placed[index], block.drawing);
  }
  return block;
}

void SectionLayout::drawElement(const Element& element, const Placed& placed, Drawing& drawing) const {
  const Frame at{element.at.left, placed.top, element.at.width, placed.bottom - placed.top};
  if (const auto* line = std::get_if<Line>(&element.content))
    drawing.strokes.push_back({at, line->thickness, line->colour});
  else if (const auto* box = std::get_if<Box>(&element.content))
    drawing.areas.push_back({at, box->fill, box->outline, box->thickness});
  else if (std::holds_alternative<Picture>(element.content))
    drawPicture(element, placed, drawing);
  else
    drawText(element, placed, drawing);
}

void SectionLayout::drawText(const Element& element, const Placed& placed, Drawing& drawing) const {
  const auto first = static_cast<quint32>(drawing.pool.size());
  drawing.pool += placed.text;
  const RunKind kind = Typesetter::kindOf(placed.text);
  Twips top = placed.top;
  for (const TextLine& line : placed.lines) {
    if (line.length > 0) {
      Twips left = element.at.left;
      if (element.align == Align::Right) left += element.at.width - line.width;
      if (element.align == Align::Centre) left += (element.at.width - line.width) / 2;
      drawing.texts.push_back({.at = {left, top, line.width, line.height()},
                               .baseline = top + line.ascent,
                               .boxLeft = element.at.left,
                               .boxWidth = element.at.width,
                               .first = first + static_cast<quint32>(line.first),
                               .length = static_cast<quint32>(line.length),
                               .font = element.font,
                               .colour = element.colour,
                               .align = element.align,
                               .kind = kind,
                               .rightToLeft = line.rightToLeft});
    }
    top += line.height();
  }
}

void SectionLayout::drawPicture(const Element& element, const Placed& placed, Drawing& drawing) const {
  const QImage& image = report_.pictures.find(element.name)->second;
  if (image.isNull()) return;
  const QSize size = image.size().scaled(element.at.width, placed.bottom - placed.top, Qt::KeepAspectRatio);
  Twips left = element.at.left;
  if (element.align == Align::Right) left += element.at.width - size.width();
  if (element.align == Align::Centre) left += (element.at.width - size.width()) / 2;
  drawing.pictures.push_back({{left, placed.top, size.width(), size.height()}, image});
}

}  // namespace velmo::printing
