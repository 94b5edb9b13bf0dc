#include "forms/look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPushButton>
#include <cmath>
#include <map>

namespace velmo::forms {
namespace {

// The luminance of a colour, as contrast is reckoned from it.
double luminance(QRgb colour) {
  const auto part = [](int value) {
    const double share = value / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(qRed(colour)) + 0.7152 * part(qGreen(colour)) + 0.0722 * part(qBlue(colour));
}

double contrast(QRgb one, QRgb other) {
  const double a = luminance(one) + 0.05;
  const double b = luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

// Between the ground of a button and the strongest ink of its caption.
double contrastOf(const QPushButton& button) {
  const QImage picture = const_cast<QPushButton&>(button).grab().toImage();
  const QRect inside = picture.rect().adjusted(6, 6, -6, -6);
  std::map<QRgb, int> counts;
  for (int y = inside.top(); y <= inside.bottom(); ++y)
    for (int x = inside.left(); x <= inside.right(); ++x) ++counts[picture.pixel(x, y)];
  const QRgb ground = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; })->first;
  double strongest = 1;
  for (const auto& [colour, count] : counts) strongest = std::max(strongest, contrast(ground, colour));
  return strongest;
}

TEST(ThePrimaryButton, IsReadableInBothLooks) {
  for (const Brightness brightness : {Brightness::Dark, Brightness::Light}) {
    applyLook(*qApp, brightness);
    for (const bool enabled : {true, false}) {
      QPushButton button("LLLL");
      makePrimary(button);
      button.setEnabled(enabled);
      button.resize(160, 40);
      button.ensurePolished();
      EXPECT_GE(contrastOf(button), 4.5) << (brightness == Brightness::Dark ? "dark" : "light") << enabled;
    }
  }
  qApp->setStyleSheet({});
}

}  // namespace
}  // namespace velmo::forms
