#include "forms/look.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPalette>
#include <QStyleFactory>
#include <QVariant>

#include "forms/style_sheet.h"

namespace velmo::forms {
namespace {

Colours coloursOf(Brightness brightness) {
  if (brightness == Brightness::Dark)
    return {.accent = QColor(0x6E, 0x9B, 0xFF),
            .onAccent = QColor(0x0D, 0x14, 0x24),
            .border = QColor(0x45, 0x4B, 0x57),
            .quietText = QColor(0xA3, 0xAC, 0xBA),
            .card = QColor(0x26, 0x2A, 0x32),
            .warning = QColor(0xFF, 0x9A, 0x8A)};
  return {.accent = QColor(0x1F, 0x4F, 0xC4),
          .onAccent = QColor(0xFF, 0xFF, 0xFF),
          .border = QColor(0xC2, 0xC9, 0xD4),
          .quietText = QColor(0x55, 0x5F, 0x6E),
          .card = QColor(0xFF, 0xFF, 0xFF),
          .warning = QColor(0xB4, 0x23, 0x18)};
}

QPalette paletteOf(Brightness brightness, const Colours& look) {
  const bool dark = brightness == Brightness::Dark;
  const QColor window = dark ? QColor(0x1C, 0x1F, 0x25) : QColor(0xF1, 0xF3, 0xF6);
  const QColor base = dark ? QColor(0x15, 0x17, 0x1C) : QColor(0xFF, 0xFF, 0xFF);
  const QColor text = dark ? QColor(0xE8, 0xEB, 0xF0) : QColor(0x17, 0x1D, 0x27);
  const QColor disabled = dark ? QColor(0x6C, 0x74, 0x82) : QColor(0x93, 0x9B, 0xA8);

  QPalette palette(dark ? QColor(0x2B, 0x30, 0x39) : QColor(0xFA, 0xFB, 0xFC), window);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, dark ? QColor(0x1A, 0x1D, 0x23) : QColor(0xF6, 0xF8, 0xFB));
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::BrightText, look.warning);
  palette.setColor(QPalette::ToolTipBase, look.card);
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, look.quietText);
  palette.setColor(QPalette::Highlight, look.accent);
  palette.setColor(QPalette::HighlightedText, look.onAccent);
  palette.setColor(QPalette::Link, look.accent);
  palette.setColor(QPalette::LinkVisited, look.accent);
  for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, disabled);
  palette.setColor(QPalette::Disabled, QPalette::Base, window);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, look.border);
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, text);
  return palette;
}

QFont programFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  if (QFontDatabase::families().contains(QStringLiteral("Inter"))) font.setFamily(QStringLiteral("Inter"));
  font.setPointSizeF(10.0);
  return font;
}

bool hasTabularFigures(const QFont& font) {
  const QFontMetricsF metrics(font);
  const qreal width = metrics.horizontalAdvance(QLatin1Char('0'));
  for (char digit = '1'; digit <= '9'; ++digit)
    if (metrics.horizontalAdvance(QLatin1Char(digit)) != width) return false;
  return true;
}

// The nearest relatives of the program's font whose figures all have one width.
QFont tabularFont(const QFont& font) {
  const QStringList installed = QFontDatabase::families();
  for (const char* family : {"Inter", "Roboto", "Open Sans", "Noto Sans", "Liberation Sans", "DejaVu Sans"}) {
    if (!installed.contains(QLatin1String(family))) continue;
    QFont candidate = font;
    candidate.setFamily(QLatin1String(family));
    if (hasTabularFigures(candidate)) return candidate;
  }
  return font;
}

struct Look {
  Colours colours = coloursOf(Brightness::Light);
  QFont figures;
};

Look& lookInForce() {
  static Look look;
  return look;
}

void markRole(QWidget& widget, const char* role) {
  widget.setProperty("look", QLatin1String(role));
}

}  // namespace

Brightness desktopBrightness() {
  return QApplication::palette().color(QPalette::Window).lightnessF() < 0.5F ? Brightness::Dark : Brightness::Light;
}

void applyLook(QApplication& application, Brightness brightness) {
  Look& look = lookInForce();
  look.colours = coloursOf(brightness);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  const QPalette palette = paletteOf(brightness, look.colours);
  QApplication::setPalette(palette);
  const QFont font = programFont();
  QApplication::setFont(font);
  look.figures = tabularFont(font);
  application.setStyleSheet(styleSheet(palette, look.colours, brightness));
}

const Colours& colours() {
  return lookInForce().colours;
}

QFont figureFont() {
  return lookInForce().figures;
}

void makePrimary(QAbstractButton& button) {
  markRole(button, "primary");
}

void makeQuiet(QAbstractButton& button) {
  markRole(button, "quiet");
}

void makeTotal(QWidget& widget) {
  markRole(widget, "total");
  QFont font = figureFont();
  font.setPointSizeF(font.pointSizeF() * 1.4);
  font.setWeight(QFont::DemiBold);
  widget.setFont(font);
  if (auto* label = qobject_cast<QLabel*>(&widget)) label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (auto* field = qobject_cast<QLineEdit*>(&widget)) field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void makeCaption(QLabel& label) {
  markRole(label, "caption");
}

void makeHeading(QLabel& label) {
  markRole(label, "heading");
  QFont font = label.font();
  font.setPointSizeF(QApplication::font().pointSizeF() * 1.6);
  font.setWeight(QFont::DemiBold);
  label.setFont(font);
}

void makeCard(QWidget& frame) {
  markRole(frame, "card");
  frame.setAttribute(Qt::WA_StyledBackground);
}

void setGrid(QLayout& layout, int margin, int gap) {
  layout.setContentsMargins(margin, margin, margin, margin);
  layout.setSpacing(gap);
}

}  // namespace velmo::forms
