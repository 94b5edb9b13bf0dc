#include "forms/figure_fit.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLineEdit>

#include "forms/look.h"

namespace velmo::forms {
namespace {

TEST(FigureFit, WritesAWideFigureSmallerAndANarrowOneAsItWas) {
  QLineEdit box;
  box.setFixedWidth(112);
  keepFigureWhole(box);
  makeTotal(box);  // a larger font that comes later is the box's own
  const double own = box.font().pointSizeF();
  box.show();
  for (const char* figure : {"9.99", "-99,999.99", "(100,000,000.00)", "9999999999999.99"}) {
    box.setText(QLatin1String(figure));
    const int needed = QFontMetrics(box.font()).horizontalAdvance(box.text());
    EXPECT_LT(needed, box.width() - 4) << figure;
    EXPECT_EQ(box.toolTip().toStdString(), box.font().pointSizeF() < own ? figure : "");
  }
  EXPECT_LT(box.font().pointSizeF(), own);
  box.setFixedWidth(400);
  QCoreApplication::processEvents();
  EXPECT_EQ(box.font().pointSizeF(), own);
  box.setFixedWidth(112);
  box.setText(QStringLiteral("9.99"));
  QCoreApplication::processEvents();
  EXPECT_EQ(box.font().pointSizeF(), own);
}

// As a cell of a sheet is painted.
TEST(FigureFit, GivesAFontInWhichEveryDigitHasRoom) {
  const QFont own = figureFont();
  EXPECT_EQ(fittedFigureFont(own, QStringLiteral("493827156400.00"), 400), own);
  for (const int room : {60, 80, 100}) {
    const QString figure = QStringLiteral("493827156400.00");
    EXPECT_LE(QFontMetrics(fittedFigureFont(own, figure, room)).horizontalAdvance(figure), room);
  }
}

}  // namespace
}  // namespace velmo::forms
