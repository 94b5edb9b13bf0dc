#pragma once

class QLineEdit;

namespace velmo::forms {

// From now on a text that is put into the box shows from its beginning, and whole in the tool tip where it is longer
// than the box.
void showFromBeginning(QLineEdit& box);

// A box that shows the name behind a code: nobody types into it.
void makeNameBox(QLineEdit& box);

}  // namespace velmo::forms
