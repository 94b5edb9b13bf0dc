#pragma once

#include <optional>

class QWidget;

namespace velmo::masters {

// Asks for a number of copies from 1 to `most`; nothing when the user gives it up.
std::optional<int> askLabelCopies(QWidget* parent, int most);

}  // namespace velmo::masters
