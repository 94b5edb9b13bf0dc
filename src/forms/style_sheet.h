#pragma once

#include <QString>

#include "forms/look.h"

class QPalette;

namespace velmo::forms {

// The style sheet of the program: what a palette cannot say. Colours come from the palette and the look only.
QString styleSheet(const QPalette& palette, const Colours& look, Brightness brightness);

}  // namespace velmo::forms
