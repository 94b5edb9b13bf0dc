#include "shell/login/brand_panel.h"

#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

#include "forms/look.h"

namespace velmo::shell {
namespace {

const QColor deep(0x10, 0x2A, 0x6B);
const QColor bright(0x1F, 0x4F, 0xC4);

QLabel* lineOf(const QString& text, qreal scale, QFont::Weight weight, QWidget* owner) {
  auto* label = new QLabel(text, owner);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setWeight(weight);
  label->setFont(font);
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, Qt::white);
  label->setPalette(palette);
  return label;
}

}  // namespace

BrandPanel::BrandPanel(const std::string& companyName, QWidget* parent) : QWidget(parent) {
  setMinimumWidth(320);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Page);
  auto* mark = new QLabel(this);
  mark->setPixmap(programIcon().pixmap(64, 64));
  column->addWidget(mark);
  column->addSpacing(forms::spacing::Normal);
  column->addWidget(lineOf(QStringLiteral("Velmo"), 3.2, QFont::Bold, this));
  column->addWidget(lineOf(QStringLiteral("Point of Sale"), 1.7, QFont::Light, this));
  column->addStretch(1);
  column->addWidget(lineOf(QString::fromStdString(companyName), 1.2, QFont::DemiBold, this));
  column->addWidget(lineOf(QStringLiteral("Sales, purchases, stock and books"), 1.0, QFont::Normal, this));
}

void BrandPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient ground(0, 0, width(), height());
  ground.setColorAt(0, bright);
  ground.setColorAt(1, deep);
  painter.fillRect(rect(), ground);
  // The mark once more, large and faint, cut by the lower right corner.
  const qreal side = std::min(width(), height()) * 0.95;
  drawMark(painter, QRectF(width() - side * 0.72, height() - side * 0.80, side, side), QColor(255, 255, 255, 18));
}

void drawMark(QPainter& painter, const QRectF& square, const QColor& colour) {
  const qreal unit = square.width() / 16;
  painter.save();
  painter.translate(square.topLeft());
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  const qreal heights[] = {4, 7, 10};
  for (int i = 0; i < 3; ++i)
    painter.drawRoundedRect(QRectF((2 + i * 4.2) * unit, (14 - heights[i]) * unit, 3.2 * unit, heights[i] * unit), unit,
                            unit);
  painter.setPen(QPen(colour, 1.4 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(
      QPolygonF({QPointF(2 * unit, 7 * unit), QPointF(6.5 * unit, 4 * unit), QPointF(13 * unit, 1.6 * unit)}));
  painter.restore();
}

QIcon programIcon() {
  QIcon icon;
  for (int side : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(bright);
    painter.drawRoundedRect(QRectF(0, 0, side, side), side * 0.22, side * 0.22);
    drawMark(painter, QRectF(side * 0.16, side * 0.16, side * 0.68, side * 0.68), Qt::white);
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace velmo::shell
