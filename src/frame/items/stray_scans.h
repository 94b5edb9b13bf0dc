#pragma once

#include <vector>

class QWidget;

namespace velmo::frame {

class ItemGrid;

// A scan that goes astray on a screen only changes nothing: one that is read while no item code of the grids waits for
// it does not reach the controls that it would leave with another day, choice or figure, and a beep tells of it.
void dropStrayScans(QWidget& screen, std::vector<ItemGrid*> grids);

}  // namespace velmo::frame
