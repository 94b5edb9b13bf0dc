#include "printing/painter.h"

#include <QGlyphRun>
#include <QPainter>

#include "printing/plain_face.h"
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

// Draws the plain runs of one font and colour that follow each other, most of a table, as one run of glyphs. Texts of
// other scripts are shaped one by one.
class RunPainter {
 public:
  RunPainter(QPainter& painter, const Drawing& drawing, int totalPages)
      : painter_(painter), drawing_(drawing), totalPages_(totalPages) {}
  ~RunPainter() { drawGathered(); }
  RunPainter(const RunPainter&) = delete;
  RunPainter& operator=(const RunPainter&) = delete;

  void paint(const TextRun& run) {
    const bool substituted = run.kind == RunKind::TotalPages;
    const QString changed = substituted ? drawnText(drawing_, run, totalPages_) : QString();
    const QStringView text = substituted ? QStringView(changed) : QStringView(drawing_.pool).mid(run.first, run.length);
    const PlainFace& face = plainFace(run.font, run.kind);
    const bool plain = face.holds(text);
    double left = run.at.left;
    if (substituted && run.align != Align::Left) {
      const double width =
          plain ? face.width(text) : QFontMetricsF(reportFont(run.font, run.kind)).horizontalAdvance(changed);
      const double room = run.boxWidth - width;
      left = run.boxLeft + (run.align == Align::Right ? room : room / 2);
    }
    if (!plain || run.colour != colour_ || !(run.font == font_)) drawGathered();
    colour_ = run.colour;
    font_ = run.font;
    if (plain)
      face.append(text, QPointF(left, run.baseline), gathered_);
    else
      drawShaped(run, QPointF(left, run.baseline), text.toString());
  }

 private:
  void drawGathered() {
    if (gathered_.indexes.empty()) return;
    QGlyphRun glyphs;
    glyphs.setRawFont(plainFace(font_, RunKind::Words).rawFont());
    glyphs.setRawData(gathered_.indexes.data(), gathered_.places.data(), static_cast<int>(gathered_.indexes.size()));
    painter_.setPen(QColor::fromRgba(colour_));
    painter_.drawGlyphRun(QPointF(), glyphs);
    gathered_.indexes.clear();
    gathered_.places.clear();
  }

  void drawShaped(const TextRun& run, QPointF at, const QString& text) {
    painter_.setFont(reportFont(run.font, run.kind));
    painter_.setPen(QColor::fromRgba(run.colour));
    painter_.setLayoutDirection(run.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    painter_.drawText(at, text);
  }

  QPainter& painter_;
  const Drawing& drawing_;
  int totalPages_;
  GlyphPlaces gathered_;
  FontSpec font_ = {};
  QRgb colour_ = ink::Black;
};

}  // namespace

QString withTotalPages(QString text, int totalPages) {
  return text.replace(TotalPagesMark, totalPages > 0 ? QString::number(totalPages) : QStringLiteral("..."));
}

QString drawnText(const Drawing& drawing, const TextRun& run, int totalPages) {
  QString text = drawing.textOf(run);
  return run.kind == RunKind::TotalPages ? withTotalPages(std::move(text), totalPages) : text;
}

void paintPage(QPainter& painter, const Page& page, int totalPages) {
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
  const Drawing& drawing = page.drawing;
  for (const Area& area : drawing.areas) paintArea(painter, area);
  for (const PlacedPicture& picture : drawing.pictures)
    painter.drawImage(QRectF(picture.at.left, picture.at.top, picture.at.width, picture.at.height), picture.image);
  for (const Stroke& stroke : drawing.strokes) paintStroke(painter, stroke);
  {
    RunPainter texts(painter, drawing, totalPages);
    for (const TextRun& run : drawing.texts) texts.paint(run);
  }
  painter.restore();
}

}  // namespace velmo::printing
