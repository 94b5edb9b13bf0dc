#include "forms/name_box.h"

#include <QLineEdit>

namespace velmo::forms {

void showFromBeginning(QLineEdit& box) {
  QObject::connect(&box, &QLineEdit::textChanged, &box, [&box](const QString& text) {
    if (box.hasFocus()) return;
    box.setCursorPosition(0);
    constexpr int aroundText = 20;  // the frame's padding, at both sides together
    box.setToolTip(box.fontMetrics().horizontalAdvance(text) > box.width() - aroundText ? text : QString());
  });
}

void makeNameBox(QLineEdit& box) {
  box.setReadOnly(true);
  box.setFocusPolicy(Qt::NoFocus);
  showFromBeginning(box);
}

}  // namespace velmo::forms
