#pragma once

class QLineEdit;

namespace velmo::forms {

// From now on a figure that is wider than its box is written smaller, so that no digit of it is lost; the tool tip
// holds it as well then. A figure is what stands at the right.
void keepFigureWhole(QLineEdit& box);

}  // namespace velmo::forms
