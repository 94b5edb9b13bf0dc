#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// Which inward and which outward document moves stock, from now on.
QWidget* makeInventorySettings(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
