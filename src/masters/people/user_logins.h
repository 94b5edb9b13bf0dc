#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The users who may log in, ten at most: the administrator and the operators.
QWidget* makeUserLogins(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
