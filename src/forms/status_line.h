#pragma once

#include <QString>

class QWidget;

namespace velmo::forms {

// Says something in the status line of the main window that holds the widget, until it is told otherwise; "" takes back
// what was said. Without a main window nobody reads it.
void tellInStatusLine(QWidget& from, const QString& sentence);

}  // namespace velmo::forms
