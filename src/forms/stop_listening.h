#pragma once

class QWidget;

namespace velmo::forms {

// Ends the connections from everything within the widget to itself. The first step of the destructor of a widget that
// listens to its children: they go one after the other, and may speak as they do (a box that loses the focus says that
// its editing is finished), when what their words lead to is gone already.
void stopListening(QWidget& widget);

}  // namespace velmo::forms
