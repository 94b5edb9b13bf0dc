#pragma once

#include <QColor>
#include <QFont>

class QAbstractButton;
class QApplication;
class QLabel;
class QLayout;
class QWidget;

namespace velmo::forms {

enum class Brightness { Light, Dark };

// The spacing grid, in device-independent pixels. Every margin and gap of a screen is one of these.
namespace spacing {
inline constexpr int Tight = 4;     // between a label and its field, within a group of buttons
inline constexpr int Normal = 8;    // between rows and columns of fields
inline constexpr int Section = 16;  // between groups, and the margin of a screen
inline constexpr int Page = 32;     // around a card that stands alone
}  // namespace spacing

// The colours that have no role of their own in a QPalette.
struct Colours {
  QColor accent;     // primary button, focus, selection, links
  QColor onAccent;   // text on accent
  QColor border;     // outlines of fields and cards
  QColor quietText;  // captions and hints
  QColor card;       // panels that stand out of the window
  QColor warning;    // figures and words that call for attention
};

// What the desktop asks for, by the palette the application started with.
Brightness desktopBrightness();

// Style, palette, fonts and style sheet of the whole program. To be called once, before the first window is made.
void applyLook(QApplication& application, Brightness brightness);

// The colours of the look in force.
const Colours& colours();

// The program's font with figures of equal width, for every number that stands in a column or under a total.
QFont figureFont();

// The one button of a screen that does what the screen is for.
void makePrimary(QAbstractButton& button);
// A button that is needed seldom: text only until it is pointed at.
void makeQuiet(QAbstractButton& button);
// A field or label that holds a total: larger, bold, tabular figures, at the right.
void makeTotal(QWidget& widget);
// A label above or beside fields, in the quiet colour.
void makeCaption(QLabel& label);
void makeHeading(QLabel& label);
// A frame that stands out of the window's ground.
void makeCard(QWidget& frame);

// Margins and gap of a layout, from the spacing grid.
void setGrid(QLayout& layout, int margin, int gap = spacing::Normal);

}  // namespace velmo::forms
