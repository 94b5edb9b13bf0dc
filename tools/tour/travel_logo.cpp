#include "travel_logo.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <stdexcept>

#include "shell/login/brand_panel.h"

namespace velmo::tour {

TravelLogo::TravelLogo() {
  QImage logo(600, 240, QImage::Format_RGB32);
  logo.fill(Qt::white);
  QPainter painter(&logo);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ink(0x0B, 0x5D, 0x66);
  shell::drawMark(painter, QRectF(20, 20, 200, 200), ink);
  QFont font = painter.font();
  font.setPixelSize(96);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(QRect(250, 0, 350, 240), Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("HHW"));
  painter.end();
  if (!logo.save(QStringLiteral("mylogo.jpg"), "JPG", 92)) throw std::runtime_error("cannot write mylogo.jpg");
}

TravelLogo::~TravelLogo() {
  QFile::remove(QStringLiteral("mylogo.jpg"));
}

}  // namespace velmo::tour
