#include "printing/painter.h"

#include <QPainter>

#include "printing/typesetter.h"

namespace velmo::printing {

namespace {

void paintArea(QPainter& painter, const Area& area) {
  const QRectF rect(area.at.left, area.at.top, area.at.width, area.at.height);
  if (qAlpha(area.fill) != 0) painter.fillRect(rect, QColor::fromRgba(area.fill));
  if (qAlpha(area.outline) == 0) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor::fromRgba(area.outline), area.thickness, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.drawRect(rect);
}

void paintStroke(QPainter& painter, const Stroke& stroke) {
  const bool across = stroke.at.width >= stroke.at.height;
  const QRectF rect = across ? QRectF(stroke.at.left, stroke.at.top, stroke.at.width, stroke.thickness)
                             : QRectF(stroke.at.left, stroke.at.top, stroke.thickness, stroke.at.height);
  painter.fillRect(rect, QColor::fromRgba(stroke.colour));
}

// Sets the state of the painter only where it changes: most runs of a page look like the one before.
class RunPainter {
 public:
  RunPainter(QPainter& painter, const Drawing& drawing, int totalPages)
      : painter_(painter), drawing_(drawing), totalPages_(totalPages) {}

  void paint(const TextRun& run) {
    const QString text = drawnText(drawing_, run, totalPages_);
    const QFont& font = reportFont(run.font, run.kind);
    double left = run.at.left;
    if (run.kind == RunKind::TotalPages && run.align != Align::Left) {
      const double room = run.boxWidth - QFontMetricsF(font).horizontalAdvance(text);
      left = run.boxLeft + (run.align == Align::Right ? room : room / 2);
    }
    if (font_ != &font) painter_.setFont(font);
    if (font_ == nullptr || colour_ != run.colour) painter_.setPen(QColor::fromRgba(run.colour));
    const Qt::LayoutDirection direction = run.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight;
    if (painter_.layoutDirection() != direction) painter_.setLayoutDirection(direction);
    font_ = &font;
    colour_ = run.colour;
    painter_.drawText(QPointF(left, run.baseline), text);
  }

 private:
  QPainter& painter_;
  const Drawing& drawing_;
  int totalPages_;
  const QFont* font_ = nullptr;
  QRgb colour_ = 0;
};

}  // namespace

QString drawnText(const Drawing& drawing, const TextRun& run, int totalPages) {
  QString text = drawing.textOf(run);
  if (run.kind == RunKind::TotalPages)
    text.replace(TotalPagesMark, totalPages > 0 ? QString::number(totalPages) : QStringLiteral("..."));
  return text;
}

void paintPage(QPainter& painter, const Page& page, int totalPages) {
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
  const Drawing& drawing = page.drawing;
  for (const Area& area : drawing.areas) paintArea(painter, area);
  for (const PlacedPicture& picture : drawing.pictures)
    painter.drawImage(QRectF(picture.at.left, picture.at.top, picture.at.width, picture.at.height), picture.image);
  for (const Stroke& stroke : drawing.strokes) paintStroke(painter, stroke);
  RunPainter texts(painter, drawing, totalPages);
  for (const TextRun& run : drawing.texts) texts.paint(run);
  painter.restore();
}

}  // namespace velmo::printing
