#pragma once

#include <QString>
#include <string>

class QGridLayout;
class QLineEdit;
class QWidget;

namespace velmo::forms {
class NumberBox;
}

namespace velmo::frame {

inline constexpr int figureWidth = 100;  // pixels; nine digits, a point and parentheses in the font of figures

// Puts a field of a totals panel into the grid, its caption right-aligned before it, which also names it to a screen
// reader. A field takes two columns.
void addCaptioned(QGridLayout& grid, int row, int column, QWidget& field, const QString& caption);

// The same with a new box that shows a figure and takes no focus.
QLineEdit* addFigure(QGridLayout& grid, int row, int column, const char* name, const QString& caption);

// Shows a typed amount as it is counted while it is typed: it stays as it stands, unless another amount is counted in
// its place.
void showTyped(forms::NumberBox& box, const std::string& counted);
// Shows a typed amount as it is counted, also while the keyboard is still in its box.
void finishTyping(forms::NumberBox& box, const std::string& counted);

}  // namespace velmo::frame
