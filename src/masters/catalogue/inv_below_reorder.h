#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The goods whose stock has fallen to their re-order level: a list to look at and to print.
QWidget* makeInvBelowReorder(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
