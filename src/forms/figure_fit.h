#pragma once

class QFont;
class QLineEdit;
class QString;

namespace velmo::forms {

// From now on a figure that is wider than its box is written smaller, so that no digit of it is lost; the tool tip
// holds it as well then. A figure is what stands at the right.
void keepFigureWhole(QLineEdit& box);

// The font in which a figure takes no more than so many pixels, down to half the size of its own.
QFont fittedFigureFont(const QFont& own, const QString& figure, int room);

}  // namespace velmo::forms
