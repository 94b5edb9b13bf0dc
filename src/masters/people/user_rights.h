#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// What each operator may not do.
QWidget* makeUserRights(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
