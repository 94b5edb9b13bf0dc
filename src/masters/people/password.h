#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The user's own password.
QWidget* makePassword(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
