#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The catalogue of goods: categories, sub categories, items.
QWidget* makeModifyInventory(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
