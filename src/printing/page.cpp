#include "printing/page.h"

namespace velmo::printing {

namespace {

Frame moved(Frame frame, Twips right, Twips down) {
  frame.left += right;
  frame.top += down;
  return frame;
}

TextRun moved(TextRun run, Twips right, Twips down) {
  run.at = moved(run.at, right, down);
  run.baseline += down;
  run.boxLeft += right;
  return run;
}

// The highest place at or above `space` that no text and no picture crosses.
Twips cutAbove(const Drawing& drawing, Twips space) {
  Twips cut = space;
  for (bool settled = false; !settled;) {
    settled = true;
    const auto avoid = [&](const Frame& at) {
      if (at.top < cut && at.bottom() > cut) {
        cut = at.top;
        settled = false;
      }
    };
    for (const TextRun& run : drawing.texts) avoid(run.at);
    for (const PlacedPicture& picture : drawing.pictures) avoid(picture.at);
  }
  return cut;
}

Frame partAbove(Frame frame, Twips cut) {
  frame.height = std::min(frame.bottom(), cut) - frame.top;
  return frame;
}

Frame partBelow(Frame frame, Twips cut) {
  const Twips top = std::max(frame.top, cut);
  return {frame.left, top - cut, frame.width, frame.bottom() - top};
}

// Lines and boxes that cross the cut go on below it.
template <typename Shape>
void divide(std::vector<Shape>& shapes, std::vector<Shape>& above, Twips cut) {
  std::vector<Shape> below;
  for (Shape& shape : shapes) {
    const bool startsAbove = shape.at.top < cut;
    const bool endsBelow = shape.at.bottom() > cut || !startsAbove;
    if (startsAbove) {
      above.push_back(shape);
      above.back().at = partAbove(shape.at, cut);
    }
    if (endsBelow) {
      below.push_back(shape);
      below.back().at = partBelow(shape.at, cut);
    }
  }
  shapes = std::move(below);
}

}  // namespace

void Drawing::add(const Drawing& other, Twips right, Twips down) {
  const auto base = static_cast<quint32>(pool.size());
  pool += other.pool;
  for (Area area : other.areas) areas.push_back({moved(area.at, right, down), area.fill, area.outline, area.thickness});
  for (const PlacedPicture& picture : other.pictures)
    pictures.push_back({moved(picture.at, right, down), picture.image});
  for (Stroke stroke : other.strokes)
    strokes.push_back({moved(stroke.at, right, down), stroke.thickness, stroke.colour});
  for (const TextRun& run : other.texts) {
    texts.push_back(moved(run, right, down));
    texts.back().first += base;
  }
}

Block Block::takeTop(Twips space) {
  const Twips cut = cutAbove(drawing, space);
  Block top;
  if (cut <= 0) return top;
  top.height = cut;
  top.drawing.pool = drawing.pool;
  divide(drawing.areas, top.drawing.areas, cut);
  divide(drawing.strokes, top.drawing.strokes, cut);
  divide(drawing.pictures, top.drawing.pictures, cut);
  std::vector<TextRun> below;
  for (const TextRun& run : drawing.texts) {
    if (run.at.bottom() <= cut)
      top.drawing.texts.push_back(run);
    else
      below.push_back(moved(run, 0, -cut));
  }
  drawing.texts = std::move(below);
  height -= cut;
  return top;
}

}  // namespace velmo::printing
